#include "foundation/CommonLogger.h"

namespace strandline::CommonLogger {

namespace {
constexpr ModuleFile kModule{&kModuleInfo, 1000};
}

void OpenLog(Long level, const String& productName, const String& logPrefix, const String& companyName) {
  PROCEDURE(void, u"OpenLog", level, productName, logPrefix, companyName);
  if (!variables.mWebsiteAddress.IsEmpty()) return;
  STEP(variables.mWebsiteAddress = Concat({u"http://www.", LowerCase(companyName), u".example"}));
}

void CloseLog(Long instanceId) { PROCEDURE(void, u"CloseLog", instanceId); }

void ReportModule(Reporter& to) { to.Tell(u"mWebsiteAddress", variables.mWebsiteAddress); }

}  // namespace strandline::CommonLogger
