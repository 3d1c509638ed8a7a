#include "tests/day/random_day.h"

#include <algorithm>

#include "foundation/vbwProtector.h"
#include "platform/desk/stuck.h"
#include "tests/support/main2_access.h"

namespace strandline::day {

namespace {

constexpr std::size_t kStepsShown = 40;
constexpr Long kMostDocuments = 4;

struct FailingMember {
  const char* object;
  const char* member;
};
// What Word and the product may refuse at any time.
constexpr FailingMember kFailing[] = {
    {"Application", "ActiveDocument"},
    {"Application", "ActiveWindow"},
    {"Application", "CommandBars"},
    {"CommandBars", "Item"},
    {"Documents", "count"},
    {"bar Quillmere", "Controls"},
    {"bar Quillmere", "visible"},
    {"controls of bar Quillmere", "Item"},
    {"controls of bar Quillmere", "count"},
    {"control 1", "Execute"},
    {"control 5", "Execute"},
    {"control 14", "Execute"},
    {"control 3", "left"},
    {"control 7", "isPriorityDropped"},
    {"tooltip", "Show"},
    {"tooltip", "Hide"},
    {"productState", "lumivexEnabled"},
    {"productState", "productName"},
    {"properties", "ExecuteQLMCommand"},
    {"properties", "AddListener"},
    {"properties", "GlobalUserValue"},
    {"properties", "CommonAppPath"},
    {"productState", "WebsiteAddress"},
    {"verifier", "verifyDLL"},
    {"StrandlineDownload.Main2", "CreateDSAVerify"},
    {"AlphaBlender.Main2", "Create"},
    {"AlphaBlender.Main2", "AlphaBlend"},
    {"HTTP.Main2", "Browse"},
};

// Not Quit, which ends the day, and none that waits for what may not come.
constexpr const char16_t* kCommands[] = {u"ToggleLumivex",     u"readingmode",  u"CloseReadingMode",
                                         u"FilePrintPreview2", u"ClosePreview", u"ProductNameChanged",
                                         u"OpenUserManual",    u"UseQuillmere", u"HandleDocumentChange",
                                         u"ClickOnAd",         u"NoSuchCommand"};

// Who lets graphics objects go for good, because that is how they have always worked (the last one when it is left
// early, by the error of a picture that isn't there); and the faces that Word's own buttons and the clipboard still
// hold.
bool IsKnownLoss(const desk::LiveObject& object) {
  static constexpr std::string_view kLosers[] = {
      "Painter.Initialize", "Painter.CopyDC", "IPictureDispUtilities.IPictureDispToHdc",
      "ToolbarUtilities.SetButtonIcon", "ToolbarUtilities.ReplaceBackgroundWithMenuColor"};
  return std::any_of(std::begin(kLosers), std::end(kLosers),
                     [&](std::string_view loser) { return object.maker.starts_with(loser); });
}

String RunningProcedure() {
  const Integer level = vbwProtector::variables.mStackCalls;
  if (level < 1 || level > 64) return {};
  return vbwProtector::variables.mStack[level]->TraceName();
}

}  // namespace

RandomDay::RandomDay(std::uint64_t seed) : mRandom(seed) { Start(); }

RandomDay::~RandomDay() = default;

bool RandomDay::Chance(int of) { return Below(of) == 0; }

void RandomDay::Start() {
  static constexpr const char16_t* kVersions[] = {u"9.0", u"10.0", u"11.0", u"11.0", u"12.0"};
  WorldOptions options = ForWord(kVersions[Below(5)]);
  options.word.lumivexEnabled = Chance(2);
  options.word.hasIcon = Chance(2);
  options.word.barPosition = static_cast<wordsim::BarPosition>(Below(5));
  options.word.barLate = Chance(4) ? 120 : 0;
  mIsCovered = false;
  mStickyFailed = false;
  mWorld = std::make_unique<World>(options);
  mWorld->desk.SetWhoIsCalling([] { return ToUtf8(RunningProcedure()); });
  mWorld->word.TheHooks().executeControl = [this](Long control) { RunMacro(control); };
  mWorld->word.TheHooks().executeEntry = [this](Long entry) {
    if (entry == 22) mWorld->Main().ShrinkToolbar();
  };
  mWorld->word.TheHooks().showDialog = [this](Long) { mWorld->desk.Windows().DoEvents(); };
  ServeAds();
  mWorld->Start();
  mWorld->did.Clear();
  Say("Word " + ToUtf8(options.word.wordVersion) + " begins");
}

const std::vector<RandomDay::Act>& RandomDay::Acts() {
  using D = RandomDay;
  static const std::vector<Act> kActs = {
      {6, "open a document", &D::OpenDocument},
      {5, "close a document", &D::CloseDocument},
      {1, "a document vanishes", &D::Vanish},
      {5, "activate", &D::Activate},
      {30, "move", &D::Move},
      {8, "drag", &D::Drag},
      {10, "press", &D::Press},
      {12, "release", &D::Release},
      {2, "double click", &D::DoubleClick},
      {2, "right click", &D::RightClick},
      {4, "leave", &D::Leave},
      {20, "click", &D::Click},
      {14, "wait", &D::Wait},
      {3, "resize", &D::Resize},
      {3, "dock", &D::Dock},
      {1, "minimise", &D::Minimise},
      {2, "restore", &D::Restore},
      {2, "cover", &D::Cover},
      {1, "rename", &D::Rename},
      {6, "execute", &D::Execute},
      {2, "drop a cell", &D::DropCell},
      {1, "mail", &D::Mail},
      {4, "a member will fail", &D::FailMember},
      {6, "wait for ads", &D::WaitForAds},
      {3, "a value changes", &D::ChangeValue},
      {2, "a new ad library", &D::ExchangeLibrary},
      {1, "a component comes or goes", &D::LoseComponent},
      {1, "answers to errors", &D::AnswerErrors},
  };
  return kActs;
}

std::string RandomDay::Step() {
  int total = 0;
  for (const Act& act : Acts()) total += act.weight;
  int choice = static_cast<int>(Below(total));
  const Act* chosen = &Acts().front();
  for (const Act& act : Acts()) {
    chosen = &act;
    choice -= act.weight;
    if (choice < 0) break;
  }
  Say(chosen->name);
  try {
    (this->*chosen->run)();
  } catch (const desk::Stuck&) {
    const bool waitsForABar = mWorld->did.Has("log 1 Waiting for toolbar to show up");
    Abandon();
    return waitsForABar ? "" : "stuck, and not in the wait for a bar";
  }
  std::string wrong = Wrong();
  mWorld->did.Clear();
  return wrong;
}

std::string RandomDay::LastSteps() const {
  std::string steps;
  const std::size_t first = mSteps.size() > kStepsShown ? mSteps.size() - kStepsShown : 0;
  for (std::size_t i = first; i < mSteps.size(); ++i) steps += "  " + mSteps[i] + "\n";
  return steps;
}

// --- what the user does ---

String RandomDay::AnyDocument() {
  const auto& documents = mWorld->word.Documents();
  if (documents.empty()) return {};
  return documents[static_cast<std::size_t>(Below(static_cast<Long>(documents.size())))]->Name();
}

Point RandomDay::AnyPlace() {
  Rect bar{0, 0, 300, 40};
  const Long hwnd = mWorld->word.ActiveBarWindow();
  if (hwnd != 0) mWorld->desk.Windows().GetWindowRect(hwnd, bar);
  return {bar.left - 6 + Below(bar.right - bar.left + 12), bar.top - 6 + Below(bar.bottom - bar.top + 12)};
}

void RandomDay::OpenDocument() {
  if (static_cast<Long>(mWorld->word.Documents().size()) >= kMostDocuments) return;
  wordsim::OpenFlags flags;
  flags.reading = Chance(8);
  flags.mail = Chance(8);
  flags.blank = Chance(4);
  mWorld->Open(Concat({u"Paper ", DecimalText(++mDocuments), u".doc"}), flags, Chance(5));
}

void RandomDay::CloseDocument() {
  const String name = AnyDocument();
  if (!name.IsEmpty()) mWorld->Close(name);
}

void RandomDay::Vanish() {
  const String name = AnyDocument();
  if (!name.IsEmpty()) mWorld->word.Close(name);
}

void RandomDay::Activate() {
  const String name = AnyDocument();
  if (name.IsEmpty()) return;
  mWorld->word.Activate(name);
  mWorld->Main().HandleDocumentChange();
}

void RandomDay::Move() {
  mWorld->desk.Mouse().MoveTo(AnyPlace());
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::Drag() {
  mWorld->desk.Mouse().Hold(true, Chance(5));
  Move();
  mWorld->desk.Mouse().Hold(false, false);
}

void RandomDay::Press() {
  mWorld->desk.Mouse().Press(MouseButton::kLeft);
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::Release() {
  mWorld->desk.Mouse().Release(MouseButton::kLeft);
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::DoubleClick() {
  Press();
  Release();
  mWorld->desk.Mouse().PressAgain();
  Release();
}

void RandomDay::RightClick() {
  mWorld->desk.Mouse().Press(MouseButton::kRight);
  mWorld->desk.Mouse().Release(MouseButton::kRight);
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::Leave() {
  mWorld->desk.Mouse().MoveTo({1020, 760});
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::ClickOn(Long cell) {
  const Long bar = mWorld->word.ActiveBarWindow();
  const Rect place = mWorld->word.CellPlace(cell);
  if (bar == 0 || place.right <= place.left) return;
  Point middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  mWorld->desk.Windows().ClientToScreen(bar, middle);
  mWorld->desk.Mouse().MoveTo(middle);
  mWorld->desk.Mouse().Press(MouseButton::kLeft);
  mWorld->desk.Mouse().Release(MouseButton::kLeft);
  mWorld->desk.Windows().DoEvents();
}

void RandomDay::Click() {
  const Long cell = 1 + Below(16);
  Say("  on cell " + std::to_string(cell));
  ClickOn(cell);
}

void RandomDay::Wait() { mWorld->desk.Clock().Wait(1 + Below(400)); }
void RandomDay::Resize() { mWorld->word.ResizeBar(200 + Below(700), 30 + Below(30)); }
void RandomDay::Dock() { mWorld->word.DockBar(static_cast<wordsim::BarPosition>(Below(5))); }

void RandomDay::Minimise() {
  const String name = AnyDocument();
  if (!name.IsEmpty()) mWorld->word.Minimise(name);
}

void RandomDay::Restore() {
  const String name = AnyDocument();
  if (!name.IsEmpty()) mWorld->word.Restore(name);
}

void RandomDay::Cover() {
  mIsCovered = !mIsCovered;
  mWorld->word.Cover(mIsCovered);
}

// The bar keeps its name, so a product of another name has none: that's the product's own fault to bear.
void RandomDay::Rename() {
  mWorld->word.TheProduct().Rename(Chance(2) ? u"Quillmere" : u"Quillmere Pro");
  mWorld->Main().ProductNameChanged();
}

void RandomDay::Execute() {
  String command = kCommands[Below(static_cast<Long>(std::size(kCommands)))];
  Say("  " + ToUtf8(command));
  mWorld->Main().Execute(command);
}

void RandomDay::DropCell() { mWorld->word.DropCell(1 + Below(16), Chance(2)); }
void RandomDay::Mail() { mWorld->word.SetEmail(Chance(2)); }

void RandomDay::FailMember() {
  const FailingMember& member = kFailing[Below(static_cast<Long>(std::size(kFailing)))];
  Say(std::string("  ") + member.object + " " + member.member);
  mWorld->word.Faults().Arm(member.object, member.member, 1 + Below(2));
}

void RandomDay::AnswerErrors() {
  static constexpr Long kAnswers[] = {vbwProtector::kRetry, vbwProtector::kIgnore, 0, vbwProtector::kDump};
  mWorld->AnswerErrors({kAnswers[Below(4)]});
}

void RandomDay::RunMacro(Long control) {
  if (++mMacros < 4) {
    String toggle = u"ToggleLumivex";
    switch (Below(12)) {
      case 0:
        Say("    a macro clicks again");
        ClickOn(1 + Below(16));
        break;
      case 1:
        Say("    a macro closes a document");
        CloseDocument();
        break;
      case 2:
        Say("    a macro opens a document");
        OpenDocument();
        break;
      case 3:
        Say("    a macro lets messages run");
        mWorld->desk.Windows().DoEvents();
        break;
      case 4:
        if (!Chance(8)) break;
        Say("    a macro shrinks the toolbar");
        mWorld->Main().ShrinkToolbar();
        break;
      default:
        if (control == 14) mWorld->Main().Execute(toggle);
    }
  }
  --mMacros;
}

// --- what must always hold ---

std::string RandomDay::Wrong() {
  if (vbwProtector::variables.mStackCalls != 0) {
    return "a procedure is still on the stack: " + ToUtf8(RunningProcedure());
  }
  for (const auto& check : {&RandomDay::WrongOfCapture, &RandomDay::WrongOfToolbars, &RandomDay::WrongOfPaints}) {
    const std::string wrong = (this->*check)();
    if (!wrong.empty()) return wrong;
  }
  return "";
}

// A menu of Word's holds the mouse; where the strip has dropped it, the capture is let go.
std::string RandomDay::WrongOfCapture() {
  const Long holder = mWorld->desk.Windows().GetCapture();
  if (holder != 0 && !mWorld->word.WindowName(holder).starts_with("popup")) return "the mouse is captured";
  bool isHeld = false;
  for (const Doings::Line& line : mWorld->did.All()) {
    if (line.text == "call control 1 Execute()") isHeld = true;
    if (line.text.starts_with("ReleaseCapture(")) isHeld = false;
  }
  return isHeld ? "the menu that the strip has dropped holds the mouse" : "";
}

std::string RandomDay::WrongOfToolbars() {
  for (const std::string& error : mWorld->did.Errors()) {
    mStickyFailed = mStickyFailed || error.find(" Buttons.HandleButtonUp") != std::string::npos;
  }
  const auto& registry = Main2Access::Registry(mWorld->Main());
  if (!registry) return "";
  for (Long i = 0; i < registry->Count(); ++i) {
    const Variant item = registry->ItemAt(i);
    if (item.IsEmpty()) continue;  // a click on the ad of a window without a toolbar
    const auto* const toolbar = dynamic_cast<const Toolbar*>(item.ToObject().Target());
    if (!toolbar) return "the registry holds what is no toolbar";
    struct Seen final : StateVisitor {
      void BeginModule(const char16_t*) override {}
      void EndModule() override {}
      void BeginToolbar() override {}
      void EndToolbar() override {}
      void Variable(TextView name, const Variant& value) override {
        if (name == u"mQuitting") isQuitting = value.ToBoolean();
        if (name == u"mIsHandling") isHandling = value.ToBoolean();
      }
      bool isQuitting = false;
      bool isHandling = false;
    } seen;
    toolbar->ReportState(seen);
    if (seen.isQuitting) return "the registry holds a dead toolbar";
    if (seen.isHandling && !mStickyFailed) return "a strip believes that it handles a click";
  }
  return "";
}

std::string RandomDay::WrongOfPaints() {
  for (const std::string& paint : mWorld->did.Of(Doings::kPaint)) {
    if (!paint.starts_with("paint bar ")) return "drawn outside the strip's window: " + paint;
  }
  return "";
}

std::string RandomDay::LeftBehind() {
  std::string left;
  const auto& windows = mWorld->desk.Windows();
  if (windows.LiveHooks() != 0) left += std::to_string(windows.LiveHooks()) + " hooks are left\n";
  for (const desk::LiveObject& object : mWorld->desk.Objects().Lost()) {
    if (!object.maker.empty() && object.maker.find('.') != std::string::npos && !IsKnownLoss(object)) {
      left += object.name + " of " + object.maker + " is left\n";
    }
  }
  return left;
}

// Nothing is to be said of what a run that was torn out leaves.
void RandomDay::Abandon() {
  mMacros = 0;
  vbwProtector::variables.mStackCalls = 0;
  mWorld->did.during = nullptr;
  mWorld->Unload();
  mWorld.reset();
  mSteps.clear();
  Start();
}

std::string RandomDay::BeginAnew() {
  mWorld->Main().Quit();
  mWorld->Unload();
  std::string left = LeftBehind();
  mWorld.reset();
  mSteps.clear();
  Start();
  return left;
}

}  // namespace strandline::day
