#pragma once

#include "platform/win32/com_calls.h"

namespace strandline::win32 {

// What stands behind the seam for an object of the automation world. There is one for each object that is held, so that
// one object is one Object (Wrap).
class ComBacked {
 public:
  const ComCalls& Com() const { return mCom; }

 protected:
  // `self`: this one, as the seam sees it.
  ComBacked(IDispatch& object, Dispatch& self);
  ~ComBacked();

 private:
  const ComCalls mCom;
};

template <class Interface>
class ComBackedAs : public Interface, public ComBacked {
 public:
  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    const Ref<ComBackedAs> alive(this);  // the object's own code may let go of it
    return Com().Invoke(use, member, arguments);
  }
  Long Identity() const override { return Com().Pointer(); }
  Ref<Enumerator> Elements() override {
    const Ref<ComBackedAs> alive(this);
    return Com().Elements();
  }
  Picture AsPicture() const override { return Com().AsPicture(); }

 protected:
  explicit ComBackedAs(IDispatch& object) : ComBacked(object, *this) {}
};

class ComObject final : public ComBackedAs<Dispatch> {
 public:
  static Ref<Dispatch> Of(IDispatch& object);

 private:
  using ComBackedAs::ComBackedAs;
};

}  // namespace strandline::win32
