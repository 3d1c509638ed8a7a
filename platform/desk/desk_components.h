#pragma once

#include <functional>
#include <map>
#include <set>

#include "platform/components.h"

namespace strandline::desk {

// The components that can be created, by their registered names, letters taken without case. Dictionaries are the
// desk's own and always there.
class DeskComponents final : public Components {
 public:
  // Makes a new object; may raise.
  using Factory = std::function<Object()>;
  // Hears of each creation, after it: the name as it was asked for, and whether it gave an object.
  using Observer = std::function<void(const String& progId, bool ok)>;

  // A factory of the same name is replaced.
  void Register(const String& progId, Factory factory);
  // As long as a component is missing, it can't be created, registered or not.
  void SetMissing(const String& progId, bool missing);
  void SetObserver(Observer observer) { mObserver = std::move(observer); }

  Object CreateObject(const String& progId) override;
  Ref<Dictionary> CreateDictionary() override;

 private:
  Object Create(const String& progId);

  std::map<String, Factory> mFactories;  // by the name in lower case
  std::set<String> mMissing;
  Observer mObserver;
};

}  // namespace strandline::desk
