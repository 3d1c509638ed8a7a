// The product's command bar and its window.

#include "drawing/ToolbarUtilities.h"
#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline::ToolbarUtilities {

namespace {
constexpr ModuleFile kModule{&kModuleInfo, 1000};
}

Object CommandBar() {
  PROCEDURE(Object, u"CommandBar");
  here.IgnoreErrors();
  STEP(here.result = CommonWordInteractionFunctions::Application()
                         .Get("CommandBars")
                         .ToObject()
                         .Get("Item", variables.mProductName)
                         .ToObject());
  return here.Leave();
}

Long ToolbarWindowHandle(Long ActiveDocumentHwnd) {
  PROCEDURE(Long, u"ToolbarWindowHandle", ActiveDocumentHwnd);
  Windows& windows = platform::Windows();
  Long child = 0;
  Long bar = 0;
  REPORTS(child, bar);
  while ((child = windows.FindWindowExA(ActiveDocumentHwnd, child, nullptr, nullptr)) != 0) {
    bar = windows.FindWindowExA(child, 0, nullptr, &variables.mProductName);
    if (bar != 0 && windows.IsWindowVisible(bar) != 0) return here.result = bar;
  }
  // A floating bar is a top-level window.
  return here.result = windows.FindWindowA(nullptr, &variables.mProductName);
}

}  // namespace strandline::ToolbarUtilities
