// The cells' pictures: which one, loaded when, centred where, with or without a clean ground under it.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class Icons : public ToolbarTest {
 protected:
  static constexpr const char16_t* kManual = u"Quillmere user manual.doc";

  std::string PaintAndTake(Integer index, Long hdc, Boolean& erase) {
    trace().Listen(Trace::kProcedures | Trace::kPictures);
    trace().Only(
        {"picture", "Painter.PaintIconTransparently(", "Painter.PaintDCTransparently(", "Buttons.ToggleBorder"});
    Strip().PaintIcon(index, hdc, erase);
    return trace().TakeText();
  }
};

struct PictureCase {
  Integer cell;
  Long picture;
  Long width;
  Long height;
};

// The pictures' sizes differ from the cells', which are wider and higher.
constexpr PictureCase kPictures[] = {
    {1, 101, 1, 1},    {2, 102, 32, 32},  {3, 103, 25, 30},  {4, 104, 25, 30},   {5, 105, 32, 32},  {6, 106, 30, 30},
    {7, 107, 30, 30},  {8, 108, 30, 30},  {9, 109, 30, 30},  {10, 110, 30, 30},  {11, 111, 28, 28}, {12, 112, 30, 32},
    {13, 113, 30, 32}, {14, 114, 32, 32}, {15, 115, 32, 30}, {16, 116, 223, 32},
};

TEST_F(Icons, PaintIcon_HandsThePainterThePictureOfTheCellWithCellAndSize) {
  BeginWithoutAds();
  for (const PictureCase& each : kPictures) {
    Boolean erase = false;
    const std::string told = PaintAndTake(each.cell, 0, erase);
    const Rect cell = world->word.CellPlace(each.cell);
    std::string expected = "picture " + std::to_string(each.picture) + "\nPainter.PaintIconTransparently(";
    const std::size_t after = told.find("Transparently(");
    ASSERT_NE(after, std::string::npos) << told;
    const std::string handle = told.substr(after + 14, told.find(',', after) - after - 14);
    expected += handle + ", " + std::to_string(cell.left) + ", " + std::to_string(cell.top) + ", " +
                std::to_string(cell.right - cell.left) + ", " + std::to_string(cell.bottom - cell.top) + ", " +
                std::to_string(each.width) + ", " + std::to_string(each.height) + ", 0, " +
                (each.cell == 14 || each.cell == 15 ? "True" : "False") + ")\n";
    EXPECT_EQ(told, expected);
  }
}

TEST_F(Icons, PaintIcon_LoadsThePictureAnewEachTime_AndUsesItUp) {
  BeginWithToolbar();
  const int bitmaps = world->Bitmaps();
  const int contexts = world->Contexts();
  for (int i = 0; i < 5; ++i) {
    Boolean erase = true;
    EXPECT_EQ(PaintAndTake(7, 0, erase).substr(0, 12), "picture 107\n");
    EXPECT_EQ(world->Bitmaps(), bitmaps);
    EXPECT_EQ(world->Contexts(), contexts);
  }
}

TEST_F(Icons, PaintIcon_OfNoCell_OrADroppedOne_DoesNothing) {
  BeginWithToolbar();
  world->word.DropCell(6, true);
  Strip().UpdateButtonRects();
  for (const Integer index : {0, 6}) {
    Boolean erase = false;
    EXPECT_EQ(PaintAndTake(index, 0, erase), "") << index;
  }
  trace().Listen(Trace::kPictures);
  Strip().Redraw(world->Top());
  EXPECT_EQ(Beginning(trace().Take(), "picture 106").size(), 0u);
}

TEST_F(Icons, PaintIcon_OfACellThatNoBarHas_IsAnErrorOfItsOwn) {
  BeginWithToolbar();
  Boolean erase = false;
  Strip().PaintIcon(17, 0, erase);
  Strip().PaintIcon(-1, 0, erase);
  EXPECT_EQ(TakeErrors(), "9 Buttons.PaintIcon\n9 Buttons.PaintIcon\n");
}

TEST_F(Icons, PaintIcon_OfLumivexOff_ErasesAndSaysSoToTheCaller) {
  BeginWithToolbar();
  Boolean erase = false;
  EXPECT_NE(PaintAndTake(14, 0, erase).find(", 0, True)\n"), std::string::npos);
  EXPECT_TRUE(erase);
}

