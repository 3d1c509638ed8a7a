#include "platform/desk/desk_clipboard_text.h"

#include <algorithm>

#include "platform/clipboard.h"

namespace strandline::desk {

namespace {

// From 0x80 on; what is below is ASCII in both.
constexpr char16_t kAnsi[128] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152,
    0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122,
    0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, 0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, 0x00B0, 0x00B1, 0x00B2, 0x00B3,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x00BA, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF, 0x00C0,
    0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C6, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD,
    0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D7, 0x00D8, 0x00D9, 0x00DA,
    0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00DF, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x00F0, 0x00F1, 0x00F2, 0x00F3, 0x00F4,
    0x00F5, 0x00F6, 0x00F7, 0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x00FF,
};
constexpr char16_t kOem[128] = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557, 0x255D, 0x255C, 0x255B, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559, 0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C,
    0x2588, 0x2584, 0x258C, 0x2590, 0x2580, 0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4,
    0x03A6, 0x0398, 0x03A9, 0x03B4, 0x221E, 0x03C6, 0x03B5, 0x2229, 0x2261, 0x00B1, 0x2265, 0x2264, 0x2320,
    0x2321, 0x00F7, 0x2248, 0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00A0,
};

const char16_t* UpperHalf(Long format) { return format == clipboardformat::kOemText ? kOem : kAnsi; }

Byte EncodeCharacter(Long format, char16_t c) {
  if (c < 0x80) return static_cast<Byte>(c);
  const char16_t* const set = UpperHalf(format);
  const char16_t* const found = std::find(set, set + 128, c);
  return found == set + 128 ? Byte{'?'} : static_cast<Byte>(0x80 + (found - set));
}

char16_t WideAt(std::span<const Byte> bytes, std::size_t at) {
  return static_cast<char16_t>(bytes[at] | bytes[at + 1] << 8);
}

Long LongAt(std::span<const Byte> bytes, std::size_t at) {
  return static_cast<Long>(bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 |
                           static_cast<std::uint32_t>(bytes[at + 3]) << 24);
}

}  // namespace

bool IsTextFormat(Long format) {
  return format == clipboardformat::kText || format == clipboardformat::kOemText ||
         format == clipboardformat::kUnicodeText;
}

String DecodeText(Long format, std::span<const Byte> bytes) {
  std::u16string text;
  if (format == clipboardformat::kUnicodeText) {
    for (std::size_t at = 0; at + 1 < bytes.size() && WideAt(bytes, at) != 0; at += 2) text += WideAt(bytes, at);
    return text;
  }
  for (const Byte byte : bytes) {
    if (byte == 0) break;
    text += byte < 0x80 ? char16_t{byte} : UpperHalf(format)[byte - 0x80];
  }
  return text;
}

std::vector<Byte> EncodeText(Long format, TextView text) {
  std::vector<Byte> bytes;
  if (format == clipboardformat::kUnicodeText) {
    for (const char16_t c : text) {
      bytes.push_back(static_cast<Byte>(c));
      bytes.push_back(static_cast<Byte>(c >> 8));
    }
    bytes.push_back(0);
  } else {
    for (const char16_t c : text) bytes.push_back(EncodeCharacter(format, c));
  }
  bytes.push_back(0);
  return bytes;
}

void EndText(Long format, std::span<Byte> bytes) {
  if (!IsTextFormat(format)) return;
  const std::size_t width = format == clipboardformat::kUnicodeText ? 2 : 1;
  const std::size_t characters = bytes.size() / width;
  if (characters != 0) std::ranges::fill(bytes.subspan((characters - 1) * width, width), Byte{0});
}

// A record of 20 bytes (where the names begin, a point, two flags), then names, each ended by a NUL, an empty one last.
std::vector<String> DecodeDropList(std::span<const Byte> bytes) {
  constexpr std::size_t kRecord = 20;
  if (bytes.size() < kRecord) return {};
  const std::size_t begin = static_cast<std::uint32_t>(LongAt(bytes, 0));
  if (begin > bytes.size()) return {};
  const Long format = LongAt(bytes, 16) != 0 ? clipboardformat::kUnicodeText : clipboardformat::kText;
  const std::size_t width = format == clipboardformat::kUnicodeText ? 2 : 1;
  std::vector<String> names;
  for (std::size_t at = begin; at < bytes.size();) {
    const String name = DecodeText(format, bytes.subspan(at));
    if (name.IsEmpty()) break;
    at += (static_cast<std::size_t>(name.Length()) + 1) * width;
    names.push_back(name);
  }
  return names;
}

}  // namespace strandline::desk
