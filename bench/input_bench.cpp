// Moves of the mouse over the strip, each beside its peer: a move inside one cell beside the question for the
// document's window, which every move asks; a move from cell to cell beside the picture, the composed cell and the edge
// that it draws. Both are run by turns, and "ratio" is what the move takes of its peer's time.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>

#include "bench/loaded_word.h"
#include "drawing/LoadImageFromResource.h"
#include "platform/wrappers/forwarding.h"
#include "tests/support/allocations.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline::bench {
namespace {

// Every move sets a one-shot timer. Time stands still here, and on the desk they would pile up.
class WithoutTimers final : public ForwardingWindows {
 public:
  using ForwardingWindows::ForwardingWindows;
  Long SetTimer(Long, Long id, Long, TimerProc) override { return id; }
};

class StripUnderTheMouse : public LoadedWord {
 public:
  StripUnderTheMouse()
      : LoadedWord(
            {.word = {}, .desk = {}, .windows = [](Windows& own) { return std::make_shared<WithoutTimers>(own); }}) {
    Open(u"Thesis.doc");
  }

  Long ParameterOf(Long cell) {
    const Rect place = CellPlace(cell);
    return (place.top + place.bottom) / 2 * 65536 + (place.left + place.right) / 2;
  }
  void Move(Long parameter) { TheDesk().Windows().SendMessageA(Bar(), wm::kMouseMove, 0, parameter); }
  Rect CellPlace(Long cell) { return Word().CellPlace(cell); }
};

double SecondsOf(int times, const std::function<void()>& doing) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) doing();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// An iteration is a batch of each. The fastest batches count: what else the machine does only ever adds to the others.
void Compare(benchmark::State& state, int batch, const std::function<void()>& doing,
             const std::function<void()>& peer) {
  double own = 1;  // seconds
  double others = 1;
  std::size_t taken = 0;
  std::size_t takenByPeer = 0;
  for (auto _ : state) {
    const std::size_t before = AllocationsSoFar();
    const double time = SecondsOf(batch, doing);
    const std::size_t between = AllocationsSoFar();
    const double timeOfPeer = SecondsOf(batch, peer);
    takenByPeer += AllocationsSoFar() - between;
    taken += between - before;
    own = std::min(own, time);
    others = std::min(others, timeOfPeer);
    state.SetIterationTime(time + timeOfPeer);
  }
  const double runs = static_cast<double>(state.iterations()) * batch;
  state.counters["ns each"] = own / batch * 1e9;
  state.counters["peer's ns"] = others / batch * 1e9;
  state.counters["ratio"] = own / others;
  state.counters["allocations"] = static_cast<double>(taken) / runs;
  state.counters["peer's allocations"] = static_cast<double>(takenByPeer) / runs;
}

void MoveInsideOneCell(benchmark::State& state) {
  StripUnderTheMouse strip;
  const Long cell = strip.ParameterOf(static_cast<Long>(state.range(0)));
  const Ref<Toolbar> toolbar = New<Toolbar>();
  toolbar->Initialize(strip.Word().ActiveTopWindow());
  Long answer = 0;
  Boolean isKept = false;
  const auto move = [&] { toolbar->BeforeMessage(wm::kMouseMove, 0, cell, answer, isKept); };
  move();
  Compare(state, 200, move, [] { benchmark::DoNotOptimize(CommonWordWindowFunctions::ActiveDocumentHandle()); });
}

// What a move draws, without the library around it: the cell that was left, put together from the clean piece of the
// bar and its picture, and an edge around the cell that was reached.
void DrawOneMove(Graphics& graphics, Long bar, Long frame, const Rect& left, const Rect& reached) {
  const Long width = left.right - left.left;
  const Long height = left.bottom - left.top;
  const Long window = graphics.GetDC(bar);
  const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(103, 0);
  const Long source = graphics.CreateCompatibleDC(window);
  const Long old = graphics.SelectObject(source, picture->Handle());
  const Long composed = graphics.CreateCompatibleDC(window);
  const Long displaced = graphics.SelectObject(composed, graphics.CreateCompatibleBitmap(window, width, height));
  graphics.BitBlt(composed, 0, 0, width, height, frame, left.left, left.top, rop::kSrcCopy);
  graphics.ColorKeyBlt(composed, 3, 1, 32, 32, source, 0, 0, 0xFF0000);
  graphics.BitBlt(window, left.left, left.top, width, height, composed, 0, 0, rop::kSrcCopy);
  graphics.DeleteObject(graphics.SelectObject(composed, displaced));
  graphics.DeleteDC(composed);
  graphics.DeleteObject(graphics.SelectObject(source, old));
  graphics.DeleteDC(source);
  graphics.DrawEdge(window, reached, 5, 15);
  graphics.ReleaseDC(bar, window);
}

void MoveFromCellToCell(benchmark::State& state) {
  StripUnderTheMouse strip;
  Graphics& graphics = strip.TheDesk().Graphics();
  const Long third = strip.ParameterOf(3);
  const Long fourth = strip.ParameterOf(4);
  const Rect left = strip.CellPlace(3);
  const Rect reached = strip.CellPlace(4);
  const Long window = graphics.GetDC(strip.Bar());
  const Long frame = graphics.CreateCompatibleDC(window);
  graphics.SelectObject(frame, graphics.CreateCompatibleBitmap(window, 600, 40));
  bool isOnThird = false;
  const auto move = [&] {
    isOnThird = !isOnThird;
    strip.Move(isOnThird ? third : fourth);
  };
  Compare(state, 20, move, [&] { DrawOneMove(graphics, strip.Bar(), frame, left, reached); });
}

BENCHMARK(MoveInsideOneCell)->UseManualTime()->Arg(1)->Arg(8)->Arg(16);
BENCHMARK(MoveFromCellToCell)->UseManualTime();

}  // namespace
}  // namespace strandline::bench
