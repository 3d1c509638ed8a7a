// The test program of the mutants' build. It takes orders line by line and answers each with a line; every run is a
// fork of the process as it was before the first test.
//
//   list                       NAME for each test, then "."
//   probe NAME                 passed|failed|crashed|timeout CPU-MICROSECONDS ID…     what one test comes past
//   run ID NAME:MILLISECONDS…  CPU-MICROSECONDS survived | failed NAME | crashed NAME | timeout NAME; each test has at
//                              most so much time

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "tools/mutation/mutants.h"

namespace strandline_mutants {
int active = 0;
unsigned char* reached = nullptr;
}  // namespace strandline_mutants

namespace {

struct Shared {
  int current;
  unsigned char reached[strandline_mutants::kMost];
};

Shared* shared = nullptr;

enum Ending { kPassed = 0, kFailed = 41 };

// The first failure decides.
class StopAtFailure : public testing::EmptyTestEventListener {
  void OnTestPartResult(const testing::TestPartResult& result) override {
    if (result.failed()) _exit(kFailed);
  }
};

constexpr int kWallFactor = 12;  // a loaded machine is slower than its processor time tells
constexpr int kWallSeconds = 15;

void LimitTime(int milliseconds) {
  itimerval cpu{};
  cpu.it_value.tv_sec = milliseconds / 1000;
  cpu.it_value.tv_usec = milliseconds % 1000 * 1000 + 1;
  setitimer(ITIMER_PROF, &cpu, nullptr);
  alarm(kWallSeconds + kWallFactor * milliseconds / 1000);
}

bool Passes(const std::string& test, int milliseconds) {
  GTEST_FLAG_SET(filter, test);
  LimitTime(milliseconds);
  return RUN_ALL_TESTS() == 0;
}

long MicrosecondsOfProcess() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return now.tv_sec * 1000000L + now.tv_nsec / 1000;
}

struct Outcome {
  std::string word;
  long microseconds;
};

// Runs the body in a process of its own, and clears away what that may have started.
template <class Body>
Outcome InFork(Body body) {
  const pid_t child = fork();
  if (child == 0) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // a run that is stopped leaves nothing behind
    const int nowhere = open("/dev/null", O_RDWR);
    for (int stream : {0, 1, 2}) dup2(nowhere, stream);
    const rlimit memory{6ul << 30, 6ul << 30};
    setrlimit(RLIMIT_AS, &memory);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    _exit(body() ? kPassed : kFailed);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  kill(-child, SIGKILL);
  const long spent =
      (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000000L + usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
  if (WIFEXITED(status)) {
    const int code = WEXITSTATUS(status);
    return {code == kPassed ? "passed" : code == kFailed ? "failed" : "crashed", spent};
  }
  const bool late = WTERMSIG(status) == SIGPROF || WTERMSIG(status) == SIGALRM;
  return {late ? "timeout" : "crashed", spent};
}

void List() {
  const testing::UnitTest& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      std::cout << suite.name() << "." << suite.GetTestInfo(j)->name() << "\n";
    }
  }
  std::cout << "." << std::endl;
}

void Probe(const std::string& test) {
  constexpr int kPatience = 300000;
  std::fill_n(shared->reached, strandline_mutants::kMost, 0);
  const Outcome outcome = InFork([&] {
    const long before = MicrosecondsOfProcess();
    const bool passes = Passes(test, kPatience);
    shared->current = static_cast<int>(MicrosecondsOfProcess() - before);
    return passes;
  });
  std::cout << outcome.word << " " << std::max<long>(shared->current, outcome.microseconds);
  for (int id = 0; id < strandline_mutants::kMost; ++id) {
    if (shared->reached[id]) std::cout << " " << id;
  }
  std::cout << std::endl;
}

void Run(std::istringstream& words) {
  int id = 0;
  words >> id;
  std::vector<std::pair<std::string, int>> tests;
  for (std::string word; words >> word;) {
    const std::size_t colon = word.rfind(':');
    tests.emplace_back(word.substr(0, colon), std::stoi(word.substr(colon + 1)));
  }
  shared->current = 0;
  const Outcome outcome = InFork([&] {
    strandline_mutants::active = id;
    for (const auto& [test, milliseconds] : tests) {
      if (!Passes(test, milliseconds)) return false;
      ++shared->current;
    }
    return true;
  });
  std::cout << outcome.microseconds << " ";
  if (outcome.word == "passed") {
    std::cout << "survived" << std::endl;
  } else {
    std::cout << outcome.word << " " << tests[static_cast<std::size_t>(shared->current)].first << std::endl;
  }
}

}  // namespace

int main(int argc, char** argv) {
  // Set before any object of the library's begins; tests come later.
  testing::InitGoogleTest(&argc, argv);
  testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
  delete listeners.Release(listeners.default_result_printer());
  listeners.Append(new StopAtFailure);
  std::ios::sync_with_stdio(false);
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream words(line);
    std::string order;
    words >> order;
    if (order == "list") {
      List();
    } else if (order == "probe") {
      std::string test;
      words >> test;
      Probe(test);
    } else if (order == "run") {
      Run(words);
    }
  }
}

// Namespace-scope objects of the library come past switches before main begins.
[[gnu::constructor(101)]] static void MakeRoom() {
  shared =
      static_cast<Shared*>(mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  strandline_mutants::reached = shared->reached;
}
