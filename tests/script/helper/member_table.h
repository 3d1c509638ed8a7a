#pragma once

// How an object of the helper answers by name: a table of its members, each with the number of its arguments.

#include <span>

#include "platform/variant.h"

namespace strandline::script {

using Given = std::span<const Variant>;

template <class Self>
struct Member {
  Name name;
  std::size_t fewest;
  std::size_t most;
  Variant (Self::*run)(Given given);
};

// Raises 438 for a name that isn't there and for a let, 448 for named arguments, 450 for a wrong number of arguments.
template <class Self, std::size_t kCount>
Variant InvokeMember(Self& self, const Member<Self> (&members)[kCount], Use use, Name name,
                     const Arguments& arguments) {
  const Ref<Self> alive(&self);
  for (const Member<Self>& member : members) {
    if (member.name != name) continue;
    if (use == Use::kLet) Raise(errors::kNoSuchMember);
    if (!arguments.named.empty()) Raise(errors::kNoSuchNamedArgument);
    const std::size_t count = arguments.positional.size();
    if (count < member.fewest || count > member.most) Raise(errors::kWrongNumberOfArguments);
    return (self.*member.run)(arguments.positional);
  }
  Raise(errors::kNoSuchMember);
}

inline Long IdentityOf(const Dispatch* object) {
  return static_cast<Long>(reinterpret_cast<std::uintptr_t>(object) & 0x7FFFFFFF);
}

}  // namespace strandline::script
