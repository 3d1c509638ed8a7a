#pragma once

// The faces of the three public classes.

#include "server/typed_face.h"

namespace strandline {
class AdvertisementsCallbackStub;
class Main2;
class RibbonEvents;
}  // namespace strandline

namespace strandline::server {

win32::Face* NewMain2Face(Main2& target);
win32::Face* NewRibbonEventsFace(RibbonEvents& target);
win32::Face* NewCallbackStubFace(AdvertisementsCallbackStub& target);

// Whether an object of the class has the interface.
bool Main2HasInterface(REFIID id);
bool RibbonEventsHasInterface(REFIID id);

// By the object's class; null for one that isn't public.
win32::Face* MakeFace(Dispatch& target);

}  // namespace strandline::server
