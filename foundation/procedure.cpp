#include "foundation/procedure.h"

#include "platform/platform.h"

namespace strandline {

namespace {

constexpr TextView kBannerRule = u"**************************";

String Banner(TextView title) { return Concat({u"\r\n", kBannerRule, u"\r\n", title, u"\r\n", kBannerRule, u"\r\n"}); }

// Sends what is reported to the dump.
class DumpReporter final : public Reporter {
 public:
  void Variable(TextView name, const Variant& value) override { vbwProtector::vbwReportVariable(name, value, 0); }
};

void ReportRunTimeObject(const char16_t* name, const Object& object) {
  if (!object.IsNothing()) vbwProtector::vbwReportObject(name, 0, object);
}

}  // namespace

// The protector's own procedures have no text of their parameters: building it runs them.
Integer Frame::EnterWithParameters(const ProcedureName& name, ReportFunction report, const void* parameters) {
  String text = u"()";
  if (name.file->module->report != &vbwProtector::ReportModule) {
    text = vbwProtector::ParameterText(report, parameters);
  }
  const Integer level = vbwProtector::vbwProcIn(name, text);
  if (vbwProtector::procedureObserver) vbwProtector::procedureObserver->OnProcedure(name, report, parameters);
  return level;
}

Frame::Resume Frame::Failed(const Error& error, Long line) {
  if (mMode == Mode::kTail) return Tail(error, line);
  vbwProtector::lastError = error;
  return mMode == Mode::kIgnore ? Resume::kNext : Resume::kLeave;
}

Frame::Resume Frame::FailedForMemory(Long line) {
  return Failed(Error(errors::kOutOfMemory, ErrorDescription(errors::kOutOfMemory)), line);
}

void Frame::NoteOutOfMemory() {
  vbwProtector::lastError = {errors::kOutOfMemory, ErrorDescription(errors::kOutOfMemory)};
}

Frame::Resume Frame::Tail(Error error, Long line) {
  const ModuleFile& file = *mName.file;
  for (;;) {
    switch (vbwProtector::vbwErrorHandler(error.number, error.description, ProgramName(), file.module->name, mName.name,
                                          file.lineBase + line)) {
      case vbwProtector::kAbort:
        vbwProtector::vbwExitThread();
        return Resume::kLeave;
      case vbwProtector::kRetry:
        return Resume::kAgain;
      case vbwProtector::kIgnore:
        return Resume::kNext;
      case vbwProtector::kDump:
        WriteDump(error);
        error.number = vbwProtector::kAfterDump;
        break;
      default:
        return Resume::kLeave;
    }
  }
}

void Frame::WriteDump(const Error& error) {
  using namespace vbwProtector;
  DumpReporter dump;
  vbwOpenDumpFile();
  vbwReportToFile(Banner(u"* LOCAL LEVEL VARIABLES  *"));
  mReportParameters(mParameters, dump);
  if (mLocals) mReportLocals(mLocals, dump);
  vbwReportToFile(Banner(u"* MODULE LEVEL VARIABLES *"));
  if (mSelf) {
    mSelf->ReportVariables(dump);
  } else if (mName.file->module->report) {
    mName.file->module->report(dump);
  }
  vbwReportToFile(Banner(u"* GLOBAL LEVEL VARIABLES *"));
  ReportGlobals(dump);
  RunTime& runTime = platform::RunTime();
  ReportRunTimeObject(u"App", runTime.ApplicationObject());
  ReportRunTimeObject(u"Err", runTime.ErrorObject(error));
  ReportRunTimeObject(u"Screen", runTime.ScreenObject());
  ReportRunTimeObject(u"Printer", runTime.PrinterObject());
  vbwCloseDumpFile();
}

}  // namespace strandline
