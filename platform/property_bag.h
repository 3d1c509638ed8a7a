#pragma once

#include <utility>
#include <vector>

#include "platform/variant.h"

namespace strandline {

// An object whose members are fixed values, to be read by name. Any other use raises what automation raises.
class PropertyBag final : public Dispatch {
 public:
  struct Member {
    Name name;
    Variant value;
  };

  PropertyBag(Long identity, std::vector<Member> members) : mIdentity(identity), mMembers(std::move(members)) {}

  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    for (const Member& own : mMembers) {
      if (own.name != member) continue;
      if (use != Use::kGet) Raise(errors::kNoSuchMember);
      if (!arguments.positional.empty() || !arguments.named.empty()) Raise(errors::kWrongNumberOfArguments);
      return own.value;
    }
    Raise(errors::kNoSuchMember);
  }
  Long Identity() const override { return mIdentity; }

 private:
  Long mIdentity;
  std::vector<Member> mMembers;
};

}  // namespace strandline
