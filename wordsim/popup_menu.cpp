#include "wordsim/popup_menu.h"

#include <algorithm>

#include "wordsim/bar_controls.h"
#include "wordsim/document_frame.h"
#include "wordsim/paint_colours.h"
#include "wordsim/window_part.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kShowInPlace = 8;
constexpr Long kEntryHeight = 20;
constexpr Long kFrame = 2;       // around the entries
constexpr Long kFaces = 24;      // width of the column of faces
constexpr Long kTextMargin = 8;  // to either side of the text

Point PointOf(Long lParam) { return {static_cast<Integer>(lParam & 0xFFFF), static_cast<Integer>(lParam >> 16)}; }

String WithoutMarks(TextView caption) {
  std::u16string plain;
  for (char16_t c : caption) {
    if (c != u'&') plain += c;
  }
  return plain;
}

bool Contains(const Rect& area, Point point) {
  return point.x >= area.left && point.x < area.right && point.y >= area.top && point.y < area.bottom;
}

}  // namespace

Rect PlaceOfMenu(Size size, const Rect& control, const Rect& bar, const Rect& screen) {
  const bool isUpright = bar.bottom - bar.top > bar.right - bar.left;
  Point at;
  if (isUpright) {
    const bool fitsRight = bar.right + size.width <= screen.right || bar.left - size.width < screen.left;
    at = {fitsRight ? bar.right : bar.left - size.width,
          std::max(screen.top, std::min(control.top, screen.bottom - size.height))};
  } else {
    const bool fitsBelow = bar.bottom + size.height <= screen.bottom || bar.top - size.height < screen.top;
    at = {std::max(screen.left, std::min(control.left, screen.right - size.width)),
          fitsBelow ? bar.bottom : bar.top - size.height};
  }
  return {at.x, at.y, at.x + size.width, at.y + size.height};
}

PopupMenu::PopupMenu(FrameServices& services, const BarControls& entries, const Rect& control, const Rect& bar)
    : mServices(services), mEntries(entries) {
  Windows& windows = *services.platform.windows;
  Rect screen;
  windows.GetWindowRect(windows.GetDesktopWindow(), screen);
  mHwnd =
      services.host.CreateWindowOf(u"MsoCommandBarPopup", u"", 0, PlaceOfMenu(FullSize(), control, bar, screen), this);
  services.names.Add(mHwnd, "popup");
  services.host.BringWindowToTop(mHwnd);
  windows.ShowWindow(mHwnd, kShowInPlace);
  services.host.SetCapture(mHwnd);
}

PopupMenu::~PopupMenu() {
  if (mServices.platform.windows->GetCapture() == mHwnd) mServices.platform.windows->ReleaseCapture();
  mServices.host.DestroyWindow(mHwnd);
}

std::vector<BarControl*> PopupMenu::Shown() const {
  std::vector<BarControl*> shown;
  for (const auto& entry : mEntries.All()) {
    if (entry->IsVisible()) shown.push_back(entry.get());
  }
  return shown;
}

Size PopupMenu::FullSize() const {
  Long widest = 0;
  const std::vector<BarControl*> shown = Shown();
  for (const BarControl* entry : shown) {
    widest = std::max(widest, mServices.canvas.TextWidth(WithoutMarks(entry->Caption())));
  }
  return {2 * kFrame + kFaces + widest + 3 * kTextMargin, 2 * kFrame + kEntryHeight * static_cast<Long>(shown.size())};
}

Rect PopupMenu::PlaceOf(const BarControl& entry) const {
  const std::vector<BarControl*> shown = Shown();
  const auto found = std::find(shown.begin(), shown.end(), &entry);
  if (found == shown.end()) return {};
  Rect place;
  mServices.platform.windows->GetWindowRect(mHwnd, place);
  const Long top = place.top + kFrame + kEntryHeight * static_cast<Long>(found - shown.begin());
  return {place.left + kFrame, top, place.right - kFrame, top + kEntryHeight};
}

BarControl* PopupMenu::EntryAt(Point inside) const {
  mServices.platform.windows->ClientToScreen(mHwnd, inside);
  for (BarControl* entry : Shown()) {
    if (Contains(PlaceOf(*entry), inside)) return entry;
  }
  return nullptr;
}

Long PopupMenu::OnMessage(Long hwnd, Long message, Long wParam, Long lParam) {
  switch (message) {
    case wm::kPaint: {
      PaintStruct paint;
      if (const Long hdc = mServices.platform.graphics->BeginPaint(hwnd, paint)) Paint(hdc);
      mServices.platform.graphics->EndPaint(hwnd, paint);
      return 0;
    }
    case wm::kMouseMove:
      Hover(PointOf(lParam));
      return 0;
    case wm::kLButtonDown:
    case wm::kLButtonDblClk:
    case wm::kRButtonDown: {
      Point inside = PointOf(lParam);
      Rect place;
      mServices.platform.windows->GetWindowRect(hwnd, place);
      mServices.platform.windows->ClientToScreen(hwnd, inside);
      if (!Contains(place, inside)) mServices.world.CloseMenu();  // which ends this object
      return 0;
    }
    case wm::kLButtonUp:
      return Released(PointOf(lParam));
    default:
      return HandleAsPart(mServices.host, hwnd, message, wParam, lParam);
  }
}

// What is picked closes the menu, and so ends this object.
Long PopupMenu::Released(Point inside) {
  BarControl* const entry = EntryAt(inside);
  if (entry && entry->IsEnabled()) mServices.world.Pick(*entry);
  return 0;
}

void PopupMenu::Hover(Point inside) {
  const BarControl* const entry = EntryAt(inside);
  const bool isCaptured = mServices.platform.windows->GetCapture() == mHwnd;
  if (!entry && isCaptured) return mServices.world.CloseMenu();
  if (entry == mHovered) return;
  mHovered = entry;
  mServices.host.InvalidateWindow(mHwnd);
}

void PopupMenu::Paint(Long hdc) const {
  Rect place;
  mServices.platform.windows->GetWindowRect(mHwnd, place);
  const Long right = place.right - place.left;
  const Long bottom = place.bottom - place.top;
  HostCanvas& canvas = mServices.canvas;
  canvas.FillRectangle(hdc, {0, 0, right, bottom}, kMenuEdge);
  canvas.FillRectangle(hdc, {1, 1, right - 1, bottom - 1}, kMenuFace);
  canvas.FillRectangle(hdc, {1, 1, kFaces, bottom - 1}, mServices.world.Version() >= 11 ? kDockFace : kClassicFace);
  Long top = kFrame;
  for (const BarControl* entry : Shown()) {
    PaintEntry(hdc, *entry, {kFrame, top, right - kFrame, top + kEntryHeight});
    top += kEntryHeight;
  }
}

void PopupMenu::PaintEntry(Long hdc, const BarControl& entry, const Rect& row) const {
  HostCanvas& canvas = mServices.canvas;
  if (&entry == mHovered && entry.IsEnabled()) {
    canvas.FillRectangle(hdc, row, kMenuEdge);
    canvas.FillRectangle(hdc, {row.left + 1, row.top + 1, row.right - 1, row.bottom - 1}, kHoverFace);
  }
  if (const Picture& face = entry.Face()) {
    canvas.DrawBitmap(hdc, {row.left, row.top, kFaces, row.bottom}, face->Handle(), kFaceKey);
  }
  canvas.DrawTextLine(hdc, kFaces + kTextMargin, row.top + (kEntryHeight - canvas.TextHeight()) / 2,
                      WithoutMarks(entry.Caption()), entry.IsEnabled() ? kBlack : kClassicShadow);
}

}  // namespace strandline::wordsim
