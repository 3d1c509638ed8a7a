#include "tests/support/world.h"

#include "platform/runtime.h"

namespace strandline {

namespace {

desk::Desk::Options DeskOptions(const WorldOptions& options) {
  desk::Desk::Options desk;
  desk.dpi = options.dpi;
  return desk;
}

}  // namespace

World::World(const WorldOptions& options)
    : desk(DeskOptions(options)),
      did({[this](Long hwnd) { return word.WindowName(hwnd); },
           [this](Long handle) { return desk.Objects().NameOf(handle); }}),
      word(desk.Services(), desk.Host(), desk.Canvas(), desk.Clock(), options.word),
      services(desk, did,
               [this](Long hwnd, const Rect& pixels, const char* operation) { did.OnPaint(hwnd, pixels, operation); }) {
  desk::DeskRunTime& runTime = desk.RunTime();
  runTime.SetStart(desk::MakeDate(2009, 3, 2, 9));
  runTime.SetCommandLine(options.commandLine);
  runTime.SetBoxHandler(
      [this](const String& text, Long style, const String* title) { return OnBox(text, style, title); });
  desk::DeskComponents& components = desk.Components();
  for (TextView name : wordsim::Product::ComponentNames()) {
    components.Register(name, [this, progId = String(name)] { return word.CreateComponent(progId); });
  }
  for (const String& name : options.word.missingComponents) components.SetMissing(name, true);
  components.SetObserver([this](const String& progId, bool ok) { did.OnCreate(progId, ok); });
  word.SetUseObserver(&did);
}

World::~World() {
  did.during = nullptr;
  Unload();
}

void World::Load() {
  mLibrary.emplace(services.Services());
  mLibrary->SetLogObserver(&did);
  mLibrary->SetPictureObserver(&did);
  mMain2 = mLibrary->CreateMain2();
}

void World::Initialize() {
  Object application = word.Application();
  Object properties = word.Properties();
  Object productState = word.ProductState();
  String name = word.TheSettings().productName;
  mMain2->Initialize(application, properties, productState, name);
}

void World::Unload() {
  mMain2 = nullptr;
  mLibrary.reset();
}

wordsim::Document& World::Open(const String& name, wordsim::OpenFlags flags, bool startedFromIcon) {
  wordsim::Document& document = word.Open(name, flags);
  Create(startedFromIcon);
  return document;
}

void World::Create(bool startedFromIcon) {
  Boolean given = startedFromIcon;
  mMain2->HandleCreateDocument(given);
}

bool World::Close(const String& name) {
  const bool mayGoOn = HandleClose(name);
  if (mayGoOn) word.Close(name);
  return mayGoOn;
}

bool World::HandleClose(const String& name) {
  Object document;
  if (wordsim::Document* open = word.Find(name)) document = Ref<wordsim::Document>(open);
  return mMain2->HandleCloseDocument(document);
}

void World::AnswerErrors(std::initializer_list<Long> answers) {
  word.TheProduct().AnswerErrors({answers.begin(), answers.size()});
}

Long World::OnBox(const String& text, Long style, const String* title) {
  Long answer = (style & 15) == msgbox::kYesNoCancel ? msgbox::kAnswerYes : msgbox::kAnswerOk;
  if (!mBoxAnswers.empty()) {
    answer = mBoxAnswers.front();
    mBoxAnswers.pop_front();
  }
  did.OnBox(text, style, title, answer);
  return answer;
}

}  // namespace strandline
