#include "platform/variant.h"

#include <cmath>
#include <limits>

#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {

template <class T>
inline constexpr bool kIsPlainNumber =
    std::is_same_v<T, Integer> || std::is_same_v<T, Long> || std::is_same_v<T, Single> || std::is_same_v<T, Double>;

[[noreturn]] void Mismatch() { Raise(errors::kTypeMismatch); }

struct AsDouble {
  Double operator()(const Variant::Empty&) const { return 0; }
  Double operator()(const Variant::Null&) const { Raise(errors::kInvalidUseOfNull); }
  Double operator()(Boolean value) const { return value ? -1 : 0; }
  Double operator()(Date value) const { return value.days; }
  Double operator()(const String& value) const { return NumberFromText(value); }
  template <class T>
  Double operator()(const T& value) const {
    if constexpr (kIsPlainNumber<T>) {
      return static_cast<Double>(value);
    } else {
      Mismatch();
    }
  }
};

struct AsText {
  String operator()(const Variant::Empty&) const { return {}; }
  String operator()(const Variant::Null&) const { Raise(errors::kInvalidUseOfNull); }
  String operator()(Boolean value) const { return TextFromBoolean(value); }
  String operator()(Integer value) const { return DecimalText(value); }
  String operator()(Long value) const { return DecimalText(value); }
  String operator()(Single value) const { return TextFromSingle(value); }
  String operator()(Double value) const { return TextFromNumber(value); }
  String operator()(Date value) const { return platform::RunTime().TextFromDate(value); }
  String operator()(const String& value) const { return value; }
  template <class T>
  String operator()(const T&) const {
    Mismatch();
  }
};

struct Resolve {
  const Variant& self;
  template <class T>
  Variant operator()(const T& value) const {
    if constexpr (std::is_same_v<T, Variant*>) {
      return value->Resolved();
    } else if constexpr (std::is_pointer_v<T>) {
      return Variant(*value);
    } else {
      return self;
    }
  }
};

struct AssignThrough {
  const Variant& value;
  void operator()(Boolean* to) const { *to = value.ToBoolean(); }
  void operator()(Integer* to) const { *to = value.ToInteger(); }
  void operator()(Long* to) const { *to = value.ToLong(); }
  void operator()(Single* to) const {
    const Double number = value.ToDouble();
    if (std::abs(number) > std::numeric_limits<Single>::max()) Raise(errors::kOverflow);
    *to = static_cast<Single>(number);
  }
  void operator()(Double* to) const { *to = value.ToDouble(); }
  void operator()(String* to) const { *to = value.ToText(); }
  void operator()(Object* to) const { *to = value.ToObject(); }
  void operator()(Variant* to) const { *to = value.Resolved(); }
  void operator()(Array<Byte>* to) const { *to = value.ToArray<Byte>(); }
  void operator()(Array<String>* to) const { *to = value.ToArray<String>(); }
  void operator()(Array<Boolean>* to) const { *to = value.ToArray<Boolean>(); }
  template <class T>
  void operator()(const T&) const {
    Mismatch();
  }
};

void Take(Byte& element, const Variant& value) {
  const Long number = value.ToLong();
  if (number < 0 || number > 255) Raise(errors::kOverflow);
  element = static_cast<Byte>(number);
}
void Take(String& element, const Variant& value) { element = value.ToText(); }
void Take(Boolean& element, const Variant& value) { element = value.ToBoolean(); }

}  // namespace

Variant::Variant(Array<Byte> value) { Put(std::make_shared<const Array<Byte>>(std::move(value))); }
Variant::Variant(Array<String> value) { Put(std::make_shared<const Array<String>>(std::move(value))); }
Variant::Variant(Array<Boolean> value) { Put(std::make_shared<const Array<Boolean>>(std::move(value))); }
Variant::Variant(Array<Variant> value) { Put(std::make_shared<const Array<Variant>>(std::move(value))); }

void Variant::CopyOwned(const Variant& other) {
  other.Visit([this](const auto& value) { Put(value); });
}

