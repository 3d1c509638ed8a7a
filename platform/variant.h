#pragma once

// Object, a late-bound reference, and Variant, the tagged value that goes in and out of it. They need each other and so
// share a header.
//
// Object is the one road to Word, the product and its components: members are got, let and called by name, with
// positional and named arguments. A use of Nothing raises 91; a member that isn't there raises 438; whatever else the
// object refuses raises the object's own number.

#include <array>
#include <memory>
#include <span>
#include <variant>

#include "platform/array.h"
#include "platform/name.h"
#include "platform/picture.h"
#include "platform/ref.h"
#include "platform/text.h"
#include "platform/values.h"

namespace strandline {

class Variant;
class Dispatch;
class Walk;

class Object {
 public:
  Object() = default;
  Object(std::nullptr_t) {}
  Object(Ref<Dispatch> target) : mTarget(std::move(target)) {}
  template <class T>
  Object(const Ref<T>& target) : mTarget(target.get()) {}

  bool IsNothing() const { return !mTarget; }
  Dispatch* Target() const { return mTarget.get(); }
  friend bool operator==(const Object&, const Object&) = default;

  template <class... Arguments>
  Variant Get(Name member, Arguments&&... arguments) const;
  // The last argument is the value; those before it are the property's indexes.
  template <class... Arguments>
  void Let(Name member, Arguments&&... arguments) const;
  template <class... Arguments>
  Variant Call(Name member, Arguments&&... arguments) const;

  // The object's own identity in memory, as a number that fits a Long.
  Long Identity() const;

 private:
  Dispatch& Required() const;
  Ref<Dispatch> mTarget;
};

// An argument left out although later ones are given.
struct Missing {
  friend bool operator==(Missing, Missing) = default;
};

// What comes from the automation world in a kind that isn't here becomes the next wider one that is: a byte an Integer,
// unsigned and 64-bit numbers a Long or, beyond it, a Double; currency and decimals a Double. Arrays of other kinds
// become arrays of Variant. What has no such kind (error values, records, arrays of more than one dimension) raises 13
// where it arrives.
class Variant {
 public:
  // Never assigned: 0, False or the empty text wherever one of them is wanted.
  struct Empty {
    friend bool operator==(Empty, Empty) = default;
  };
  // There is no value, a mixed property of a selection, say. It may be handed on, but as a value it raises 94.
  struct Null {
    friend bool operator==(Null, Null) = default;
  };
  template <class T>
  using Shared = std::shared_ptr<const Array<T>>;

  using Value = std::variant<Empty, Missing, Null, Boolean, Integer, Long, Single, Double, Date, String, Object,
                             Picture, Shared<Byte>, Shared<String>, Shared<Boolean>, Shared<Variant>,
                             // by reference: the caller's own variable
                             Boolean*, Integer*, Long*, Single*, Double*, String*, Object*, Variant*, Array<Byte>*,
                             Array<String>*, Array<Boolean>*>;

  Variant() = default;
  Variant(Missing value) : mValue(value) {}
  Variant(Null value) : mValue(value) {}
  Variant(Boolean value) : mValue(value) {}
  Variant(Integer value) : mValue(value) {}
  Variant(Long value) : mValue(value) {}
  Variant(Single value) : mValue(value) {}
  Variant(Double value) : mValue(value) {}
  Variant(Date value) : mValue(value) {}
  Variant(String value) : mValue(std::move(value)) {}
  Variant(const char16_t* value) : mValue(String(value)) {}
  template <class T>
  Variant(T*) = delete;  // a pointer would pass for a Boolean
  Variant(Object value) : mValue(std::move(value)) {}
  Variant(Picture value) : mValue(std::move(value)) {}
  Variant(Array<Byte> value) : mValue(std::make_shared<const Array<Byte>>(std::move(value))) {}
  Variant(Array<String> value) : mValue(std::make_shared<const Array<String>>(std::move(value))) {}
  Variant(Array<Boolean> value) : mValue(std::make_shared<const Array<Boolean>>(std::move(value))) {}
  Variant(Array<Variant> value);
  template <class T>
  requires std::is_base_of_v<Dispatch, T> Variant(const Ref<T>& value) : mValue(Object(value)) {}

  // The variable itself goes along; what the callee writes, the caller sees.
  template <class T>
  static Variant ByRef(T& variable) {
    Variant reference;
    reference.mValue = &variable;
    return reference;
  }

  const Value& Raw() const { return mValue; }
  template <class T>
  const T* If() const {
    return std::get_if<T>(&mValue);
  }
  bool IsByRef() const;
  // The value behind a reference, or this value.
  Variant Resolved() const;
  // Writes through a reference, converted to the variable's type; raises 13 on what is no reference.
  void Assign(const Variant& value) const;

