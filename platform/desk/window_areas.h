#pragma once

#include "platform/desk/raster/region.h"
#include "platform/values.h"

namespace strandline::desk {

// What graphics asks about windows. Never asked about handle 0; regions only of windows that exist. A region's
// reference holds until a window moves, shows, hides, goes or validates.
class WindowAreas {
 public:
  virtual bool IsWindow(Long hwnd) = 0;
  virtual Clip BoundsOf(Long hwnd) = 0;                // the whole window, screen pixels
  virtual const Region& VisibleRegion(Long hwnd) = 0;  // what nothing covers, screen pixels
  virtual const Region& InvalidRegion(Long hwnd) = 0;  // what is to be painted, window pixels
  virtual void Validate(Long hwnd) = 0;                // nothing is to be painted any more

 protected:
  ~WindowAreas() = default;
};

}  // namespace strandline::desk
