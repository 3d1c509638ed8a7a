#include "platform/desk/desk_components.h"

#include <utility>

#include "platform/desk/desk_dictionary.h"

namespace strandline::desk {

void DeskComponents::Register(const String& progId, Factory factory) {
  mFactories[LowerCase(progId)] = std::move(factory);
}

void DeskComponents::SetMissing(const String& progId, bool missing) {
  if (missing) {
    mMissing.insert(LowerCase(progId));
  } else {
    mMissing.erase(LowerCase(progId));
  }
}

Object DeskComponents::Create(const String& progId) {
  const String name = LowerCase(progId);
  const auto found = mFactories.find(name);
  if (found == mFactories.end() || !found->second || mMissing.contains(name)) Raise(errors::kCannotCreateComponent);
  // A copy: making a component may register others.
  const Factory factory = found->second;
  Object object = factory();
  if (object.IsNothing()) Raise(errors::kCannotCreateComponent);
  return object;
}

Object DeskComponents::CreateObject(const String& progId) {
  Object object;
  try {
    object = Create(progId);
  } catch (const Error&) {
    if (mObserver) mObserver(progId, false);
    throw;
  }
  if (mObserver) mObserver(progId, true);
  return object;
}

Ref<Dictionary> DeskComponents::CreateDictionary() { return New<DeskDictionary>(); }

}  // namespace strandline::desk
