#include "foundation/vbwProtector.h"

#include "foundation/procedure.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline::vbwProtector {

namespace {

constexpr ModuleInfo kModuleInfo{u"vbwProtector", &ReportModule};
constexpr ModuleFile kModule{&kModuleInfo};

const String kSupportAddress = u"support@quillmere.example";

void (*globalReport)(Reporter&) = nullptr;

Boolean TraceSwitch() {
  return FindText(platform::RunTime().CommandLine(), u"/trace") > 0 ||
         platform::RunTime().GetSetting(u"Init", u"vbwTrace", String()) == u"1";
}

Array<String> StackNames() {
  Array<String> names(1, kStackSize);
  for (Integer level = 1; level <= kStackSize; ++level) {
    if (const ProcedureName* name = variables.mStack[level]) names(level) = name->TraceName();
  }
  return names;
}

void CreateErrorComponent() {
  variables.mErrorParams = platform::Components().CreateObject(u"QuillmereError.Main2");
  variables.mErrorParams.Call("vbwInitializeProtector", Variant::ByRef(variables.vbwCatchException),
                              Variant::ByRef(variables.vbwTraceLine), Variant::ByRef(variables.mOldTraceProc),
                              Variant::ByRef(variables.vbwCallStack), Variant::ByRef(variables.vbwSystemInfo),
                              Variant::ByRef(variables.vbwScreenshot));
}

}  // namespace

void vbwInitializeProtector() {
  PROCEDURE(void, u"vbwInitializeProtector");
  Boolean trace = false;
  REPORTS(trace);
  STEP(trace = TraceSwitch());
  variables.vbwEmailRecipientAdress = kSupportAddress;
  variables.vbwCatchException = true;
  variables.vbwTraceLine = variables.vbwTraceProc = trace;
  variables.vbwTraceParameters = variables.vbwTraceProc;
  variables.vbwCallStack = variables.vbwSystemInfo = variables.vbwScreenshot = true;
  variables.mOldTraceProc = variables.vbwTraceProc;
  if (variables.vbwCallStack) variables.vbwTraceProc = true;
}

namespace {

// The frame of vbwProcIn itself, which can't announce itself to vbwProcIn.
class UncountedFrame final : public Procedure<void> {
 public:
  template <class Parameters>
  UncountedFrame(const ProcedureName& name, const Parameters& parameters)
      : Procedure<void>(name, parameters, Uncounted{}) {}
};

void AddToAFullCount(const String& lProc, const String& lParameters) {
  static constexpr ProcedureName name{&kModule, u"vbwProcIn"};
  const auto parameters = STRANDLINE_REPORT(lProc, lParameters);
  UncountedFrame here(name, parameters);
  STEP(variables.mStackCalls = ToInteger(variables.mStackCalls + 1));
}

}  // namespace

// The component's own question about this overflow pushes names too; those are dropped in silence, or there would be no
// end of it. The mark goes off on every way out, so that the next overflow is told as well.
void vbwProcInOverflows(const ProcedureName& lProc) {
  static Boolean asking = false;
  if (asking) return;
  struct Asking {
    Asking() { asking = true; }
    ~Asking() { asking = false; }
  } const mark;
  AddToAFullCount(lProc.TraceName(), String());
}

String hash(const String& ErrSource, Long errNumber, Long errLine) {
  PROCEDURE(String, u"hash", ErrSource, errNumber, errLine);
  constexpr TextView kBound(u"\0", 1);
  constexpr TextView kSeparator(u"\1", 1);
  STEP(here.result =
           Concat({kBound, ErrSource, kSeparator, DecimalText(errNumber), kSeparator, DecimalText(errLine), kBound}));
  return here.Leave();
}

Boolean alwaysIgnore(const String& StrRememberErrors, const String& strLastError) {
  PROCEDURE(Boolean, u"alwaysIgnore", StrRememberErrors, strLastError);
  return here.result = FindText(StrRememberErrors, strLastError) > 0;
}

