#pragma once

#include "foundation/procedure.h"

namespace strandline::BorderDrawingFunctions {

// The edge types that the strip uses.
inline constexpr Long kEdgeNone = 0;
inline constexpr Long kEdgeRaised = 5;
inline constexpr Long kEdgeSunken = 10;

// An edge on all four sides, just inside the rectangle (pixels).
void DrawBorder(Long hdc, Long left, Long top, Long right, Long bottom, Long theEdgeType);

}  // namespace strandline::BorderDrawingFunctions
