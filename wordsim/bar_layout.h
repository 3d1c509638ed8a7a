#pragma once

// How Word lays the controls of a command bar out: in a row behind the grip (a column where the bar stands at a side),
// those at the end dropped where the bar is too short. All values are pixels.

#include <optional>
#include <span>
#include <vector>

#include "wordsim/settings.h"

namespace strandline::wordsim {

struct Size {
  Long width = 0;
  Long height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

// What a control asks for.
struct BarCell {
  Long width = 0;
  Long height = 0;
  bool isVisible = true;
  std::optional<Rect> fixed;      // stands there whatever Word would do
  std::optional<bool> isDropped;  // dropped or not whatever the room is
};

// What it gets, in the pixels of the bar's window. A dropped one keeps the place that it had.
struct CellPlace {
  Rect place;
  bool isDropped = false;
  bool wasPlaced = false;
};

inline constexpr Long kBarMargin = 3;        // around the controls
inline constexpr Long kBarGrip = 8;          // at the front of a docked bar
inline constexpr Long kFloatingTitle = 16;   // height of the title of a floating bar
inline constexpr Long kEmptyBarHeight = 22;  // where there is no control to measure

bool IsVertical(BarPosition position);
// Where the first control begins.
Point BarOrigin(BarPosition position);
// The size of a bar that has room for everything.
Size NaturalBarSize(std::span<const BarCell> cells, BarPosition position);
// Places every cell; `places` holds what the last time gave and is brought to the number of the cells.
void LayOutCells(std::span<const BarCell> cells, BarPosition position, Size bar, std::vector<CellPlace>& places);

// One bar of a dock on its way to a place: `offset` is where it would like to begin, `length` its size, along the row.
struct RowEntry {
  Long offset = 0;
  Long length = 0;
  Long start = 0;  // the answer, with the length as it is left by the room
};

// Places the bars of one row of a dock, which come in their order. Each begins where it likes, but behind the one
// before it and so early that those behind it have room; the last ones are cut where the row is too short all the same.
void LayOutRow(std::span<RowEntry> entries, Long room);

}  // namespace strandline::wordsim