  bool IsEmpty() const { return If<Empty>() != nullptr; }
  bool IsMissing() const { return If<Missing>() != nullptr; }
  bool IsNull() const { return If<Null>() != nullptr; }

  // Conversions: they look through a reference and raise 6 (overflow), 13 (type mismatch), 91 or 94. Rounding is to the
  // nearest whole number, ties to even; Empty is 0, False or the empty text.
  Boolean ToBoolean() const;
  Integer ToInteger() const;
  Long ToLong() const;
  Double ToDouble() const;
  String ToText() const;
  // An object reference, Nothing included; any other value raises 13.
  Object ToObject() const;
  // A picture, or Nothing.
  Picture ToPicture() const;
  // Of Byte, String or Boolean: an array of that kind, or of Variant, each element converted. Raises 13 for any other.
  template <class T>
  Array<T> ToArray() const;

  friend bool operator==(const Variant& a, const Variant& b) { return a.mValue == b.mValue; }

 private:
  Value mValue;
};

inline Variant::Variant(Array<Variant> value) : mValue(std::make_shared<const Array<Variant>>(std::move(value))) {}

struct Named {
  Name name;
  Variant value;
};

enum class Use { kGet, kLet, kCall };

struct Arguments {
  std::span<const Variant> positional;  // for kLet the last one is the value
  std::span<const Named> named;
};

// The elements of a collection, one after the other.
class Enumerator : public RefCounted {
 public:
  // False at the end; raises what the collection raises.
  virtual bool Next(Variant& element) = 0;
};

// What stands behind an Object: Word's, the product's or our own.
class Dispatch : public RefCounted {
 public:
  virtual Variant Invoke(Use use, Name member, const Arguments& arguments) = 0;
  virtual Long Identity() const = 0;
  virtual Ref<Enumerator> Elements();  // raises 438 unless the object is a collection
  virtual Picture AsPicture() const;   // raises 13 unless the object is a picture
};

// Goes through a collection. Where starting or going on raises, the walk is over.
class Walk {
 public:
  bool First(const Object& collection, Object& element);
  bool Next(Object& element);

 private:
  Ref<Enumerator> mEnumerator;
};

namespace late_bound {

template <class T>
inline constexpr bool kIsNamed = std::is_same_v<std::remove_cvref_t<T>, Named>;

// Sorts the arguments of one call into positional and named ones, on the stack.
template <class... Given>
Variant Invoke(Dispatch& target, Use use, Name member, Given&&... given) {
  // What it calls back may let go of it.
  const Ref<Dispatch> held(&target);
  constexpr std::size_t kNamed = (std::size_t{0} + ... + std::size_t{kIsNamed<Given>});
  constexpr std::size_t kPositional = sizeof...(Given) - kNamed;
  if constexpr (kNamed == 0) {
    const std::array<Variant, kPositional> positional{Variant(std::forward<Given>(given))...};
    return target.Invoke(use, member, Arguments{positional, {}});
  } else {
    std::array<Variant, kPositional> positional;
    std::array<Named, kNamed> named = [&]<std::size_t... I>(std::index_sequence<I...>) {
      return std::array<Named, kNamed>{((void)I, Named{Name::FromText(""), {}})...};
    }
    (std::make_index_sequence<kNamed>());
    std::size_t atPositional = 0;
    std::size_t atNamed = 0;
    const auto place = [&](auto&& argument) {
      if constexpr (kIsNamed<decltype(argument)>) {
        named[atNamed++] = argument;
      } else {
        positional[atPositional++] = Variant(argument);
      }
    };
    (place(given), ...);
    (void)atPositional;
    return target.Invoke(use, member, Arguments{positional, named});
  }
}

}  // namespace late_bound

template <class... Given>
Variant Object::Get(Name member, Given&&... given) const {
  return late_bound::Invoke(Required(), Use::kGet, member, std::forward<Given>(given)...);
}
template <class... Given>
void Object::Let(Name member, Given&&... given) const {
  late_bound::Invoke(Required(), Use::kLet, member, std::forward<Given>(given)...);
}
template <class... Given>
Variant Object::Call(Name member, Given&&... given) const {
  return late_bound::Invoke(Required(), Use::kCall, member, std::forward<Given>(given)...);
}

inline Dispatch& Object::Required() const {
  if (!mTarget) Raise(errors::kObjectNotSet);
  return *mTarget;
}
inline Long Object::Identity() const { return Required().Identity(); }

}  // namespace strandline
