#include "play/scene_player.h"

#include <algorithm>
#include <utility>

namespace strandline::play {

SceneSettings SettingsOf(const ParsedScene& scene) {
  SceneSettings settings;
  for (const Command& command : scene.commands) {
    if (command.form->verb == Verb::kStart) break;
    if (IsSetting(*command.form)) settings.Apply(command);
  }
  return settings;
}

namespace {

// Lines are kept in memory only for a scene that asks about them.
bool AsksAboutLines(const Command& command) {
  const Verb verb = command.form->verb;
  if (command.inner) return AsksAboutLines(*command.inner);
  return verb == Verb::kExpect || verb == Verb::kThen;
}

}  // namespace

ScenePlayer::Handler ScenePlayer::HandlerOf(Verb verb) {
  using P = ScenePlayer;
  switch (verb) {
    case Verb::kStart:
      return &P::Start;
    case Verb::kAfter:
      return &P::After;
    case Verb::kOpen:
      return &P::Open;
    case Verb::kActivate:
      return &P::Activate;
    case Verb::kType:
      return &P::Type;
    case Verb::kClose:
      return &P::Close;
    case Verb::kVanish:
      return &P::Vanish;
    case Verb::kCall:
      return &P::Call;
    case Verb::kExecute:
      return &P::Execute;
    case Verb::kMinimise:
      return &P::Minimise;
    case Verb::kRestore:
      return &P::Restore;
    case Verb::kBookmark:
      return &P::Bookmark;
    case Verb::kValue:
      return &P::Value;
    case Verb::kVariable:
      return &P::Variable;
    case Verb::kEmail:
      return &P::Email;
    case Verb::kRename:
      return &P::Rename;
    case Verb::kRibbonRun:
      return &P::RibbonRun;
    case Verb::kRibbonIcon:
      return &P::RibbonIcon;
    case Verb::kQuit:
      return &P::Quit;
    case Verb::kMouseMove:
      return &P::MouseMove;
    case Verb::kMouseDown:
      return &P::MouseDown;
    case Verb::kMouseUp:
      return &P::MouseUp;
    case Verb::kMouseDouble:
      return &P::MouseDouble;
    case Verb::kMouseRight:
      return &P::MouseRight;
    case Verb::kMouseLeave:
      return &P::MouseLeave;
    case Verb::kMouseOver:
      return &P::MouseOver;
    case Verb::kHover:
      return &P::Hover;
    case Verb::kClick:
      return &P::Click;
    case Verb::kPick:
      return &P::Pick;
    case Verb::kMacro:
      return &P::Macro;
    case Verb::kCell:
      return &P::Cell;
    case Verb::kDrop:
      return &P::Drop;
    case Verb::kSend:
      return &P::Send;
    case Verb::kResize:
      return &P::Resize;
    case Verb::kDock:
      return &P::Dock;
    case Verb::kCover:
      return &P::Cover;
    case Verb::kUncover:
      return &P::Uncover;
    case Verb::kAnswerBox:
      return &P::AnswerBox;
    case Verb::kAnswerError:
      return &P::AnswerError;
    case Verb::kFail:
      return &P::FailUse;
    case Verb::kFailWindow:
      return &P::FailService;
    case Verb::kAds:
      return &P::Ads;
    case Verb::kVerifier:
      return &P::Verifier;
    case Verb::kLibrary:
      return &P::Library;
    case Verb::kWait:
      return &P::Wait;
    case Verb::kShot:
      return &P::Shot;
    case Verb::kShotDesk:
      return &P::ShotDesk;
    case Verb::kState:
      return &P::State;
    case Verb::kMark:
      return &P::Mark;
    case Verb::kExpect:
      return &P::Expect;
    case Verb::kExpectPixel:
      return &P::ExpectPixel;
    case Verb::kThen:
      return &P::Then;
    // Without a default, so that a verb that is left out doesn't compile.
    case Verb::kWord:
    case Verb::kProduct:
    case Verb::kNow:
    case Verb::kCommandLine:
    case Verb::kSetting:
    case Verb::kLumivex:
    case Verb::kIcon:
    case Verb::kComponent:
    case Verb::kBarEdge:
    case Verb::kBarLate:
    case Verb::kDpi:
    case Verb::kBarHeight:
    case Verb::kControls:
    case Verb::kTemplate:
    case Verb::kClipboardHeld:
    case Verb::kClipboard:
      break;  // a setting, which the session was made with
  }
  return nullptr;
}

ScenePlayer::ScenePlayer(const ParsedScene& scene, PlayOptions options, const SessionMaker& make, Watchdog& watchdog)
    : mScene(scene), mOptions(std::move(options)), mWatchdog(watchdog) {
  const bool keepLines = std::any_of(scene.commands.begin(), scene.commands.end(), AsksAboutLines);
  mSession = make(SettingsOf(scene), keepLines);
  mExpectations = std::make_unique<ExpectationState>(mSession->TheJournal());
  PlayUser();
}

Outcome ScenePlayer::Play(std::vector<std::string>& messages) {
  try {
    PlayAll();
  } catch (const SceneError& error) {
    messages = {Describe(error)};
    return Outcome::kWrong;
  } catch (...) {
    const std::string stuck = mSession->WhereStuck();
    if (stuck.empty()) throw;
    mSession->TheJournal().Stop();
    messages = std::move(mFailures);
    messages.push_back(DescribeStuck(stuck));
    return Outcome::kStuck;
  }
  messages = std::move(mFailures);
  return messages.empty() ? Outcome::kHeld : Outcome::kExpectationFailed;
}

void ScenePlayer::PlayAll() {
  for (const Command& command : mScene.commands) PlayOne(command);
  const Watchdog::Watch watch(mWatchdog, Where(mLine));
  if (mSession->IsStarted() && !mHasQuit) mSession->Main2().Call("Quit");
  mSession->Unload();
}

// A command that `after` brought runs inside another one. Where one fails, its own line is the one to name.
void ScenePlayer::PlayOne(const Command& command) {
  const int outer = std::exchange(mLine, command.line);
  ++mDepth;
  RequirePhase(command);
  RequireSupport(command);
  if (const Handler handler = HandlerOf(command.form->verb)) {
    const Watchdog::Watch watch(mWatchdog, Where(command.line));
    (this->*handler)(command);
  }
  if (--mDepth > 0) mLine = outer;
}

void ScenePlayer::RequirePhase(const Command& command) const {
  const std::string usage = "\"" + Usage(*command.form) + "\"";
  const bool isStarted = mSession->IsStarted();
  if (command.form->phase == Phase::kStarted && !isStarted) Fail(usage + " needs start before it");
  if (command.form->phase != Phase::kSetup || !isStarted) return;
  if (command.form->verb == Verb::kStart) Fail("a second start; one is right");
  Fail(usage + " comes too late; it must stand before start");
}

void ScenePlayer::RequireSupport(const Command& command) const {
  const std::string why = mSession->Unsupported(command.form->verb);
  if (!why.empty()) Fail("\"" + Usage(*command.form) + "\" can't be played here: " + why);
}

std::string ScenePlayer::Where(int line) const { return mOptions.sceneName + ":" + std::to_string(line); }

// Nothing is played behind the error, nor told of what its way out brings about.
void ScenePlayer::Fail(const std::string& message) const {
  mSession->TheJournal().Stop();
  throw SceneError{mLine, message};
}

std::string ScenePlayer::Describe(const SceneError& error) const { return Where(error.line) + ": " + error.message; }

std::string ScenePlayer::DescribeStuck(const std::string& where) const { return Where(mLine) + ": stuck: " + where; }

}  // namespace strandline::play
