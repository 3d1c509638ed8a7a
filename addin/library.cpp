#include "addin/library.h"

#include <new>
#include <utility>

#include "ads/AdvertisementsFactory.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/LanguageExtensions.h"
#include "foundation/SleepReplacement.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

namespace {

const Main2* latest = nullptr;

Ref<AdvertisementsFactoryInterface> MakeAdFactory() { return New<AdvertisementsFactory>(); }

// Calls it for each module's variables, in the order in which the modules go at a stop: those that draw before those
// that know Word.
template <class Action>
void ForEachModule(Action action) {
  action(SleepReplacement::variables);
  action(ToolbarUtilities::variables);
  action(CommonPropertyFunctions::variables);
  action(CommonWordInteractionFunctions::variables);
  action(LanguageExtensions::variables);
  action(CommonLogger::variables);
  action(vbwProtector::variables);
  action(vbwProtector::lastError);
}

void ForgetVariables() {
  ForEachModule([](auto& variables) { variables = {}; });
}

// What was moved out has no owner that would ever end it.
template <class Variables>
void Leak(Variables& variables) noexcept {
  void* const room = ::operator new(sizeof(Variables), std::nothrow);
  if (room) new (room) Variables(std::move(variables));
}

void Report(StateVisitor& to, const ModuleInfo& module) {
  to.BeginModule(module.name);
  module.report(to);
  to.EndModule();
}

void Report(StateVisitor& to, const char16_t* name, const ClassObject* object) {
  if (!object) return;
  to.BeginModule(name);
  object->ReportVariables(to);
  to.EndModule();
}

}  // namespace

Library::Library(const Platform& services) {
  platform::current = services;
  ForgetVariables();
  ToolbarUtilities::makeAdFactory = &MakeAdFactory;
  vbwProtector::SetGlobalReport(&ToolbarUtilities::ReportGlobals);
  vbwProtector::vbwInitializeProtector();
}

// odd: relay-after-quit
Library::~Library() {
  ForgetVariables();
  SetLogObserver(nullptr);
  SetPictureObserver(nullptr);
  vbwProtector::SetGlobalReport(nullptr);
  platform::current = {};
}

void Library::Abandon() noexcept {
  ForEachModule([](auto& variables) { Leak(variables); });
  latest = nullptr;
}

Ref<Main2> Library::CreateMain2() { return New<Main2>(); }

Object Library::AdCallback() {
  const auto* const factory = dynamic_cast<AdvertisementsFactory*>(ToolbarUtilities::variables.adFactory.get());
  return factory && factory->callbackToMe() ? Object(factory->callbackToMe()) : Object();
}

void Library::SetLogObserver(LogObserver* observer) { CommonLogger::observer = observer; }
void Library::SetPictureObserver(PictureObserver* observer) { LoadImageFromResource::observer = observer; }

void Library::Enter(const Main2* main) { latest = main; }
void Library::Leave(const Main2* main) {
  if (latest == main) latest = nullptr;
}

void Library::ReportState(StateVisitor& to) const {
  Report(to, u"Main2", latest);
  Report(to, ToolbarUtilities::kModuleInfo);
  Report(to, CommonPropertyFunctions::kModuleInfo);
  Report(to, CommonWordInteractionFunctions::kModuleInfo);
  Report(to, u"AdvertisementsFactory", ToolbarUtilities::variables.adFactory.get());
  Report(to, SleepReplacement::kModuleInfo);
  Report(to, LanguageExtensions::kModuleInfo);
  Report(to, CommonLogger::kModuleInfo);
  to.BeginModule(u"vbwProtector");
  vbwProtector::ReportModule(to);
  to.EndModule();
  if (latest) latest->ReportToolbars(to);
}

}  // namespace strandline
