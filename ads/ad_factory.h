#pragma once

// How the ads' own classes reach the one factory.

#include "ads/AdvertisementsFactory.h"
#include "drawing/ToolbarUtilities.h"

namespace strandline {

// Raises 91 when there is none.
inline AdvertisementsFactory& AdFactory() {
  auto* const factory = dynamic_cast<AdvertisementsFactory*>(ToolbarUtilities::variables.adFactory.get());
  if (!factory) Raise(errors::kObjectNotSet);
  return *factory;
}

}  // namespace strandline
