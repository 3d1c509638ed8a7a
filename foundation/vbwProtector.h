#pragma once

// The library's one mechanism for failure: the stack of procedure names, and the handler that a procedure's tail asks
// what to do with an error. What the user sees, and the dump file, are the business of the product's error component;
// this module decides whether an error is shown at all and hands it over with the call stack.
//
// When the error component can't be created, errors are dropped without a sign and the failing procedure is left.

#include "platform/variant.h"

namespace strandline {

class Reporter;

// A module or class by its trace name. `report` tells the variables of a module, `null` for a class, whose objects
// report themselves, and for a module without variables.
struct ModuleInfo {
  const char16_t* name;
  void (*report)(Reporter& to);
};

// A file of a module. Files that make up one module have distinct bases, so that module and line name one place.
struct ModuleFile {
  const ModuleInfo* module;
  Long lineBase = 0;
};

// odd: trace-names
struct ProcedureName {
  const ModuleFile* file;
  TextView name;  // with [Get] or [Let] for the accessor of a property

  // The trace name: module and procedure, joined by a point.
  String TraceName() const { return Concat({file->module->name, u".", name}); }
};

namespace vbwProtector {

// odd: stack-of-64
inline constexpr Integer kStackSize = 64;
inline constexpr Integer kMostCalls = 32767;

struct Variables {
  Boolean vbwTraceProc = false;
  Boolean vbwTraceParameters = false;
  Boolean mOldTraceProc = false;
  String vbwEmailRecipientAdress;
  Boolean vbwCatchException = false;
  Boolean vbwTraceLine = false;
  Boolean vbwCallStack = false;
  Boolean vbwSystemInfo = false;
  Boolean vbwScreenshot = false;
  Integer mStackCalls = 0;
  const ProcedureName* mStack[kStackSize + 1] = {};  // 1 to 64, the outermost first; names above the count are stale
  Object mErrorParams;

  // The key of the error being handled, and the keys of those that the user chose to ignore always.
  String strLastError;
  String StrRememberErrors;
};

inline Variables variables;
// The error that a procedure ignored or that made it jump, until the next one.
inline Error lastError;

// Told of every procedure as it is entered, with its parameters, while parameters are traced. For tests and diagnosis;
// the library behaves the same with and without.
class ProcedureObserver {
 public:
  virtual void OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                           const void* parameters) = 0;

 protected:
  ~ProcedureObserver() = default;
};
inline ProcedureObserver* procedureObserver = nullptr;

// The answers to an error.
inline constexpr Long kAbort = 3;
inline constexpr Long kRetry = 4;
inline constexpr Long kIgnore = 5;
inline constexpr Long kIgnoreAlways = 6;
inline constexpr Long kDump = 8;
// The number of the second question about an error, after its dump.
inline constexpr Long kAfterDump = -1;

// The start routine: reads the trace switch and sizes the stack.
void vbwInitializeProtector();

void vbwProcInOverflows(const ProcedureName& lProc);

// Beyond 64 levels the count goes on and the name is lost, so that a deep recursion costs no error. The text of the
// parameters is accepted and not kept. Returns the new count.
[[gnu::always_inline]] inline Integer vbwProcIn(const ProcedureName& lProc) {
  const Integer former = variables.mStackCalls;
  if (former == kMostCalls) [[unlikely]] {
    vbwProcInOverflows(lProc);
    return former;
  }
  const Integer level = static_cast<Integer>(former + 1);
  variables.mStackCalls = level;
  // One test for both ends: the error component is handed the count and may have written to it.
  if (static_cast<std::uint16_t>(level - 1) < kStackSize) [[likely]]
    variables.mStack[level] = &lProc;
  return level;
}

inline Integer vbwProcIn(const ProcedureName& lProc, const String& /*lParameters*/) { return vbwProcIn(lProc); }

[[gnu::always_inline]] inline void vbwProcOut(const ProcedureName& /*lProc*/) {
  if (variables.mStackCalls >= 1) --variables.mStackCalls;
}

// The same for a frame that knows its level: what it stores doesn't wait for what it reads.
[[gnu::always_inline]] inline void vbwProcOut(const ProcedureName& lProc, Integer level) {
  if (variables.mStackCalls == level) [[likely]] {
    variables.mStackCalls = static_cast<Integer>(level - 1);
  } else {
    vbwProcOut(lProc);
  }
}

// The text of a procedure's parameters: "(a, b) ", of empty items while no error is being handled; "()" without any.
String ParameterText(void (*report)(const void* parameters, Reporter& to), const void* parameters);

Long vbwErrorHandler(Long errNumber, const String& ErrDescription, const String& ErrProject, const String& ErrSource,
                     const String& ErrProcedure, Long errLine);
void vbwExitThread();

// One error is a place, module and line, plus a number.
String hash(const String& ErrSource, Long errNumber, Long errLine);
Boolean alwaysIgnore(const String& StrRememberErrors, const String& strLastError);

// These forward to the error component; the first two whatever happens, the others raise into their own tail.
String vbwReportParameter(const String& lName, const Variant& lValue);
void vbwReportVariable(const String& lName, const Variant& lValue, Long lTab);
void vbwReportObject(const String& lName, Long lTab, const Object& lObject);
void vbwReportToFile(const String& text);
void vbwOpenDumpFile();
void vbwCloseDumpFile();

// What the global report lists beside this module's own, told by the floor that owns it.
void SetGlobalReport(void (*report)(Reporter& to));
void ReportModule(Reporter& to);
void ReportGlobals(Reporter& to);

}  // namespace vbwProtector

}  // namespace strandline
