#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/values.h"

namespace strandline::desk {

// One use of a handle that wasn't allowed: it was dead, never made, of another kind, or in use elsewhere.
struct Misuse {
  std::string what;
  Long handle = 0;
  std::string call;  // the operation, by its Windows name
  std::string who;   // who called, as MisuseLog::whoIsCalling tells
};

// Every misuse of the desk's handles, in order. A misused call fails as Windows lets it fail; the record is what a test
// looks at. Handle 0 is no handle: a call with it fails as well, and isn't recorded.
class MisuseLog {
 public:
  // Names the procedure that is running. Null: nobody is named.
  std::function<std::string()> whoIsCalling;

  std::string Who() const { return whoIsCalling ? whoIsCalling() : std::string(); }

  void Record(std::string what, Long handle, const char* call) {
    mAll.push_back({std::move(what), handle, call, Who()});
  }

  const std::vector<Misuse>& All() const { return mAll; }
  void Clear() { mAll.clear(); }

 private:
  std::vector<Misuse> mAll;
};

}  // namespace strandline::desk
