#pragma once

// The commands of a scene: their names, what they take, when they may stand. A line's words become a Command, or an
// error that says what would be right. Nothing is played here; what depends on the state of the world (is the document
// open?) is found when the command runs.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "play/scene_lexer.h"

namespace strandline::play {

enum class Verb {
  kWord,
  kProduct,
  kNow,
  kCommandLine,
  kSetting,
  kLumivex,
  kIcon,
  kComponent,
  kBarEdge,
  kBarLate,
  kDpi,
  kBarHeight,
  kControls,
  kCell,
  kTemplate,
  kAds,
  kVerifier,
  kClipboardHeld,
  kClipboard,
  kStart,
  kAfter,
  kOpen,
  kActivate,
  kType,
  kClose,
  kVanish,
  kCall,
  kExecute,
  kMouseMove,
  kMouseDown,
  kMouseUp,
  kMouseDouble,
  kMouseRight,
  kMouseLeave,
  kMouseOver,
  kHover,
  kClick,
  kPick,
  kMacro,
  kSend,
  kResize,
  kDock,
  kMinimise,
  kRestore,
  kBookmark,
  kCover,
  kUncover,
  kDrop,
  kValue,
  kVariable,
  kEmail,
  kRename,
  kRibbonRun,
  kRibbonIcon,
  kAnswerBox,
  kAnswerError,
  kFailWindow,
  kFail,
  kLibrary,
  kWait,
  kShotDesk,
  kShot,
  kState,
  kMark,
  kExpectPixel,
  kExpect,
  kThen,
  kQuit
};

// When a command may run: before `start` alone, after it alone, or at any time.
enum class Phase { kSetup, kStarted, kAny };

// One way to write a command. `grammar` is its usage with types: a lower-case word stands for itself; NAME:type is a
// slot, of which `lowest..highest` is a whole number, `a|b` a choice; [ ] may be left out; ... takes all that follows.
struct CommandForm {
  Verb verb;
  Phase phase;
  const char* grammar;
};

// What the world is made with, as against a command that does something.
inline bool IsSetting(const CommandForm& form) { return form.phase == Phase::kSetup && form.verb != Verb::kStart; }

std::span<const CommandForm> CommandForms();
// "bar top|bottom|left|right|floating": the form as a person writes it.
std::string Usage(const CommandForm& form);

struct CommandValue {
  std::string_view slot;  // lives as long as the table of forms
  std::string text;
  std::int64_t number = 0;
};

struct Command {
  const CommandForm* form = nullptr;
  int line = 0;
  std::vector<CommandValue> values;      // those that were given, each by the name of its slot
  std::vector<std::string> rest;         // what `...` took
  std::shared_ptr<const Command> inner;  // of `after` and of `macro`

  bool Has(std::string_view slot) const { return Find(slot) != nullptr; }
  // Empty, and `otherwise`, when it wasn't given.
  const std::string& Text(std::string_view slot) const;
  std::int64_t Number(std::string_view slot, std::int64_t otherwise = 0) const;

 private:
  const CommandValue* Find(std::string_view slot) const;
};

struct ParsedCommand {
  Command command;
  std::string error;  // empty when the command is right
};

// `words` isn't empty.
ParsedCommand ParseCommand(std::span<const SceneWord> words, int line);

// A whole scene, up to the first line that is wrong.
struct ParsedScene {
  std::vector<Command> commands;
  int errorLine = 0;
  std::string error;
};
ParsedScene ParseScene(std::string_view text);

// A whole number, decimal or 0x…, with an optional sign; false for anything else and for what leaves 64 bits.
bool ParseNumber(std::string_view text, std::int64_t& number);

// Milliseconds since 0001-01-01 of YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS; false when it isn't a day from 1900 to 9999.
bool ParseTime(std::string_view text, std::int64_t& milliseconds);

}  // namespace strandline::play
