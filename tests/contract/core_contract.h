#pragma once

#include "drawing/ToolbarUtilities.h"
#include "foundation/SleepReplacement.h"
#include "foundation/vbwProtector.h"
#include "tests/contract/window_contract.h"

namespace strandline::contract {

// The library's own procedures on the services of the world; they begin with fresh variables.
class CoreContract : public WindowContract {
 protected:
  CoreContract() { vbwProtector::vbwInitializeProtector(); }
  ~CoreContract() override {
    EXPECT_EQ(vbwProtector::variables.mStackCalls, 0);
    SleepReplacement::variables = {};
    ToolbarUtilities::variables = {};
    vbwProtector::variables = {};
  }
};

}  // namespace strandline::contract
