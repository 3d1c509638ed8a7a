#pragma once

// The one source of ad panels. Until the ads themselves are built it has none to give, and cell 16 shows its ordinary
// picture.

#include "drawing/advertisements_factory_interface.h"

namespace strandline {

class AdvertisementsFactory final : public AdvertisementsFactoryInterface {
 public:
  void Initialize(const Object& callbackToMain) override;
  Ref<Advertisements> Create(Long hWnd, Long left, Long top, Long width, Long height) override;
  void AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) override;

  void ReportVariables(Reporter& to) const override;

 private:
  Object mCallbackToMain;
};

}  // namespace strandline
