#pragma once

// The value of a `state` line: a key for each module with its variables, and `toolbars` with the objects of each, in
// the order in which the library tells them.

#include "desk/journal_naming.h"
#include "foundation/reporter.h"

namespace strandline::deskprogram {

class StateReport final : public StateVisitor {
 public:
  explicit StateReport(const JournalNaming& naming) : mNaming(naming) {}

  void BeginModule(const char16_t* name) override;
  void Variable(TextView name, const Variant& value) override;
  void EndModule() override;
  void BeginToolbar() override;
  void EndToolbar() override;

  // What was told so far; `toolbars` is there even when empty.
  Json Take();

 private:
  const JournalNaming& mNaming;
  Json mModules = Json::object();
  Json mToolbars = Json::array();
  Json mToolbar = Json::object();
  Json mVariables = Json::object();
  std::string mName;
  bool mInToolbar = false;
};

}  // namespace strandline::deskprogram
