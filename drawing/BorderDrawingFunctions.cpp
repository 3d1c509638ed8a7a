#include "drawing/BorderDrawingFunctions.h"

#include "platform/platform.h"

namespace strandline::BorderDrawingFunctions {

namespace {
constexpr ModuleInfo kModuleInfo{u"BorderDrawingFunctions", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
constexpr Long kAllSides = 15;
}  // namespace

void DrawBorder(Long hdc, Long left, Long top, Long right, Long bottom, Long theEdgeType) {
  PROCEDURE(void, u"DrawBorder", hdc, left, top, right, bottom, theEdgeType);
  Rect rectangle;
  REPORTS(rectangle);
  rectangle = {left, top, right, bottom};
  platform::Graphics().DrawEdge(hdc, rectangle, theEdgeType, kAllSides);
}

}  // namespace strandline::BorderDrawingFunctions
