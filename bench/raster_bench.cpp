// How fast the desk's pixel operations are, beside memcpy and SDL2 on the same pixels in one run. Compare medians:
//   raster_bench --benchmark_repetitions=15 --benchmark_enable_random_interleaving=true
//                --benchmark_report_aggregates_only=true
#define SDL_MAIN_HANDLED
#include <SDL2/SDL.h>
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>

#include "platform/desk/raster/colour_key_copy.h"
#include "platform/desk/raster/keyed_rows.h"
#include "platform/desk/raster/raster_op.h"
#include "platform/desk/raster/reference.h"

namespace strandline::desk {
namespace {

constexpr std::uint32_t kKey = 0xFF00FF;
constexpr std::uint32_t kOther = 0x336699;

// A picture of the cell's size, copied into the strip as wide as the window.
constexpr int kPictureWidth = 223;
constexpr int kPictureHeight = 32;
constexpr int kStripWidth = 640;
constexpr int kStripHeight = 40;
constexpr int kX = 5;
constexpr int kY = 4;

enum Pattern { kRegular, kRandom };

// Regular keys are what icons have: a solid shape on a ground of the key. Random ones change from pixel to pixel.
Surface Picture(Pattern pattern) {
  Surface picture(kPictureWidth, kPictureHeight);
  std::mt19937 random(20031);
  for (int y = 0; y < kPictureHeight; ++y) {
    for (int x = 0; x < kPictureWidth; ++x) {
      const bool isKey = pattern == kRandom ? random() % 2 == 0 : x % 56 < 12 || y < 4 || y >= 28;
      *picture.At(x, y) = isKey ? kKey : kOther + static_cast<std::uint32_t>(x);
    }
  }
  return picture;
}

void CountPixels(benchmark::State& state, int width, int height) {
  state.SetItemsProcessed(state.iterations() * width * height);
}

void ColourKeyCopyOurs(benchmark::State& state, Pattern pattern) {
  const Surface picture = Picture(pattern);
  Surface strip(kStripWidth, kStripHeight);
  for ([[maybe_unused]] auto step : state) {
    ColourKeyCopy(strip, strip.Bounds(), kX, kY, kPictureWidth, kPictureHeight, picture, 0, 0, kKey);
    benchmark::ClobberMemory();
  }
  CountPixels(state, kPictureWidth, kPictureHeight);
}

void ColourKeyRows(benchmark::State& state, const KeyedRowsVariant& variant) {
  const Surface picture = Picture(kRandom);
  Surface strip(kStripWidth, kStripHeight);
  for ([[maybe_unused]] auto step : state) {
    variant.copy({strip.At(kX, kY), kStripWidth, picture.At(0, 0), kPictureWidth, kPictureWidth, kPictureHeight, kKey});
    benchmark::ClobberMemory();
  }
  CountPixels(state, kPictureWidth, kPictureHeight);
}

void ColourKeyCopyReference(benchmark::State& state, Pattern pattern) {
  const Surface picture = Picture(pattern);
  Surface strip(kStripWidth, kStripHeight);
  for ([[maybe_unused]] auto step : state) {
    ReferenceColourKeyCopy(strip, strip.Bounds(), kX, kY, kPictureWidth, kPictureHeight, picture, 0, 0, kKey);
    benchmark::ClobberMemory();
  }
  CountPixels(state, kPictureWidth, kPictureHeight);
}

void PictureMemcpyRows(benchmark::State& state) {
  const Surface picture = Picture(kRegular);
  Surface strip(kStripWidth, kStripHeight);
  benchmark::DoNotOptimize(strip.pixels.data());
  for ([[maybe_unused]] auto step : state) {
    for (int y = 0; y < kPictureHeight; ++y) {
      std::memcpy(strip.At(kX, kY + y), picture.At(0, y), kPictureWidth * sizeof(std::uint32_t));
    }
    benchmark::ClobberMemory();
  }
  CountPixels(state, kPictureWidth, kPictureHeight);
}

SDL_Surface* MakeSdlSurface(int width, int height) {
  return SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_RGB888);
}

void ColourKeyCopySdl2(benchmark::State& state, Pattern pattern) {
  Surface picture = Picture(pattern);
  SDL_Surface* source = MakeSdlSurface(kPictureWidth, kPictureHeight);
  SDL_Surface* strip = MakeSdlSurface(kStripWidth, kStripHeight);
  if (source == nullptr || strip == nullptr) {
    state.SkipWithError(SDL_GetError());
    return;
  }
  for (int y = 0; y < kPictureHeight; ++y) {
    std::memcpy(static_cast<char*>(source->pixels) + y * source->pitch, picture.At(0, y),
                kPictureWidth * sizeof(std::uint32_t));
  }
  SDL_SetColorKey(source, SDL_TRUE, kKey);
  for ([[maybe_unused]] auto step : state) {
    SDL_Rect target{kX, kY, 0, 0};
    if (SDL_BlitSurface(source, nullptr, strip, &target) != 0) state.SkipWithError(SDL_GetError());
    benchmark::ClobberMemory();
  }
  CountPixels(state, kPictureWidth, kPictureHeight);
  SDL_FreeSurface(source);
  SDL_FreeSurface(strip);
}

// The picture again by masks, nine steps, as a measure of what the single pass saves.
void ColourKeyCopyMasks(benchmark::State& state, Pattern pattern) {
  constexpr int kWidth = kPictureWidth;
  constexpr int kHeight = kPictureHeight;
  const Surface picture = Picture(pattern);
  Surface strip(kStripWidth, kStripHeight);
  const BlitColours colours{0x000000, 0xFFFFFF, kKey};
  for ([[maybe_unused]] auto step : state) {
    Surface mask(kWidth, kHeight, 1);
    Surface inverse(kWidth, kHeight, 1);
    Surface below(kWidth, kHeight);
    Surface above(kWidth, kHeight);
    const Clip all = mask.Bounds();
    BitBlt(mask, all, 0, 0, kWidth, kHeight, picture, 0, 0, kSrcCopy, colours);
    BitBlt(inverse, all, 0, 0, kWidth, kHeight, mask, 0, 0, kNotSrcCopy, colours);
    BitBlt(below, all, 0, 0, kWidth, kHeight, strip, kX, kY, kSrcCopy, colours);
    BitBlt(below, all, 0, 0, kWidth, kHeight, mask, 0, 0, kSrcAnd, colours);
    BitBlt(above, all, 0, 0, kWidth, kHeight, picture, 0, 0, kSrcCopy, colours);
    BitBlt(above, all, 0, 0, kWidth, kHeight, inverse, 0, 0, kSrcAnd, colours);
    BitBlt(below, all, 0, 0, kWidth, kHeight, above, 0, 0, kSrcInvert, colours);
    BitBlt(strip, strip.Bounds(), kX, kY, kWidth, kHeight, below, 0, 0, kSrcCopy, colours);
    benchmark::ClobberMemory();
  }
  CountPixels(state, kWidth, kHeight);
}

void FrameBitBlt(benchmark::State& state, std::uint32_t rop) {
  Surface frame(kStripWidth, kStripHeight);
  Surface window(kStripWidth, kStripHeight);
  frame.pixels.assign(frame.pixels.size(), kOther);
  for ([[maybe_unused]] auto step : state) {
    BitBlt(window, window.Bounds(), 0, 0, kStripWidth, kStripHeight, frame, 0, 0, rop, {});
    benchmark::ClobberMemory();
  }
  CountPixels(state, kStripWidth, kStripHeight);
}

// The window is wider than the frame, so the rows do not follow each other in memory.
void FrameBitBltIntoWider(benchmark::State& state) {
  Surface frame(kStripWidth, kStripHeight);
  Surface window(kStripWidth + 161, kStripHeight + 7);
  for ([[maybe_unused]] auto step : state) {
    BitBlt(window, window.Bounds(), 3, 2, kStripWidth, kStripHeight, frame, 0, 0, kSrcCopy, {});
    benchmark::ClobberMemory();
  }
  CountPixels(state, kStripWidth, kStripHeight);
}

void FrameMemcpy(benchmark::State& state) {
  Surface frame(kStripWidth, kStripHeight);
  Surface window(kStripWidth, kStripHeight);
  benchmark::DoNotOptimize(window.pixels.data());
  for ([[maybe_unused]] auto step : state) {
    std::memcpy(window.pixels.data(), frame.pixels.data(), frame.pixels.size() * sizeof(std::uint32_t));
    benchmark::ClobberMemory();
  }
  CountPixels(state, kStripWidth, kStripHeight);
}

BENCHMARK_CAPTURE(ColourKeyCopyOurs, regular, kRegular);
BENCHMARK_CAPTURE(ColourKeyCopyOurs, random, kRandom);
BENCHMARK(PictureMemcpyRows);
BENCHMARK_CAPTURE(ColourKeyCopySdl2, regular, kRegular);
BENCHMARK_CAPTURE(ColourKeyCopySdl2, random, kRandom);
BENCHMARK_CAPTURE(ColourKeyCopyMasks, random, kRandom);
BENCHMARK_CAPTURE(ColourKeyCopyReference, random, kRandom);
BENCHMARK_CAPTURE(FrameBitBlt, SrcCopy, kSrcCopy);
BENCHMARK(FrameMemcpy);
BENCHMARK(FrameBitBltIntoWider);
BENCHMARK_CAPTURE(FrameBitBlt, SrcAnd, kSrcAnd);
BENCHMARK_CAPTURE(FrameBitBlt, SrcInvert, kSrcInvert);

}  // namespace

void RegisterVariants() {
  for (const KeyedRowsVariant& variant : KeyedRowsVariants()) {
    const std::string name = std::string("ColourKeyRows/") + variant.name;
    benchmark::RegisterBenchmark(name.c_str(), ColourKeyRows, variant);
  }
}

}  // namespace strandline::desk

int main(int argc, char** argv) {
  strandline::desk::RegisterVariants();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
