#pragma once

#include <span>
#include <vector>

#include "platform/text.h"

namespace strandline::desk {

// How the clipboard writes texts as bytes. The single-byte sets are 1252 for plain text and 437 for the console's; a
// character that a set lacks becomes a question mark, also where Windows would take one that looks like it.

bool IsTextFormat(Long format);

// The text up to the first NUL or the end. Bytes of a format that is no text format are taken for plain text.
String DecodeText(Long format, std::span<const Byte> bytes);
// With the NUL that ends it.
std::vector<Byte> EncodeText(Long format, TextView text);

// Puts a NUL in place of a text's last character, so that every text on the clipboard ends. Bytes of a format that is
// no text format stay.
void EndText(Long format, std::span<Byte> bytes);

// The names in a list of files, none where the bytes aren't one.
std::vector<String> DecodeDropList(std::span<const Byte> bytes);

}  // namespace strandline::desk
