#pragma once

#include <array>
#include <cstdint>

#include "platform/text.h"

namespace strandline::desk {

// The desk's own font: a proportional face of the size that menus and captions have, capitals 8 pixels high. It knows
// the printable ASCII characters, and accented letters of Western Europe without their accents; any other shows as a
// box.
struct Glyph {
  static constexpr int kRows = 10;  // 8 above the base line, 2 below

  int width = 0;                            // pixels, without the gap to the next glyph
  std::array<std::uint16_t, kRows> rows{};  // from the top; bit 0 is the leftmost pixel
};

inline constexpr int kGlyphGap = 1;
inline constexpr int kGlyphTop = 2;     // of a line, above the glyphs
inline constexpr int kTextHeight = 13;  // of a line

const Glyph& GlyphOf(char16_t character);

// Pixels, the gap behind the last glyph included.
int WidthOfText(TextView text);

}  // namespace strandline::desk
