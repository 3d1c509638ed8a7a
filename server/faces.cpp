#include "server/faces.h"

#include "addin/Main2.h"

namespace strandline::server {

win32::Face* MakeFace(Dispatch& target) {
  if (auto* main = dynamic_cast<Main2*>(&target)) return NewMain2Face(*main);
  if (auto* relay = dynamic_cast<RibbonEvents*>(&target)) return NewRibbonEventsFace(*relay);
  if (auto* stub = dynamic_cast<AdvertisementsCallbackStub*>(&target)) return NewCallbackStubFace(*stub);
  return nullptr;
}

}  // namespace strandline::server
