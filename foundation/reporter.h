#pragma once

// How a procedure, a class or a module tells its variables by name, for a dump. Values go out as variants; records go
// out field by field, under the path of the field.

#include <string>

#include "platform/graphics.h"
#include "platform/pictures.h"
#include "platform/variant.h"
#include "platform/windows.h"

namespace strandline {

class Reporter {
 public:
  virtual void Variable(TextView name, const Variant& value) = 0;

  // The variables of a list, under the names that the list has in the source.
  template <class... Values>
  void List(const char* names, const Values&... values) {
    [[maybe_unused]] NameList list(names);
    (Tell(list.Next(), values), ...);
  }

  void Tell(TextView name, const Variant& value) { Variable(name, value); }
  void Tell(TextView name, const Rect& value);
  void Tell(TextView name, const Message& value);
  void Tell(TextView name, const PaintStruct& value);
  void Tell(TextView name, const PictDesc& value);
  void Tell(TextView name, const Guid& value);
  // An object without a face in the automation world tells only that it is there.
  template <class T>
  requires(!std::is_base_of_v<Dispatch, T> && !std::is_same_v<T, PictureObject>) void Tell(TextView name,
                                                                                           const Ref<T>& value) {
    Variable(name, value ? Variant(u"(object)") : Variant(Object()));
  }
  template <class T, Long kLower, Long kUpper>
  void Tell(TextView name, const FixedArray<T, kLower, kUpper>& value) {
    Array<T> copy(kLower, kUpper);
    for (Long i = kLower; i <= kUpper; ++i) copy(i) = value(i);
    Variable(name, copy);
  }

 protected:
  ~Reporter() = default;

 private:
  class NameList {
   public:
    explicit NameList(const char* names) : mRest(names) {}
    TextView Next();

   private:
    const char* mRest;
    std::u16string mName;
  };
};

// Told of everything that the loaded library holds: one stretch for each module and for each object of a toolbar.
class StateVisitor : public Reporter {
 public:
  virtual void BeginModule(const char16_t* name) = 0;
  virtual void EndModule() = 0;
  virtual void BeginToolbar() = 0;
  virtual void EndToolbar() = 0;
};

}  // namespace strandline
