#include "addin/RibbonEvents.h"

#include "foundation/procedure.h"
#include "foundation/received_arguments.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"RibbonEvents", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Parameter kIndex[] = {{"index", ParameterKind::kInteger}};
constexpr Parameter kCommand[] = {{"command", ParameterKind::kString}};
}  // namespace

Array<Byte> RibbonEvents::getToolbarIconBits(Integer& index) {
  METHOD(Array<Byte>, u"getToolbarIconBits", index);
  STEP(mSinks.Raise([&](Sink& sink) { sink.getToolbarIconBits(index, here.result); }));
  return here.Leave();
}

void RibbonEvents::run(String& command) {
  METHOD(void, u"run", command);
  STEP(mSinks.Raise([&](Sink& sink) { sink.run(command); }));
}

Variant RibbonEvents::Invoke(Use use, Name member, const Arguments& arguments) {
  const bool isRun = member == Name("run");
  if (use == Use::kLet || (!isRun && member != Name("getToolbarIconBits"))) Raise(errors::kNoSuchMember);
  ReceivedArguments received(isRun ? kCommand : kIndex, arguments);
  Variant answer;
  if (isRun) {
    run(received[0].Text());
  } else {
    answer = getToolbarIconBits(received[0].Number());
  }
  received.GiveBack();
  return answer;
}

}  // namespace strandline