// The other one stays behind as Empty.
void Variant::MoveOwned(Variant& other) noexcept {
  other.Visit([this](const auto& value) {
    using T = std::remove_cvref_t<decltype(value)>;
    Put(std::move(const_cast<T&>(value)));
  });
  other.ReleaseOwned();
}

void Variant::ReleaseOwned() noexcept {
  Visit([](const auto& value) {
    using T = std::remove_cvref_t<decltype(value)>;
    const_cast<T&>(value).~T();
  });
  mKind = 0;
}

bool Variant::SameAs(const Variant& other) const {
  if (mKind != other.mKind) return false;
  return Visit([&other](const auto& value) { return value == *other.If<std::remove_cvref_t<decltype(value)>>(); });
}

Variant Variant::Resolved() const { return Visit(Resolve{*this}); }
void Variant::Assign(const Variant& value) const { Visit(AssignThrough{value}); }

Boolean Variant::ToBoolean() const {
  if (const Boolean* value = If<Boolean>()) return *value;
  if (IsByRef()) return Resolved().ToBoolean();
  if (const String* text = If<String>()) return BooleanFromText(*text);
  return Visit(AsDouble{}) != 0;
}

Integer Variant::ToInteger() const {
  if (const Integer* value = If<Integer>()) return *value;
  if (IsByRef()) return Resolved().ToInteger();
  return RoundToInteger(Visit(AsDouble{}));
}

Long Variant::ToLong() const {
  if (const Long* value = If<Long>()) return *value;
  if (const Integer* value = If<Integer>()) return *value;
  if (IsByRef()) return Resolved().ToLong();
  return RoundToLong(Visit(AsDouble{}));
}

Double Variant::ToDouble() const {
  if (IsByRef()) return Resolved().ToDouble();
  return Visit(AsDouble{});
}

String Variant::ToText() const {
  if (const String* text = If<String>()) return *text;
  if (IsByRef()) return Resolved().ToText();
  return Visit(AsText{});
}

Object Variant::ToObject() const {
  if (const Object* object = If<Object>()) return *object;
  if (IsByRef()) return Resolved().ToObject();
  Mismatch();
}

Picture Variant::ToPicture() const {
  if (const Picture* picture = If<Picture>()) return *picture;
  if (IsByRef()) return Resolved().ToPicture();
  const Object object = ToObject();
  return object.IsNothing() ? Picture() : object.Target()->AsPicture();
}

template <class T>
Array<T> Variant::ToArray() const {
  if (IsByRef()) return Resolved().ToArray<T>();
  if (const Shared<T>* array = If<Shared<T>>()) return **array;
  const Shared<Variant>* const values = If<Shared<Variant>>();
  if (!values) Mismatch();
  Array<T> array;
  if (!(*values)->IsSized()) return array;
  Long at = (*values)->Lower();
  array.Size(at, (*values)->Upper());
  for (const Variant& value : (*values)->Elements()) Take(array(at++), value);
  return array;
}
template Array<Byte> Variant::ToArray() const;
template Array<String> Variant::ToArray() const;
template Array<Boolean> Variant::ToArray() const;

Ref<Enumerator> Dispatch::Elements() { Raise(errors::kNoSuchMember); }
Picture Dispatch::AsPicture() const { Mismatch(); }

bool Walk::First(const Object& collection, Object& element) {
  mEnumerator = nullptr;
  if (collection.IsNothing()) Raise(errors::kObjectNotSet);
  mEnumerator = collection.Target()->Elements();
  return Next(element);
}

bool Walk::Next(Object& element) {
  // Let go of first, so that a walk whose next step raises is over.
  const Ref<Enumerator> enumerator = std::exchange(mEnumerator, nullptr);
  Variant next;
  if (!enumerator || !enumerator->Next(next)) {
    element = nullptr;
    return false;
  }
  element = next.ToObject();
  mEnumerator = enumerator;
  return true;
}

}  // namespace strandline
