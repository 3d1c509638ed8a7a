#pragma once

// The product's components as COM classes of this process: each ProgID leads to a class identifier of its own, and
// that, while the run lasts, to a class object here. So the library creates them as it would create installed ones.

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "platform/variant.h"
#include "wordhost/registry_entries.h"

namespace strandline::wordhost {

class ComponentClass;

class ComponentClasses {
 public:
  // Makes a component; Nothing for one that can't be made.
  using Maker = std::function<Object(const String& progId)>;

  explicit ComponentClasses(RegistryEntries& registry) : mRegistry(registry) {}
  ~ComponentClasses();
  ComponentClasses(const ComponentClasses&) = delete;
  ComponentClasses& operator=(const ComponentClasses&) = delete;

  // What is wrong where a class can't be registered; empty otherwise.
  std::string Register(std::span<const TextView> progIds, Maker maker);

 private:
  std::string RegisterOne(const String& progId, unsigned number);

  RegistryEntries& mRegistry;
  Maker mMaker;
  struct Registered {
    ComponentClass* object;
    unsigned long cookie;
  };
  std::vector<Registered> mClasses;
};

}  // namespace strandline::wordhost
