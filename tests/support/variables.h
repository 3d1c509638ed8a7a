#pragma once

// The variables that an object or a module reports, by name.

#include <string>
#include <utility>
#include <vector>

#include "foundation/class_object.h"

namespace strandline {

class VariableSnapshot final : public Reporter {
 public:
  static VariableSnapshot Of(const ClassObject& object) {
    VariableSnapshot snapshot;
    object.ReportVariables(snapshot);
    return snapshot;
  }
  // Of a module, by its ReportModule.
  static VariableSnapshot Of(void (*report)(Reporter& to)) {
    VariableSnapshot snapshot;
    report(snapshot);
    return snapshot;
  }

  void Variable(TextView name, const Variant& value) override { mVariables.emplace_back(ToUtf8(name), value); }

  // In the order of the report.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& variable : mVariables) names.push_back(variable.first);
    return names;
  }
  // Raises 438 for a name that wasn't reported.
  const Variant& operator[](TextView name) const {
    for (const auto& variable : mVariables) {
      if (variable.first == ToUtf8(name)) return variable.second;
    }
    Raise(errors::kNoSuchMember);
  }
  Long Number(TextView name) const { return (*this)[name].ToLong(); }
  Boolean Flag(TextView name) const { return (*this)[name].ToBoolean(); }
  String Text(TextView name) const { return (*this)[name].ToText(); }

 private:
  std::vector<std::pair<std::string, Variant>> mVariables;
};

}  // namespace strandline
