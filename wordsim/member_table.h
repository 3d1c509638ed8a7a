#pragma once

// The members of a class of simulated objects as a table, made once per class: name, whether it can be written, how
// many arguments it takes, what it does. Finding one compares hashes and takes no memory.

#include <cstddef>
#include <span>

#include "platform/variant.h"

namespace strandline::wordsim {

class SimObject;

// One use on its way to a member, arguments already counted.
class Call {
 public:
  Call(std::span<const Variant> arguments, const Variant* value, std::span<const Named> named)
      : mArguments(arguments), mValue(value), mNamed(named) {}

  bool IsLet() const { return mValue != nullptr; }
  // The argument in that place; Missing where it was left out.
  const Variant& Argument(std::size_t place) const {
    static const Variant kMissing{Missing{}};
    return place < mArguments.size() ? mArguments[place] : kMissing;
  }
  const Variant& Value() const { return *mValue; }  // what is written
  // The named argument; Missing where it wasn't given.
  const Variant& ByName(Name name) const {
    static const Variant kMissing{Missing{}};
    for (const Named& named : mNamed) {
      if (named.name == name) return named.value;
    }
    return kMissing;
  }

 private:
  std::span<const Variant> mArguments;
  const Variant* mValue;
  std::span<const Named> mNamed;
};

enum class Access { kRead, kReadWrite };

struct Member {
  using Handler = Variant (*)(SimObject& self, const Call& call);

  Name name;
  Access access;
  std::size_t fewest;  // arguments, the written value not counted
  std::size_t most;
  Handler handler;
  bool takesNamed = false;
};

using MemberTable = std::span<const Member>;

inline const Member* FindMember(MemberTable table, Name name) {
  for (const Member& member : table) {
    if (member.name.Hash() == name.Hash() && member.name == name) return &member;
  }
  return nullptr;
}

namespace member_table {

template <class Method>
struct OwnerOf;
template <class Class>
struct OwnerOf<Variant (Class::*)(const Call&)> {
  using Type = Class;
};

// The handler that runs an operation of the object's own class.
template <auto kMethod>
Variant Run(SimObject& self, const Call& call) {
  using Class = typename OwnerOf<decltype(kMethod)>::Type;
  return (static_cast<Class&>(self).*kMethod)(call);
}

}  // namespace member_table

// A property to read, one to read and write, and a method.
template <auto kMethod>
constexpr Member Readable(Name name, std::size_t fewest = 0, std::size_t most = 0) {
  return {name, Access::kRead, fewest, most < fewest ? fewest : most, &member_table::Run<kMethod>};
}
template <auto kMethod>
constexpr Member Writable(Name name, std::size_t fewest = 0, std::size_t most = 0) {
  return {name, Access::kReadWrite, fewest, most < fewest ? fewest : most, &member_table::Run<kMethod>};
}
template <auto kMethod>
constexpr Member Method(Name name, std::size_t fewest = 0, std::size_t most = 0, bool takesNamed = false) {
  return {name, Access::kRead, fewest, most < fewest ? fewest : most, &member_table::Run<kMethod>, takesNamed};
}

}  // namespace strandline::wordsim
