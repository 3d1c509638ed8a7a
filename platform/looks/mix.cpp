#include "platform/looks/mix.h"

#include <algorithm>
#include <cmath>
#include <cstring>

// Windows promises no alignment of the stack that vectors could be spilled to, and isn't where fades are many.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__)) && !defined(_WIN32)
#define STRANDLINE_HAS_X86_VARIANTS 1
#include <immintrin.h>
#endif

namespace strandline {

namespace {

// A mix of some pixels that lie side by side; `share` is neither 0 nor the whole.
using MixPixels = void (*)(std::uint32_t* target, const std::uint32_t* from, const std::uint32_t* to, std::size_t count,
                           int share);

void CopyRow(std::uint32_t* target, const std::uint32_t* source, std::size_t count) {
  if (target != source && count > 0) std::memcpy(target, source, count * sizeof *target);
}

// Pictures that lie without gaps are one long row.
template <MixPixels kMix>
void MixAll(const MixedRows& rows) {
  MixedRows own = rows;
  if (own.targetStride == own.width && own.fromStride == own.width && own.toStride == own.width) {
    own.width *= own.height;
    own.height = own.height == 0 ? 0 : 1;
  }
  for (std::size_t y = 0; y < own.height; ++y) {
    std::uint32_t* const target = own.target + y * own.targetStride;
    const std::uint32_t* const from = own.from + y * own.fromStride;
    const std::uint32_t* const to = own.to + y * own.toStride;
    // The whole is one more than the vectors' 16 bits hold.
    if (own.share <= 0) {
      CopyRow(target, from, own.width);
    } else if (own.share >= kWholeShare) {
      CopyRow(target, to, own.width);
    } else {
      kMix(target, from, to, own.width, own.share);
    }
  }
}

std::uint32_t MixPixel(std::uint32_t from, std::uint32_t to, int share) {
  std::uint32_t mixed = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const int channel = MixChannel(static_cast<int>(from >> shift & 0xFF), static_cast<int>(to >> shift & 0xFF), share);
    mixed |= static_cast<std::uint32_t>(channel) << shift;
  }
  return mixed;
}

void MixAnywhere(std::uint32_t* target, const std::uint32_t* from, const std::uint32_t* to, std::size_t count,
                 int share) {
  for (std::size_t i = 0; i < count; ++i) target[i] = MixPixel(from[i], to[i], share);
}

#if defined(STRANDLINE_HAS_X86_VARIANTS)

// Channels in even and in odd places change apart, as 16-bit numbers. A channel's sum stays a byte, so that adding the
// change of an even one never carries into its neighbour.
#define STRANDLINE_FOR(processor) __attribute__((target(processor), always_inline)) inline

STRANDLINE_FOR("avx2") __m256i Mix8(__m256i from, __m256i to, __m256i share) {
  const __m256i low = _mm256_set1_epi16(0xFF);
  const __m256i even = _mm256_sub_epi16(_mm256_and_si256(to, low), _mm256_and_si256(from, low));
  const __m256i odd = _mm256_sub_epi16(_mm256_srli_epi16(to, 8), _mm256_srli_epi16(from, 8));
  const __m256i oddChange = _mm256_slli_epi16(_mm256_mulhrs_epi16(odd, share), 8);
  return _mm256_add_epi16(_mm256_add_epi16(from, _mm256_mulhrs_epi16(even, share)), oddChange);
}

STRANDLINE_FOR("avx2")
void MixSome(std::uint32_t* target, const std::uint32_t* from, const std::uint32_t* to, std::size_t count,
             __m256i shares) {
  const __m256i places = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i inside = _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(count)), places);
  const __m256i a = _mm256_maskload_epi32(reinterpret_cast<const int*>(from), inside);
  const __m256i b = _mm256_maskload_epi32(reinterpret_cast<const int*>(to), inside);
  _mm256_maskstore_epi32(reinterpret_cast<int*>(target), inside, Mix8(a, b, shares));
}

// After the first few, each write stays within one line of the cache.
__attribute__((target("avx2"))) void MixAvx2(std::uint32_t* target, const std::uint32_t* from, const std::uint32_t* to,
                                             std::size_t count, int share) {
  const __m256i shares = _mm256_set1_epi16(static_cast<short>(share));
  const std::size_t misaligned = reinterpret_cast<std::uintptr_t>(target) / sizeof *target % 8;
  std::size_t i = std::min(count, (8 - misaligned) % 8);
  if (i > 0) MixSome(target, from, to, i, shares);
  for (; i + 8 <= count; i += 8) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from + i));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(to + i));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i), Mix8(a, b, shares));
  }
  if (i < count) MixSome(target + i, from + i, to + i, count - i, shares);
}

STRANDLINE_FOR("ssse3") __m128i Mix4(__m128i from, __m128i to, __m128i share) {
  const __m128i low = _mm_set1_epi16(0xFF);
  const __m128i even = _mm_sub_epi16(_mm_and_si128(to, low), _mm_and_si128(from, low));
  const __m128i odd = _mm_sub_epi16(_mm_srli_epi16(to, 8), _mm_srli_epi16(from, 8));
  const __m128i oddChange = _mm_slli_epi16(_mm_mulhrs_epi16(odd, share), 8);
  return _mm_add_epi16(_mm_add_epi16(from, _mm_mulhrs_epi16(even, share)), oddChange);
}

__attribute__((target("ssse3"))) void MixSsse3(std::uint32_t* target, const std::uint32_t* from,
                                               const std::uint32_t* to, std::size_t count, int share) {
  const __m128i shares = _mm_set1_epi16(static_cast<short>(share));
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(to + i));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + i), Mix4(a, b, shares));
  }
  MixAnywhere(target + i, from + i, to + i, count - i, share);
}

#undef STRANDLINE_FOR

#endif

}  // namespace

int ShareOf(Single percentage) {
  if (!(percentage > 0)) return 0;
  if (percentage >= 1) return kWholeShare;
  return static_cast<int>(std::lround(percentage * static_cast<Single>(kWholeShare)));
}

std::vector<MixVariant> MixVariants() {
  std::vector<MixVariant> variants;
#if defined(STRANDLINE_HAS_X86_VARIANTS)
  if (__builtin_cpu_supports("avx2")) variants.push_back({"avx2", &MixAll<&MixAvx2>});
  if (__builtin_cpu_supports("ssse3")) variants.push_back({"ssse3", &MixAll<&MixSsse3>});
#endif
  variants.push_back({"anywhere", &MixAll<&MixAnywhere>});
  return variants;
}

void MixRows(const MixedRows& rows) {
  static const auto fastest = MixVariants().front().mix;
  fastest(rows);
}

}  // namespace strandline
