// strandline-desk: plays scenes on a simulated Word, with the real library between.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/desk_session.h"
#include "desk/watchdog.h"
#include "platform/desk/stuck.h"
#include "play/call_list.h"
#include "play/command_line.h"
#include "play/journal_file.h"
#include "play/scene_file.h"
#include "play/scene_player.h"

namespace {

using namespace strandline::play;

constexpr std::string_view kUsage = "usage: strandline-desk play SCENE [--journal FILE] [--out DIR] [--calls FILE]";

JournalFile theJournal;
ScenePlayer* thePlayer = nullptr;

void Say(const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); }

// Leaves without taking the run down: of one that is stuck or wrong, nothing can be asked any more.
[[noreturn]] void Leave(Outcome outcome) {
  theJournal.Flush();
  std::fflush(nullptr);
  std::_Exit(static_cast<int>(outcome));
}

[[noreturn]] void LeaveWrong(const std::string& line) {
  Say(line);
  Leave(Outcome::kWrong);
}

// The run may get stuck, and a scene turn out wrong, where nothing can be thrown on: while an object ends.
[[noreturn]] void OnTerminate() {
  try {
    if (std::current_exception() && thePlayer) std::rethrow_exception(std::current_exception());
  } catch (const SceneError& error) {
    LeaveWrong(thePlayer->Describe(error));
  } catch (const strandline::desk::Stuck& stuck) {
    Say(thePlayer->DescribeStuck(stuck.where));
    Leave(Outcome::kStuck);
  } catch (...) {
  }
  theJournal.Flush();
  std::abort();
}

template <class File>
void OpenOrLeave(File& file, const char* what, const std::string& path) {
  const std::string failure = file.Open(path);
  if (failure.empty()) return;
  LeaveWrong(std::string("strandline-desk: can't write the ") + what + " " + path + " (" + failure +
             "); name a file that can be written");
}

}  // namespace

int main(int count, char** words) {
  const CommandLine line =
      ParseCommandLine({words + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)}, {kUsage, {"--calls"}});
  if (!line.error.empty()) LeaveWrong("strandline-desk: " + line.error);
  const SceneFile scene = LoadScene(line.scene);
  if (!scene.error.empty()) LeaveWrong(scene.error);
  OpenOrLeave(theJournal, "journal", line.journal);
  std::optional<CallList> calls;
  if (const auto given = line.further.find("--calls"); given != line.further.end()) {
    OpenOrLeave(calls.emplace(), "list of calls", given->second);
  }

  strandline::deskprogram::CpuWatchdog watchdog(&theJournal);
  const SessionMaker make = [&](const SceneSettings& settings, bool keepLines) {
    return std::make_unique<strandline::deskprogram::DeskSession>(settings, &theJournal, keepLines,
                                                                  calls ? &*calls : nullptr);
  };
  ScenePlayer player(scene.scene, {line.scene, line.out}, make, watchdog);
  thePlayer = &player;
  std::set_terminate(OnTerminate);
  std::vector<std::string> messages;
  const Outcome outcome = player.Play(messages);
  for (const std::string& message : messages) Say(message);
  if (!theJournal.Flush() && outcome < Outcome::kWrong) {
    LeaveWrong("strandline-desk: the journal " + line.journal + " couldn't be written whole; make room for it");
  }
  if (outcome >= Outcome::kWrong) Leave(outcome);
  thePlayer = nullptr;
  return static_cast<int>(outcome);
}
