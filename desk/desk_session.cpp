#include "desk/desk_session.h"

#include "desk/pointer_picture.h"
#include "desk/state_report.h"
#include "platform/desk/png_writer.h"
#include "platform/desk/stuck.h"
#include "wordsim/document.h"
#include "wordsim/product.h"

namespace strandline::deskprogram {

namespace {

bool IsOnScreen(const desk::Surface& screen, const Rect& area) {
  return area.left < area.right && area.top < area.bottom && area.right > 0 && area.bottom > 0 &&
         area.left < screen.width && area.top < screen.height;
}

}  // namespace

DeskSession::DeskSession(const play::SceneSettings& settings, play::JournalFile* file, bool keepLines,
                         play::CallList* calls)
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
  if (calls) {
    mJournal.SetCalls(calls);
    mSystemsTurns.emplace(*mServices.Services().subclassers, *calls);
  }
  desk::DeskRunTime& runTime = mDesk.RunTime();
  runTime.SetStart(settings.now);
  runTime.SetCommandLine(settings.commandLine);
  for (const auto& [name, value] : settings.initSettings) runTime.SetSetting(u"Init", name, value);
  runTime.SetBoxHandler(
      [this](const String& text, Long style, const String* title) { return mWatch.OnBox(text, style, title); });
  RegisterComponents(settings);
  FillClipboard(settings);
  mWorld.TheProduct().SetLibraryCheck(&mVerifier);
  mWorld.SetUseObserver(&mWatch);
}

DeskSession::~DeskSession() {
  mJournal.Stop();
  Unload();
}

desk::Desk::Options DeskSession::DeskOptions(const play::SceneSettings& settings) {
  desk::Desk::Options options;
  options.dpi = settings.dpi;
  return options;
}

void DeskSession::RegisterComponents(const play::SceneSettings& settings) {
  desk::DeskComponents& components = mDesk.Components();
  for (TextView name : wordsim::Product::ComponentNames()) {
    components.Register(name, [this, progId = String(name)] { return mWorld.CreateComponent(progId); });
  }
  for (const String& name : settings.world.missingComponents) components.SetMissing(name, true);
  components.SetObserver([this](const String& progId, bool ok) { mWatch.OnCreate(progId, ok); });
}

void DeskSession::FillClipboard(const play::SceneSettings& settings) {
  desk::DeskClipboard& clipboard = mDesk.Clipboard();
  if (settings.clipboardText) clipboard.SetTextFromOutside(*settings.clipboardText);
  if (settings.clipboardRichText) clipboard.SetRichTextFromOutside(*settings.clipboardRichText);
  if (settings.isClipboardHeld) clipboard.HoldByAnother(true);
}

std::string DeskSession::Start() {
  Platform services = mServices.Services();
  if (mSystemsTurns) services.subclassers = &*mSystemsTurns;
  mLibrary.emplace(services);
  mLibrary->SetLogObserver(&mWatch);
  mLibrary->SetPictureObserver(&mWatch);
  mMain2 = mLibrary->CreateMain2();
  return "";
}

void DeskSession::Unload() {
  mMain2 = nullptr;
  mLibrary.reset();
}

// A file that is no module can be verified, but not loaded.
std::string DeskSession::ServeAdLibrary(const play::AdLibraryFile* file) {
  const String path = mWorld.TheProduct().AdLibraryPath();
  mVerifier.Serve(path, file);
  if (file) {
    mDesk.Modules().SetModuleFile(path, file->bytes);
  } else {
    mDesk.Modules().RemoveModule(path);
  }
  return "";
}

void DeskSession::Schedule(std::int64_t milliseconds, std::function<void()> work) {
  mDesk.Clock().After(milliseconds, std::move(work));
}

std::string DeskSession::WhereStuck() const {
  try {
    throw;
  } catch (const desk::Stuck& stuck) {
    return stuck.where;
  } catch (...) {
    return "";
  }
}

play::Json DeskSession::State() {
  StateReport report(mNaming);
  if (mLibrary) mLibrary->ReportState(report);
  play::Json state = report.Take();
  const desk::ObjectTable& objects = mDesk.Objects();
  state["handles"] = play::Json{{"contexts", objects.Count(desk::ObjectKind::kContext)},
                                {"bitmaps", objects.Count(desk::ObjectKind::kBitmap)},
                                {"timers", mDesk.Windows().LiveTimers()},
                                {"hooks", mDesk.Windows().LiveHooks()}};
  play::Json& clipboard = state["clipboard"] = play::Json::object();
  for (const desk::DeskClipboard::Item& item : mDesk.Clipboard().Content()) {
    clipboard[ToUtf8(item.name.View())] = item.isPicture ? "picture" : ToUtf8(item.text.View());
  }
  return state;
}

std::string DeskSession::ArmFailure(const std::string& call, int count) {
  if (mServices.ArmFailure(call, count)) return "";
  return "\"" + call + "\" is no service that can fail; those are: " + WatchedServices::FailingCalls();
}

String DeskSession::IdentityOf(wordsim::Document& document) { return document.IdentityText(); }

Rect DeskSession::BarArea() {
  Rect area;
  mDesk.Windows().GetWindowRect(mWorld.ActiveBarWindow(), area);
  return area;
}

std::optional<std::uint32_t> DeskSession::BarPixel(Long x, Long y) {
  const Rect area = BarArea();
  const desk::Surface& screen = mDesk.Screen();
  const Long screenX = area.left + x;
  const Long screenY = area.top + y;
  const bool inside = x >= 0 && y >= 0 && screenX >= 0 && screenY >= 0 && screenX < area.right &&
                      screenY < area.bottom && screenX < screen.width && screenY < screen.height;
  if (!inside) return std::nullopt;
  return *screen.At(screenX, screenY) & 0xFFFFFF;
}

namespace {

std::string CantWrite(const std::string& path) {
  return "can't write the picture " + path + "; name a folder that can be written with --out";
}

}  // namespace

std::string DeskSession::WriteBarPicture(const std::string& path) {
  const Rect area = BarArea();
  if (!IsOnScreen(mDesk.Screen(), area)) {
    return "nothing of the window is on the screen; take the picture where something of it is";
  }
  return mDesk.WritePng(path, area) ? "" : CantWrite(path);
}

// With the pointer, once somebody has moved it.
std::string DeskSession::WriteDeskPicture(const std::string& path) {
  desk::Surface picture = mDesk.Screen();
  Point pointer;
  mDesk.Windows().GetCursorPos(pointer);
  if (pointer != Point{}) DrawPointer(picture, pointer);
  return desk::WritePng(path, picture) ? "" : CantWrite(path);
}

}  // namespace strandline::deskprogram
