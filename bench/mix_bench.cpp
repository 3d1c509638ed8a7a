// How fast two pictures are mixed, beside a well-known library on the same pixels in one run, and beside the copy that
// a step from the cache costs. Compare medians:
//   strandline_bench --benchmark_filter=Mix --benchmark_repetitions=15 --benchmark_enable_random_interleaving=true
//                    --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/looks/mix.h"

#if defined(STRANDLINE_HAS_LIBYUV)
#include <libyuv.h>
#endif

namespace strandline {
namespace {

constexpr Single kPercentage = 0.3f;

// The sizes of the built-in ad, and of a strip.
struct Size {
  std::size_t width;
  std::size_t height;
};
constexpr Size kSizes[] = {{223, 32}, {640, 40}};

struct Pictures {
  explicit Pictures(Size size) : width(size.width), height(size.height) {
    std::mt19937 random(223);
    for (auto* picture : {&from, &to}) {
      picture->resize(width * height);
      for (std::uint32_t& pixel : *picture) pixel = static_cast<std::uint32_t>(random()) & 0xFFFFFF;
    }
    target.resize(width * height);
  }
  MixedRows Rows() {
    return {target.data(), width, from.data(), width, to.data(), width, width, height, ShareOf(kPercentage)};
  }

  std::size_t width;
  std::size_t height;
  std::vector<std::uint32_t> from;
  std::vector<std::uint32_t> to;
  std::vector<std::uint32_t> target;
};

void CountPixels(benchmark::State& state, Size size) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(size.width * size.height));
}

void MixOurs(benchmark::State& state, Size size) {
  Pictures pictures(size);
  const MixedRows rows = pictures.Rows();
  for ([[maybe_unused]] auto step : state) {
    MixRows(rows);
    benchmark::ClobberMemory();
  }
  CountPixels(state, size);
}

void MixBy(benchmark::State& state, Size size, const MixVariant& variant) {
  Pictures pictures(size);
  const MixedRows rows = pictures.Rows();
  for ([[maybe_unused]] auto step : state) {
    variant.mix(rows);
    benchmark::ClobberMemory();
  }
  CountPixels(state, size);
}

void MixMemcpy(benchmark::State& state, Size size) {
  Pictures pictures(size);
  for ([[maybe_unused]] auto step : state) {
    std::memcpy(pictures.target.data(), pictures.from.data(), pictures.from.size() * sizeof(std::uint32_t));
    benchmark::ClobberMemory();
  }
  CountPixels(state, size);
}

#if defined(STRANDLINE_HAS_LIBYUV)
void MixLibyuv(benchmark::State& state, Size size) {
  Pictures pictures(size);
  const auto bytes = [](std::vector<std::uint32_t>& pixels) { return reinterpret_cast<std::uint8_t*>(pixels.data()); };
  const int stride = static_cast<int>(size.width * sizeof(std::uint32_t));
  for ([[maybe_unused]] auto step : state) {
    libyuv::ARGBInterpolate(bytes(pictures.from), stride, bytes(pictures.to), stride, bytes(pictures.target), stride,
                            static_cast<int>(size.width), static_cast<int>(size.height),
                            static_cast<int>(kPercentage * 256));
    benchmark::ClobberMemory();
  }
  CountPixels(state, size);
}
#endif

const bool kAreRegistered = [] {
  for (const Size size : kSizes) {
    const std::string name = "/" + std::to_string(size.width) + "x" + std::to_string(size.height);
    benchmark::RegisterBenchmark(("MixOurs" + name).c_str(), [size](auto& state) { MixOurs(state, size); });
#if defined(STRANDLINE_HAS_LIBYUV)
    benchmark::RegisterBenchmark(("MixLibyuv" + name).c_str(), [size](auto& state) { MixLibyuv(state, size); });
#endif
    benchmark::RegisterBenchmark(("MixMemcpy" + name).c_str(), [size](auto& state) { MixMemcpy(state, size); });
    for (const MixVariant& variant : MixVariants()) {
      benchmark::RegisterBenchmark(("MixBy/" + std::string(variant.name) + name).c_str(),
                                   [size, variant](auto& state) { MixBy(state, size, variant); });
    }
  }
  return true;
}();

}  // namespace
}  // namespace strandline
