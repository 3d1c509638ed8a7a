#pragma once

// How an object of ours shows in the automation world. The generic face serves any object by the names of its members;
// a module may have faces of its own for some classes. One object has one face as long as the world holds it, and so
// one identity there. The face holds the object.

#include "platform/variant.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// The base of what the world can hold of this module: faces, enumerators, class objects. The module's code is needed as
// long as there is one. Counted on any thread.
class LiveObject {
 public:
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

 protected:
  LiveObject();
  ~LiveObject();
};
Long LiveObjects();

class Face : private LiveObject {
 public:
  Dispatch& Target() const { return *mTarget; }
  // The face itself, not counted. Its IUnknown is this very pointer.
  virtual IDispatch* Automation() = 0;

  ULONG Hold() { return ++mOwners; }
  // The last owner ends the face.
  ULONG LetGo();

 protected:
  explicit Face(Dispatch& target) : mTarget(&target) {}
  virtual ~Face();

 private:
  friend Face& HeldFace(Dispatch& target);

  Ref<Dispatch> mTarget;
  IUnknown* mIdentity = nullptr;  // null until the face is in the table
  ULONG mOwners = 0;
};

// Keeps a face for the time of a call that may let go of it.
class FaceHold {
 public:
  explicit FaceHold(Face& face) : mFace(face) { mFace.Hold(); }
  ~FaceHold() { mFace.LetGo(); }
  FaceHold(const FaceHold&) = delete;
  FaceHold& operator=(const FaceHold&) = delete;

 private:
  Face& mFace;
};

// Makes a face for an object of a class that has its own, held by nobody yet; null for any other object.
using FaceMaker = Face* (*)(Dispatch& target);
// Null takes it off.
void SetFaceMaker(FaceMaker maker);

// The object's face, made if there is none, counted for the caller.
Face& HeldFace(Dispatch& target);

Face* NewGenericFace(Dispatch& target);

}  // namespace strandline::win32
