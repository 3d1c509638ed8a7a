#pragma once

// The public operations of Main2 as the automation world reaches them: by name, with arguments of any kind that can be
// converted. One table in the order of the interface; Execute goes by it too, so what is added here is a command if it
// takes no argument.

#include <span>

#include "platform/variant.h"

namespace strandline {

class Main2;

enum class ParameterKind : std::uint8_t { kBoolean, kString, kObject };

struct Parameter {
  Name name;
  ParameterKind kind;
};

// The variable that stands for one parameter during a call. A reference to a variable of the parameter's own type is
// that variable itself; anything else is converted into a variable of the call's, and a reference then gets the new
// value back if the operation wrote one.
class OperationArgument {
 public:
  OperationArgument() = default;
  OperationArgument(const OperationArgument&) = delete;
  OperationArgument& operator=(const OperationArgument&) = delete;

  // Raises what the conversion raises, 13 for most. Nothing is an Object; Empty isn't.
  void Take(ParameterKind kind, const Variant& given) {
    mGiven = &given;
    mKind = kind;
    switch (kind) {
      case ParameterKind::kBoolean:
        return TakeAs(mFlag, &Variant::ToBoolean);
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
      case ParameterKind::kString:
        return GiveBackAs(mText);
      case ParameterKind::kObject:
        return GiveBackAs(mObject);
    }
  }

  Boolean& Flag() { return *mFlag.at; }
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
  Place<String> mText;
  Place<Object> mObject;
};

struct Main2Operation {
  static constexpr std::size_t kMostParameters = 4;

  // Raises 448 for a named argument that isn't a parameter, 450 for a wrong number of arguments, 449 for a parameter
  // left out among named ones, and what a conversion raises; nothing has run then.
  Variant Invoke(Main2& main, const Arguments& given) const;

  // Null for a name that isn't an operation's.
  static const Main2Operation* Find(Name name);

  Name name;
  bool isProperty;
  std::span<const Parameter> parameters;
  Variant (*run)(Main2& main, std::span<OperationArgument> arguments);
};

// In the order of the interface.
extern const std::span<const Main2Operation> kMain2Operations;

inline const Main2Operation* Main2Operation::Find(Name name) {
  for (const Main2Operation& operation : kMain2Operations) {
    if (operation.name == name) return &operation;
  }
  return nullptr;
}

}  // namespace strandline
