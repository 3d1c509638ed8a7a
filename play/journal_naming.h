#pragma once

// How values show in the journal: objects by the names of Word's world, windows, device contexts and bitmaps by kind
// and number, so that a line reads alike in every run.

#include <functional>
#include <span>
#include <string>

#include "platform/variant.h"
#include "play/journal.h"

namespace strandline::play {

class JournalNaming {
 public:
  // Each gives an empty text for what it doesn't know.
  struct Sources {
    std::function<std::string(Long hwnd)> window;      // "top 1", "bar 2"
    std::function<std::string(Long handle)> graphics;  // "dc 3", "bitmap 4"
    std::function<std::string(const Object&)> object;  // "control 5"
    // A text as it reads in every world, such as a folder's name; without this one, texts are as they are.
    std::function<std::string(std::string)> text = nullptr;
  };
  explicit JournalNaming(Sources sources) : mSources(std::move(sources)) {}

  // A value as it is; what was passed by reference, as it is now. A whole number stays one.
  Json Value(const Variant& value) const;
  // As Value, but a number that is a window, context or bitmap bears its name.
  Json ValueWithHandles(const Variant& value) const;
  // Positional ones, without those left out, and at the end one object with the named ones, if there are any.
  Json Arguments(std::span<const Variant> positional, std::span<const Named> named) const;

  Json Window(Long hwnd) const { return NameOrNumber(mSources.window, hwnd); }
  Json GraphicsObject(Long handle) const { return NameOrNumber(mSources.graphics, handle); }
  std::string ObjectName(const Object& object) const;
  std::string Text(const String& text) const;

 private:
  static Json NameOrNumber(const std::function<std::string(Long)>& source, Long number);

  Sources mSources;
};

// The shortest decimal text that is this Single and no other.
std::string SingleText(Single value);
// "2009-03-02T09:00:00".
std::string DateText(Date value);
// {"bytes":N,"crc32":"0f1e2d3c"}
Json BytesSummary(std::span<const Byte> bytes);

}  // namespace strandline::play
