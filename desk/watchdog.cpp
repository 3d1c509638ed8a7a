#include "desk/watchdog.h"

#include <signal.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "desk/journal_file.h"

namespace strandline::deskprogram {

namespace {

// What the signal handler needs, in a form that it may touch at any time.
char theMessage[1024];
volatile std::size_t theLength = 0;
JournalFile* volatile theJournal = nullptr;

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

Watchdog::Watchdog(JournalFile* journal, std::chrono::milliseconds limit) : mLimit(limit) {
  theJournal = journal;
  struct sigaction action = {};
  action.sa_handler = OnLimit;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  sigaction(SIGPROF, &action, nullptr);
}

Watchdog::~Watchdog() {
  Begin("");
  theJournal = nullptr;
}

void Watchdog::Begin(const std::string& message) {
  SetTimer(std::chrono::milliseconds{0});
  theLength = 0;
  mMessage = message;
  const std::size_t length = std::min(message.size(), sizeof theMessage);
  std::memcpy(theMessage, message.data(), length);
  theLength = length;
  if (length > 0) SetTimer(mLimit);
}

Watchdog::Watch::Watch(Watchdog& watchdog, const std::string& where) : mWatchdog(watchdog), mOuter(watchdog.mMessage) {
  const auto limit = mWatchdog.mLimit.count();
  const std::string span =
      limit % 1000 == 0 ? std::to_string(limit / 1000) + " seconds" : std::to_string(limit) + " milliseconds";
  mWatchdog.Begin(where.substr(0, 900) + ": stuck: this command has been computing for more than " + span + "\n");
}

Watchdog::Watch::~Watch() { mWatchdog.Begin(mOuter); }

}  // namespace strandline::deskprogram
