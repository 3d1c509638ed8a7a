#pragma once

// The value of a `state` line: a key for each module with its variables, and `toolbars` with the objects of each, in
// the order in which the library tells them.

#include "foundation/reporter.h"
#include "play/journal_naming.h"

namespace strandline::deskprogram {

class StateReport final : public StateVisitor {
 public:
  explicit StateReport(const play::JournalNaming& naming) : mNaming(naming) {}

  void BeginModule(const char16_t* name) override;
  void Variable(TextView name, const Variant& value) override;
  void EndModule() override;
  void BeginToolbar() override;
  void EndToolbar() override;

  // What was told so far; `toolbars` is there even when empty.
  play::Json Take();

 private:
  const play::JournalNaming& mNaming;
  play::Json mModules = play::Json::object();
  play::Json mToolbars = play::Json::array();
  play::Json mToolbar = play::Json::object();
  play::Json mVariables = play::Json::object();
  std::string mName;
  bool mInToolbar = false;
};

}  // namespace strandline::deskprogram
