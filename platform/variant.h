#pragma once

// Object, a late-bound reference, and Variant, the tagged value that goes in and out of it. They need each other and so
// share a header.
//
// Object is the one road to Word, the product and its components: members are got, let and called by name, with
// positional and named arguments. A use of Nothing raises 91; a member that isn't there raises 438; whatever else the
// object refuses raises the object's own number.

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <tuple>

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

template <class... Ts>
struct TypeList {
  static constexpr std::size_t kCount = sizeof...(Ts);
  // The position of a type that is in the list; no other compiles.
  template <class T>
  static consteval std::uint8_t Find() {
    constexpr bool kIsIt[] = {std::is_same_v<T, Ts>...};
    std::uint8_t kind = 0;
    while (!kIsIt[kind]) ++kind;
    return kind;
  }
  template <std::size_t kAt>
  using At = std::tuple_element_t<kAt, std::tuple<Ts...>>;
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

  Variant() = default;
  Variant(Missing value) { Put(value); }
  Variant(Null value) { Put(value); }
  Variant(Boolean value) { Put(value); }
  Variant(Integer value) { Put(value); }
  Variant(Long value) { Put(value); }
  Variant(Single value) { Put(value); }
  Variant(Double value) { Put(value); }
  Variant(Date value) { Put(value); }
  Variant(String value) { Put(std::move(value)); }
  Variant(const char16_t* value) { Put(String(value)); }
  template <class T>
  Variant(T*) = delete;  // a pointer would pass for a Boolean
  Variant(Object value) { Put(std::move(value)); }
  Variant(Picture value) { Put(std::move(value)); }
  Variant(Array<Byte> value);
  Variant(Array<String> value);
  Variant(Array<Boolean> value);
  Variant(Array<Variant> value);
  template <class T>
  requires std::is_base_of_v<Dispatch, T> Variant(const Ref<T>& value) { Put(Object(value)); }

  Variant(const Variant& other) { CopyFrom(other); }
  Variant(Variant&& other) noexcept { MoveFrom(other); }
  // What the former value's end calls back finds the new one in place.
  Variant& operator=(const Variant& other) {
    Variant former(other);
    Swap(former);
    return *this;
  }
  Variant& operator=(Variant&& other) noexcept {
    Variant former(std::move(other));
    Swap(former);
    return *this;
  }
  ~Variant() { Release(); }

  // The variable itself goes along; what the callee writes, the caller sees.
  template <class T>
  static Variant ByRef(T& variable) {
    Variant reference;
    reference.Put(&variable);
    return reference;
  }

  // The value, if it is of this type and no other; null otherwise. Valid as long as this Variant keeps its value.
  template <class T>
  const T* If() const {
    return mKind == kKindOf<T> ? &Slot<T>() : nullptr;
  }
  // Calls the visitor with the value in its own type.
  template <class Visitor>
  decltype(auto) Visit(const Visitor& visitor) const {
    return VisitFrom<0>(visitor);
  }
  // The number of the value's type among those that a Variant can hold.
  std::uint8_t Kind() const { return mKind; }
  bool IsByRef() const { return mKind >= kKindOf<Boolean*> && mKind < kFirstOwning; }
  // The value behind a reference, or this value.
  Variant Resolved() const;
  // Writes through a reference, converted to the variable's type; raises 13 on what is no reference.
  void Assign(const Variant& value) const;

  bool IsEmpty() const { return If<Empty>() != nullptr; }
  bool IsMissing() const { return If<Missing>() != nullptr; }
  bool IsNull() const { return If<Null>() != nullptr; }

  // Conversions: they look through a reference and raise 6 (overflow), 13 (type mismatch), 91 or 94. Rounding is to the
  // nearest whole number, ties to even; Empty is 0, False or the empty text. A date's text is the user's (runtime.h).
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

  friend bool operator==(const Variant& a, const Variant& b) { return a.SameAs(b); }

 private:
  // Not a std::variant: its copy, move and end are templates, which each source file would compile anew, at two
  // seconds a file. Here they are ordinary functions, and a value that owns nothing is copied in place.
  using Types = TypeList<Empty, Missing, Null, Boolean, Integer, Long, Single, Double, Date,
                         // by reference: the caller's own variable
                         Boolean*, Integer*, Long*, Single*, Double*, String*, Object*, Variant*, Array<Byte>*,
                         Array<String>*, Array<Boolean>*,
                         // from here on, what owns something
                         String, Object, Picture, Shared<Byte>, Shared<String>, Shared<Boolean>, Shared<Variant>>;
  template <class T>
  static constexpr std::uint8_t kKindOf = Types::Find<T>();
  static constexpr std::uint8_t kFirstOwning = Types::Find<String>();

  template <class T>
  const T& Slot() const {
    return *std::launder(reinterpret_cast<const T*>(mPlace));
  }
  // Into a Variant that owns nothing.
  template <class T>
  void Put(T value) {
    static_assert(sizeof(T) <= sizeof(mPlace));  // NOLINT(bugprone-sizeof-expression): T may be a pointer
    ::new (static_cast<void*>(mPlace)) T(std::move(value));
    mKind = kKindOf<T>;
  }
  template <std::size_t kAt, class Visitor>
  auto VisitFrom(const Visitor& visitor) const -> decltype(visitor(std::declval<const Empty&>())) {
    using T = typename Types::template At<kAt>;
    if constexpr (kAt + 1 < Types::kCount) {
      if (mKind != kAt) return VisitFrom<kAt + 1>(visitor);
    }
    return visitor(Slot<T>());
  }

  bool OwnsSomething() const { return mKind >= kFirstOwning; }
  void CopyFrom(const Variant& other) {
    if (other.OwnsSomething()) return CopyOwned(other);
    CopyBits(other);
  }
  void MoveFrom(Variant& other) noexcept {
    if (other.OwnsSomething()) return MoveOwned(other);
    CopyBits(other);
  }
  void Release() noexcept {
    if (OwnsSomething()) ReleaseOwned();
  }
  void Swap(Variant& other) noexcept {
    Variant mine(std::move(*this));
    MoveFrom(other);
    other.MoveFrom(mine);
  }
  void CopyBits(const Variant& other) {
    std::memcpy(mPlace, other.mPlace, sizeof mPlace);
    mKind = other.mKind;
  }
  void CopyOwned(const Variant& other);
  void MoveOwned(Variant& other) noexcept;
  void ReleaseOwned() noexcept;
  bool SameAs(const Variant& other) const;

  alignas(Shared<Byte>) std::byte mPlace[sizeof(Shared<Byte>)] = {};
  std::uint8_t mKind = 0;
};

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
