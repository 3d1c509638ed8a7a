#pragma once

// How the bytes of a signature lie in the file.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace strandline::adtool {

using Bytes = std::span<const std::uint8_t>;

inline constexpr std::string_view kMagic = "Strandline ads\x1A\n";
inline constexpr std::size_t kFooterLength = 8 + 4 + 16;

// A file that ends with a footer.
struct SignedFile {
  Bytes module;
  Bytes signature;
  Bytes footer;
};

bool EndsWithMagic(Bytes file);

// nullopt when there is no footer, or one that doesn't fit the file.
std::optional<SignedFile> SplitSignedFile(Bytes file);

std::array<std::uint8_t, kFooterLength> MakeFooter(std::uint64_t moduleLength);

// Whether it is a signature's two positive numbers in DER, each in its shortest form, and nothing behind them.
bool IsCanonicalSignature(Bytes der);

}  // namespace strandline::adtool
