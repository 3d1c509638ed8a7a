// What fades and loads of ads cost. "ratio" is what the library takes of the time of the bare work, both done by turns:
// the steps of a fade that comes round again beside their blits, and a load of 200 ads beside the decoding of their
// pictures. And the memory that the blends hold after full rotations.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "bench/loaded_word.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "tests/ads/ads_access.h"
#include "tests/support/allocations.h"
#include "tests/support/scripted_object.h"
#include "toolbar/Buttons.h"

namespace strandline::bench {
namespace {

constexpr Long kWidth = 223;
constexpr Long kHeight = 32;
constexpr Long kNoWindow = 77;
constexpr int kMiddleSteps = 8;  // of a fade: those between its first and its last

// Word with a library of that many ads, all of one size, the built-in one among them; a strip,
// and a panel on nothing.
class AdvertisingWord : public LoadedWord {
 public:
  explicit AdvertisingWord(Long ads) : LoadedWord({}), mAds(ads) {
    Array<Byte> picture;
    TheDesk().Modules().LoadResData(116, u"CUSTOM", picture);
    const std::vector<Byte> bytes(picture.Elements().begin(), picture.Elements().end());
    desk::ModuleImage image;
    for (Long id = 2; id <= ads; ++id) {
      image.AddResource(id, u"CUSTOM", bytes);
      image.strings[id] = u"1/1/2000$12/31/2039$W1111111$-$$5000$page";
    }
    path = Concat({Word().TheSettings().commonAppPath, u"Vistrel.dll"});
    TheDesk().Modules().SetModule(path, std::move(image));
    TheDesk().RunTime().SetStart(desk::MakeDate(2009, 3, 2, 9));
    TheDesk().Components().Register(u"StrandlineDownload.Main2", [this] { return Object(Component()); });
    Open(u"Thesis.doc");
    strip = New<Buttons>();
    Factory().removeUpdatedWindow(Bar());  // it has a strip of its own, whose panel has taken the ads over
    strip->Initialize(Word().ActiveTopWindow(), Bar(), true);
    panel = New<Advertisements>();
    panel->Initialize(kNoWindow);
  }
  ~AdvertisingWord() {
    panel = nullptr;
    strip = nullptr;
  }
  void Fade(AdStrip& on) {
    for (int step = 0; step < 10; ++step) panel->TimerTick(kNoWindow, on);
  }
  AdvertisementsFactory& Factory() {
    return dynamic_cast<AdvertisementsFactory&>(*ToolbarUtilities::variables.adFactory);
  }
  // The middle blends of another fade each time, one that lies half a rotation away from what the panel shows: as cold
  // in memory as those that it is about to show.
  std::vector<Long> BlendsOfAnotherFade() {
    const Ref<Dictionary>& cache = AdsAccess::Cache(*AdsAccess::Blender(Factory()));
    const Long first = 10 * ((mAnotherFade++ + mAds / 2) % mAds) + 1;
    std::vector<Long> blends;
    for (Long i = 0; i < kMiddleSteps; ++i) blends.push_back(cache->ItemAt(first + i).ToLong());
    return blends;
  }
  void Load() { Factory().callbackToMe()->NewAdvertisementsEvent(false); }

  Ref<Buttons> strip;
  Ref<Advertisements> panel;
  String path;

 private:
  // Every file passes, and none is the one of before.
  Ref<ScriptedObject> Component() {
    return New<ScriptedObject>([this](Use, Name member, const Arguments& arguments) -> Variant {
      if (member == Name("CreateDSAVerify")) return Object(Component());
      arguments.positional[1].Assign(DecimalText(++mSignature));
      return Long{mAds - 1};
    });
  }

