#pragma once

// The base of the library's own classes: counted, reportable, and an object in the automation world (so that it can be
// kept in a Dictionary and handed out), though one without members by name.

#include "foundation/reporter.h"

namespace strandline {

class ClassObject : public Dispatch {
 public:
  Variant Invoke(Use, Name, const Arguments&) override { Raise(errors::kNoSuchMember); }
  Long Identity() const override { return static_cast<Long>(reinterpret_cast<std::intptr_t>(this) & 0x7FFFFFFF); }

  // The object's variables, in the order in which a dump lists them.
  virtual void ReportVariables(Reporter& to) const = 0;
};

// The object, which must be there: Nothing raises 91.
template <class T>
requires std::is_base_of_v<ClassObject, T> T& Required(const Ref<T>& object) {
  if (!object) Raise(errors::kObjectNotSet);
  return *object;
}

}  // namespace strandline
