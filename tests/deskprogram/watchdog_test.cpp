#include "desk/watchdog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "play/journal_file.h"

namespace strandline::deskprogram {
namespace {

using play::JournalFile;

void ComputeForEver() {
  volatile unsigned steps = 0;
  for (;;) steps = steps + 1;
}

TEST(Watchdog_ACommandThatComputesForEver, EndsTheProcessAndKeepsTheJournal) {
  const std::string path = testing::TempDir() + "strandline_watchdog.jsonl";
  const auto run = [&] {
    JournalFile file;
    if (!file.Open(path).empty()) std::exit(99);
    file.WriteLine("first");
    CpuWatchdog watchdog(&file, std::chrono::milliseconds{20});
    CpuWatchdog::Watch outer(watchdog, "a.scene:4");
    { CpuWatchdog::Watch inner(watchdog, "a.scene:7"); }
    ComputeForEver();
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(3),
              "^a.scene:4: stuck: this command has been computing for more than 20 milliseconds\n$");
  std::ifstream file(path);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "first\n");
  std::filesystem::remove(path);
}

TEST(Watchdog_ACommandInsideAnother, IsTheOneThatIsNamed) {
  const auto run = [] {
    CpuWatchdog watchdog(nullptr, std::chrono::milliseconds{1000});
    CpuWatchdog::Watch outer(watchdog, "a.scene:4");
    CpuWatchdog shorter(nullptr, std::chrono::milliseconds{20});
    CpuWatchdog::Watch inner(shorter, "a.scene:7");
    ComputeForEver();
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(3), "^a.scene:7: stuck: ");
}

TEST(Watchdog_WithoutACommand, NeverBites) {
  CpuWatchdog watchdog(nullptr, std::chrono::milliseconds{1});
  { CpuWatchdog::Watch watch(watchdog, "a.scene:1"); }
  volatile unsigned steps = 0;
  while (steps < 50'000'000) steps = steps + 1;
}

TEST(JournalFile_LinesOfAnyLength, ArriveWholeAndInOrder) {
  const std::string path = testing::TempDir() + "strandline_journal_file.jsonl";
  std::string expected;
  {
    JournalFile file;
    ASSERT_EQ(file.Open(path), "");
    for (std::size_t length : {0u, 1u, 65535u, 65536u, 10u, 200000u, 65534u, 3u}) {
      const std::string line(length, static_cast<char>('a' + length % 26));
      file.WriteLine(line);
      expected += line + "\n";
    }
    EXPECT_TRUE(file.Flush());
  }
  std::ifstream file(path);
  EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(file), {}) == expected);
  std::filesystem::remove(path);
}

TEST(JournalFile_APathThatCantBeWritten, IsToldInTheSystemsWords) {
  JournalFile file;
  EXPECT_EQ(file.Open("/nowhere/at/all.jsonl"), "No such file or directory");
  file.WriteLine("goes nowhere");
}

}  // namespace
}  // namespace strandline::deskprogram
