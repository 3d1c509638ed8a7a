// strandline-host: plays scenes on a simulated Word with real windows, and the real DLL between.

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "play/call_list.h"
#include "play/command_line.h"
#include "play/journal_file.h"
#include "play/scene_file.h"
#include "play/scene_player.h"
#include "wordhost/host_session.h"
#include "wordhost/wall_watchdog.h"
//
#include "platform/win32/windows_api.h"

namespace {

using namespace strandline::play;
using namespace strandline::wordhost;

constexpr std::string_view kUsage =
    "usage: strandline-host play SCENE [--journal FILE] [--out DIR] [--dll PATH] [--calls FILE]";
// What follows is only there to be seen on the command line.
constexpr std::string_view kAppended = "--appended";
constexpr DWORD kLongestTurn = 10 * 60 * 1000;  // milliseconds that other runs may take

JournalFile theJournal;
RegistryEntries theRegistry;
std::optional<LibraryModule> theLibrary;
ScenePlayer* thePlayer = nullptr;

void Say(const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); }

// Leaves without taking the run down, but nothing stays in the registry.
[[noreturn]] void Leave(Outcome outcome) {
  theJournal.Flush();
  theRegistry.TakeAway();
  if (theLibrary) theLibrary->Unregister();
  std::fflush(nullptr);
  std::_Exit(static_cast<int>(outcome));
}

[[noreturn]] void LeaveWrong(const std::string& line) {
  Say(line);
  Leave(Outcome::kWrong);
}

template <class File>
void OpenOrLeave(File& file, const char* what, const std::string& path) {
  const std::string failure = file.Open(path);
  if (failure.empty()) return;
  LeaveWrong(std::string("strandline-host: can't write the ") + what + " " + path + " (" + failure +
             "); name a file that can be written");
}

std::string BesideThisProgram(const char* name) {
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string program = path;
  return program.substr(0, program.find_last_of('\\') + 1) + name;
}

// The same run in a process whose command line ends with that text, which the library then sees.
int RunWithCommandLine(const strandline::String& text) {
  std::wstring line = ::GetCommandLineW();
  line += L" --appended ";
  line += strandline::win32::Wide(text);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made)) {
    LeaveWrong("strandline-host: can't start itself with the scene's command line");
  }
  ::WaitForSingleObject(made.hProcess, INFINITE);
  DWORD code = 0;
  ::GetExitCodeProcess(made.hProcess, &code);
  return static_cast<int>(code);
}

// Registrations are the user's, so one run at a time has them.
class Turn {
 public:
  Turn() : mMutex(::CreateMutexW(nullptr, FALSE, L"StrandlineHost")) {
    if (::WaitForSingleObject(mMutex, kLongestTurn) == WAIT_TIMEOUT) {
      LeaveWrong("strandline-host: another run doesn't end; end it first");
    }
  }
  ~Turn() {
    ::ReleaseMutex(mMutex);
    ::CloseHandle(mMutex);
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  const HANDLE mMutex;
};

struct Apartment {
  Apartment() { ::OleInitialize(nullptr); }
  ~Apartment() { ::OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

Outcome Play(const SceneFile& scene, const CommandLine& line, CallList* calls) {
  WallWatchdog watchdog([](const std::string& last) {
    std::fputs(last.c_str(), stderr);
    Leave(Outcome::kStuck);
  });
  const SessionMaker make = [&](const SceneSettings& settings, bool keepLines) {
    const auto leaveWrong = [](const SceneError& error) { LeaveWrong(thePlayer->Describe(error)); };
    return std::make_unique<HostSession>(
        settings, HostSession::Surroundings{theRegistry, *theLibrary, theJournal, calls, leaveWrong}, keepLines);
  };
  ScenePlayer player(scene.scene, {line.scene, line.out}, make, watchdog);
  thePlayer = &player;
  std::vector<std::string> messages;
  const Outcome outcome = player.Play(messages);
  for (const std::string& message : messages) Say(message);
  if (player.Unchecked() > 0) {
    Say(line.scene + ": " + std::to_string(player.Unchecked()) + " expectations of lines that aren't heard here");
  }
  if (outcome >= Outcome::kWrong) Leave(outcome);
  thePlayer = nullptr;
  return outcome;
}

}  // namespace

int main(int count, char** words) {
  std::vector<const char*> own(words + (count > 0 ? 1 : 0), words + count);
  bool isAppended = false;
  for (std::size_t i = 0; i < own.size() && !isAppended; ++i) {
    isAppended = own[i] == kAppended;
    if (isAppended) own.resize(i);
  }
  CommandLine line = ParseCommandLine(own, {kUsage, {"--dll", "--calls"}});
  if (!line.error.empty()) LeaveWrong("strandline-host: " + line.error);
  const SceneFile scene = LoadScene(line.scene);
  if (!scene.error.empty()) LeaveWrong(scene.error);
  const strandline::String commandLine = SettingsOf(scene.scene).commandLine;
  if (!isAppended && !commandLine.IsEmpty()) return RunWithCommandLine(commandLine);

  OpenOrLeave(theJournal, "journal", line.journal);
  std::optional<CallList> calls;
  if (!line.further["--calls"].empty()) OpenOrLeave(calls.emplace(), "list of calls", line.further["--calls"]);
  const std::string& dll = line.further["--dll"];
  const Turn turn;
  const Apartment apartment;
  theLibrary.emplace(dll.empty() ? BesideThisProgram("strandline.dll") : dll);
  const Outcome outcome = Play(scene, line, calls ? &*calls : nullptr);
  theRegistry.TakeAway();
  if (!theJournal.Flush()) LeaveWrong("strandline-host: the journal " + line.journal + " couldn't be written whole");
  return static_cast<int>(outcome);
}
