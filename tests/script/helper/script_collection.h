#pragma once

// A collection that a script fills: a script's own classes can't be gone through one by one, this can.

#include <vector>

#include "tests/script/helper/member_table.h"

namespace strandline::script {

class ScriptCollection final : public Dispatch {
 public:
  // Add(item[, name]), Remove(index), Count, Item(index); an index is a number from 1 or a name, letters without case.
  // Raises 9 for an index that isn't there.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override { return IdentityOf(this); }
  Ref<Enumerator> Elements() override;

 private:
  struct Entry {
    Variant item;
    String name;
  };

  Variant Add(Given given);
  Variant Remove(Given given);
  Variant Count(Given given);
  Variant Item(Given given);
  std::size_t PlaceOf(const Variant& index) const;

  std::vector<Entry> mEntries;
};

}  // namespace strandline::script
