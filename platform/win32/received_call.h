#pragma once

// The arguments of a call from the automation world, as the seam has them. What comes by reference is a variable of
// ours meanwhile, and goes back into the caller's, in its own type, if the callee has written another value.

#include <functional>
#include <string>
#include <vector>

#include "platform/variant.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

class ReceivedCall {
 public:
  // The name of the named argument with that id; null for an unknown id.
  using NameOf = std::function<const std::string*(DISPID id)>;

  // The value of a let comes last among the positional arguments. Raises 5 for a list that isn't whole, 448 for an
  // unknown name, 13 for a value that the seam doesn't know; BadArgument() tells which one that was.
  void Take(const DISPPARAMS& given, bool isLet, const NameOf& nameOf);
  Arguments Get() const { return {mPositional, mNamed}; }
  // Raises 13 when the caller's variable can't hold the value.
  void WriteBack();

  // The place of the argument being read or written in the caller's list.
  UINT BadArgument() const { return mAt; }

 private:
  struct Slot {
    const VARIANT* given;
    Variant value;
    Variant before;
  };

  Variant Read(const DISPPARAMS& given, UINT at);

  std::vector<Slot> mReferences;
  std::vector<Variant> mPositional;
  std::vector<Named> mNamed;
  UINT mAt = 0;
  const VARIANT* mFirst = nullptr;
};

// What an error of ours is in the automation world: 0x800A0000 and the number, or a whole result as it is.
HRESULT ControlResult(const Error& error);
// DISP_E_EXCEPTION with the error in *exception, where there is one. `source` may be null.
HRESULT ToException(const Error& error, const wchar_t* source, EXCEPINFO* exception);

}  // namespace strandline::win32
