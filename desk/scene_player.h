#pragma once

// Plays a scene's commands, one after the other, on a session of its own, and says what came of it.

#include <memory>
#include <string>
#include <vector>

#include "desk/desk_session.h"
#include "desk/expectation.h"
#include "desk/scene_command.h"
#include "desk/scene_error.h"
#include "desk/watchdog.h"

namespace strandline::deskprogram {

struct PlayOptions {
  std::string sceneName;  // as messages give it
  std::string outFolder;  // where pictures go
};

// The program's exit codes.
enum class Outcome { kHeld = 0, kExpectationFailed = 1, kWrong = 2, kStuck = 3 };

class ScenePlayer {
 public:
  // `scene` is without error; `file`, which may be null, and the watchdog outlive the player.
  ScenePlayer(const ParsedScene& scene, PlayOptions options, JournalFile* file, Watchdog& watchdog);

  // Once. The lines for standard error come with it, each without its end.
  Outcome Play(std::vector<std::string>& messages);

  // What to say of a scene that turned out wrong, and of a run that is stuck.
  std::string Describe(const SceneError& error) const;
  std::string Describe(const desk::Stuck& stuck) const;

 private:
  using Handler = void (ScenePlayer::*)(const Command&);
  static Handler HandlerOf(Verb verb);

  void PlayAll();
  void PlayOne(const Command& command);
  void RequirePhase(const Command& command) const;
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
  void Minimise(const Command&);
  void Restore(const Command&);
  void Bookmark(const Command&);
  void Value(const Command&);
  void Variable(const Command&);
  void Email(const Command&);
  void Rename(const Command&);
  void Quit(const Command&);

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
  void WritePicture(const std::string& fileName, const Rect& area);
  void NoteFailure(const std::string& expected);

  const ParsedScene& mScene;
  PlayOptions mOptions;
  Watchdog& mWatchdog;
  std::unique_ptr<DeskSession> mSession;
  std::unique_ptr<ExpectationState> mExpectations;
  std::vector<std::string> mFailures;
  int mLine = 0;   // of the command that runs
  int mDepth = 0;  // of commands inside commands
  bool mHasQuit = false;
};

}  // namespace strandline::deskprogram
