#pragma once

// The name of a member, hashed when it is compiled, so that a late-bound use compares one number. Letters A to Z are
// taken without case, as automation compares names.

#include <cstdint>
#include <string_view>

namespace strandline {

class Name {
 public:
  template <std::size_t kLength>
  consteval Name(const char (&text)[kLength]) : mText(text, kLength - 1), mHash(HashOf(mText)) {}

  // For a name that is known only at run time; `text` must outlive the name.
  static constexpr Name FromText(std::string_view text) { return Name(text, HashOf(text)); }

  constexpr std::string_view Text() const { return mText; }
  constexpr std::uint32_t Hash() const { return mHash; }

  friend constexpr bool operator==(const Name& a, const Name& b) {
    return a.mHash == b.mHash && SameLetters(a.mText, b.mText);
  }

 private:
  constexpr Name(std::string_view text, std::uint32_t hash) : mText(text), mHash(hash) {}

  static constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
  static constexpr std::uint32_t HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(Lower(c))) * 16777619u;
    return hash;
  }
  static constexpr bool SameLetters(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (Lower(a[i]) != Lower(b[i])) return false;
    }
    return true;
  }

  std::string_view mText;
  std::uint32_t mHash;
};

}  // namespace strandline
