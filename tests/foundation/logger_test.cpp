#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>

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

// From now on the process ends at the first opening of a file or a connection, wherever that is.
void ForbidOpening() {
  static constexpr long kForbidden[] = {SYS_openat, SYS_openat2, SYS_socket,
#ifdef SYS_open
                                        SYS_open, SYS_creat
#endif
  };
  std::vector<sock_filter> program = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const long call : kForbidden) {
    program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 1));
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS));
  }
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog all{static_cast<unsigned short>(program.size()), program.data()};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &all) != 0) _exit(2);
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

TEST_F(Logger, OpensNoFileAnywhere) {
  const auto logs = [] {
    ForbidOpening();
    CommonLogger::OpenLog(0, u"Quillmere", u"strandline", u"Morvane");
    for (Long level = 0; level < 3; ++level) {
      for (Long i = 0; i < 1000; ++i) Log(Joined(u"message ", i), level, true, i);
    }
    CommonLogger::CloseLog(-1);
    _exit(0);
  };
  EXPECT_EXIT(logs(), testing::ExitedWithCode(0), "");
  const auto opens = [] {
    ForbidOpening();
    open("/dev/null", O_RDONLY);
    _exit(0);
  };
  EXPECT_EXIT(opens(), testing::KilledBySignal(SIGSYS), "") << "what opens a file is found";
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
