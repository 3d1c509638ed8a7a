// Each thing that keeps the DLL, by itself. The server here is the one of this program, built from the same code, so
// that the things can be made without a client's object.

#include <gtest/gtest.h>

#include "foundation/vbwProtector.h"
#include "platform/win32/face.h"
#include "platform/win32/timer_procedures.h"
#include "platform/win32/win32_subclasser.h"
#include "server/server.h"
#include "tests/server/client.h"
#include "tests/win32/stage.h"

namespace strandline::servertest {

using server::Server;

namespace {

namespace timer_procedures = win32::timer_procedures;

constexpr Long kTimer = 4711;

class Idle : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Server::CanUnloadNow(), S_OK); }
  void TearDown() override { EXPECT_EQ(Server::CanUnloadNow(), S_OK); }

  static void BeginLoad() {
    ComRef<IClassFactory> factory;
    ASSERT_EQ(Server::GetClassObject(CLSID_Main2, IID_IClassFactory, factory.PutVoid()), S_OK);
  }
};

HRESULT within = E_FAIL;
std::size_t setWithin = 0;
void AskWithin(Long hwnd, Long, Long id, Long) {
  timer_procedures::Set(hwnd, id, nullptr);
  setWithin = timer_procedures::Count();
  within = Server::CanUnloadNow();
}
void AskAndThrow(Long hwnd, Long message, Long id, Long time) {
  AskWithin(hwnd, message, id, time);
  Raise(errors::kOverflow);
}

}  // namespace

TEST_F(Idle, ATimersProcedureThatRuns_Keeps_EvenWithoutItsTimer) {
  for (const TimerProc procedure : {&AskWithin, &AskAndThrow}) {
    BeginLoad();
    within = E_FAIL;
    timer_procedures::Set(0, kTimer, procedure);
    timer_procedures::OnTimer(nullptr, WM_TIMER, kTimer, 0);
    EXPECT_EQ(within, S_FALSE);
    EXPECT_EQ(setWithin, 0u);
    EXPECT_EQ(Server::CanUnloadNow(), S_OK);
  }
}

TEST_F(Idle, ATimerKeeps_UntilItsWindowDies) {
  for (const bool isKilled : {true, false}) {
    BeginLoad();
    win32test::TestWindow window;
    timer_procedures::Set(window.Hwnd(), kTimer, &AskWithin);
    EXPECT_EQ(Server::CanUnloadNow(), S_FALSE);
    if (isKilled) {
      timer_procedures::Set(window.Hwnd(), kTimer, nullptr);
    } else {
      window.Destroy();
    }
    EXPECT_EQ(Server::CanUnloadNow(), S_OK);
  }
}

TEST_F(Idle, AHookKeeps) {
  BeginLoad();
  const win32test::TestWindow window;
  const Ref<Subclasser> hook = win32::Win32Subclassers().Create();
  hook->Subclass(window.Hwnd());
  EXPECT_EQ(Server::CanUnloadNow(), S_FALSE);
  hook->Unsubclass();
  EXPECT_EQ(Server::CanUnloadNow(), S_OK);
}

TEST_F(Idle, AFaceAndALockKeep) {
  BeginLoad();
  {
    const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
    const ComRef<IDispatch> face = Outside(object);
    EXPECT_EQ(Server::CanUnloadNow(), S_FALSE);
  }
  Server::Lock(true);
  EXPECT_EQ(Server::CanUnloadNow(), S_FALSE);
  Server::Lock(false);
  EXPECT_EQ(Server::CanUnloadNow(), S_OK);
}

// Outsiders are given variables of that module by reference; what they leave there tells nothing about what runs.
TEST_F(Idle, ACountOfProceduresThatIsWrong_DoesntKeep) {
  BeginLoad();
  vbwProtector::variables.mStackCalls = 3;
  EXPECT_EQ(Server::CanUnloadNow(), S_OK);
  EXPECT_EQ(vbwProtector::variables.mStackCalls, 0);
}

}  // namespace strandline::servertest
