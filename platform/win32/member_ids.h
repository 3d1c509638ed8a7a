#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// Names of members with the identifiers by which they are called. Spellings count: to some objects, scripts' own among
// them, letters of different case are different members.
class KnownMembers {
 public:
  explicit KnownMembers(std::size_t most) : mMost(most) {}

  const DISPID* Find(Name member) const;
  // What comes when it is full isn't kept.
  void Add(Name member, DISPID id);

 private:
  struct Known {
    std::uint32_t hash;
    DISPID id;
    std::string text;
  };

  const std::size_t mMost;
  std::vector<Known> mKnown;
};

// The identifiers of one object's members, asked for once: they stay the same for an object's life. Objects of one type
// share those for which the type's own description answers the same, if the type belongs to a library and binds its
// objects; those that can grow members of their own (IDispatchEx) share nothing.
class MemberIds {
 public:
  // Raises 438 where there is no such member, and what the object raises.
  DISPID Find(IDispatch& object, Name member);
  // Of a member and then of each named argument. Raises 438, 448 for an argument that the member hasn't got, and 446
  // for an object that knows none.
  static void FindNamed(IDispatch& object, Name member, std::span<const Named> named, DISPID* ids);

 private:
  DISPID Ask(IDispatch& object, Name member);
  void LookForType(IDispatch& object);

  KnownMembers mOwn{256};
  KnownMembers* mOfType = nullptr;  // null for an object that shares nothing
  ComRef<ITypeInfo> mType;
  bool mHasLooked = false;
};

}  // namespace strandline::win32
