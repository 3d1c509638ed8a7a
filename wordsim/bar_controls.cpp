#include "wordsim/bar_controls.h"

#include <algorithm>

#include "wordsim/bar_faces.h"
#include "wordsim/command_bars.h"
#include "wordsim/document_frame.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kLargestExtent = 32767;  // pixels
constexpr Long kFirstVersionWithPictures = 10;

Long ExtentFrom(const Variant& value) {
  const Long extent = value.ToLong();
  if (extent < 0 || extent > kLargestExtent) Raise(errors::kInvalidArgument);
  return extent;
}

// Captions are compared as a reader sees them: the mark of the access key isn't part of them.
String WithoutMarks(TextView caption) {
  std::u16string plain;
  for (char16_t c : caption) {
    if (c != u'&') plain += c;
  }
  return plain;
}

}  // namespace

BarControl::BarControl(Ref<ObjectUses> uses, BarControls& owner, const String& caption, Size size)
    : SimObject(std::move(uses)), mOwner(owner), mCaption(caption), mSize(size) {}

BarControls& BarControl::MakePopup() {
  mPopup = New<BarControls>(SharedUses(), mOwner.Bar(), this);
  return *mPopup;
}

void BarControl::End() {
  if (mPopup) mPopup->End();
  MarkGone();
}

Long BarControl::PositionInOwner() const { return mOwner.PositionOf(*this); }

std::string BarControl::ObjectName() const {
  const std::string number = std::to_string(PositionInOwner());
  const bool isOfProduct = mOwner.Bar().Kind() == BarKind::kProduct;
  const std::string name = (mOwner.PopupControl() ? "menu " : "control ") + number;
  return isOfProduct ? name : name + " of bar " + ToUtf8(mOwner.Bar().Name());
}

MemberTable BarControl::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&BarControl::LeftMember>("Left"),
      Readable<&BarControl::TopMember>("Top"),
      Writable<&BarControl::WidthMember>("Width"),
      Writable<&BarControl::HeightMember>("Height"),
      Readable<&BarControl::IsPriorityDroppedMember>("IsPriorityDropped"),
      Writable<&BarControl::CaptionMember>("Caption"),
      Writable<&BarControl::TooltipTextMember>("TooltipText"),
      Writable<&BarControl::EnabledMember>("Enabled"),
      Writable<&BarControl::VisibleMember>("Visible"),
      Writable<&BarControl::StateMember>("State"),
      Readable<&BarControl::ControlsMember>("Controls"),
      Method<&BarControl::ExecuteMember>("Execute"),
      Method<&BarControl::DeleteMember>("Delete", 0, 1),
      Writable<&BarControl::PictureMember>("Picture"),
      Writable<&BarControl::MaskMember>("Mask"),
      Method<&BarControl::PasteFaceMember>("PasteFace"),
      Readable<&BarControl::IndexMember>("Index"),
  };
  return kMembers;
}

CellPlace BarControl::Place() const {
  const DocumentFrame* frame = mOwner.Bar().World().ActiveFrame();
  if (mOwner.PopupControl() || !frame) return {};
  return frame->PlaceOf(mOwner.Bar(), PositionInOwner());
}

// An entry of a popup stands nowhere while the popup is closed.
Rect BarControl::ScreenPlace() const {
  const DocumentFrame* frame = mOwner.Bar().World().ActiveFrame();
  Rect place = Place().place;
  if (mOwner.PopupControl() || !frame) return place;
  const Point origin = frame->BarOriginOnScreen(mOwner.Bar());
  return {place.left + origin.x, place.top + origin.y, place.right + origin.x, place.bottom + origin.y};
}

void BarControl::SizeChanged() {
  if (!mOwner.PopupControl()) mOwner.Bar().World().ControlsResized(mOwner.Bar());
}

void BarControl::LooksChanged() {
  if (!mOwner.PopupControl()) mOwner.Bar().World().RepaintBars();
}

Variant BarControl::LeftMember(const Call&) { return ScreenPlace().left; }
Variant BarControl::TopMember(const Call&) { return ScreenPlace().top; }

Variant BarControl::WidthMember(const Call& call) {
  if (!call.IsLet()) return mFixed ? mFixed->right - mFixed->left : mSize.width;
  mSize.width = ExtentFrom(call.Value());
  if (mFixed) mFixed->right = mFixed->left + mSize.width;
  SizeChanged();
  return {};
}

Variant BarControl::HeightMember(const Call& call) {
  if (!call.IsLet()) return mFixed ? mFixed->bottom - mFixed->top : mSize.height;
  mSize.height = ExtentFrom(call.Value());
  if (mFixed) mFixed->bottom = mFixed->top + mSize.height;
  SizeChanged();
  return {};
}

Variant BarControl::CaptionMember(const Call& call) {
  if (!call.IsLet()) return mCaption;
  mCaption = call.Value().ToText();
  return {};
}

Variant BarControl::TooltipTextMember(const Call& call) {
  if (!call.IsLet()) return mTooltipText.IsEmpty() ? WithoutMarks(mCaption) : mTooltipText;
  mTooltipText = call.Value().ToText();
  return {};
}

Variant BarControl::EnabledMember(const Call& call) {
  if (!call.IsLet()) return mIsEnabled;
  mIsEnabled = call.Value().ToBoolean();
  return {};
}

