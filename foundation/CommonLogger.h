#pragma once

// The one logging seam. It is inert: nothing is written, opened or kept, so that calls on paint and mouse paths cost no
// more than a call. An observer may listen (the desk's journal does); the library behaves the same with and without.

#include "foundation/log_text.h"
#include "foundation/procedure.h"

namespace strandline {

class LogObserver {
 public:
  virtual void OnLog(TextView message, Long level) = 0;

 protected:
  ~LogObserver() = default;
};

// odd: inert-logger
namespace CommonLogger {

struct Variables {
  String mWebsiteAddress;
};
inline Variables variables;
// Outlives a load: whoever sets it takes it off.
inline LogObserver* observer = nullptr;

inline constexpr Long kOrdinary = 0;
inline constexpr Long kNoteworthy = 1;
inline constexpr Long kFailure = 2;

void OpenLog(Long level, const String& productName, const String& logPrefix, const String& companyName);
void CloseLog(Long instanceId);
void ReportModule(Reporter& to);

inline constexpr ModuleInfo kModuleInfo{u"CommonLogger", &ReportModule};

namespace detail {

inline constexpr ModuleFile kModule{&kModuleInfo};

// The message as the list of parameters tells it, while the call of the logger lasts.
struct Told {
  LogText& text;
  operator Variant() const { return std::move(text).Text(); }
};

inline void Log(const Told& str, Long level, Boolean outputTime, Long instanceId) {
  PROCEDURE(void, u"Log", str, level, outputTime, instanceId);
}

}  // namespace detail

// level: 0 ordinary, 1 noteworthy, 2 failure.
inline void Log(LogText&& str, Long level = kOrdinary, Boolean outputTime = false, Long instanceId = -1) {
  if (observer) [[unlikely]]
    observer->OnLog(std::move(str).Text(), level);
  // To read a message takes nothing from it; && only keeps a stored one from being handed in.
  detail::Log({str}, level, outputTime, instanceId);  // NOLINT(bugprone-use-after-move)
}

}  // namespace CommonLogger

using CommonLogger::Log;

}  // namespace strandline
