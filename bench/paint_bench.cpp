// A WM_PAINT that changes nothing, beside the blits, edges and picture loads that it consists of; the strip of fifty
// documents.

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "bench/loaded_word.h"
#include "drawing/LoadImageFromResource.h"
#include "tests/support/allocations.h"

namespace strandline::bench {
namespace {

class PaintedStrip : public LoadedWord {
 public:
  PaintedStrip(const char16_t* version, bool lumivex) : LoadedWord(OptionsFor(version, lumivex)) {
    Open(u"Thesis.doc");
  }
  // The bar of the active document; wider than Word would make it.
  void Widen(Long width, Long height) {
    Word().ResizeBar(width, height);
    TheDesk().Clock().Wait(100);
  }

 private:
  static Options OptionsFor(const char16_t* version, bool lumivex) {
    Options options;
    options.word.wordVersion = version;
    options.word.lumivexEnabled = lumivex;
    options.desk = {.width = 1600, .height = 768};
    return options;
  }
};

void PaintThatChangesNothing(benchmark::State& state, const char16_t* version, bool lumivex) {
  PaintedStrip strip(version, lumivex);
  const Platform services = strip.TheDesk().Services();
  const Long bar = strip.Bar();
  services.windows->SendMessageA(bar, wm::kPaint, 0, 0);
  const std::size_t before = AllocationsSoFar();
  for (auto _ : state) services.windows->SendMessageA(bar, wm::kPaint, 0, 0);
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(AllocationsSoFar() - before), benchmark::Counter::kAvgIterations);
}

// The same drawing without the library around it: with Lumivex on two edges and the frame, with Lumivex off the cell
// composed anew twice (each with its picture decoded) and the frame.
void ItsDrawingAlone(benchmark::State& state, bool lumivex) {
  PaintedStrip strip(u"11.0", lumivex);
  const Platform services = strip.TheDesk().Services();
  Graphics& graphics = *services.graphics;
  const Long bar = strip.Bar();
  Rect bounds;
  services.windows->GetWindowRect(bar, bounds);
  const Long width = bounds.right - bounds.left;
  const Long height = bounds.bottom - bounds.top;
  const Long window = graphics.GetDC(bar);
  const Long frame = graphics.CreateCompatibleDC(window);
  graphics.SelectObject(frame, graphics.CreateCompatibleBitmap(window, width, height));
  const Rect cell{400, 3, 438, 37};
  for (auto _ : state) {
    for (const Long target : {frame, window}) {
      if (lumivex) {
        graphics.DrawEdge(target, cell, 10, 15);
        continue;
      }
      const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(114, 0);
      const Long source = graphics.CreateCompatibleDC(target);
      const Long old = graphics.SelectObject(source, picture->Handle());
      const Long composed = graphics.CreateCompatibleDC(target);
      const Long displaced = graphics.SelectObject(composed, graphics.CreateCompatibleBitmap(target, 38, 34));
      graphics.BitBlt(composed, 0, 0, 38, 34, frame, cell.left, cell.top, rop::kSrcCopy);
      graphics.ColorKeyBlt(composed, 3, 1, 32, 32, source, 0, 0, 0xFF0000);
      graphics.BitBlt(target, cell.left, cell.top, 38, 34, composed, 0, 0, rop::kSrcCopy);
      graphics.DeleteObject(graphics.SelectObject(composed, displaced));
      graphics.DeleteDC(composed);
      graphics.DeleteObject(graphics.SelectObject(source, old));
      graphics.DeleteDC(source);
    }
    graphics.BitBlt(window, 0, 0, width, height, frame, 0, 0, rop::kSrcCopy);
  }
}

BENCHMARK_CAPTURE(PaintThatChangesNothing, Word2003_LumivexOn, u"11.0", true);
BENCHMARK_CAPTURE(ItsDrawingAlone, LumivexOn, true);
BENCHMARK_CAPTURE(PaintThatChangesNothing, Word2003_LumivexOff, u"11.0", false);
BENCHMARK_CAPTURE(ItsDrawingAlone, LumivexOff, false);
BENCHMARK_CAPTURE(PaintThatChangesNothing, Word2002_LumivexOn, u"10.0", true);
BENCHMARK_CAPTURE(PaintThatChangesNothing, Word2000_LumivexOff, u"9.0", false);

double ResidentMiB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

// Time is that of opening them; what counts is the memory held.
void FiftyDocuments(benchmark::State& state) {
  for (auto _ : state) {
    PaintedStrip strip(u"11.0", true);
    strip.Widen(1280, 40);
    for (int i = 2; i <= 50; ++i) {
      strip.Open(Concat({u"Paper ", DecimalText(i), u".doc"}));
      strip.Widen(1280, 40);
    }
    Rect bar;
    strip.TheDesk().Services().windows->GetWindowRect(strip.Bar(), bar);
    state.counters["width"] = bar.right - bar.left;
    state.counters["resident MiB"] = ResidentMiB();
  }
}
BENCHMARK(FiftyDocuments)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace strandline::bench
