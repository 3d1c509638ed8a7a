#pragma once

// The host's own font, the same pixels in both worlds: a proportional face of the size that menus and captions have,
// capitals 8 pixels high. It knows the printable ASCII characters, and accented letters of Western Europe without their
// accents; any other shows as a box.

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/looks/glyph_table.h"
#include "platform/text.h"

namespace strandline {

struct Glyph {
  static constexpr int kRows = 10;  // 8 above the base line, 2 below

  int width = 0;                            // pixels, without the gap to the next glyph
  std::array<std::uint16_t, kRows> rows{};  // from the top; bit 0 is the leftmost pixel
};

inline constexpr int kGlyphGap = 1;
inline constexpr int kGlyphTop = 2;     // of a line, above the glyphs
inline constexpr int kTextHeight = 13;  // of a line

namespace looks {

inline constexpr char16_t kFirst = u' ';
inline constexpr char16_t kLast = u'~';
inline constexpr std::size_t kBox = kLast - kFirst + 1;
inline constexpr int kBlankWidth = 3;

using Glyphs = std::array<Glyph, kBox + 1>;

inline std::string_view TakeUpTo(std::string_view& rest, char end) {
  const std::size_t at = rest.find(end);
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
  return taken;
}

inline void ReadRow(Glyph& glyph, int row, std::string_view pixels) {
  glyph.width = static_cast<int>(pixels.size());
  for (std::size_t x = 0; x < pixels.size(); ++x) {
    if (pixels[x] == '#') glyph.rows[static_cast<std::size_t>(row)] |= static_cast<std::uint16_t>(1u << x);
  }
}

inline Glyphs ReadTable() {
  Glyphs glyphs;
  glyphs[0].width = kBlankWidth;
  for (int row = 0; row < Glyph::kRows; ++row) ReadRow(glyphs[kBox], row, kBoxRows[row]);
  std::string_view rest = kGlyphTable;
  while (!rest.empty()) {
    const std::string_view characters = TakeUpTo(rest, '\n');
    if (characters.empty()) continue;
    for (int row = 0; row < Glyph::kRows; ++row) {
      std::string_view line = TakeUpTo(rest, '\n');
      for (const char character : characters) {
        ReadRow(glyphs[static_cast<std::size_t>(character - kFirst)], row, TakeUpTo(line, ' '));
      }
    }
  }
  return glyphs;
}

inline char16_t Bare(char16_t character) {
  if (character < 0xC0 || character > 0xFF) return character;
  const char letter = kBareLetters[static_cast<std::size_t>(character - 0xC0)];
  return letter == ' ' ? character : static_cast<char16_t>(letter);
}

}  // namespace looks

inline const Glyph& GlyphOf(char16_t character) {
  static const looks::Glyphs glyphs = looks::ReadTable();
  character = looks::Bare(character);
  const bool known = character >= looks::kFirst && character <= looks::kLast;
  return glyphs[known ? static_cast<std::size_t>(character - looks::kFirst) : looks::kBox];
}

// Pixels, the gap behind the last glyph included.
inline int WidthOfText(TextView text) {
  int width = 0;
  for (const char16_t character : text) width += GlyphOf(character).width + kGlyphGap;
  return width;
}

}  // namespace strandline