// odd: silent-without-component
Long vbwErrorHandler(Long errNumber, const String& ErrDescription, const String& ErrProject, const String& ErrSource,
                     const String& ErrProcedure, Long errLine) {
  PROCEDURE(Long, u"vbwErrorHandler", errNumber, ErrDescription, ErrProject, ErrSource, ErrProcedure, errLine);
  String& StrRememberErrors = variables.StrRememberErrors;
  const String& strLastError = variables.strLastError;
  REPORTS(StrRememberErrors, strLastError);
  if (errNumber != kAfterDump) STEP(variables.strLastError = hash(ErrSource, errNumber, errLine));
  if (alwaysIgnore(variables.StrRememberErrors, variables.strLastError)) {
    variables.mErrorParams = nullptr;
    return here.result = kIgnore;
  }
  {
    Long number = errNumber;
    Long line = errLine;
    String description = ErrDescription;
    String project = ErrProject;
    String source = ErrSource;
    String procedure = ErrProcedure;
    Array<String> names;
    if (variables.mErrorParams.IsNothing()) ATTEMPT(answered, CreateErrorComponent());
    ATTEMPT(answered, names = StackNames());
    ATTEMPT(answered,
            here.result = variables.mErrorParams
                              .Call("vbwErrorHandler", Variant::ByRef(number), Variant::ByRef(description),
                                    Variant::ByRef(project), Variant::ByRef(source), Variant::ByRef(procedure),
                                    Variant::ByRef(line), Variant::ByRef(variables.mStackCalls), Variant::ByRef(names))
                              .ToLong());
    if (here.result == kIgnoreAlways) {
      ATTEMPT(answered, StrRememberErrors = Concat({StrRememberErrors, strLastError}));
      here.result = kIgnore;
    }
  }
answered:
  // After these two the dump or the end of the thread still needs the component.
  if (here.result != kDump && here.result != kAbort) variables.mErrorParams = nullptr;
  return here.Leave();
}

void vbwExitThread() {
  PROCEDURE(void, u"vbwExitThread");
  here.IgnoreErrors();
  STEP(variables.mErrorParams.Call("vbwExitThread"));
  variables.mErrorParams = nullptr;
}

String vbwReportParameter(const String& lName, const Variant& lValue) {
  PROCEDURE(String, u"vbwReportParameter", lName, lValue);
  here.IgnoreErrors();
  if (variables.mErrorParams.IsNothing()) return here.Leave();
  STEP(here.result = variables.mErrorParams.Call("vbwReportParameter", lName, lValue).ToText());
  return here.Leave();
}

void vbwReportVariable(const String& lName, const Variant& lValue, Long lTab) {
  PROCEDURE(void, u"vbwReportVariable", lName, lValue, lTab);
  here.IgnoreErrors();
  if (variables.mErrorParams.IsNothing()) return;
  STEP(variables.mErrorParams.Call("vbwReportVariable", lName, lValue, lTab));
}

void vbwReportObject(const String& lName, Long lTab, const Object& lObject) {
  PROCEDURE(void, u"vbwReportObject", lName, lTab, lObject);
  STEP(variables.mErrorParams.Call("vbwReportObject", lName, lTab, lObject));
}

void vbwReportToFile(const String& text) {
  PROCEDURE(void, u"vbwReportToFile", text);
  STEP(variables.mErrorParams.Call("vbwReportToFile", text));
}

void vbwOpenDumpFile() {
  PROCEDURE(void, u"vbwOpenDumpFile");
  STEP(variables.mErrorParams.Call("vbwOpenDumpFile"));
}

void vbwCloseDumpFile() {
  PROCEDURE(void, u"vbwCloseDumpFile");
  STEP(variables.mErrorParams.Call("vbwCloseDumpFile"));
}

namespace {

class ParameterList final : public Reporter {
 public:
  void Variable(TextView name, const Variant& value) override {
    mText = Concat({mText, mText.IsEmpty() ? u"(" : u", ", vbwReportParameter(name, value)});
  }
  String Text() const { return mText.IsEmpty() ? String(u"()") : Concat({mText, u") "}); }

 private:
  String mText;
};

}  // namespace

String ParameterText(void (*report)(const void* parameters, Reporter& to), const void* parameters) {
  ParameterList list;
  report(parameters, list);
  return list.Text();
}

void SetGlobalReport(void (*report)(Reporter& to)) { globalReport = report; }

void ReportModule(Reporter& to) {
  const Variables& v = variables;
  to.Tell(u"mOldTraceProc", v.mOldTraceProc);
  to.Tell(u"vbwEmailRecipientAdress", v.vbwEmailRecipientAdress);
  to.Tell(u"vbwCatchException", v.vbwCatchException);
  to.Tell(u"vbwTraceLine", v.vbwTraceLine);
  to.Tell(u"vbwCallStack", v.vbwCallStack);
  to.Tell(u"vbwSystemInfo", v.vbwSystemInfo);
  to.Tell(u"vbwScreenshot", v.vbwScreenshot);
  to.Tell(u"mStackCalls", v.mStackCalls);
  to.Tell(u"mStack", StackNames());
  to.Tell(u"mErrorParams", v.mErrorParams);
}

void ReportGlobals(Reporter& to) {
  to.Tell(u"vbwProtector.vbwTraceProc", variables.vbwTraceProc);
  to.Tell(u"vbwProtector.vbwTraceParameters", variables.vbwTraceParameters);
  if (globalReport) globalReport(to);
}

}  // namespace strandline::vbwProtector
