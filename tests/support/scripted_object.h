#pragma once

// An object of the automation world that does what a test says.

#include <functional>
#include <utility>

#include "platform/variant.h"

namespace strandline {

class ScriptedObject final : public Dispatch {
 public:
  using Script = std::function<Variant(Use use, Name member, const Arguments& arguments)>;
  // atTheEnd: called when the last holder lets go.
  explicit ScriptedObject(Script script, std::function<void()> atTheEnd = {})
      : mScript(std::move(script)), mAtTheEnd(std::move(atTheEnd)) {}

  Variant Invoke(Use use, Name member, const Arguments& arguments) override { return mScript(use, member, arguments); }
  Long Identity() const override { return static_cast<Long>(reinterpret_cast<std::intptr_t>(this) & 0x7FFFFFFF); }

 private:
  void Terminated() override {
    if (mAtTheEnd) mAtTheEnd();
  }
  Script mScript;
  std::function<void()> mAtTheEnd;
};

}  // namespace strandline
