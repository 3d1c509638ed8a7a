#pragma once

// The controls of a command bar and the entries of a popup among them; both are controls to Word.

#include <optional>
#include <string>
#include <vector>

#include "wordsim/bar_layout.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class BarControls;
class CommandBar;

class BarControl final : public SimObject {
 public:
  // A control on a bar, or (isEntry) in a popup. Sizes in pixels.
  BarControl(Ref<ObjectUses> uses, BarControls& owner, const String& caption, Size size);

  // Makes it a popup; the entries are added to what this gives.
  BarControls& MakePopup();
  BarControls* Popup() const { return mPopup.get(); }
  const String& Caption() const { return mCaption; }
  bool IsVisible() const { return mIsVisible; }
  bool IsEnabled() const { return mIsEnabled; }
  bool IsDown() const { return mState == kDown; }
  // What shows of its picture; kFaceKey is open where HasMask.
  const Picture& Face() const { return mFace; }
  bool HasMask() const { return static_cast<bool>(mMask); }
  Long PositionInOwner() const;
  BarCell Cell() const { return {mSize.width, mSize.height, mIsVisible, mFixed, mDropped}; }
  void Fix(const Rect& place) { mFixed = place; }
  void Drop(bool dropped) { mDropped = dropped; }
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  static constexpr Long kDown = -1;

  Variant LeftMember(const Call& call);
  Variant TopMember(const Call& call);
  Variant WidthMember(const Call& call);
  Variant HeightMember(const Call& call);
  Variant CaptionMember(const Call& call);
  Variant TooltipTextMember(const Call& call);
  Variant EnabledMember(const Call& call);
  Variant VisibleMember(const Call& call);
  Variant StateMember(const Call& call);
  Variant IndexMember(const Call& call);
  Variant IsPriorityDroppedMember(const Call& call);
  Variant ExecuteMember(const Call& call);
  Variant DeleteMember(const Call& call);
  Variant PictureMember(const Call& call);
  Variant MaskMember(const Call& call);
  Variant PasteFaceMember(const Call& call);
  Variant ControlsMember(const Call& call);
  void RequirePictures() const;
  void SetFace(Picture picture, Picture mask);
  CellPlace Place() const;
  Rect ScreenPlace() const;
  void SizeChanged();
  void LooksChanged();

  BarControls& mOwner;
  String mCaption;
  String mTooltipText;
  Size mSize;
  bool mIsEnabled = true;
  bool mIsVisible = true;
  Long mState = 0;
  Picture mPicture;
  Picture mMask;
  Picture mFace;
  std::optional<Rect> mFixed;
  std::optional<bool> mDropped;
  Ref<BarControls> mPopup;
};

// The controls of a bar, or of a popup on it.
class BarControls final : public SimCollection {
 public:
  BarControls(Ref<ObjectUses> uses, CommandBar& bar, BarControl* popup)
      : SimCollection(std::move(uses)), mBar(bar), mPopup(popup) {}

  Long Count() const override { return static_cast<Long>(mControls.size()); }
  Object At(Long position) const override { return mControls[static_cast<std::size_t>(position - 1)]; }
  BarControl* Control(Long position) const;  // null outside
  const std::vector<Ref<BarControl>>& All() const { return mControls; }
  BarControl& Add(const String& caption, Size size);
  void Remove(BarControl& control);
  // By caption, ampersands and case left out of account; null when there is none.
  BarControl* Find(const String& caption) const;
  Long PositionOf(const BarControl& control) const;  // 0 when it isn't one of these
  std::vector<BarCell> Cells() const;
  CommandBar& Bar() const { return mBar; }
  BarControl* PopupControl() const { return mPopup; }  // null for those of a bar
  void End();

 protected:
  std::string ObjectName() const override;
  MemberTable Members() const override;

 private:
  Variant ItemMember(const Call& call);

  CommandBar& mBar;
  BarControl* mPopup;
  std::vector<Ref<BarControl>> mControls;
};

}  // namespace strandline::wordsim
