#include "desk/state_report.h"

#include <utility>

namespace strandline::deskprogram {

void StateReport::BeginModule(const char16_t* name) {
  mName = ToUtf8(name);
  mVariables = play::Json::object();
}

void StateReport::Variable(TextView name, const Variant& value) {
  mVariables[ToUtf8(name)] = mNaming.ValueWithHandles(value);
}

void StateReport::EndModule() { (mInToolbar ? mToolbar : mModules)[mName] = std::move(mVariables); }

void StateReport::BeginToolbar() {
  mInToolbar = true;
  mToolbar = play::Json::object();
}

void StateReport::EndToolbar() {
  mInToolbar = false;
  mToolbars.push_back(std::move(mToolbar));
}

play::Json StateReport::Take() {
  play::Json value = std::exchange(mModules, play::Json::object());
  value["toolbars"] = std::exchange(mToolbars, play::Json::array());
  return value;
}

}  // namespace strandline::deskprogram
