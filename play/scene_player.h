#pragma once

// Plays a scene's commands, one after the other, on a session that is made for it, and says what came of it.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "play/expectation.h"
#include "play/scene_command.h"
#include "play/scene_error.h"
#include "play/scene_settings.h"
#include "play/session.h"
#include "play/watchdog.h"

namespace strandline::play {

struct PlayOptions {
  std::string sceneName;  // as messages give it
  std::string outFolder;  // where pictures go
};

// What makes the world of a scene; with keepLines its journal can be searched.
using SessionMaker = std::function<std::unique_ptr<Session>(const SceneSettings& settings, bool keepLines)>;

// What is chosen before `start`, wherever it stands among the commands there: the world is made with it.
SceneSettings SettingsOf(const ParsedScene& scene);

// A program's exit codes.
enum class Outcome { kHeld = 0, kExpectationFailed = 1, kWrong = 2, kStuck = 3 };

class ScenePlayer {
 public:
  // `scene` is without error; it and the watchdog outlive the player.
  ScenePlayer(const ParsedScene& scene, PlayOptions options, const SessionMaker& make, Watchdog& watchdog);

  // Whether the command does something when its turn comes; otherwise SceneSettings::Apply has taken it before.
  static bool Plays(Verb verb) { return HandlerOf(verb) != nullptr; }

  // Once. The lines for standard error come with it, each without its end.
  Outcome Play(std::vector<std::string>& messages);

  // What to say of a scene that turned out wrong, and of a run that is stuck.
  std::string Describe(const SceneError& error) const;
  std::string DescribeStuck(const std::string& where) const;

  // Expectations of kinds of lines that this world doesn't tell.
  int Unchecked() const { return mUnchecked; }
  Session& TheSession() { return *mSession; }

 private:
  using Handler = void (ScenePlayer::*)(const Command&);
  static Handler HandlerOf(Verb verb);

  void PlayAll();
  void PlayOne(const Command& command);
  void RequirePhase(const Command& command) const;
  void RequireSupport(const Command& command) const;
  std::string Where(int line) const;
  [[noreturn]] void Fail(const std::string& message) const;

  // scene_player_documents.cpp: the library's object, documents, the product
  void Start(const Command&);
  void After(const Command&);
  void Open(const Command&);
  void Activate(const Command&);
  void Type(const Command&);
  void Close(const Command&);
  void Vanish(const Command&);
  void Call(const Command&);
  void Execute(const Command&);
  void Minimise(const Command&);
  void Restore(const Command&);
  void Bookmark(const Command&);
  void Value(const Command&);
  void Variable(const Command&);
  void Email(const Command&);
  void Rename(const Command&);
  void RibbonRun(const Command&);
  void RibbonIcon(const Command&);
  void Quit(const Command&);

  // scene_player_mouse.cpp: the user's hand, the menu, the product's macros
  void MouseMove(const Command&);
  void MouseDown(const Command&);
  void MouseUp(const Command&);
  void MouseDouble(const Command&);
  void MouseRight(const Command&);
  void MouseLeave(const Command&);
  void MouseOver(const Command&);
  void Hover(const Command&);
  void Click(const Command&);
  void Pick(const Command&);
  void Macro(const Command&);
  void PlayUser();
  void Respond();
  Long HandsBar() const;
  void MoveHand(Point screen, bool left, bool shift);
  void HoverOver(Long control);
  void ClickThere();
  void RunMacroOf(Long control);
  void RunMacroOfEntry(Long entry);
  void RunMacro(const std::function<void()>& macro);

  // scene_player_bar.cpp: the bar, the screen, answers and failures, time
  void Cell(const Command&);
  void Drop(const Command&);
  void Send(const Command&);
  void Resize(const Command&);
  void Dock(const Command&);
  void Cover(const Command&);
  void Uncover(const Command&);
  void AnswerBox(const Command&);
  void AnswerError(const Command&);
  void FailUse(const Command&);
  void FailService(const Command&);
  void Wait(const Command&);

  // scene_player_ads.cpp: the ad library and who verifies it
  void Ads(const Command&);
  void Verifier(const Command&);
  void Library(const Command&);
  void ServeAdLibrary(const std::string& fileName);
  void RequireVerifier() const;

  // scene_player_checks.cpp: pictures, state, expectations
  void Shot(const Command&);
  void ShotDesk(const Command&);
  void State(const Command&);
  void Mark(const Command&);
  void Expect(const Command&);
  void ExpectPixel(const Command&);
  void Then(const Command&);

  void RequireDocument(bool found, const Command& command) const;
  wordsim::Document& ActiveDocument() const;
  void RequireBarWindow() const;
  Object RibbonEvents() const;
  void AddResult(const char* of, const Variant& value);
  void ExecuteCommand(const String& name);
  std::string PicturePath(const std::string& fileName) const;
  void NoteFailure(const std::string& expected);

  const ParsedScene& mScene;
  PlayOptions mOptions;
  Watchdog& mWatchdog;
  std::unique_ptr<Session> mSession;
  std::unique_ptr<ExpectationState> mExpectations;
  std::vector<std::string> mFailures;
  int mLine = 0;   // of the command that runs
  int mDepth = 0;  // of commands inside commands
  int mUnchecked = 0;
  bool mIsFindUnknown = false;  // the last expectation was of a kind that isn't told here
  bool mServesAds = false;
  bool mHasQuit = false;
  bool mIsLeftDown = false;
  String mHandsDocument;  // whose bar the hand is over; empty: the active one's
  std::map<Long, std::shared_ptr<const Command>> mMacros;
};

}  // namespace strandline::play
