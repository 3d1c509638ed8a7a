#pragma once

// Keeps Word's own popup, the first control of the bar, in step with the product. The work on its entries comes with
// the strip's input; until then a change of the product's name passes without a trace.

#include "foundation/class_object.h"

namespace strandline {

class Menu final : public ClassObject {
 public:
  void ProductNameChanged(const String& productName);
  void ReportVariables(Reporter&) const override {}
};

}  // namespace strandline