Variant BarControl::VisibleMember(const Call& call) {
  if (!call.IsLet()) return mIsVisible;
  mIsVisible = call.Value().ToBoolean();
  SizeChanged();
  return {};
}

Variant BarControl::StateMember(const Call& call) {
  if (mPopup) Raise(errors::kNoSuchMember);
  if (!call.IsLet()) return mState;
  mState = call.Value().ToLong();
  LooksChanged();
  return {};
}

Variant BarControl::IndexMember(const Call&) { return PositionInOwner(); }
Variant BarControl::IsPriorityDroppedMember(const Call&) { return Place().isDropped; }

// Word executes none of its controls as long as one of its dialogs is open.
Variant BarControl::ExecuteMember(const Call&) {
  if (!mIsEnabled) Raise(errors::kInvalidArgument);
  WordWorld& world = mOwner.Bar().World();
  if (world.IsDialogOpen()) RaiseNotAvailable();
  if (mOwner.Bar().Kind() != BarKind::kProduct) return {};
  if (mOwner.PopupControl()) {
    world.Pick(*this);
  } else {
    world.Run(*this);
  }
  return {};
}

Variant BarControl::DeleteMember(const Call&) {
  mOwner.Remove(*this);
  return {};
}

// Buttons of Word 2000 have neither picture nor mask; nor does a popup.
void BarControl::RequirePictures() const {
  if (mPopup || mOwner.Bar().World().Version() < kFirstVersionWithPictures) Raise(errors::kNoSuchMember);
}

Variant BarControl::PictureMember(const Call& call) {
  RequirePictures();
  if (!call.IsLet()) return mPicture ? Variant(mPicture) : Variant(Object());
  // The mask belonged to the former picture.
  SetFace(CopyOfPicture(mOwner.Bar().World().Services(), call.Value().ToPicture()), nullptr);
  return {};
}

Variant BarControl::MaskMember(const Call& call) {
  RequirePictures();
  if (!call.IsLet()) return mMask ? Variant(mMask) : Variant(Object());
  SetFace(mPicture, CopyOfPicture(mOwner.Bar().World().Services(), call.Value().ToPicture()));
  return {};
}

Variant BarControl::PasteFaceMember(const Call&) {
  if (mPopup) Raise(errors::kNoSuchMember);
  WordWorld& world = mOwner.Bar().World();
  const auto& hook = world.TheHooks().pasteFace;
  Picture pasted = hook ? CopyOfPicture(world.Services(), hook()) : PictureOnClipboard(world.Services());
  if (!pasted) Raise(errors::kInvalidArgument);
  SetFace(std::move(pasted), nullptr);
  return {};
}

void BarControl::SetFace(Picture picture, Picture mask) {
  mPicture = std::move(picture);
  mMask = std::move(mask);
  mFace = mPicture && mMask ? FaceThroughMask(mOwner.Bar().World().Services(), mPicture, mMask) : mPicture;
  LooksChanged();
}

Variant BarControl::ControlsMember(const Call&) {
  if (!mPopup) Raise(errors::kNoSuchMember);
  return Object(mPopup);
}

BarControl* BarControls::Control(Long position) const {
  if (position < 1 || position > Count()) return nullptr;
  return mControls[static_cast<std::size_t>(position - 1)].get();
}

BarControl& BarControls::Add(const String& caption, Size size) {
  mControls.push_back(New<BarControl>(SharedUses(), *this, caption, size));
  return *mControls.back();
}

void BarControls::Remove(BarControl& control) {
  const Long position = PositionOf(control);
  if (position == 0) return;
  const Ref<BarControl> alive(&control);
  if (control.Popup()) mBar.World().CloseMenu();
  control.End();
  mControls.erase(mControls.begin() + (position - 1));
  if (!mPopup) mBar.World().ControlRemoved(mBar, position);
}

BarControl* BarControls::Find(const String& caption) const {
  const String sought = WithoutMarks(caption);
  for (const auto& control : mControls) {
    if (SameText(WithoutMarks(control->Caption()), sought)) return control.get();
  }
  return nullptr;
}

Long BarControls::PositionOf(const BarControl& control) const {
  for (std::size_t i = 0; i < mControls.size(); ++i) {
    if (mControls[i].get() == &control) return static_cast<Long>(i + 1);
  }
  return 0;
}

std::vector<BarCell> BarControls::Cells() const {
  std::vector<BarCell> cells;
  for (const auto& control : mControls) cells.push_back(control->Cell());
  return cells;
}

void BarControls::End() {
  for (const auto& control : mControls) control->End();
  MarkGone();
}

std::string BarControls::ObjectName() const {
  return "controls of " + (mPopup ? mPopup->JournalName() : mBar.JournalName());
}

MemberTable BarControls::Members() const {
  static constexpr Member kMembers[] = {
      Readable<&BarControls::ItemMember>("Item", 1),
      Readable<&BarControls::CountMember>("Count"),
  };
  return kMembers;
}

Variant BarControls::ItemMember(const Call& call) {
  const Variant index = call.Argument(0).Resolved();
  if (const String* caption = index.If<String>()) {
    BarControl* control = Find(*caption);
    if (!control) Raise(errors::kInvalidArgument);
    return Object(Ref<BarControl>(control));
  }
  const Long position = index.ToLong();
  if (position < 1 || position > Count()) Raise(errors::kSubscriptOutOfRange);
  return At(position);
}

}  // namespace strandline::wordsim
