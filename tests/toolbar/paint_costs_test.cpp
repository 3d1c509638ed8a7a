// What a paint costs: each call of windows and graphics, each use of Word and the product, in order. A paint comes
// often and stands between the user and the screen, so what it does is counted here, call by call.

#include "tests/support/allocations.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class PaintCosts : public ToolbarTest {
 protected:
  void BeginWith(const char16_t* version, bool lumivex) {
    wordsim::Settings settings = WordOf(version);
    settings.lumivexEnabled = lumivex;
    BeginWithToolbar(settings);
    // One of them is behind: what the first of all may set up for good is set up.
    world->Send(wm::kPaint);
    trace().Name(Frame(), "frame");
    trace().Name(Background(), "background");
  }
  std::string PaintLines() {
    trace().Listen(Trace::kUses | Trace::kWindows | Trace::kTimers | Trace::kContexts | Trace::kObjects |
                   Trace::kDrawing | Trace::kPictures);
    world->Send(wm::kPaint);
    return trace().TakeText();
  }
  std::string Version() { return "get Application Version = " + ToUtf8(world->word.TheSettings().wordVersion) + "\n"; }
  std::string RectText(const Rect& r) {
    return "[" + std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) + " " +
           std::to_string(r.bottom) + "]";
  }
  std::string Extent(const Rect& r) {
    return std::to_string(r.right - r.left) + ", " + std::to_string(r.bottom - r.top);
  }
  // The question whether the size differs: on Word 2000 first who is in front.
  std::string AskForSize(const char16_t* version) {
    return Version() + (String(version) == u"9.0" ? "GetForegroundWindow() = top 1\n" : "") + "GetWindowRect(bar 1, " +
           RectText(world->RectOf(world->Bar())) + ")\n";
  }
  // The clean cell 14 on a target: the picture on the clean piece of the bar, put down in one copy. `dc` and `bitmap`
  // number the first of the handles that show up.
  std::string CleanLumivexCell(const std::string& target, int dc, int bitmap) {
    const Rect r = world->word.CellPlace(14);
    const std::string cell = std::to_string(r.left) + ", " + std::to_string(r.top);
    const std::string source = "dc " + std::to_string(dc);
    const std::string scratch = "dc " + std::to_string(dc + 1);
    const std::string picture = "bitmap " + std::to_string(bitmap);
    const std::string ground = "bitmap " + std::to_string(bitmap + 1);
    return "picture 114\n"
           "CreateCompatibleDC(" +
           target + ") = " + source + "\n" + "SelectObject(" + source + ", " + picture + ") = stock\n" +
           "CreateCompatibleDC(" + target + ") = " + scratch + "\n" + "CreateCompatibleBitmap(" + target + ", " +
           Extent(r) + ") = " + ground + "\n" + "SelectObject(" + scratch + ", " + ground + ") = stock\n" + "BitBlt(" +
           scratch + ", 0, 0, " + Extent(r) + ", background, " + cell + ", SRCCOPY)\n" +
           // 32 by 32 in a cell that is 38 by 34
           "ColorKeyBlt(" + scratch + ", 3, 1, 32, 32, " + source + ", 0, 0, 16711680)\n" + "BitBlt(" + target + ", " +
           cell + ", " + Extent(r) + ", " + scratch + ", 0, 0, SRCCOPY)\n" + "SelectObject(" + scratch +
           ", stock) = " + ground + "\n" + "DeleteObject(" + ground + ")\n" + "DeleteDC(" + scratch + ")\n" +
           "SelectObject(" + source + ", stock) = " + picture + "\n" + "DeleteObject(" + picture + ")\n" + "DeleteDC(" +
           source + ")\n";
  }
  std::string SunkenLumivexCell(const std::string& target) {
    return "DrawEdge(" + target + ", " + RectText(world->word.CellPlace(14)) + ", 10, 15)\n";
  }
};

struct CostCase {
  const char16_t* version;
  bool lumivex;
};

constexpr CostCase kCostCases[] = {{u"9.0", false}, {u"9.0", true},   {u"10.0", false},
                                   {u"10.0", true}, {u"11.0", false}, {u"11.0", true}};

