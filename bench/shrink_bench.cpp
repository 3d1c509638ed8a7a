// The way to the small toolbar, beside the fourteen picture loads and transfers that it consists of. When it lets
// messages run, the simulated Word repaints what has come into view; that time is Word's, and is counted in one of the
// measures only.

#include <benchmark/benchmark.h>

#include <optional>

#include "addin/Main2.h"
#include "addin/library.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "platform/desk/desk.h"
#include "platform/wrappers/forwarding.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/word_world.h"

namespace strandline::bench {
namespace {

constexpr Integer kFirstIcon = 2;
constexpr Integer kLastIcon = 15;

// Stops a measure's time while messages run.
class UncountedMessages final : public ForwardingWindows {
 public:
  using ForwardingWindows::ForwardingWindows;
  void DoEvents() override {
    if (measure) measure->PauseTiming();
    mTarget.DoEvents();
    if (measure) measure->ResumeTiming();
  }
  benchmark::State* measure = nullptr;
};

// A started library, one document open, its full toolbar painted.
class FullToolbar {
 public:
  explicit FullToolbar(const char16_t* version)
      : mWindows(mDesk.Windows()),
        mWorld(mDesk.Services(), mDesk.Host(), mDesk.Canvas(), mDesk.Clock(), SettingsFor(version)) {
    for (const char16_t* progId : {u"StylanthAMA.Main2", u"StylanthAPA.Main2", u"StylanthMLA.Main2",
                                   u"StylanthTurabian.Main2", u"QuillmereError.Main2"}) {
      mDesk.Components().Register(progId, [this, progId] { return mWorld.CreateComponent(progId); });
    }
    Platform services = mDesk.Services();
    services.windows = &mWindows;
    mLibrary.emplace(services);
    mMain2 = mLibrary->CreateMain2();
    Object word = mWorld.Application();
    Object properties = mWorld.Properties();
    Object productState = mWorld.ProductState();
    String productName = u"Quillmere";
    mMain2->Initialize(word, properties, productState, productName);
    mWorld.Open(u"Thesis.doc");
    Boolean startedFromIcon = false;
    mMain2->HandleCreateDocument(startedFromIcon);
    mDesk.Clock().Wait(100);
  }
  ~FullToolbar() {
    mMain2 = nullptr;
    mLibrary.reset();
  }

  void Shrink(benchmark::State* withoutMessages) {
    mWindows.measure = withoutMessages;
    mMain2->ShrinkToolbar();
    mWindows.measure = nullptr;
  }
  Object Control(Integer position) {
    return Ref<wordsim::BarControl>(mWorld.ProductBar().Controls().Control(position));
  }

 private:
  static wordsim::Settings SettingsFor(const char16_t* version) {
    wordsim::Settings settings;
    settings.wordVersion = version;
    return settings;
  }

  desk::Desk mDesk;
  UncountedMessages mWindows;
  wordsim::WordWorld mWorld;
  std::optional<Library> mLibrary;
  Ref<Main2> mMain2;
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

BENCHMARK_CAPTURE(ShrinkToolbar, Word2003, u"11.0", false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShrinkToolbar, Word2003_WithWordsRepaint, u"11.0", true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ItsPicturesAlone, Word2003, u"11.0")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShrinkToolbar, Word2000, u"9.0", false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ItsPicturesAlone, Word2000, u"9.0")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace strandline::bench
