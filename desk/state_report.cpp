#include "desk/state_report.h"

#include <utility>

namespace strandline::deskprogram {

void StateReport::BeginModule(const char16_t* name) {
  mName = ToUtf8(name);
  mVariables = Json::object();
}

void StateReport::Variable(TextView name, const Variant& value) {
  mVariables[ToUtf8(name)] = mNaming.ValueWithHandles(value);
}

void StateReport::EndModule() { (mInToolbar ? mToolbar : mModules)[mName] = std::move(mVariables); }

void StateReport::BeginToolbar() {
  mInToolbar = true;
  mToolbar = Json::object();
}

void StateReport::EndToolbar() {
  mInToolbar = false;
  mToolbars.push_back(std::move(mToolbar));
}

Json StateReport::Take() {
  Json value = std::exchange(mModules, Json::object());
  value["toolbars"] = std::exchange(mToolbars, Json::array());
  return value;
}

}  // namespace strandline::deskprogram
