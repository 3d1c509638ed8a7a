// The dumps of errors that come before a procedure has computed its locals: each shows its first value.

#include "tests/foundation/dump_text.h"
#include "tests/toolbar/buttons_access.h"
#include "tests/toolbar/input_fixture.h"

namespace strandline {
namespace {

class FirstValues : public InputTest {
 protected:
  // Runs it; of the dump of the first error in it: the parameters and the locals.
  std::string Dumped(const std::function<void()>& run) {
    world->errors.log.clear();
    world->errors.Answer({Variant(vbwProtector::kDump)});
    run();
    world->errors.Answer({});
    TakeErrors();
    const std::string text = DumpText(world->errors.log);
    const std::string local = "[LOCAL]\n";
    const std::size_t end = text.find("[MODULE]");
    EXPECT_TRUE(text.starts_with(local) && end != std::string::npos) << text;
    return text.substr(local.size(), end - local.size());
  }
};

TEST_F(FirstValues, OfAnIconOfACellThatNoStripHas) {
  BeginWithToolbar();
  Boolean erase = true;
  EXPECT_EQ(Dumped([&] { Strip().PaintIcon(99, 5, erase); }),
            "index = 99\ndestHdc = 5\nforceEraseBackground = True\n"
            "pic = no picture\nhandle = 0\nwidth = 0\nheight = 0\n");
}

// Its context is there by then; the cells aren't painted yet.
TEST_F(FirstValues, OfAFrame) {
  BeginWithoutAds();
  ButtonsAccess::LosePainter(Strip());
  const std::string told = Dumped([&] { toolbar->Redraw(); });
  const std::string parameters =
      "activeDocHwnd = " + std::to_string(world->Top()) + "\nupdateRects = True\nforceRepaint = True\nhdc = ";
  EXPECT_TRUE(told.starts_with(parameters)) << told;
  EXPECT_TRUE(told.ends_with("\ni = 0\n")) << told;
}

TEST_F(FirstValues, OfLumivexsIcon) {
  BeginWithToolbar();
  EXPECT_EQ(Dumped([&] {
              world->word.Faults().Arm("productState", "lumivexEnabled");
              Strip().UpdateLumivexIcon();
            }),
            "hdc = 0\n");
}

TEST_F(FirstValues, OfTheWindowsPlace) {
  BeginWithToolbar();
  const Rect place = world->RectOf(world->Bar());
  world->desk.Host().MoveWindow(world->Bar(), {40000, place.top, 40100, place.bottom});
  const std::string told = Dumped([&] { Strip().UpdateButtonRects(); });
  EXPECT_TRUE(told.starts_with("left = 0\ntop = 0\nrectangle.left = 40000\n")) << told;
}

// The point is in the strip's area, and no cell can be asked for it.
TEST_F(FirstValues, OfAMove) {
  BeginWithCells();
  world->word.PlaceCell(16, {550, 3, 50000, 37});
  Strip().UpdateButtonRects();
  MoveTo(5);
  EXPECT_EQ(Dumped([&] { Strip().HandleMouseMove(false, 40000, 20, false); }),
            "lbuttonDown = False\nx = 40000\ny = 20\nhasChangedParentWindows = False\n"
            "newHighlightedButton = 0\noldHighlightIndex = 0\nhdc = 0\n");
}

TEST_F(FirstValues, OfTheMenusDrop) {
  BeginWithToolbar();
  ButtonsAccess::LoseMenu(Strip());
  EXPECT_EQ(Dumped([&] { Strip().HandleMenuDrop(); }), "hdc = 0\n");
}

TEST_F(FirstValues, OfTheHooksEvent) {
  Begin();
  toolbar = New<Toolbar>();  // without a strip
  EXPECT_EQ(Dumped([&] { Say(wm::kNcMouseMove, 3, {}); }),
            "uMsg = 160\nwParam = 3\nlParam = 0\nretValue = 0\nCancel = False\n"
            "processCount = 0\nforceUpdate = False\nnewHwnd = 0\nbuttons = Nothing\n");
}

TEST_F(FirstValues, OfTheStart) {
  Begin();
  toolbar = New<Toolbar>();
  EXPECT_EQ(Dumped([&] {
              world->word.Faults().Arm("Documents", "Count");
              toolbar->Initialize(world->Top());
            }),
            "parentHwnd = " + std::to_string(world->Top()) + "\ntime = 0\n");
}

}  // namespace
}  // namespace strandline
