#include "platform/win32/face.h"

#include <atomic>
#include <unordered_map>

#include "platform/win32/outbound_dispatch.h"

namespace strandline::win32 {

namespace {

std::atomic<Long> liveObjects{0};
FaceMaker faceMaker = nullptr;

// The faces of this module by the two ways of coming to them. Another module of the process that is built from the same
// code has a table of its own, and its objects are foreign here. Never destroyed: a face that outlives all else still
// finds it.
struct Table {
  std::unordered_map<Dispatch*, Face*> byTarget;
  std::unordered_map<IUnknown*, Face*> byIdentity;
};

Table& Faces() {
  static Table& table = *new Table;
  return table;
}

}  // namespace

LiveObject::LiveObject() { ++liveObjects; }
LiveObject::~LiveObject() { --liveObjects; }
Long LiveObjects() { return liveObjects; }

// The object goes last, for its end may call back into anything.
Face::~Face() { mTarget = nullptr; }

// It leaves the table before it ends: whoever asks for the object's face from then on gets a new one.
ULONG Face::LetGo() {
  const ULONG left = --mOwners;
  if (left != 0) return left;
  if (mIdentity) {
    Faces().byTarget.erase(mTarget.get());
    Faces().byIdentity.erase(mIdentity);
  }
  mOwners = 1;  // a call that holds it for a moment while it ends doesn't end it again
  delete this;
  return 0;
}

void SetFaceMaker(FaceMaker maker) { faceMaker = maker; }

Face& HeldFace(Dispatch& target) {
  Table& faces = Faces();
  const auto known = faces.byTarget.find(&target);
  if (known != faces.byTarget.end()) {
    known->second->Hold();
    return *known->second;
  }
  Face* made = faceMaker ? faceMaker(target) : nullptr;
  if (!made) made = NewGenericFace(target);
  made->Hold();
  try {
    faces.byTarget.emplace(&target, made);
    faces.byIdentity.emplace(made->Automation(), made);
    made->mIdentity = made->Automation();
  } catch (...) {
    faces.byTarget.erase(&target);
    made->LetGo();
    throw;
  }
  return *made;
}

IDispatch* OutboundOf(Dispatch& target) { return HeldFace(target).Automation(); }

Ref<Dispatch> TargetOf(IDispatch* object) {
  ComRef<IUnknown> identity;
  if (FAILED(object->QueryInterface(IID_IUnknown, identity.PutVoid()))) return nullptr;
  const auto known = Faces().byIdentity.find(identity.get());
  return known != Faces().byIdentity.end() ? Ref<Dispatch>(&known->second->Target()) : nullptr;
}

}  // namespace strandline::win32
