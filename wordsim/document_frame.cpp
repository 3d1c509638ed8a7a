#include "wordsim/document_frame.h"

#include <utility>

#include "wordsim/command_bars.h"
#include "wordsim/window_part.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kHide = 0;
constexpr Long kMaximise = 3;
constexpr Long kMinimise = 6;
constexpr Long kShowInPlace = 8;
constexpr Long kRestore = 9;
constexpr Rect kNowhere{0, 0, 0, 0};

struct DockKind {
  BarPosition position;
  const char16_t* title;
};

// The last made is the first that is found.
constexpr DockKind kDocks[] = {
    {BarPosition::kBottom, u"MsoDockBottom"},
    {BarPosition::kRight, u"MsoDockRight"},
    {BarPosition::kLeft, u"MsoDockLeft"},
    {BarPosition::kTop, u"MsoDockTop"},
};

}  // namespace

DocumentFrame::DocumentFrame(FrameServices& services, bool isOutlook, const Rect& place)
    : mServices(services), mIsOutlook(isOutlook), mNormalPlace(place) {
  mTop = services.host.CreateWindowOf(isOutlook ? u"rctrl_renwnd32" : u"OpusApp", u"", 0, place, this);
  services.names.Add(mTop, "top");
  mPaper = MakeWindow(u"_WwF", u"", mTop, "paper");
  MakeDocks();
  for (const auto& bar : services.world.Bars()) {
    if (bar->Kind() == BarKind::kRibbon) continue;
    Slot slot;
    slot.bar = bar.get();
    slot.position = bar->Position();
    mSlots.push_back(std::move(slot));
  }
  SetDocumentName({});
  services.platform.windows->ShowWindow(mTop, kShowInPlace);
}

DocumentFrame::~DocumentFrame() { Close(); }

void DocumentFrame::Close() {
  for (Slot& slot : mSlots) {
    const Long hwnd = std::exchange(slot.hwnd, 0);
    if (hwnd && slot.position == BarPosition::kFloating) mServices.host.DestroyWindow(hwnd);
  }
  if (const Long top = std::exchange(mTop, 0)) mServices.host.DestroyWindow(top);
}

Long DocumentFrame::MakeWindow(const String& className, const String& title, Long parent, const char* kind) {
  const Long hwnd = mServices.host.CreateWindowOf(className, title, parent, kNowhere, this);
  mServices.names.Add(hwnd, kind);
  mServices.platform.windows->ShowWindow(hwnd, kShowInPlace);
  return hwnd;
}

void DocumentFrame::MakeDocks() {
  for (const DockKind& kind : kDocks) {
    mDocks.push_back({kind.position, MakeWindow(u"MsoCommandBarDock", kind.title, mTop, "dock")});
  }
}

void DocumentFrame::SetDocumentName(const String& name) {
  mDocumentName = name;
  const TextView program = mIsOutlook ? u"Message" : u"Microsoft Word";
  mServices.host.SetTitle(mTop, name.IsEmpty() ? String(program) : Concat({name, u" - ", program}));
  if (name.IsEmpty()) mView = PaperView::kPage;
  Repaint();
}

void DocumentFrame::SetView(PaperView view) {
  mView = view;
  Repaint();
}

FrameState DocumentFrame::State() const {
  if (mServices.platform.windows->IsIconic(mTop)) return FrameState::kMinimised;
  return mIsMaximised ? FrameState::kMaximised : FrameState::kNormal;
}

void DocumentFrame::SetState(FrameState state) {
  Windows& windows = *mServices.platform.windows;
  if (state == FrameState::kMinimised) {
    windows.ShowWindow(mTop, kMinimise);
    Arrange();
    return;
  }
  mIsMaximised = state == FrameState::kMaximised;
  windows.ShowWindow(mTop, mIsMaximised ? kMaximise : kRestore);
  MoveTo(mTop, mIsMaximised ? Where(windows.GetDesktopWindow()) : mNormalPlace);
  Arrange();
}

void DocumentFrame::SetActive(bool isActive) {
  if (isActive == mIsActive) return;
  mIsActive = isActive;
  Arrange();
  mServices.host.InvalidateWindow(mTop);
}

