// What a move of the mouse costs. Moves come by the hundred, and most of them stay in one cell.

#include "tests/support/allocations.h"
#include "tests/toolbar/input_fixture.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {
namespace {

class InputCosts : public InputTest {
 protected:
  static constexpr unsigned kEverything = Trace::kUses | Trace::kWindows | Trace::kTimers | Trace::kContexts |
                                          Trace::kObjects | Trace::kDrawing | Trace::kPictures;

  std::string LinesOf(const std::function<void()>& doing) {
    trace().Listen(kEverything);
    doing();
    return trace().TakeText();
  }
  static std::size_t MemoryTakenBy(const std::function<void()>& doing) {
    const std::size_t before = AllocationsSoFar();
    for (int i = 0; i < 100; ++i) doing();
    return AllocationsSoFar() - before;
  }
};

TEST_F(InputCosts, AMoveInsideOneCell_AsksForTheDocumentsWindowAndForNothingElse) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWithCells(WordOf(version));
    MoveTo(16);
    world->Wait(1000);
    const std::string window = LinesOf([] { CommonWordWindowFunctions::ActiveDocumentHandle(); });
    // The move before it ran out its timer; this one's is the second.
    EXPECT_EQ(LinesOf([&] { Say(wm::kMouseMove, kNoKeys, MiddleOf(16)); }), window + "SetTimer(bar 1, 65538, 200)\n");
    EXPECT_EQ(LinesOf([&] { Say(wm::kMouseMove, kLeftButton, MiddleOf(16)); }),
              window + "SetTimer(bar 1, 65539, 200)\n");
  }
}

TEST_F(InputCosts, AMoveInsideOneCell_TakesNoMemory) {
  BeginWithCells();
  for (const Long cell : {1, 14, 16}) {
    MoveTo(cell);
    trace().Listen(0);
    const Point at = MiddleOf(cell);
    Buttons& strip = Strip();
    EXPECT_EQ(MemoryTakenBy([&] { strip.HandleMouseMove(false, at.x, at.y, false); }), 0u) << cell;
  }
}

// From the hook on: what it takes is what the question for the document's window takes.
TEST_F(InputCosts, AMoveThroughTheHook_TakesNoMemoryOfItsOwn) {
  BeginWithCells();
  MoveTo(16);
  trace().Listen(0);
  world->library->SetLogObserver(nullptr);
  world->word.SetUseObserver(nullptr);
  const Point at = MiddleOf(16);
  // The timers of the desk aren't the library's.
  world->faults.Arm("SetTimer", 1000);
  const auto move = [&] { Say(wm::kMouseMove, kNoKeys, at); };
  const auto window = [] { CommonWordWindowFunctions::ActiveDocumentHandle(); };
  move();
  window();
  EXPECT_EQ(MemoryTakenBy(move), MemoryTakenBy(window));
}

TEST_F(InputCosts, AMoveFromCellToCell_LoadsOnePictureAndDrawsOneEdge) {
  BeginWithCells();
  MoveTo(3);
  trace().Listen(Trace::kPictures | Trace::kDrawing);
  trace().Only({"picture", "DrawEdge"});
  MoveTo(4);
  EXPECT_EQ(trace().Take().size(), 2u);
}

}  // namespace
}  // namespace strandline
