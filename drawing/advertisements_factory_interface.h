#pragma once

// What the floors below the ads see of the ad factory. ToolbarUtilities keeps the one factory of the library.

#include "foundation/class_object.h"

namespace strandline {

class AdPanel;

class AdvertisementsFactoryInterface : public ClassObject {
 public:
  virtual void Initialize(const Object& callbackToMain) = 0;
  // The ad panel of one strip, Nothing when it has none; the place in pixels of the window.
  virtual Ref<AdPanel> Create(Long hWnd, Long left, Long top, Long width, Long height) = 0;
  // After the first forced repaint of a strip, when its cells are fresh.
  virtual void AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) = 0;
};

}  // namespace strandline
