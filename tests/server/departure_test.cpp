// The DLL goes without having been asked whether it may. Each case is a process of its own, the tests' program once
// more, whose exit code tells: what is left behind then can't be tidied up, and a fault would take the tests with it.

#include <gtest/gtest.h>

#include <string>

#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

constexpr UINT kTouched = 9;

// From now on a call of the object, be it a release, ends the process with that code.
void EndAtATouch(Watched& object) {
  object.onTouch = [] { ::TerminateProcess(::GetCurrentProcess(), kTouched); };
}

// Objects of this process in each place where the library keeps some, for good.
struct Left {
  Dll& dll = *new Dll;
  PlayedProduct& product = *new PlayedProduct;
  Watched& word = *new Watched(product.word);
  Watched& properties = *new Watched(product.properties);
  Watched& productState = *new Watched(product.productState);
  ComRef<_Main2>& main = *new ComRef<_Main2>(dll.NewMain2());

  void Initialize() const {
    ASSERT_EQ(InitializeWith(*main.get(), &word, &properties, &productState), S_OK);
    for (const Watched* object : {&word, &properties, &productState}) ASSERT_GT(object->owners, 1u);
  }
  // The product's last reference goes, and the library keeps what it was given after its end.
  void LetGoAfterQuit() const {
    ASSERT_EQ(main->Quit(), S_OK);
    Initialize();
    main = {};
    ASSERT_GT(word.owners, 1u);
  }
  void Watch() const {
    for (Watched* object : {&word, &properties, &productState}) EndAtATouch(*object);
  }
  void Free() const {
    Watch();
    ASSERT_TRUE(::FreeLibrary(dll.Module()));
    ASSERT_EQ(::GetModuleHandleW(L"strandline.dll"), nullptr);
  }
};

// The exit code of this program with one test, which it runs only when told to.
DWORD ExitCodeOf(const std::wstring& test) {
  wchar_t program[1024];
  ::GetModuleFileNameW(nullptr, program, 1024);
  std::wstring line = L"\"" + std::wstring(program) +
                      L"\" --gtest_also_run_disabled_tests --gtest_filter=InItsOwnProcess.DISABLED_" + test;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!::CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                        &process)) {
    return ~DWORD{0};
  }
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = ~DWORD{0};
  ::GetExitCodeProcess(process.hProcess, &code);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return code;
}

}  // namespace

TEST(InItsOwnProcess, DISABLED_FreedWithMain2Alive) {
  const Left left;
  left.Initialize();
  left.Free();
}
TEST(InItsOwnProcess, DISABLED_FreedAfterAnotherInitialize) {
  const Left left;
  left.LetGoAfterQuit();
  left.Free();
}
TEST(InItsOwnProcess, DISABLED_EndedWithMain2Alive) {
  const Left left;
  left.Initialize();
  left.Watch();
}
TEST(InItsOwnProcess, DISABLED_EndedAfterAnotherInitialize) {
  const Left left;
  left.LetGoAfterQuit();
  left.Watch();
}
TEST(InItsOwnProcess, DISABLED_TouchedAtItsEnd) {
  const Left left;
  left.Initialize();
  left.Watch();
  left.main = {};
}

TEST(Departure, CallsNothingOutside) {
  for (const wchar_t* test : {L"FreedWithMain2Alive", L"FreedAfterAnotherInitialize", L"EndedWithMain2Alive",
                              L"EndedAfterAnotherInitialize"}) {
    EXPECT_EQ(ExitCodeOf(test), 0u) << test;
  }
  EXPECT_EQ(ExitCodeOf(L"TouchedAtItsEnd"), kTouched) << "nothing would be noticed";
}

}  // namespace strandline::servertest
