#include "adtool/signature_parts.h"

#include <algorithm>

namespace strandline::adtool {

namespace {

constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kLongestSignature = 2 + 2 * (2 + 61);
constexpr std::uint8_t kSequence = 0x30;
constexpr std::uint8_t kInteger = 0x02;

void AppendLittleEndian(std::uint8_t*& target, std::uint64_t number, int length) {
  for (int i = 0; i < length; ++i) *target++ = static_cast<std::uint8_t>(number >> (8 * i));
}

std::uint64_t LittleEndian(Bytes bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
  return number;
}

// Takes one positive number in its shortest form off the front.
bool TakeNumber(Bytes& der) {
  if (der.size() < 3 || der[0] != kInteger || der[1] == 0 || der[1] >= 0x80 || der.size() - 2 < der[1]) return false;
  const Bytes number = der.subspan(2, der[1]);
  der = der.subspan(2 + number.size());
  // A zero in front is there only to keep the number from being taken as negative.
  if (number[0] == 0) return number.size() > 1 && number[1] >= 0x80;
  return number[0] < 0x80;
}

}  // namespace

bool EndsWithMagic(Bytes file) {
  return file.size() >= kMagic.size() &&
         std::equal(kMagic.begin(), kMagic.end(), file.end() - static_cast<std::ptrdiff_t>(kMagic.size()),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::optional<SignedFile> SplitSignedFile(Bytes file) {
  if (file.size() < kFooterLength || !EndsWithMagic(file)) return std::nullopt;
  const Bytes footer = file.last(kFooterLength);
  const std::uint64_t moduleLength = LittleEndian(footer.first(8));
  const std::size_t before = file.size() - kFooterLength;
  if (LittleEndian(footer.subspan(8, 4)) != kVersion || moduleLength > before) return std::nullopt;
  const Bytes module = file.first(static_cast<std::size_t>(moduleLength));
  const Bytes signature = file.subspan(module.size(), before - module.size());
  if (signature.size() > kLongestSignature) return std::nullopt;
  return SignedFile{module, signature, footer};
}

std::array<std::uint8_t, kFooterLength> MakeFooter(std::uint64_t moduleLength) {
  std::array<std::uint8_t, kFooterLength> footer = {};
  std::uint8_t* target = footer.data();
  AppendLittleEndian(target, moduleLength, 8);
  AppendLittleEndian(target, kVersion, 4);
  std::copy(kMagic.begin(), kMagic.end(), target);
  return footer;
}

bool IsCanonicalSignature(Bytes der) {
  if (der.size() < 2 || der[0] != kSequence || der[1] >= 0x80 || der[1] != der.size() - 2) return false;
  der = der.subspan(2);
  return TakeNumber(der) && TakeNumber(der) && der.empty();
}

}  // namespace strandline::adtool
