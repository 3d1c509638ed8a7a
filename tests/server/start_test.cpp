// What the DLL does when it comes, and what its file tells.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "server/registry.h"
#include "tests/server/client.h"
#include "tests/server/component.h"

namespace strandline::servertest {

namespace {

// The switch by which a user turns tracing on, for the time of a test.
class TraceSwitch {
 public:
  TraceSwitch() { server::registry::Delete(HKEY_CURRENT_USER, kKey); }
  ~TraceSwitch() { server::registry::Delete(HKEY_CURRENT_USER, kKey); }
  TraceSwitch(const TraceSwitch&) = delete;
  TraceSwitch& operator=(const TraceSwitch&) = delete;
  static void TurnOn() {
    EXPECT_EQ(server::registry::Write(HKEY_CURRENT_USER, std::wstring(kKey) + L"\\Init", L"vbwTrace", L"1"), 0);
  }

 private:
  static constexpr wchar_t kKey[] = L"Software\\Morvane\\Strandline";
};

// Whether a library is tracing, as the product's error component is told at the first error; true is the second of the
// switches that it gets.
class ErrorComponent {
 public:
  bool TracesNow(const Dll& dll) {
    told.clear();
    IDispatch* nothing = nullptr;
    Bstr name(L"Quillmere");
    const ComRef<_Main2> main = dll.NewMain2();
    EXPECT_EQ(main->Initialize(&nothing, &nothing, &nothing, name.Place()), S_OK);
    EXPECT_FALSE(told.empty());
    return !told.empty() && told.front();
  }

 private:
  std::vector<bool> told;
  Ref<Played> played = New<Played>([this](Use, std::string_view member, const Arguments& arguments) -> Variant {
    if (member == "vbwInitializeProtector") told.push_back(arguments.positional[1].ToBoolean());
    return {};
  });
  ComRef<IDispatch> outside = Outside(played);
  Component component{L"QuillmereError.Main2", outside.get()};
};

}  // namespace

// The settings are read with the first class object: what is written after the system has loaded the DLL counts, and
// what is written after that only at the next load.
TEST(Start, ComesWithTheFirstClassObject) {
  const TraceSwitch setting;
  ErrorComponent errors;
  const Dll dll;
  TraceSwitch::TurnOn();
  EXPECT_TRUE(errors.TracesNow(dll));
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Start, ComesOncePerLoad) {
  const TraceSwitch setting;
  ErrorComponent errors;
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  TraceSwitch::TurnOn();
  EXPECT_FALSE(errors.TracesNow(dll));
  factory = {};
  ASSERT_EQ(dll.CanUnloadNow(), S_OK);
  EXPECT_TRUE(errors.TracesNow(dll));
}

TEST(Start, TheFileTellsProductCompanyAndVersion) {
  const Dll dll;
  const HMODULE versions = ::LoadLibraryW(L"version.dll");
  ASSERT_NE(versions, nullptr);
  const auto entry = [versions](const char* name) { return reinterpret_cast<void*>(::GetProcAddress(versions, name)); };
  const auto sizeOf = reinterpret_cast<DWORD(WINAPI*)(LPCWSTR, DWORD*)>(entry("GetFileVersionInfoSizeW"));
  const auto read = reinterpret_cast<BOOL(WINAPI*)(LPCWSTR, DWORD, DWORD, void*)>(entry("GetFileVersionInfoW"));
  const auto query = reinterpret_cast<BOOL(WINAPI*)(const void*, LPCWSTR, void**, UINT*)>(entry("VerQueryValueW"));
  ASSERT_TRUE(sizeOf && read && query);
  std::vector<BYTE> block(sizeOf(dll.Path().c_str(), nullptr));
  ASSERT_FALSE(block.empty());
  ASSERT_TRUE(read(dll.Path().c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  const auto text = [&](const wchar_t* name) {
    void* found = nullptr;
    UINT length = 0;
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904E4\\") + name;
    return query(block.data(), path.c_str(), &found, &length) ? std::wstring(static_cast<const wchar_t*>(found))
                                                              : std::wstring(L"none");
  };
  EXPECT_EQ(text(L"CompanyName"), L"Morvane");
  EXPECT_EQ(text(L"ProductName"), L"Quillmere");
  EXPECT_EQ(text(L"FileDescription"), L"Strandline toolbar");
  EXPECT_EQ(text(L"FileVersion"), L"1.0.0.0");
  EXPECT_EQ(text(L"OLESelfRegister"), L"");
  void* found = nullptr;
  UINT length = 0;
  ASSERT_TRUE(query(block.data(), L"\\", &found, &length));
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed.dwFileVersionMS, 0x10000u);
  EXPECT_EQ(fixed.dwProductVersionMS, 0x10000u);
  EXPECT_EQ(fixed.dwFileType, static_cast<DWORD>(VFT_DLL));
  ::FreeLibrary(versions);
}

}  // namespace strandline::servertest
