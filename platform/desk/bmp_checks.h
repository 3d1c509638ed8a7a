#pragma once

#include <cstdint>
#include <span>

namespace strandline::desk {

/// Whether a BMP's header and, where its rows are packed as runs, its runs hold together. `bytes` is the whole file.
///
/// The BMP library takes these on trust: it allocates whatever size the header claims, reads an unknown packing as
/// plain rows, and lets a run too long for its row spill into the next. Whether the rows are all there, the library
/// checks.
bool IsBmpSound(std::span<const std::uint8_t> bytes);

}  // namespace strandline::desk
