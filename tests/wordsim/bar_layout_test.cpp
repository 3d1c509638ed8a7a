#include "wordsim/bar_layout.h"

#include <gtest/gtest.h>

#include <numeric>

namespace strandline::wordsim {
namespace {

std::vector<BarCell> ThreeCells() {
  std::vector<BarCell> cells(3);
  cells[0].width = 20;
  cells[1].width = 30;
  cells[2].width = 100;
  for (BarCell& cell : cells) cell.height = 34;
  return cells;
}

TEST(BarLayout, CellsStandInARow_BehindTheGrip) {
  std::vector<CellPlace> places;
  const auto cells = ThreeCells();
  const Size size = NaturalBarSize(cells, BarPosition::kTop);
  EXPECT_EQ(size, (Size{kBarGrip + 150 + kBarMargin, 34 + 2 * kBarMargin}));
  LayOutCells(cells, BarPosition::kTop, size, places);
  EXPECT_EQ(places[0].place, (Rect{8, 3, 28, 37}));
  EXPECT_EQ(places[2].place, (Rect{58, 3, 158, 37}));
  for (const CellPlace& place : places) EXPECT_FALSE(place.isDropped);
}

TEST(BarLayout, AtASide_CellsStandInAColumn) {
  std::vector<CellPlace> places;
  const auto cells = ThreeCells();
  const Size size = NaturalBarSize(cells, BarPosition::kRight);
  LayOutCells(cells, BarPosition::kRight, size, places);
  EXPECT_EQ(places[1].place, (Rect{3, 42, 33, 76}));
  EXPECT_EQ(size.width, 100 + 2 * kBarMargin);
}

TEST(BarLayout, AFloatingBar_HasATitleAboveItsCells) {
  std::vector<CellPlace> places;
  const auto cells = ThreeCells();
  LayOutCells(cells, BarPosition::kFloating, NaturalBarSize(cells, BarPosition::kFloating), places);
  EXPECT_EQ(places[0].place, (Rect{3, kFloatingTitle + 3, 23, kFloatingTitle + 37}));
}

TEST(BarLayout, CellsThatDontFit_AreDroppedFromTheEnd_AndKeepTheirPlaces) {
  std::vector<CellPlace> places;
  const auto cells = ThreeCells();
  LayOutCells(cells, BarPosition::kTop, NaturalBarSize(cells, BarPosition::kTop), places);
  const Rect former = places[2].place;
  LayOutCells(cells, BarPosition::kTop, {100, 40}, places);
  EXPECT_FALSE(places[1].isDropped);
  EXPECT_TRUE(places[2].isDropped);
  EXPECT_EQ(places[2].place, former);
  LayOutCells(cells, BarPosition::kTop, {200, 40}, places);
  EXPECT_FALSE(places[2].isDropped);
}

TEST(BarLayout, WhatIsFixedOrDroppedByHand_Stays) {
  std::vector<CellPlace> places;
  auto cells = ThreeCells();
  cells[0].isDropped = true;
  cells[1].fixed = Rect{500, 600, 510, 620};
  cells[2].isDropped = false;
  LayOutCells(cells, BarPosition::kTop, {20, 40}, places);
  EXPECT_TRUE(places[0].isDropped);
  EXPECT_EQ(places[1].place, (Rect{500, 600, 510, 620}));
  EXPECT_FALSE(places[1].isDropped);
  EXPECT_FALSE(places[2].isDropped);
}

TEST(BarLayout, AnInvisibleCell_TakesNoRoom) {
  std::vector<CellPlace> places;
  auto cells = ThreeCells();
  cells[0].isVisible = false;
  const Size size = NaturalBarSize(cells, BarPosition::kTop);
  LayOutCells(cells, BarPosition::kTop, size, places);
  EXPECT_EQ(places[1].place.left, kBarGrip);
  EXPECT_EQ(size.width, kBarGrip + 130 + kBarMargin);
}

TEST(BarLayout, ABarWithoutControls_HasASizeAllTheSame) {
  const Size size = NaturalBarSize({}, BarPosition::kTop);
  EXPECT_GT(size.width, 0);
  EXPECT_EQ(size.height, kEmptyBarHeight + 2 * kBarMargin);
}

struct RowCase {
  std::vector<RowEntry> entries;
  Long room;
  std::vector<Long> starts;
  std::vector<Long> lengths;
};

TEST(BarLayout, ARow_GivesEachBarItsPlace) {
  const RowCase kCases[] = {
      {{{0, 100}}, 500, {0}, {100}},
      {{{40, 100}}, 500, {40}, {100}},
      {{{999, 100}}, 500, {400}, {100}},  // pushed back into the row
      {{{0, 100}, {999, 200}}, 500, {0, 300}, {100, 200}},
      {{{0, 100}, {0, 200}}, 500, {0, 100}, {100, 200}},
      {{{0, 300}, {999, 400}}, 500, {0, 300}, {300, 200}},  // the last one is cut
      {{{0, 900}, {5, 10}}, 500, {0, 500}, {500, 0}},
  };
  for (const RowCase& one : kCases) {
    std::vector<RowEntry> entries = one.entries;
    LayOutRow(entries, one.room);
    for (std::size_t i = 0; i < entries.size(); ++i) {
      EXPECT_EQ(entries[i].start, one.starts[i]) << &one - kCases;
      EXPECT_EQ(entries[i].length, one.lengths[i]) << &one - kCases;
    }
  }
}

}  // namespace
}  // namespace strandline::wordsim
