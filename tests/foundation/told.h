#pragma once

// What reporters and observers are told, as text.

#include "foundation/procedure.h"
#include "tests/foundation/error_component.h"

namespace strandline {

// Variables as "name=value".
class ToldVariables final : public Reporter {
 public:
  void Variable(TextView name, const Variant& value) override { lines.push_back(ToUtf8(name) + "=" + Shown(value)); }
  std::string OneLine() const {
    std::string line;
    for (const std::string& variable : lines) line += (line.empty() ? "" : " ") + variable;
    return line;
  }
  LogLines lines;
};

// Procedures with their parameters, while it lives: the protector's own, and all others.
class ToldProcedures final : public vbwProtector::ProcedureObserver {
 public:
  ToldProcedures() { vbwProtector::procedureObserver = this; }
  ~ToldProcedures() { vbwProtector::procedureObserver = nullptr; }
  ToldProcedures(const ToldProcedures&) = delete;
  ToldProcedures& operator=(const ToldProcedures&) = delete;

  void OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                   const void* parameters) override {
    ToldVariables told;
    report(parameters, told);
    const std::string call = ToUtf8(name.TraceName()) + "(" + told.OneLine() + ")";
    if (call.starts_with("vbwProtector.")) {
      protector.push_back(call);
      return;
    }
    calls.push_back(call);
    texts.push_back(ToUtf8(vbwProtector::ParameterText(report, parameters)));
  }

  LogLines calls;
  LogLines texts;  // the parameters of each call, as the stack is handed them
  LogLines protector;
};

}  // namespace strandline
