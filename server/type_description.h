#pragma once

// What the type library in this module tells about an interface: for clients that ask, and for the way by number.

#include <string>
#include <vector>
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

struct MemberDescription {
  DISPID id;
  std::string name;
  std::vector<std::string> parameters;
  std::vector<VARTYPE> kinds;  // of each parameter's value, whether it goes by reference or not
};

class TypeDescription {
 public:
  // Read on first use and kept until ForgetAll. Throws Failure where the library can't be read.
  static const TypeDescription& Of(const IID& interfaceId);
  // The class of that id, counted for the caller.
  static HRESULT OfClass(const CLSID& id, ITypeInfo** info);
  static void ForgetAll();

  ITypeInfo* Info() const { return mInfo.get(); }
  // Null for an id that no member has.
  const MemberDescription* Find(DISPID id) const;

 private:
  explicit TypeDescription(win32::ComRef<ITypeInfo> info);

  win32::ComRef<ITypeInfo> mInfo;
  std::vector<MemberDescription> mMembers;
};

}  // namespace strandline::server
