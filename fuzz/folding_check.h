#pragma once

// Rich Text as another program may leave it, read through the clipboard class, against a second account of what the
// reading does with the bytes: whole characters are taken off the front, and each makes one byte.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "foundation/cCustomClipboard.h"
#include "platform/desk/desk.h"

namespace strandline::folding {

using Bytes = std::vector<Byte>;

struct Folded {
  Bytes bytes;
  std::vector<Long> errors;  // in the order of their raising
};

// What a character at the front makes: how many bytes it has, and the byte for it, which without a value is the one
// that stood at its place.
struct Character {
  std::size_t length = 1;
  std::optional<Byte> value;
  std::vector<Long> errors;
};

inline Character Shifted(std::size_t length, int value) {
  if (value < 0 || value > 255) return {length, std::nullopt, {errors::kOverflow}};
  return {length, static_cast<Byte>(value), {}};
}

inline Character FirstCharacter(std::span<const Byte> rest) {
  switch (rest[0]) {
    case 0xA0:
      return {1, Byte{0x20}, {}};
    case 0xC3:
      return rest.size() == 1 ? Character{} : Shifted(2, rest[1] + 0x40);
    case 0xE2:
      // Asked for the second byte where there is none, it goes on as if that were the right one.
      if (rest.size() == 1) return {3, std::nullopt, {errors::kSubscriptOutOfRange, errors::kSubscriptOutOfRange}};
      if (rest[1] != 0x80) return {};
      return rest.size() == 2 ? Character{3, std::nullopt, {errors::kSubscriptOutOfRange}} : Shifted(3, rest[2] - 9);
    default:
      return {1, rest[0], {}};
  }
}

// As if every error were ignored.
inline Folded Fold(std::span<const Byte> bytes) {
  Folded folded;
  for (std::span<const Byte> rest = bytes; !rest.empty();) {
    const Character character = FirstCharacter(rest);
    folded.bytes.push_back(character.value.value_or(bytes[folded.bytes.size()]));
    folded.errors.insert(folded.errors.end(), character.errors.begin(), character.errors.end());
    rest = rest.subspan(std::min(character.length, rest.size()));
  }
  return folded;
}

// The desk, the class on it, and an error component that gives always the same answer.
class Check {
 public:
  Check() {
    mDesk.Components().Register(u"QuillmereError.Main2", [this] { return New<Component>(*this); });
    platform::current = mDesk.Services();
    vbwProtector::variables = {};
    vbwProtector::vbwInitializeProtector();
    mClipboard = New<cCustomClipboard>();
  }
  ~Check() {
    mClipboard = nullptr;
    vbwProtector::variables = {};
    platform::current = {};
  }
  Check(const Check&) = delete;
  Check& operator=(const Check&) = delete;

  // What is wrong; empty when nothing is.
  std::string Wrong(std::span<const Byte> bytes) {
    const Folded expected = Fold(bytes);
    std::string wrong = WrongAmong(bytes, expected, vbwProtector::kIgnore);
    if (wrong.empty()) wrong = WrongAmong(bytes, expected, 0);
    return wrong;
  }

 private:
  class Component final : public Dispatch {
   public:
    explicit Component(Check& check) : mCheck(check) {}
    Variant Invoke(Use, Name member, const Arguments& arguments) override {
      if (member.Text() != "vbwErrorHandler") return {};
      mCheck.mErrors.push_back(arguments.positional[0].ToLong());
      return mCheck.mAnswer;
    }
    Long Identity() const override { return 1; }

   private:
    Check& mCheck;
  };

  // The first error is the last one where it isn't ignored, and then there is no text.
  std::string WrongAmong(std::span<const Byte> bytes, const Folded& expected, Long answer) {
    const bool fails = bytes.empty() || (answer != vbwProtector::kIgnore && !expected.errors.empty());
    std::vector<Long> errors = expected.errors;
    if (answer != vbwProtector::kIgnore) errors.resize(std::min<std::size_t>(errors.size(), 1));
    mDesk.Clipboard().EmptyFromOutside();
    Long format = mDesk.Clipboard().RegisterClipboardFormatA(u"Rich Text Format");
    mDesk.Clipboard().SetFromOutside(format, bytes);
    mErrors.clear();
    mAnswer = answer;
    const String before = u"as it was";
    String text = before;
    mClipboard->ClipboardOpen(0, true);
    const Boolean ok = mClipboard->GetTextData(text, format);
    mClipboard->ClipboardClose(false);
    if (ok == fails) return fails ? "it was read" : "it wasn't read";
    if (mErrors != errors) return "its errors are others";
    if (text != (fails ? before : TextOf(expected.bytes))) return "its text is another";
    if (text.View().size() > std::max(bytes.size(), before.View().size())) return "its text is too long";
    if (!mDesk.Misuses().All().empty()) return mDesk.Misuses().All().front().what;
    if (mDesk.Pictures().Memory().LiveBlocks() != 0) return "memory is lost";
    return vbwProtector::variables.mStackCalls == 0 ? "" : "a procedure is on the stack still";
  }

  String TextOf(Bytes bytes) {
    std::erase(bytes, Byte{0xC2});
    Array<Byte> codes(0, static_cast<Long>(bytes.size()) - 1);
    std::copy(bytes.begin(), bytes.end(), codes.Data());
    return mDesk.RunTime().TextFromBytes(codes);
  }

  desk::Desk mDesk;
  Ref<cCustomClipboard> mClipboard;
  Long mAnswer = 0;
  std::vector<Long> mErrors;
};

}  // namespace strandline::folding