TEST_F(Icons, PaintIcon_OfLumivexOn_ErasesOnlyWhereAsked_AndDrawsItsEdgeWhereNot) {
  wordsim::Settings settings;
  settings.lumivexEnabled = true;
  BeginWithToolbar(settings);
  Boolean erase = false;
  std::string told = PaintAndTake(14, Frame(), erase);
  EXPECT_NE(told.find(", False)\n"), std::string::npos) << told;
  EXPECT_NE(told.find("Buttons.ToggleBorder("), std::string::npos) << told;
  EXPECT_NE(told.find(", 14, 1)\n"), std::string::npos) << told;
  EXPECT_FALSE(erase);
  erase = true;
  told = PaintAndTake(14, Frame(), erase);
  EXPECT_NE(told.find(", True)\n"), std::string::npos) << told;
  EXPECT_EQ(told.find("Buttons.ToggleBorder("), std::string::npos) << told;
}

TEST_F(Icons, PaintIcon_OfLumivexOnIntoTheFrame_SendsItsEdgeNowhere) {
  wordsim::Settings settings;
  settings.lumivexEnabled = true;
  BeginWithToolbar(settings);
  trace().Listen(Trace::kDrawing);
  trace().Only({"DrawEdge"});
  Boolean erase = false;
  Strip().PaintIcon(14, 0, erase);
  const Rect cell = world->word.CellPlace(14);
  EXPECT_EQ(trace().TakeText(), "DrawEdge(0, [" + std::to_string(cell.left) + " " + std::to_string(cell.top) + " " +
                                    std::to_string(cell.right) + " " + std::to_string(cell.bottom) + "], 10, 15)\n");
}

TEST_F(Icons, PaintIcon_OfTheManual_ErasesAlwaysButSaysNothingOfIt) {
  BeginWithToolbar();
  Boolean erase = false;
  const std::string told = PaintAndTake(15, 0, erase);
  EXPECT_NE(told.find(", 0, True)\n"), std::string::npos) << told;
  EXPECT_EQ(told.find("ToggleBorder"), std::string::npos);
  EXPECT_FALSE(erase);
}

TEST_F(Icons, TheManualsPicture_AlternatesWithTheActiveDocument) {
  BeginWithToolbar();
  world->OpenInWord(kManual);
  Boolean erase = false;
  EXPECT_EQ(PaintAndTake(15, 0, erase).substr(0, 12), "picture 117\n");
  world->word.Activate(kDocument);
  EXPECT_EQ(PaintAndTake(15, 0, erase).substr(0, 12), "picture 115\n");
}

TEST_F(Icons, TheProductsPicture_FollowsItsName) {
  BeginWithToolbar();
  Boolean erase = false;
  const std::pair<const char16_t*, const char*> cases[] = {
      {u"Halcyra", "picture 118\n"}, {u"halcyra", "picture 102\n"}, {u"Quillmere", "picture 102\n"}};
  for (const auto& [name, expected] : cases) {
    world->word.TheProduct().Rename(name);
    EXPECT_EQ(PaintAndTake(2, 0, erase).substr(0, 12), expected);
  }
}

TEST_F(Icons, APictureThatCannotBeLoaded_CostsItsCellAlone) {
  BeginWithoutAds();
  trace().Listen(Trace::kPictures);
  bool armed = false;
  trace().during = [&](const std::string& line) {
    if (line != "picture 104" || armed) return;
    armed = true;
    world->faults.Arm("OleLoadPicture", 1);
  };
  Strip().Redraw(world->Top());
  trace().during = nullptr;
  world->faults.Clear();
  const Trace::Lines pictures = trace().Take();
  ASSERT_GE(pictures.size(), 16u);
  EXPECT_EQ(pictures[4], "picture 105 failed");
  EXPECT_EQ(pictures[15], "picture 116");
  EXPECT_EQ(TakeErrors(), "91 Buttons.PaintIcon\n");
}

TEST_F(Icons, ACellBeyondAnInteger_IsAnErrorOfItsOwnAndTheOthersArePainted) {
  BeginWithoutAds();
  world->word.PlaceCell(3, {40000, 5, 40020, 25});
  world->word.PlaceCell(4, {10, 5, 40020, 25});
  trace().Listen(Trace::kProcedures);
  trace().Only({"Painter.PaintIconTransparently("});
  Strip().Redraw(world->Top());
  EXPECT_EQ(trace().Take().size(), 16u);  // fourteen, and cell 14 twice more for Lumivex
  EXPECT_EQ(TakeErrors(), "6 Buttons.PaintIcon\n6 Buttons.PaintIcon\n");
}

}  // namespace
}  // namespace strandline