  Long mAds;
  Long mSignature = 0;
  Long mAnotherFade = 0;
};

class NoStrip final : public AdStrip {
 public:
  void PaintAd(Boolean) override {}
};

template <class Doing>
double SecondsOf(Doing doing) {
  const auto start = std::chrono::steady_clock::now();
  doing();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.empty() ? 0 : values[values.size() / 2];
}

// Runs both by turns; the iteration's time is that of the first.
template <class Whole, class Bare>
void ByTurns(benchmark::State& state, Whole whole, Bare bare) {
  std::vector<double> wholes;
  std::vector<double> bares;
  for (auto _ : state) {
    wholes.push_back(whole());
    bares.push_back(bare());
    state.SetIterationTime(wholes.back());
  }
  state.counters["ratio"] = Median(wholes) / Median(bares);
}

// A panel on nothing: each step is one copy of a blend.
void MiddleStepsOfAFade(benchmark::State& state) {
  AdvertisingWord word(state.range(0));
  NoStrip nothing;
  for (Long i = 0; i < state.range(0); ++i) word.Fade(nothing);
  Long target = 0;
  Long width = 0;
  Long height = 0;
  word.panel->getPictureStats(target, width, height);
  Graphics& graphics = word.TheDesk().Graphics();
  std::size_t allocations = 0;
  ByTurns(
      state,
      [&] {
        word.panel->TimerTick(kNoWindow, nothing);
        const std::size_t before = AllocationsSoFar();
        const double seconds = SecondsOf([&] {
          for (int step = 0; step < kMiddleSteps; ++step) word.panel->TimerTick(kNoWindow, nothing);
        });
        allocations += AllocationsSoFar() - before;
        word.panel->TimerTick(kNoWindow, nothing);
        return seconds;
      },
      [&] {
        const std::vector<Long> blends = word.BlendsOfAnotherFade();
        return SecondsOf([&] {
          for (const Long blend : blends) {
            graphics.BitBlt(target, 0, 0, kWidth, kHeight, blend, 0, 0, rop::kSrcCopy);
          }
        });
      });
  state.counters["allocations"] = static_cast<double>(allocations);
}

// On a strip: each step is one copy of a blend, one of the picture into the frame, and one of the frame.
void MiddleStepsOfAFadeOnAStrip(benchmark::State& state) {
  AdvertisingWord word(state.range(0));
  Buttons& strip = *word.strip;
  for (Long i = 0; i < state.range(0) * 10; ++i) strip.TimerTick(true);
  Long target = 0;
  Long width = 0;
  Long height = 0;
  word.panel->getPictureStats(target, width, height);
  Graphics& graphics = word.TheDesk().Graphics();
  const Long bar = word.Bar();
  Rect bounds;
  word.TheDesk().Windows().GetWindowRect(bar, bounds);
  const Long barWidth = bounds.right - bounds.left;
  const Long barHeight = bounds.bottom - bounds.top;
  const Long window = graphics.GetDC(bar);
  const Long frame = graphics.CreateCompatibleDC(window);
  graphics.SelectObject(frame, graphics.CreateCompatibleBitmap(window, barWidth, barHeight));
  ByTurns(
      state,
      [&] {
        strip.TimerTick(true);
        const double seconds = SecondsOf([&] {
          for (int step = 0; step < kMiddleSteps; ++step) strip.TimerTick(true);
        });
        strip.TimerTick(true);
        return seconds;
      },
      [&] {
        const std::vector<Long> blends = word.BlendsOfAnotherFade();
        return SecondsOf([&] {
          for (const Long blend : blends) {
            graphics.BitBlt(target, 0, 0, kWidth, kHeight, blend, 0, 0, rop::kSrcCopy);
            graphics.ColorKeyBlt(frame, 350, 4, kWidth, kHeight, target, 0, 0, 0xFF0000);
            graphics.BitBlt(window, 0, 0, barWidth, barHeight, frame, 0, 0, rop::kSrcCopy);
          }
        });
      });
}

void LoadOf200Ads(benchmark::State& state) {
  AdvertisingWord word(200);
  Modules& modules = word.TheDesk().Modules();
  ByTurns(
      state, [&] { return SecondsOf([&] { word.Load(); }); },
      [&] {
        return SecondsOf([&] {
          const Long module = modules.LoadLibraryA(word.path);
          LoadImageFromResource::LoadResGifJpgBmp(116, 0);
          for (Integer id = 2; id <= 200; ++id) LoadImageFromResource::LoadResGifJpgBmp(id, module);
          modules.FreeLibrary(module);
        });
      });
}

double ResidentMiB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

// What counts is the memory; time is that of the rotations.
void MemoryAfterFullRotations(benchmark::State& state) {
  for (auto _ : state) {
    AdvertisingWord word(state.range(0));
    NoStrip nothing;
    const int before = word.TheDesk().Objects().Count(desk::ObjectKind::kBitmap);
    const double resident = ResidentMiB();
    for (Long i = 0; i < 3 * state.range(0); ++i) word.Fade(nothing);
    const int blends = word.TheDesk().Objects().Count(desk::ObjectKind::kBitmap) - before;
    state.counters["blends"] = blends;
    state.counters["MiB of pixels"] = blends * (kWidth * kHeight * 4.0) / (1 << 20);
    state.counters["resident MiB more"] = ResidentMiB() - resident;
  }
}

BENCHMARK(MiddleStepsOfAFade)->Arg(3)->Arg(10)->Arg(50)->UseManualTime();
BENCHMARK(MiddleStepsOfAFadeOnAStrip)->Arg(3)->Arg(50)->UseManualTime();
BENCHMARK(LoadOf200Ads)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryAfterFullRotations)->Arg(2)->Arg(10)->Arg(50)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace strandline::bench