DocumentFrame::Slot* DocumentFrame::SlotOf(const CommandBar& bar) {
  for (Slot& slot : mSlots) {
    if (slot.bar == &bar) return &slot;
  }
  return nullptr;
}
const DocumentFrame::Slot* DocumentFrame::SlotOf(const CommandBar& bar) const {
  return const_cast<DocumentFrame*>(this)->SlotOf(bar);
}

Long DocumentFrame::DockOf(BarPosition position) const {
  for (const Dock& dock : mDocks) {
    if (dock.position == position) return dock.hwnd;
  }
  return 0;
}

// A bar of the product's comes as late as the scene has it; Word takes its time over a template's bar.
void DocumentFrame::WantBars() {
  const Settings& settings = mServices.world.TheSettings();
  for (Slot& slot : mSlots) {
    if (slot.wasWanted || !slot.bar->IsVisible()) continue;
    slot.wasWanted = true;
    if (slot.bar->Kind() != BarKind::kProduct || settings.barLate <= 0) {
      MakeBarWindow(slot);
      continue;
    }
    mServices.clock.After(settings.barLate, [weak = weak_from_this(), bar = slot.bar] {
      const auto frame = weak.lock();
      Slot* due = frame ? frame->SlotOf(*bar) : nullptr;
      if (!due || due->hwnd) return;
      frame->MakeBarWindow(*due);
      frame->Arrange();
    });
  }
}

void DocumentFrame::MakeBarWindow(Slot& slot) {
  const bool isProduct = slot.bar->Kind() == BarKind::kProduct;
  const Rect bounds = slot.hwnd ? Where(slot.hwnd) : kNowhere;
  slot.hwnd = mServices.host.CreateWindowOf(u"MsoCommandBar", slot.bar->Name(), DockOf(slot.position), bounds, this);
  slot.isShown = false;
  slot.hasFace = false;
  mServices.names.Add(slot.hwnd, isProduct ? "bar" : "drawing");
}

void DocumentFrame::Reposition(CommandBar& bar, BarPosition position) {
  Slot* slot = SlotOf(bar);
  if (!slot || slot->position == position) return;
  const Long old = slot->hwnd;
  slot->position = position;
  slot->size.reset();
  if (old) {
    MakeBarWindow(*slot);
    mServices.host.DestroyWindow(old);
  }
  Arrange();
}

bool DocumentFrame::DragBar(CommandBar& bar, BarPosition position) {
  Slot* slot = SlotOf(bar);
  if (!slot || !slot->hwnd) return false;
  const Long old = slot->hwnd;
  mServices.host.SetCapture(old);
  mServices.platform.windows->ShowWindow(old, kHide);
  slot->position = position;
  slot->size.reset();
  MakeBarWindow(*slot);
  const Long made = slot->hwnd;
  Arrange();
  // Whoever follows the bar hears of the new window here, while the old one is still there.
  mServices.host.SetCapture(made);
  mServices.platform.windows->ReleaseCapture();
  mServices.host.DestroyWindow(old);
  return true;
}

bool DocumentFrame::ResizeBar(const CommandBar& bar, Size size) {
  Slot* slot = SlotOf(bar);
  if (!slot || !slot->hwnd) return false;
  slot->size = size;
  Arrange();
  return true;
}

void DocumentFrame::ForgetBarSize(const CommandBar& bar) {
  if (Slot* slot = SlotOf(bar)) slot->size.reset();
}

void DocumentFrame::ForgetCell(const CommandBar& bar, Long control) {
  Slot* slot = SlotOf(bar);
  if (!slot || control < 1 || control > static_cast<Long>(slot->places.size())) return;
  slot->places.erase(slot->places.begin() + (control - 1));
}

Long DocumentFrame::BarWindow(const CommandBar& bar) const {
  const Slot* slot = SlotOf(bar);
  return slot ? slot->hwnd : 0;
}

CellPlace DocumentFrame::PlaceOf(const CommandBar& bar, Long control) const {
  const Slot* slot = SlotOf(bar);
  if (!slot || control < 1 || control > static_cast<Long>(slot->places.size())) return {};
  return slot->places[static_cast<std::size_t>(control - 1)];
}

Point DocumentFrame::BarOriginOnScreen(const CommandBar& bar) const {
  const Rect place = Where(BarWindow(bar));
  return {place.left, place.top};
}

