#include "play/journal_naming.h"

#include <cxxabi.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <typeinfo>

#include "platform/dictionary.h"

namespace strandline::play {

namespace {

template <class T>
Json List(const Array<T>& array) {
  Json list = Json::array();
  for (const auto& element : array.Elements()) {
    if constexpr (std::is_same_v<T, String>) {
      list.push_back(ToUtf8(element.View()));
    } else {
      list.push_back(static_cast<bool>(element));
    }
  }
  return list;
}

// What a resolved value looks like, type by type.
struct ToJson {
  const JournalNaming& naming;

  Json operator()(Variant::Empty) const { return nullptr; }
  Json operator()(Missing) const { return nullptr; }
  Json operator()(Variant::Null) const { return nullptr; }
  Json operator()(Boolean value) const { return value; }
  Json operator()(Integer value) const { return value; }
  Json operator()(Long value) const { return value; }
  Json operator()(Single value) const { return SingleText(value); }
  Json operator()(Double value) const { return value; }
  Json operator()(Date value) const { return DateText(value); }
  Json operator()(const String& value) const { return naming.Text(value); }
  Json operator()(const Object& value) const {
    return value.IsNothing() ? Json(nullptr) : Json(naming.ObjectName(value));
  }
  Json operator()(const Picture& value) const { return value ? Json("picture") : Json(nullptr); }
  Json operator()(const Variant::Shared<Byte>& value) const { return BytesSummary(value->Elements()); }
  Json operator()(const Variant::Shared<String>& value) const { return List(*value); }
  Json operator()(const Variant::Shared<Boolean>& value) const { return List(*value); }
  Json operator()(const Variant::Shared<Variant>& value) const {
    Json list = Json::array();
    for (const Variant& element : value->Elements()) list.push_back(element.Resolved().Visit(*this));
    return list;
  }
  template <class T>
  Json operator()(T*) const {
    return nullptr;  // a reference within a reference
  }
};

// "strandline::Buttons" gives "Buttons". Each world has a class of its own for dictionaries.
std::string ClassName(const Dispatch& object) {
  if (dynamic_cast<const Dictionary*>(&object)) return "Dictionary";
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> full(
      abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, &status), &std::free);
  const std::string name = status == 0 && full ? full.get() : "object";
  return name.substr(name.rfind(':') + 1);
}

}  // namespace

std::string JournalNaming::ObjectName(const Object& object) const {
  const std::string name = mSources.object ? mSources.object(object) : std::string();
  return name.empty() ? ClassName(*object.Target()) : name;
}

std::string JournalNaming::Text(const String& text) const {
  std::string plain = ToUtf8(text.View());
  return mSources.text ? mSources.text(std::move(plain)) : plain;
}

Json JournalNaming::Value(const Variant& value) const { return value.Resolved().Visit(ToJson{*this}); }

Json JournalNaming::ValueWithHandles(const Variant& value) const {
  const Variant resolved = value.Resolved();
  const Long* number = resolved.If<Long>();
  if (!number) return Value(resolved);
  const Json window = Window(*number);
  return window.is_string() ? window : GraphicsObject(*number);
}

Json JournalNaming::Arguments(std::span<const Variant> positional, std::span<const Named> named) const {
  Json arguments = Json::array();
  for (const Variant& argument : positional) {
    if (!argument.Resolved().IsMissing()) arguments.push_back(Value(argument));
  }
  if (!named.empty()) {
    Json object = Json::object();
    for (const Named& argument : named) object[std::string(argument.name.Text())] = Value(argument.value);
    arguments.push_back(std::move(object));
  }
  return arguments;
}

Json JournalNaming::NameOrNumber(const std::function<std::string(Long)>& source, Long number) {
  const std::string name = number != 0 && source ? source(number) : std::string();
  return name.empty() ? Json(number) : Json(name);
}

std::string SingleText(Single value) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, value).ptr;
  return std::string(text, end);
}

std::string DateText(Date value) {
  if (!std::isfinite(value.days) || std::fabs(value.days) > 3'000'000) return "no date";
  using namespace std::chrono;
  // Before the first day, the time of day still counts forward.
  const double day = std::trunc(value.days);
  const sys_days date = sys_days{year{1899} / 12 / 30} + days{static_cast<int>(day)};
  const year_month_day calendar{date};
  const long second = std::lround(std::fabs(value.days - day) * 86400);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02ld:%02ld:%02ld", static_cast<int>(calendar.year()),
                static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()), second / 3600,
                second / 60 % 60, second % 60);
  return text;
}

Json BytesSummary(std::span<const Byte> bytes) {
  std::uint32_t remainder = 0xFFFFFFFF;
  for (const Byte byte : bytes) {
    remainder ^= byte;
    for (int bit = 0; bit < 8; ++bit) remainder = remainder >> 1 ^ (remainder & 1 ? 0xEDB88320u : 0);
  }
  char crc[16];
  std::snprintf(crc, sizeof crc, "%08x", ~remainder);
  return Json{{"bytes", bytes.size()}, {"crc32", crc}};
}

}  // namespace strandline::play
