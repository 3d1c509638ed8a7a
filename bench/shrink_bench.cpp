// The way to the small toolbar, beside the fourteen picture loads and transfers that it consists of. When it lets
// messages run, the simulated Word repaints what has come into view; that time is Word's, and is counted in one of the
// measures only. Word's too is the time in which it arranges its bars anew at each size that is written; a measure of
// its own tells it, to be taken off.

#include <benchmark/benchmark.h>

#include "bench/loaded_word.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "platform/wrappers/forwarding.h"
#include "wordsim/command_bars.h"

namespace strandline::bench {
namespace {

constexpr Integer kFirstIcon = 2;
constexpr Integer kLastIcon = 15;

// The measure whose time stops while messages run; null: none.
benchmark::State* measureWithoutMessages = nullptr;

class UncountedMessages final : public ForwardingWindows {
 public:
  using ForwardingWindows::ForwardingWindows;
  void DoEvents() override {
    benchmark::State* const measure = measureWithoutMessages;
    if (measure) measure->PauseTiming();
    mTarget.DoEvents();
    if (measure) measure->ResumeTiming();
  }
};

class FullToolbar : public LoadedWord {
 public:
  explicit FullToolbar(const char16_t* version) : LoadedWord(OptionsFor(version)) { Open(u"Thesis.doc"); }

  void Shrink(benchmark::State* withoutMessages) {
    measureWithoutMessages = withoutMessages;
    Main().ShrinkToolbar();
    measureWithoutMessages = nullptr;
  }
  Object Control(Integer position) {
    return Ref<wordsim::BarControl>(Word().ProductBar().Controls().Control(position));
  }

 private:
  static Options OptionsFor(const char16_t* version) {
    Options options;
    options.word.wordVersion = version;
    options.windows = [](Windows& own) { return std::make_shared<UncountedMessages>(own); };
    return options;
  }
};

void ShrinkToolbar(benchmark::State& state, const char16_t* version, bool countMessages) {
  for (auto _ : state) {
    state.PauseTiming();
    auto toolbar = std::make_unique<FullToolbar>(version);
    state.ResumeTiming();
    toolbar->Shrink(countMessages ? nullptr : &state);
    state.PauseTiming();
    toolbar.reset();
    state.ResumeTiming();
  }
}

void ItsPicturesAlone(benchmark::State& state, const char16_t* version) {
  for (auto _ : state) {
    state.PauseTiming();
    auto toolbar = std::make_unique<FullToolbar>(version);
    state.ResumeTiming();
    for (Integer i = kFirstIcon; i <= kLastIcon; ++i) {
      const Integer number = ToolbarUtilities::pictureIndex(i, true);
      ToolbarUtilities::SetButtonIcon(toolbar->Control(i), LoadImageFromResource::LoadResGifJpgBmp(number, 0));
    }
    state.PauseTiming();
    toolbar.reset();
    state.ResumeTiming();
  }
}

void WordsArrangingAlone(benchmark::State& state, const char16_t* version) {
  constexpr Integer kSmallControl = 22;
  for (auto _ : state) {
    state.PauseTiming();
    auto toolbar = std::make_unique<FullToolbar>(version);
    state.ResumeTiming();
    for (Integer i = kFirstIcon; i <= ToolbarUtilities::kCells; ++i) {
      toolbar->Control(i).Let("height", kSmallControl);
      toolbar->Control(i).Let("width", kSmallControl);
    }
    state.PauseTiming();
    toolbar.reset();
    state.ResumeTiming();
  }
}

BENCHMARK_CAPTURE(ShrinkToolbar, Word2003, u"11.0", false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShrinkToolbar, Word2003_WithWordsRepaint, u"11.0", true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ItsPicturesAlone, Word2003, u"11.0")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(WordsArrangingAlone, Word2003, u"11.0")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShrinkToolbar, Word2000, u"9.0", false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ItsPicturesAlone, Word2000, u"9.0")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(WordsArrangingAlone, Word2000, u"9.0")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace strandline::bench
