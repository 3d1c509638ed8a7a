#include "addin/RibbonEvents.h"

#include "foundation/procedure.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"RibbonEvents", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
}  // namespace

Array<Byte> RibbonEvents::getToolbarIconBits(Integer index) {
  METHOD(Array<Byte>, u"getToolbarIconBits", index);
  STEP(mSinks.Raise([&](Sink& sink) { sink.getToolbarIconBits(index, here.result); }));
  return here.Leave();
}

void RibbonEvents::run(const String& command) {
  METHOD(void, u"run", command);
  STEP(mSinks.Raise([&](Sink& sink) { sink.run(command); }));
}

Variant RibbonEvents::Invoke(Use use, Name member, const Arguments& arguments) {
  if (use == Use::kLet || (member != Name("getToolbarIconBits") && member != Name("run"))) {
    Raise(errors::kNoSuchMember);
  }
  if (arguments.positional.size() != 1 || !arguments.named.empty()) Raise(errors::kWrongNumberOfArguments);
  if (member == Name("run")) {
    run(arguments.positional[0].ToText());
    return {};
  }
  return getToolbarIconBits(arguments.positional[0].ToInteger());
}

}  // namespace strandline
