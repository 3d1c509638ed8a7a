#pragma once

// The public operations of Main2 as the automation world reaches them: by name, with arguments of any kind that can be
// converted. One table in the order of the interface; Execute goes by it too, so what is added here is a command if it
// takes no argument.

#include <optional>
#include <span>

#include "foundation/received_arguments.h"

namespace strandline {

class Main2;

struct Main2Operation {
  // Raises what taking the arguments raises; nothing has run then.
  Variant Invoke(Main2& main, const Arguments& given) const;

  // Null for a name that isn't an operation's.
  static const Main2Operation* Find(Name name);

  Name name;
  bool isProperty;
  std::span<const Parameter> parameters;  // each the caller's variable
  std::optional<ParameterKind> result;    // nothing: it answers Empty
  Variant (*run)(Main2& main, ReceivedArguments& arguments);
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
