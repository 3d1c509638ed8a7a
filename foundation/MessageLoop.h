#pragma once

// A private message loop: dispatches the thread's messages until it is asked to end, or until WM_QUIT, which it
// consumes. One object serves one wait.

#include "foundation/procedure.h"

namespace strandline {

class MessageLoop final : public ClassObject {
 public:
  // Returns when ExitBlockingLoop was called during a dispatched message, or at WM_QUIT.
  void EnterBlockingLoop();
  void ExitBlockingLoop();

  void ReportVariables(Reporter& to) const override;

 private:
  void Terminated() override;

  Boolean mFinishedBlocking = false;
  Boolean mInBlockingLoop = false;
};

}  // namespace strandline
