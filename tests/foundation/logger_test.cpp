#include <filesystem>

#include "foundation/CommonLogger.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/foundation/told.h"
#include "tests/support/allocations.h"

namespace strandline {
namespace {

class Hearing final : public LogObserver {
 public:
  void OnLog(TextView message, Long level) override { log.push_back(std::to_string(level) + " " + ToUtf8(message)); }
  LogLines log;
};

// An empty folder to stand in, and everything in it afterwards.
class EmptyFolder {
 public:
  EmptyFolder() : mBefore(std::filesystem::current_path()) {
    mFolder = std::filesystem::path(testing::TempDir()) / "strandline_logger_test";
    std::filesystem::remove_all(mFolder);
    std::filesystem::create_directories(mFolder);
    std::filesystem::current_path(mFolder);
  }
  ~EmptyFolder() {
    std::filesystem::current_path(mBefore);
    std::filesystem::remove_all(mFolder);
  }
  std::size_t Files() const {
    const std::filesystem::recursive_directory_iterator files(mFolder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

 private:
  std::filesystem::path mBefore;
  std::filesystem::path mFolder;
};

std::size_t OpenFiles() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

class Logger : public FoundationTest {
 protected:
  Logger() { CommonLogger::variables = {}; }
  ~Logger() override {
    CommonLogger::variables = {};
    CommonLogger::observer = nullptr;
  }
  std::string Address() {
    ToldVariables told;
    CommonLogger::ReportModule(told);
    return told.OneLine();
  }
};

TEST_F(Logger, Open_DerivesAnAddressFromTheCompanyInLowerCase) {
  EXPECT_EQ(Address(), "mWebsiteAddress=''");
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"MorVANE");
  const std::string address = ToUtf8(CommonLogger::variables.mWebsiteAddress);
  EXPECT_EQ(Address(), "mWebsiteAddress='" + address + "'");
  const std::size_t company = address.find("morvane");
  ASSERT_NE(company, std::string::npos) << address;
  EXPECT_NE(address.substr(0, company).find("://"), std::string::npos) << address;
  EXPECT_NE(address.substr(company).find('.'), std::string::npos) << address;
}

TEST_F(Logger, Open_GoesByTheCompanyAlone) {
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
  const String address = CommonLogger::variables.mWebsiteAddress;
  CommonLogger::variables = {};
  CommonLogger::OpenLog(2, u"Other", u"prefix", u"mORVANE");
  EXPECT_EQ(CommonLogger::variables.mWebsiteAddress, address);
  CommonLogger::variables = {};
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Other");
  EXPECT_NE(CommonLogger::variables.mWebsiteAddress, address);
}

TEST_F(Logger, OpenedTwice_KeepsTheFirstAddress) {
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
  const String address = CommonLogger::variables.mWebsiteAddress;
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Other");
  EXPECT_EQ(CommonLogger::variables.mWebsiteAddress, address);
  CommonLogger::CloseLog(-1);
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Other");
  EXPECT_EQ(CommonLogger::variables.mWebsiteAddress, address);
}

TEST_F(Logger, LogBeforeOpeningAndAfterClosing_DoesNothing) {
  Log(u"before", CommonLogger::kFailure);
  EXPECT_EQ(Address(), "mWebsiteAddress=''");
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
  const std::string address = Address();
  CommonLogger::CloseLog(-1);
  Log(u"after", CommonLogger::kFailure);
  CommonLogger::CloseLog(7);
  EXPECT_EQ(Address(), address);
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(variables.mStackCalls, 0);
}

TEST_F(Logger, Log_MakesNoFileAndOpensNone) {
  const EmptyFolder folder;
  const std::size_t open = OpenFiles();
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
  for (Long level = 0; level < 3; ++level) {
    for (Long i = 0; i < 1000; ++i) Log(Joined(u"message ", i), level, true, i);
  }
  EXPECT_EQ(OpenFiles(), open);
  CommonLogger::CloseLog(-1);
  EXPECT_EQ(folder.Files(), 0u);
}

TEST_F(Logger, Log_TakesNoMemory) {
  const String text = u"a text";
  const std::size_t before = AllocationsSoFar();
  Log(u"HandleMouseMove");
  Log(Joined(u"a ", text, u" at ", Hex{255}, u" and ", Long{12}, Integer{-3}, true), CommonLogger::kNoteworthy);
  const std::size_t after = AllocationsSoFar();
  EXPECT_EQ(after, before);
  // The counter counts.
  const String fresh = Concat({text, text});
  EXPECT_GT(AllocationsSoFar(), after);
}

TEST_F(Logger, Observer_HearsMessagesAndLevels) {
  Hearing hearing;
  CommonLogger::observer = &hearing;
  Log(u"Quit", CommonLogger::kNoteworthy);
  Log(Joined(u"hwnd ", Hex{-1}, u", ", Hex{0x1A2}, u", ", Long{-5}, u", ", Integer{6}, u", ", String(u"t"), u", ", true,
             false));
  Log(u"", CommonLogger::kFailure);
  CommonLogger::observer = nullptr;
  Log(u"unheard");
  EXPECT_EQ(hearing.log, (LogLines{"1 Quit", "0 hwnd FFFFFFFF, 1A2, -5, 6, t, TrueFalse", "2 "}));
}

TEST_F(Logger, Trace_NamesTheArguments) {
  LoadWithTrace();
  ToldProcedures told;
  CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
  Log(u"plain");
  Log(Joined(u"hwnd ", Hex{255}), CommonLogger::kFailure, true, 4);
  CommonLogger::CloseLog(-1);
  EXPECT_EQ(Lines(told.calls),
            "CommonLogger.OpenLog(level=0 productName='Quillmere' logPrefix='strandline' companyName='Morvane')\n"
            "CommonLogger.Log(str='plain' level=0 outputTime=False instanceId=-1)\n"
            "CommonLogger.Log(str='hwnd FF' level=2 outputTime=True instanceId=4)\n"
            "CommonLogger.CloseLog(instanceId=-1)\n");
}

}  // namespace
}  // namespace strandline
