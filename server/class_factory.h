#pragma once

#include "platform/variant.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

// A class of which outsiders can make objects.
struct CreatableClass {
  const CLSID& id;
  // Asked first: an object that was made in vain would do at its end what objects do at their end.
  bool (*hasInterface)(REFIID id);
  Object (*create)();
};

// Held by nobody yet. `made` outlives it.
IClassFactory* NewClassFactory(const CreatableClass& made);

}  // namespace strandline::server
