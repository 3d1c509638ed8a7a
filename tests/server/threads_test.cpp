// Several threads at the DLL's entries. A load belongs to one of them.

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

// A thread with COM on it, which does `work`.
class Thread {
 public:
  explicit Thread(std::function<void()> work)
      : mWork(std::move(work)), mHandle(::CreateThread(nullptr, 0, &Thread::Run, this, 0, nullptr)) {}
  ~Thread() {
    Join();
    ::CloseHandle(mHandle);
  }
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;
  void Join() const { ::WaitForSingleObject(mHandle, INFINITE); }

 private:
  static DWORD WINAPI Run(void* given) {
    ::OleInitialize(nullptr);
    static_cast<Thread*>(given)->mWork();
    ::OleUninitialize();
    return 0;
  }

  std::function<void()> mWork;
  HANDLE mHandle;
};

class Event {
 public:
  Event() : mHandle(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
  ~Event() { ::CloseHandle(mHandle); }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  void Set() const { ::SetEvent(mHandle); }
  void Wait() const { ::WaitForSingleObject(mHandle, INFINITE); }

 private:
  HANDLE mHandle;
};

HRESULT AskForClassObject(const Dll& dll) {
  ComRef<IClassFactory> factory;
  return dll.GetClassObject(CLSID_Main2, IID_IClassFactory, factory.PutVoid());
}

}  // namespace

TEST(Threads, AnotherOneIsRefused_InUseOrNot) {
  const Dll dll;
  for (const bool inUse : {true, false}) {
    ComRef<_Main2> main = dll.NewMain2();
    if (!inUse) main = {};
    HRESULT made = S_OK;
    HRESULT mayGo = S_OK;
    const Thread thread([&] {
      made = AskForClassObject(dll);
      mayGo = dll.CanUnloadNow();
    });
    thread.Join();
    EXPECT_EQ(made, RPC_E_WRONG_THREAD);
    EXPECT_EQ(mayGo, S_FALSE);
    main = {};
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  }
}

TEST(Threads, AClassObjectOnTheWrongOneMakesNothing) {
  const Dll dll;
  const ComRef<IClassFactory> factory = dll.Factory(CLSID_RibbonEvents);
  HRESULT made = S_OK;
  void* object = &object;
  const Thread thread([&] { made = factory->CreateInstance(nullptr, IID_IUnknown, &object); });
  thread.Join();
  EXPECT_EQ(made, RPC_E_WRONG_THREAD);
  EXPECT_EQ(object, nullptr);
}

// The objects that a load holds when its thread ends are never touched from another thread.
TEST(Threads, AfterItsEnd_TheNextOneBeginsAnew) {
  for (const bool isHeld : {true, false}) {
    const Dll dll;
    auto& word = *new Watched(PlayedProduct().word);  // for good, as what holds it stays behind
    {
      const Thread thread([&] {
        auto& main = *new ComRef<_Main2>(dll.NewMain2());
        ASSERT_EQ(main->Quit(), S_OK);
        ASSERT_EQ(InitializeWith(*main.get(), &word, &word, &word), S_OK);
        if (!isHeld) main = {};
      });
    }
    const ULONG owners = word.owners;
    ASSERT_GT(owners, 1u);
    int touches = 0;
    word.onTouch = [&] { ++touches; };
    {
      PlayedProduct product;
      const ComRef<_Main2> main = dll.NewMain2();
      EXPECT_EQ(product.Initialize(*main.get()), S_OK);
      EXPECT_EQ(main->UseQuillmere(), S_OK);
      EXPECT_EQ(product.commands.size(), 1u);
      EXPECT_EQ(main->Quit(), S_OK);
    }
    EXPECT_EQ(dll.CanUnloadNow(), isHeld ? S_FALSE : S_OK);
    EXPECT_EQ(touches, 0);
    EXPECT_EQ(word.owners, owners);
    word.onTouch = nullptr;
  }
}

TEST(Threads, AfterItsEnd_TheDllMayGo) {
  const Dll dll;
  auto& word = *new Watched(PlayedProduct().word);
  {
    const Thread thread([&] {
      const ComRef<_Main2> main = dll.NewMain2();
      main->Quit();
      InitializeWith(*main.get(), &word, &word, &word);
    });
  }
  const ULONG owners = word.owners;
  ASSERT_GT(owners, 1u);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  EXPECT_EQ(word.owners, owners);
}

TEST(Threads, OfTwoThatComeAtOnce_OneGetsIn) {
  for (int round = 0; round < 30; ++round) {
    const Dll dll;
    const Event go;
    const Event over;
    std::vector<HRESULT> outcomes(2, E_FAIL);
    std::vector<HRESULT> goings(2, E_FAIL);
    const Event done[2];
    const auto work = [&](std::size_t at) {
      go.Wait();
      outcomes[at] = AskForClassObject(dll);
      done[at].Set();
      over.Wait();
      goings[at] = dll.CanUnloadNow();
    };
    {
      const Thread first([&] { work(0); });
      const Thread second([&] { work(1); });
      go.Set();
      done[0].Wait();
      done[1].Wait();
      over.Set();
    }
    const bool isFirst = outcomes[0] == S_OK;
    EXPECT_EQ(outcomes[isFirst ? 0 : 1], S_OK);
    const HRESULT refused = outcomes[isFirst ? 1 : 0];
    EXPECT_TRUE(refused == RPC_E_WRONG_THREAD || refused == CO_E_SERVER_STOPPING) << std::hex << refused;
    EXPECT_EQ(goings[isFirst ? 0 : 1], S_OK);
  }
}

// Counted from two threads at once, so many times that a lost one would show.
TEST(Threads, LocksAreCountedFromAnyOfThem) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  constexpr int kTimes = 20'000;
  const auto lock = [&](BOOL which) {
    for (int i = 0; i < kTimes; ++i) factory->LockServer(which);
  };
  {
    const Thread first([&] { lock(TRUE); });
    const Thread second([&] { lock(TRUE); });
  }
  {
    const Thread first([&] { lock(FALSE); });
    for (int i = 0; i < kTimes - 1; ++i) factory->LockServer(FALSE);
  }
  ComRef<IClassFactory> last = std::move(factory);
  last = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  dll.Factory(CLSID_Main2)->LockServer(FALSE);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

}  // namespace strandline::servertest
