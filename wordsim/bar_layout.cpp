#include "wordsim/bar_layout.h"

#include <algorithm>

namespace strandline::wordsim {

bool IsVertical(BarPosition position) { return position == BarPosition::kLeft || position == BarPosition::kRight; }

Point BarOrigin(BarPosition position) {
  if (position == BarPosition::kFloating) return {kBarMargin, kFloatingTitle + kBarMargin};
  return IsVertical(position) ? Point{kBarMargin, kBarGrip} : Point{kBarGrip, kBarMargin};
}

Size NaturalBarSize(std::span<const BarCell> cells, BarPosition position) {
  const bool vertical = IsVertical(position);
  Long along = 0;
  Long across = 0;
  for (const BarCell& cell : cells) {
    if (!cell.isVisible) continue;
    along += vertical ? cell.height : cell.width;
    across = std::max(across, vertical ? cell.width : cell.height);
  }
  if (across == 0) across = kEmptyBarHeight;
  const Point origin = BarOrigin(position);
  if (vertical) return {origin.x + across + kBarMargin, origin.y + along + kBarMargin};
  return {origin.x + along + kBarMargin, origin.y + across + kBarMargin};
}

void LayOutCells(std::span<const BarCell> cells, BarPosition position, Size bar, std::vector<CellPlace>& places) {
  const bool vertical = IsVertical(position);
  const Long end = (vertical ? bar.height : bar.width) - kBarMargin;
  Point at = BarOrigin(position);
  places.resize(cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const BarCell& cell = cells[i];
    CellPlace& place = places[i];
    if (cell.fixed) {
      place = {*cell.fixed, cell.isDropped.value_or(false), true};
      continue;
    }
    const Rect flow{at.x, at.y, at.x + cell.width, at.y + cell.height};
    const bool fits = (vertical ? flow.bottom : flow.right) <= end;
    place.isDropped = !cell.isVisible || cell.isDropped.value_or(!fits);
    if (!place.isDropped || !place.wasPlaced) place.place = flow;
    place.wasPlaced = true;
    if (!cell.isVisible) continue;
    (vertical ? at.y : at.x) += vertical ? cell.height : cell.width;
  }
}

void LayOutRow(std::span<RowEntry> entries, Long room) {
  Long behind = 0;
  for (const RowEntry& entry : entries) behind += entry.length;
  Long free = 0;
  for (RowEntry& entry : entries) {
    entry.start = std::max(free, std::min(entry.offset, room - behind));
    behind -= entry.length;
    entry.length = std::max<Long>(0, std::min(entry.length, room - entry.start));
    free = entry.start + entry.length;
  }
}

}  // namespace strandline::wordsim
