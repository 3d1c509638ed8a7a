// Modules that have code, of which none may run.

#include <gtest/gtest.h>

#include "platform/win32/handle_map.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

constexpr wchar_t kNoise[] = L"STRANDLINE_NOISE";

// The noisy module, which the build puts beside the program; gone quiet.
class Noisy {
 public:
  Noisy() {
    ::SetEnvironmentVariableW(kNoise, nullptr);
    wchar_t program[MAX_PATH + 1] = L"";
    const DWORD length = ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const TextView path(reinterpret_cast<const char16_t*>(program), length);
    mPath = Concat({path.substr(0, path.find_last_of(u'\\') + 1), u"noisy.dll"});
  }
  const String& Path() const { return mPath; }
  bool IsHeard() const { return ::GetEnvironmentVariableW(kNoise, nullptr, 0) != 0; }

 private:
  String mPath;
};

}  // namespace

TEST(Modules, OfAModuleWithCode_TheResourcesAreReadAndTheCodeDoesntRun) {
  Stage stage;
  const Noisy noisy;
  Modules& modules = platform::Modules();
  const Long module = modules.LoadLibraryA(noisy.Path());
  ASSERT_NE(module, 0);
  const Long resource = modules.FindResourceA(module, 102, u"CUSTOM");
  EXPECT_GT(modules.SizeofResource(module, resource), 0);
  const Byte* const bytes = modules.LockResource(modules.LoadResource(module, resource));
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(bytes[0], 'G');  // a GIF
  EXPECT_NE(modules.FreeLibrary(module), 0);
  EXPECT_FALSE(noisy.IsHeard());
}

TEST(Modules, OneThatRunsAlready_IsLoadedAndFreedAsOftenAsAsked) {
  Stage stage;
  const Noisy noisy;
  const HMODULE running = ::LoadLibraryW(win32::Wide(noisy.Path()));
  ASSERT_NE(running, nullptr);
  EXPECT_TRUE(noisy.IsHeard());
  Modules& modules = platform::Modules();
  const Long first = modules.LoadLibraryA(noisy.Path());
  const Long second = modules.LoadLibraryA(noisy.Path());
  EXPECT_NE(first, second);
  const Long resource = modules.FindResourceA(second, 102, u"CUSTOM");
  EXPECT_NE(modules.FreeLibrary(first), 0);
  EXPECT_GT(modules.SizeofResource(second, resource), 0);
  EXPECT_NE(modules.FreeLibrary(second), 0);
  EXPECT_EQ(modules.FreeLibrary(second), 0);
  ::FreeLibrary(running);
}

TEST(HandleMap, ANumberStandsForOneValueAndIsNeverUsedTwice) {
  win32::HandleMap<int> map;
  const Long one = map.Add(1);
  const Long two = map.Add(2);
  EXPECT_NE(one, 0);
  EXPECT_NE(one, two);
  EXPECT_EQ(map.Add(1), one);
  ASSERT_NE(map.Find(two), nullptr);
  EXPECT_EQ(*map.Find(two), 2);
  map.Remove(one);
  map.Remove(one);
  EXPECT_EQ(map.Find(one), nullptr);
  const Long again = map.Add(1);
  EXPECT_NE(again, one);
  EXPECT_NE(again, two);
  map.RemoveIf([](int value) { return value == 2; });
  EXPECT_EQ(map.Find(two), nullptr);
  EXPECT_NE(map.Add(2), two);
  ASSERT_NE(map.Find(again), nullptr);
}

}  // namespace strandline::win32test
