#include "platform/desk/raster/keyed_rows.h"

#include "platform/desk/raster/row_loop.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define STRANDLINE_HAS_X86_VARIANTS 1
#endif

namespace strandline::desk {
namespace {

constexpr std::size_t kBlock = 8;

// Every target pixel is written, with its own value where the key is: without a branch the time does not depend on how
// the keys lie.
STRANDLINE_ALWAYS_INLINE std::uint32_t Pick(std::uint32_t below, std::uint32_t above, std::uint32_t key) {
  return above == key ? below : above;
}

STRANDLINE_ALWAYS_INLINE void CopyKeyedBlock(std::uint32_t* STRANDLINE_RESTRICT target,
                                             const std::uint32_t* STRANDLINE_RESTRICT source, std::uint32_t key) {
  STRANDLINE_KEEP_LOOP
  for (std::size_t i = 0; i < kBlock; ++i) target[i] = Pick(target[i], source[i], key);
}

// Copying a pixel a second time changes nothing, so the blocks at both ends may overlap the ones between, which then
// can begin where no block of the target straddles two cache lines.
STRANDLINE_ALWAYS_INLINE void CopyKeyedRow(std::uint32_t* target, const std::uint32_t* source, std::size_t count,
                                           std::uint32_t key) {
  if (count < kBlock) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Pick(target[i], source[i], key);
    return;
  }
  CopyKeyedBlock(target, source, key);
  const std::size_t misaligned = reinterpret_cast<std::uintptr_t>(target) / sizeof(std::uint32_t) % kBlock;
  for (std::size_t i = kBlock - misaligned; i + kBlock <= count; i += kBlock) {
    CopyKeyedBlock(target + i, source + i, key);
  }
  CopyKeyedBlock(target + count - kBlock, source + count - kBlock, key);
}

STRANDLINE_ALWAYS_INLINE void CopyRows(const KeyedRows& rows) {
  const KeyedRows own = rows;
  for (std::size_t y = 0; y < own.height; ++y) {
    CopyKeyedRow(own.target + y * own.targetStride, own.source + y * own.sourceStride, own.width, own.key);
  }
}

// The same lines compiled again and chosen by hand: not every compiler we build with can clone a function itself.
void CopyRowsAnywhere(const KeyedRows& rows) { CopyRows(rows); }
#if defined(STRANDLINE_HAS_X86_VARIANTS)
__attribute__((target("avx2"))) void CopyRowsAvx2(const KeyedRows& rows) { CopyRows(rows); }
__attribute__((target("avx512vl"))) void CopyRowsAvx512(const KeyedRows& rows) { CopyRows(rows); }
#endif

}  // namespace

std::vector<KeyedRowsVariant> KeyedRowsVariants() {
  std::vector<KeyedRowsVariant> variants;
#if defined(STRANDLINE_HAS_X86_VARIANTS)
  if (__builtin_cpu_supports("avx512vl")) variants.push_back({"avx512", CopyRowsAvx512});
  if (__builtin_cpu_supports("avx2")) variants.push_back({"avx2", CopyRowsAvx2});
#endif
  variants.push_back({"anywhere", CopyRowsAnywhere});
  return variants;
}

void CopyKeyedRows(const KeyedRows& rows) {
  static const auto fastest = KeyedRowsVariants().front().copy;
  fastest(rows);
}

}  // namespace strandline::desk
