#pragma once

// The arguments of an operation that the automation world calls by name: given by place or by name, of any kind that
// can be converted, by value or by reference.

#include <array>
#include <span>

#include "platform/variant.h"

namespace strandline {

enum class ParameterKind : std::uint8_t { kBoolean, kInteger, kString, kObject };

struct Parameter {
  Name name;
  ParameterKind kind;
};

// The variable that stands for one parameter during a call. A reference to a variable of the parameter's own type is
// that variable itself; anything else is converted into a variable of the call's, and a reference then gets the new
// value back if the operation wrote one.
class ReceivedArgument {
 public:
  ReceivedArgument() = default;
  ReceivedArgument(const ReceivedArgument&) = delete;
  ReceivedArgument& operator=(const ReceivedArgument&) = delete;

  // Raises what the conversion raises, 13 for most. Nothing is an Object; Empty isn't.
  void Take(ParameterKind kind, const Variant& given) {
    mGiven = &given;
    mKind = kind;
    switch (kind) {
      case ParameterKind::kBoolean:
        return TakeAs(mFlag, &Variant::ToBoolean);
      case ParameterKind::kInteger:
        return TakeAs(mNumber, &Variant::ToInteger);
      case ParameterKind::kString:
        return TakeAs(mText, &Variant::ToText);
      case ParameterKind::kObject:
        return TakeAs(mObject, &Variant::ToObject);
    }
  }
  // Raises when the caller's variable can't hold the value.
  void GiveBack() const {
    switch (mKind) {
      case ParameterKind::kBoolean:
        return GiveBackAs(mFlag);
      case ParameterKind::kInteger:
        return GiveBackAs(mNumber);
      case ParameterKind::kString:
        return GiveBackAs(mText);
      case ParameterKind::kObject:
        return GiveBackAs(mObject);
    }
  }

  Boolean& Flag() { return *mFlag.at; }
  Integer& Number() { return *mNumber.at; }
  String& Text() { return *mText.at; }
  Object& Target() { return *mObject.at; }

 private:
  template <class T>
  struct Place {
    T* at = nullptr;  // the caller's variable, or `own`
    T own{};
    T before{};
  };

  template <class T>
  void TakeAs(Place<T>& place, T (Variant::*convert)() const) {
    if (T* const* variable = mGiven->If<T*>()) {
      place.at = *variable;
      return;
    }
    place.own = (mGiven->*convert)();
    place.before = place.own;
    place.at = &place.own;
  }
  template <class T>
  void GiveBackAs(const Place<T>& place) const {
    if (place.at == &place.own && mGiven->IsByRef() && !(place.own == place.before)) mGiven->Assign(place.own);
  }

  const Variant* mGiven = nullptr;
  ParameterKind mKind = ParameterKind::kBoolean;
  Place<Boolean> mFlag;
  Place<Integer> mNumber;
  Place<String> mText;
  Place<Object> mObject;
};

// One for each parameter of an operation, in the operation's order.
class ReceivedArguments {
 public:
  static constexpr std::size_t kMost = 4;

  // Raises 448 for a named argument that isn't a parameter, 450 for a wrong number of arguments, 449 for a parameter
  // left out among named ones, and what a conversion raises. `given` outlives this.
  ReceivedArguments(std::span<const Parameter> parameters, const Arguments& given);
  ReceivedArguments(const ReceivedArguments&) = delete;
  ReceivedArguments& operator=(const ReceivedArguments&) = delete;

  ReceivedArgument& operator[](std::size_t place) { return mArguments[place]; }
  void GiveBack() const;

 private:
  std::array<ReceivedArgument, kMost> mArguments;
  std::size_t mCount;
};

}  // namespace strandline