void DocumentFrame::Repaint() {
  mServices.host.InvalidateWindow(mTop);
  mServices.host.InvalidateWindow(mPaper);
}

void DocumentFrame::RepaintBars() {
  for (const Slot& slot : mSlots) {
    if (slot.hwnd && slot.isShown) mServices.host.InvalidateWindow(slot.hwnd);
  }
}

void DocumentFrame::MoveTo(Long hwnd, const Rect& place) {
  if (Where(hwnd) != place) mServices.host.MoveWindow(hwnd, place);
}

Rect DocumentFrame::Where(Long hwnd) const {
  Rect place;
  if (hwnd) mServices.platform.windows->GetWindowRect(hwnd, place);
  return place;
}

Long DocumentFrame::OnMessage(Long hwnd, Long message, Long wParam, Long lParam) {
  if (message == wm::kPaint) {
    PaintStruct paint;
    const Long hdc = mServices.platform.graphics->BeginPaint(hwnd, paint);
    if (hdc) Paint(hwnd, hdc);
    mServices.platform.graphics->EndPaint(hwnd, paint);
    return 0;
  }
  if (message == wm::kPrint) {
    Paint(hwnd, wParam);
    return 0;
  }
  if (message == wm::kSize && hwnd == mTop) Arrange();
  // A macro behind a control may close the document, and this frame with it.
  const std::shared_ptr<DocumentFrame> alive = weak_from_this().lock();
  if (message >= wm::kLButtonDown && message <= wm::kRButtonDown) {
    OnButton(hwnd, message, {static_cast<Integer>(lParam & 0xFFFF), static_cast<Integer>(lParam >> 16)});
  }
  if (hwnd == mTop || hwnd == mPaper) return mServices.host.DefaultProcedure(hwnd, message, wParam, lParam);
  return HandleAsPart(mServices.host, hwnd, message, wParam, lParam);
}

// Whatever is pressed closes the menu. A control runs where it was pressed and released; the menu drops on the press.
void DocumentFrame::OnButton(Long hwnd, Long message, Point inside) {
  WordWorld& world = mServices.world;
  const Long wasPressed = std::exchange(mPressed, 0);
  const bool wasOpen = world.IsMenuOpen();
  if (message != wm::kLButtonUp) world.CloseMenu();
  for (const Slot& slot : mSlots) {
    if (slot.hwnd != hwnd || slot.bar->Kind() != BarKind::kProduct) continue;
    const Long control = ControlAt(slot, inside);
    if (control == 0 || message == wm::kRButtonDown) return;
    if (message == wm::kLButtonUp) {
      if (control == wasPressed) world.PressControl(control);
    } else if (control > 1) {
      mPressed = control;
    } else if (!wasOpen) {
      world.PressControl(control);
    }
    return;
  }
}

Long DocumentFrame::ControlAt(const Slot& slot, Point inside) const {
  const auto& controls = slot.bar->Controls().All();
  for (std::size_t i = 0; i < controls.size() && i < slot.places.size(); ++i) {
    const CellPlace& cell = slot.places[i];
    const bool isIn = inside.x >= cell.place.left && inside.x < cell.place.right && inside.y >= cell.place.top &&
                      inside.y < cell.place.bottom;
    if (isIn && controls[i]->IsVisible() && !cell.isDropped) return static_cast<Long>(i + 1);
  }
  return 0;
}

void DocumentFrame::Paint(Long hwnd, Long hdc) const {
  const Rect place = Where(hwnd);
  const Size size{place.right - place.left, place.bottom - place.top};
  const Long version = mServices.world.Version();
  HostCanvas& canvas = mServices.canvas;
  if (hwnd == mTop) {
    PaintTop(canvas, hdc, size, {mServices.platform.windows->GetWindowTextA(mTop, 255), mIsActive, version});
    return;
  }
  if (hwnd == mPaper) {
    PaintPaper(canvas, hdc, size, mDocumentName, mView);
    return;
  }
  for (const Slot& slot : mSlots) {
    if (slot.hwnd != hwnd) continue;
    PaintBar(canvas, hdc, size, *slot.bar, slot.position, slot.places, version);
    return;
  }
  PaintDock(canvas, hdc, size, version);
}

}  // namespace strandline::wordsim