TEST_F(PaintCosts, APaintThatChangesNothing_CostsExactlyThis) {
  for (const CostCase& each : kCostCases) {
    SCOPED_TRACE(ToUtf8(each.version) + (each.lumivex ? " with Lumivex" : ""));
    BeginWith(each.version, each.lumivex);
    const bool wordMayPaint = String(each.version) != u"11.0";
    const Rect bar = world->RectOf(world->Bar());
    const std::string state = std::string("get productState lumivexEnabled = ") + (each.lumivex ? "True\n" : "False\n");
    std::string expected = Version();                        // whether Word paints first
    if (wordMayPaint) expected += AskForSize(each.version);  // whether it has to
    expected +=
        "BeginPaint(bar 1, [0 0 0 0]) = dc 1\n"
        "GetDC(bar 1) = dc 2\n";
    expected += AskForSize(each.version);  // whether the frame still fits
    expected += state;
    if (each.lumivex) {
      expected += SunkenLumivexCell("frame") + "GetDC(bar 1) = dc 3\n" + SunkenLumivexCell("dc 3");
    } else {
      expected += CleanLumivexCell("frame", 3, 1) + "GetDC(bar 1) = dc 5\n" + CleanLumivexCell("dc 5", 6, 3);
    }
    expected += std::string("ReleaseDC(bar 1, ") + (each.lumivex ? "dc 3" : "dc 5") + ")\n";
    expected += "BitBlt(dc 2, 0, 0, " + Extent(bar) +
                ", frame, 0, 0, SRCCOPY)\n"
                "ReleaseDC(bar 1, dc 2)\n"
                "EndPaint(bar 1, [0 0 0 0])\n";
    EXPECT_EQ(PaintLines(), expected);
  }
}

TEST_F(PaintCosts, APaintThatReadsTheCells_CostsTheirReadingMore) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWith(version, true);
    const std::string plain = PaintLines();
    trace().Listen(Trace::kUses);
    Strip().UpdateButtonRects();
    const std::size_t reading = trace().Take().size();
    EXPECT_EQ(reading, 4u + 6u + 1u + 16u * 8u) << "the bar and its controls, the first one, the count, and each";
    world->Send(wm::kSize);
    world->Send(wm::kPaint);
    trace().Listen(Trace::kUses);
    world->Send(wm::kPaint);
    const std::size_t withCells = trace().Take().size();
    trace().Listen(Trace::kUses);
    world->Send(wm::kPaint);
    EXPECT_EQ(withCells - trace().Take().size(), reading);
  }
}

TEST_F(PaintCosts, APaint_LeavesAsManyHandlesAsItFound) {
  for (const CostCase& each : kCostCases) {
    BeginWith(each.version, each.lumivex);
    const int contexts = world->Contexts();
    const int bitmaps = world->Bitmaps();
    for (int i = 0; i < 20; ++i) world->Send(wm::kPaint);
    EXPECT_EQ(world->Contexts(), contexts);
    EXPECT_EQ(world->Bitmaps(), bitmaps);
  }
}

TEST_F(PaintCosts, APaint_LoadsNoPictureButLumivexsOwnWhileThatIsOff) {
  for (const CostCase& each : kCostCases) {
    BeginWith(each.version, each.lumivex);
    trace().Listen(Trace::kPictures);
    world->Send(wm::kPaint);
    EXPECT_EQ(trace().TakeText(), each.lumivex ? "" : "picture 114\npicture 114\n");
  }
}

// A message that isn't handled costs the hook two tests.
TEST_F(PaintCosts, AMessageThatIsNotHandled_AsksNobodyAnything) {
  BeginWith(u"11.0", true);
  trace().Listen(~static_cast<unsigned>(Trace::kHooks | Trace::kProcedures));
  world->Send(1024, 1, 2);
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(PaintCosts, AMessageThatIsNotHandled_TakesNoMemoryInTheHook) {
  BeginWith(u"11.0", true);
  trace().Listen(0);
  Long answer = 0;
  Boolean cancel = false;
  const std::size_t before = AllocationsSoFar();
  for (int i = 0; i < 100; ++i) toolbar->mHook_BeforeMessage(1024, 1, 2, answer, cancel);
  EXPECT_EQ(AllocationsSoFar(), before);
}

}  // namespace
}  // namespace strandline
