// How a frame shares its area among docks, bars and paper.

#include <algorithm>

#include "wordsim/command_bars.h"
#include "wordsim/document_frame.h"
#include "wordsim/frame_painter.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kHide = 0;
constexpr Long kShowInPlace = 8;
constexpr Long kFirstRibbonVersion = 12;
constexpr Long kRibbonHeight = 92;
constexpr Point kFloatingOffset{160, 220};  // of a floating bar from its document's window

}  // namespace

void DocumentFrame::Arrange() {
  if (mServices.world.Version() < kFirstRibbonVersion) WantBars();
  ShowBars();
  // Where a minimised window has no place on the screen, its parts wait for its return.
  if (State() != FrameState::kMinimised || mIsMaximised || Where(mTop) == mNormalPlace) {
    ArrangeDocks();
    FloatBars();
  }
  LayOutControls();
  DrawNewBars();
}

// Word doesn't wait for a paint with the face of a bar that comes up: what looks at its window sees it at once.
void DocumentFrame::DrawNewBars() {
  for (Slot& slot : mSlots) {
    if (!slot.isShown || slot.hasFace) continue;
    slot.hasFace = true;
    const Long hdc = mServices.platform.graphics->GetDC(slot.hwnd);
    Paint(slot.hwnd, hdc);
    mServices.platform.graphics->ReleaseDC(slot.hwnd, hdc);
  }
}

void DocumentFrame::ShowBars() {
  for (Slot& slot : mSlots) {
    // A floating bar goes with its window.
    const bool mayShow = slot.position != BarPosition::kFloating || (mIsActive && State() != FrameState::kMinimised);
    if (!slot.hwnd) continue;
    // Floating bars are found by their title alone: only the active window's has one.
    if (slot.position == BarPosition::kFloating) {
      mServices.host.SetTitle(slot.hwnd, mIsActive ? slot.bar->Name() : String());
    }
    const bool show = slot.bar->IsVisible() && mayShow;
    if (show == slot.isShown) continue;
    slot.isShown = show;
    mServices.platform.windows->ShowWindow(slot.hwnd, show ? kShowInPlace : kHide);
  }
}

Size DocumentFrame::SizeOf(const Slot& slot) const {
  if (slot.size) return *slot.size;
  return NaturalBarSize(slot.bar->Controls().Cells(), slot.position);
}

std::vector<DocumentFrame::Slot*> DocumentFrame::ShownIn(BarPosition position) {
  std::vector<Slot*> shown;
  for (Slot& slot : mSlots) {
    if (slot.isShown && slot.position == position) shown.push_back(&slot);
  }
  std::stable_sort(shown.begin(), shown.end(), [](const Slot* a, const Slot* b) {
    if (a->bar->RowIndex() != b->bar->RowIndex()) return a->bar->RowIndex() < b->bar->RowIndex();
    return a->bar->Left() < b->bar->Left();
  });
  return shown;
}

Long DocumentFrame::ThicknessOf(BarPosition position) {
  const bool vertical = IsVertical(position);
  Long thickness = 0;
  Long ofRow = 0;
  Long row = 0;
  for (const Slot* slot : ShownIn(position)) {
    if (slot->bar->RowIndex() != row) {
      thickness += ofRow;
      ofRow = 0;
      row = slot->bar->RowIndex();
    }
    const Size size = SizeOf(*slot);
    ofRow = std::max(ofRow, vertical ? size.width : size.height);
  }
  return thickness + ofRow;
}

void DocumentFrame::ArrangeDocks() {
  const Rect top = Where(mTop);
  const bool hasRibbon = mServices.world.Version() >= kFirstRibbonVersion;
  Rect rest{top.left + kFrameBorder, top.top + kTitleHeight + (hasRibbon ? kRibbonHeight : kMenuHeight),
            top.right - kFrameBorder, top.bottom - kFrameBorder - kStatusHeight};
  // Top and bottom run over the whole width, the sides between them; the list of docks comes the other way round.
  for (auto dock = mDocks.rbegin(); dock != mDocks.rend(); ++dock) {
    if (IsVertical(dock->position)) continue;
    const Long thickness = ThicknessOf(dock->position);
    Rect place = rest;
    if (dock->position == BarPosition::kTop) {
      rest.top = place.bottom = place.top + thickness;
    } else {
      rest.bottom = place.top = place.bottom - thickness;
    }
    FillDock(*dock, place);
  }
  for (const Dock& dock : mDocks) {
    if (!IsVertical(dock.position)) continue;
    const Long thickness = ThicknessOf(dock.position);
    Rect place = rest;
    if (dock.position == BarPosition::kLeft) {
      rest.left = place.right = place.left + thickness;
    } else {
      rest.right = place.left = place.right - thickness;
    }
    FillDock(dock, place);
  }
  rest.right = std::max(rest.left, rest.right);
  rest.bottom = std::max(rest.top, rest.bottom);
  MoveTo(mPaper, rest);
}

void DocumentFrame::FillDock(const Dock& dock, const Rect& place) {
  MoveTo(dock.hwnd, place);
  const bool vertical = IsVertical(dock.position);
  const std::vector<Slot*> slots = ShownIn(dock.position);
  const Long room = vertical ? place.bottom - place.top : place.right - place.left;
  Long across = vertical ? place.left : place.top;
  for (std::size_t first = 0; first < slots.size();) {
    std::vector<RowEntry> row;
    Long thickness = 0;
    const Long index = slots[first]->bar->RowIndex();
    for (std::size_t i = first; i < slots.size() && slots[i]->bar->RowIndex() == index; ++i) {
      const Size size = SizeOf(*slots[i]);
      row.push_back({slots[i]->bar->Left(), vertical ? size.height : size.width});
      thickness = std::max(thickness, vertical ? size.width : size.height);
    }
    LayOutRow(row, room);
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Slot& slot = *slots[first + i];
      Size size = SizeOf(slot);
      // What a user chose stays, even where the row has no room for it.
      if (!slot.size) (vertical ? size.height : size.width) = row[i].length;
      const Long x = vertical ? across : place.left + row[i].start;
      const Long y = vertical ? place.top + row[i].start : across;
      MoveTo(slot.hwnd, {x, y, x + size.width, y + size.height});
    }
    across += thickness;
    first += row.size();
  }
}

void DocumentFrame::FloatBars() {
  const Rect top = Where(mTop);
  for (const Slot& slot : mSlots) {
    if (!slot.isShown || slot.position != BarPosition::kFloating) continue;
    const Size size = SizeOf(slot);
    const Long x = top.left + kFloatingOffset.x;
    const Long y = top.top + kFloatingOffset.y;
    MoveTo(slot.hwnd, {x, y, x + size.width, y + size.height});
    mServices.host.BringWindowToTop(slot.hwnd);
  }
}

void DocumentFrame::LayOutControls() {
  for (Slot& slot : mSlots) {
    Size size = SizeOf(slot);
    if (slot.isShown) {
      const Rect place = Where(slot.hwnd);
      size = {place.right - place.left, place.bottom - place.top};
    }
    LayOutCells(slot.bar->Controls().Cells(), slot.position, size, slot.places);
  }
}

}  // namespace strandline::wordsim
