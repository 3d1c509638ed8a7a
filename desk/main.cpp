// strandline-desk: plays scenes on a simulated Word, with the real library between.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "desk/command_line.h"
#include "desk/journal_file.h"
#include "desk/scene_player.h"

namespace {

using namespace strandline::deskprogram;

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
    Say(thePlayer->Describe(stuck));
    Leave(Outcome::kStuck);
  } catch (...) {
  }
  theJournal.Flush();
  std::abort();
}

std::string ReadScene(const std::string& path) {
  std::string text;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  char block[4096];
  for (std::size_t length = 1; file && length > 0;) {
    length = std::fread(block, 1, sizeof block, file);
    text.append(block, length);
  }
  if (!file || std::ferror(file)) {
    LeaveWrong(path + ":0: can't read the scene (" + std::strerror(errno) + "); give the path of a scene");
  }
  std::fclose(file);
  return text;
}

ParsedScene ParseOrLeave(const CommandLine& line) {
  ParsedScene scene = ParseScene(ReadScene(line.scene));
  if (!scene.error.empty()) LeaveWrong(line.scene + ":" + std::to_string(scene.errorLine) + ": " + scene.error);
  return scene;
}

}  // namespace

int main(int count, char** words) {
  const CommandLine line = ParseCommandLine({words + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)});
  if (!line.error.empty()) LeaveWrong("strandline-desk: " + line.error);
  const ParsedScene scene = ParseOrLeave(line);
  const std::string failure = theJournal.Open(line.journal);
  if (!failure.empty()) {
    LeaveWrong("strandline-desk: can't write the journal " + line.journal + " (" + failure +
               "); name a file that can be written");
  }

  Watchdog watchdog(&theJournal);
  ScenePlayer player(scene, {line.scene, line.out}, &theJournal, watchdog);
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
