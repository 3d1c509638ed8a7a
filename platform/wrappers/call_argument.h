#pragma once

// A value that went into a call across the seam or came out of it, as a record of the call holds it.

#include <array>
#include <type_traits>
#include <variant>

#include "platform/clipboard.h"
#include "platform/dictionary.h"
#include "platform/graphics.h"
#include "platform/pictures.h"
#include "platform/variant.h"
#include "platform/windows.h"

namespace strandline {

struct CallArgument {
  struct Nothing {};  // the result of an operation that has none
  struct Null {};     // a text or object that isn't there

  // In the order of Value's alternatives.
  enum class Kind { kNothing, kNull, kNumber, kFraction, kFlag, kText, kRect, kPoint, kMessage, kObject };
  using Value = std::variant<Nothing, Null, Long, Double, Boolean, String, Rect, Point, Message, Object>;

  // What a number stands for. A graphics object is a bitmap, brush or region.
  enum class Hint { kPlain, kWindow, kContext, kBitmap, kGraphicsObject, kModule, kMemory };

  template <class T>
  const T* If() const {
    return std::get_if<T>(&value);
  }

  Value value;
  Hint hint = Hint::kPlain;
};

inline CallArgument::Kind KindOf(const CallArgument& argument) {
  return static_cast<CallArgument::Kind>(argument.value.index());
}

// How the operation tables note values; each makes a CallArgument.
namespace note {

inline CallArgument Win(Long hwnd) { return {hwnd, CallArgument::Hint::kWindow}; }
inline CallArgument Dc(Long hdc) { return {hdc, CallArgument::Hint::kContext}; }
inline CallArgument Bmp(Long bitmap) { return {bitmap, CallArgument::Hint::kBitmap}; }
inline CallArgument Gdi(Long object) { return {object, CallArgument::Hint::kGraphicsObject}; }
inline CallArgument Module(Long module) { return {module, CallArgument::Hint::kModule}; }
inline CallArgument Memory(Long memory) { return {memory, CallArgument::Hint::kMemory}; }
inline CallArgument ClipboardData(Long format, Long data) {
  return format == clipboardformat::kBitmap ? Bmp(data) : Memory(data);
}

// "{8-4-4-4-12}", upper-case hexadecimal.
String GuidText(const Guid& id);

inline CallArgument Plain(CallArgument argument) { return argument; }
inline CallArgument Plain(Long number) { return {number}; }
inline CallArgument Plain(Double number) { return {number}; }
inline CallArgument Plain(Boolean flag) { return {flag}; }
inline CallArgument Plain(const String& text) { return {text}; }
inline CallArgument Plain(const String* text) {
  if (text == nullptr) return {CallArgument::Null()};
  return {*text};
}
inline CallArgument Plain(const Rect& rectangle) { return {rectangle}; }
inline CallArgument Plain(const Point& point) { return {point}; }
inline CallArgument Plain(const Message& message) { return {message}; }
inline CallArgument Plain(const Object& object) {
  if (object.IsNothing()) return {CallArgument::Null()};
  return {object};
}
inline CallArgument Plain(const Ref<Dictionary>& dictionary) { return Plain(Object(dictionary)); }
inline CallArgument Plain(Date date) { return {date.days}; }
inline CallArgument Plain(const Error& error) { return {error.number}; }
inline CallArgument Plain(const Guid& id) { return {GuidText(id)}; }
inline CallArgument Plain(const Byte* address) { return {address != nullptr}; }
inline CallArgument Plain(const Ref<Stream>& stream) { return {static_cast<bool>(stream)}; }
inline CallArgument Plain(const Picture& picture) { return {static_cast<bool>(picture)}; }
inline CallArgument Plain(const Array<Byte>& bytes) { return {static_cast<Long>(bytes.Elements().size())}; }

template <class... Values>
std::array<CallArgument, sizeof...(Values)> All(const Values&... values) {
  return {Plain(values)...};
}

}  // namespace note

}  // namespace strandline
