#include "tests/toolbar/toolbar_world.h"

namespace strandline {

namespace {

desk::Desk::Options OptionsFor(Long dpi) {
  desk::Desk::Options options;
  options.dpi = dpi;
  return options;
}

}  // namespace

wordsim::Settings WordOf(const char16_t* version) {
  wordsim::Settings settings;
  settings.wordVersion = version;
  return settings;
}

ToolbarWorld::ToolbarWorld(const wordsim::Settings& settings, Long dpi)
    : desk(OptionsFor(dpi)),
      word(desk.Services(), desk.Host(), desk.Canvas(), desk.Clock(), settings),
      mFailingWindows(desk.Windows(), faults),
      mFailingGraphics(desk.Graphics(), faults),
      mFailingPictures(desk.Pictures(), faults),
      mFailingModules(desk.Modules(), faults),
      mFailingSubclassers(desk.Windows(), faults),
      mWindows(mFailingWindows, &trace),
      mGraphics(mFailingGraphics, &trace),
      mSubclassers(mFailingSubclassers, &trace) {
  for (TextView name : wordsim::Product::ComponentNames()) {
    const bool isErrors = name == TextView(u"QuillmereError.Main2");
    desk.Components().Register(name, [this, isErrors, progId = String(name)] {
      return isErrors ? errors.Create() : word.CreateComponent(progId);
    });
  }
  for (const String& name : settings.missingComponents) desk.Components().SetMissing(name, true);
  desk.RunTime().SetBoxHandler(
      [this](const String& text, Long style, const String* title) { return AnswerBox(text, style, title); });
  trace.NameWindows([this](Long hwnd) { return word.WindowName(hwnd); });
  trace.NameObjects([](const Object& object) { return wordsim::JournalNameOf(object); });
  word.SetUseObserver(&trace);
}

ToolbarWorld::~ToolbarWorld() {
  trace.during = nullptr;
  faults.Clear();
  Unload();
  trace.Listen(0);
  word.SetUseObserver(nullptr);
}

Platform ToolbarWorld::Services() {
  Platform services = desk.Services();
  services.windows = &mWindows;
  services.graphics = &mGraphics;
  services.pictures = &mFailingPictures;
  services.modules = &mFailingModules;
  services.subclassers = &mSubclassers;
  return services;
}

void ToolbarWorld::Start() {
  library.emplace(Services());
  library->SetLogObserver(&trace);
  library->SetPictureObserver(&trace);
  main = library->CreateMain2();
  Object application = word.Application();
  Object properties = word.Properties();
  Object productState = word.ProductState();
  String name = word.TheSettings().productName;
  main->Initialize(application, properties, productState, name);
}

void ToolbarWorld::Unload() {
  main = nullptr;
  library.reset();
}

void ToolbarWorld::Open(const String& name, Boolean startedFromIcon, wordsim::OpenFlags flags) {
  word.Open(name, flags);
  main->HandleCreateDocument(startedFromIcon);
}

void ToolbarWorld::OpenInWord(const String& name, wordsim::OpenFlags flags) { word.Open(name, flags); }

Rect ToolbarWorld::RectOf(Long hwnd) {
  Rect rectangle;
  desk.Windows().GetWindowRect(hwnd, rectangle);
  return rectangle;
}

desk::Surface ToolbarWorld::Pixels(Long hwnd) {
  const Rect place = RectOf(hwnd);
  return desk::CutOut(desk.Screen(), {place.left, place.top, place.right, place.bottom});
}

const desk::Surface& ToolbarWorld::SurfaceOf(Long hdc) {
  static const desk::Surface kNone;
  const desk::Context* context = desk.Objects().Find<desk::Context>(hdc);
  const desk::Bitmap* bitmap = context ? desk.Objects().Find<desk::Bitmap>(context->bitmap) : nullptr;
  return bitmap ? bitmap->surface : kNone;
}

Trace::Lines ToolbarWorld::Misused() {
  Trace::Lines lines;
  for (const desk::Misuse& misuse : desk.Misuses().All()) lines.push_back(misuse.call + ": " + misuse.what);
  return lines;
}

Long ToolbarWorld::AnswerBox(const String& text, Long style, const String* title) {
  boxes.push_back({ToUtf8(text), title ? ToUtf8(*title) : "(none)", style});
  if (!boxAnswers.empty()) {
    const Long answer = boxAnswers.front();
    boxAnswers.erase(boxAnswers.begin());
    return answer;
  }
  const Long buttons = style & 15;
  return buttons == msgbox::kYesNoCancel || buttons == msgbox::kYesNoCancel + 1 ? msgbox::kAnswerYes
                                                                                : msgbox::kAnswerOk;
}

}  // namespace strandline
