#include "desk/watchdog.h"

#include <signal.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "play/journal_file.h"

namespace strandline::deskprogram {

namespace {

// What the signal handler needs, in a form that it may touch at any time.
char theMessage[1024];
volatile std::size_t theLength = 0;
play::JournalFile* volatile theJournal = nullptr;

extern "C" void OnLimit(int) {
  if (theLength == 0) return;
  if (theJournal) theJournal->FlushFromSignal();
  const ssize_t written = write(STDERR_FILENO, theMessage, theLength);
  (void)written;
  _exit(3);
}

void SetTimer(std::chrono::milliseconds limit) {
  itimerval timer{};
  timer.it_value.tv_sec = static_cast<time_t>(limit.count() / 1000);
  timer.it_value.tv_usec = static_cast<suseconds_t>(limit.count() % 1000 * 1000);
  setitimer(ITIMER_PROF, &timer, nullptr);
}

}  // namespace

CpuWatchdog::CpuWatchdog(play::JournalFile* journal, std::chrono::milliseconds limit) : Watchdog(limit, "computing") {
  theJournal = journal;
  struct sigaction action = {};
  action.sa_handler = OnLimit;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  sigaction(SIGPROF, &action, nullptr);
}

CpuWatchdog::~CpuWatchdog() {
  CpuWatchdog::Begin("");
  theJournal = nullptr;
}

void CpuWatchdog::Begin(const std::string& message) {
  SetTimer(std::chrono::milliseconds{0});
  theLength = 0;
  const std::size_t length = std::min(message.size(), sizeof theMessage);
  std::memcpy(theMessage, message.data(), length);
  theLength = length;
  if (length > 0) SetTimer(Limit());
}

}  // namespace strandline::deskprogram
