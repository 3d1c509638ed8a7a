#pragma once

// What the library asks of the system, a line for each call, with names for the handles: "dc 1" is the first context
// that shows up. Two runs that do the same thing give the same lines, whatever the handles are.

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/wrappers/call_recorder.h"

namespace strandline {

class CallLines final : public CallRecorder {
 public:
  using Lines = std::vector<std::string>;

  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) override;

  // The name under which that handle shows; "dc 1" and the like for one without a name of its own.
  void Name(Long handle, const std::string& name) { mNames[handle] = name; }
  // Calls that aren't written down.
  void LeaveOut(const std::string& call) { mLeftOut.insert(call); }

  // The lines since the last taking. New handles are numbered from 1 again.
  Lines Take();
  // Of them, those of one call.
  Lines CallsOf(const std::string& call) const;
  void Clear() { Take(); }

 private:
  std::string NameOf(Long handle, const char* kind);
  std::string Shown(const CallArgument& argument);

  Lines mLines;
  std::map<Long, std::string> mNames;     // told by a test
  std::map<Long, std::string> mNumbered;  // given here
  std::map<std::string, int> mCounts;
  std::set<std::string> mLeftOut;
};

// One line for each entry, so that a mismatch shows both lists.
std::string Listed(const CallLines::Lines& lines);

}  // namespace strandline
