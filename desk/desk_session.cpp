#include "desk/desk_session.h"

#include "desk/state_report.h"
#include "wordsim/product.h"

namespace strandline::deskprogram {

DeskSession::DeskSession(const SceneSettings& settings, JournalFile* file, bool keepLines)
    : mDesk(DeskOptions(settings)),
      mJournal(
          file, [this] { return mDesk.Clock().Milliseconds(); }, keepLines),
      mNaming({
          [this](Long hwnd) { return mWorld.WindowName(hwnd); },
          [this](Long handle) { return mDesk.Objects().NameOf(handle); },
          [](const Object& object) { return wordsim::JournalNameOf(object); },
      }),
      mWatch(mJournal, mNaming),
      mWorld(mDesk.Services(), mDesk.Host(), mDesk.Canvas(), mDesk.Clock(), settings.world),
      mServices(mDesk, mWatch, [this](Long hwnd, const Rect& pixels, const char*) { mWatch.OnPaint(hwnd, pixels); }) {
  desk::DeskRunTime& runTime = mDesk.RunTime();
  runTime.SetStart(settings.now);
  runTime.SetCommandLine(settings.commandLine);
  for (const auto& [name, value] : settings.initSettings) runTime.SetSetting(u"Init", name, value);
  runTime.SetBoxHandler(
      [this](const String& text, Long style, const String* title) { return mWatch.OnBox(text, style, title); });
  RegisterComponents(settings);
  mWorld.SetUseObserver(&mWatch);
}

DeskSession::~DeskSession() {
  mJournal.Stop();
  Unload();
}

desk::Desk::Options DeskSession::DeskOptions(const SceneSettings& settings) {
  desk::Desk::Options options;
  options.dpi = settings.dpi;
  return options;
}

void DeskSession::RegisterComponents(const SceneSettings& settings) {
  desk::DeskComponents& components = mDesk.Components();
  for (TextView name : wordsim::Product::ComponentNames()) {
    components.Register(name, [this, progId = String(name)] { return mWorld.CreateComponent(progId); });
  }
  for (const String& name : settings.world.missingComponents) components.SetMissing(name, true);
  components.SetObserver([this](const String& progId, bool ok) { mWatch.OnCreate(progId, ok); });
}

void DeskSession::Start() {
  mLibrary.emplace(mServices.Services());
  mLibrary->SetLogObserver(&mWatch);
  mLibrary->SetPictureObserver(&mWatch);
  mMain2 = mLibrary->CreateMain2();
  Initialize(mWorld.TheSettings().productName);
}

void DeskSession::Initialize(const String& productName) {
  Object word = mWorld.Application();
  Object properties = mWorld.Properties();
  Object productState = mWorld.ProductState();
  String name = productName;
  mMain2->Initialize(word, properties, productState, name);
}

void DeskSession::Unload() {
  mMain2 = nullptr;
  mLibrary.reset();
}

Json DeskSession::State() {
  StateReport report(mNaming);
  if (mLibrary) mLibrary->ReportState(report);
  Json state = report.Take();
  const desk::ObjectTable& objects = mDesk.Objects();
  state["handles"] = Json{{"contexts", objects.Count(desk::ObjectKind::kContext)},
                          {"bitmaps", objects.Count(desk::ObjectKind::kBitmap)},
                          {"timers", mDesk.Windows().LiveTimers()},
                          {"hooks", mDesk.Windows().LiveHooks()}};
  return state;
}

}  // namespace strandline::deskprogram
