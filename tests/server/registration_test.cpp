// What the DLL leaves in the registry, and that it takes it out again.

#include "server/registration.h"

#include <gtest/gtest.h>
#include <sddl.h>

#include <string>
#include <vector>

#include "server/registry.h"
#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

using server::Registrar;
namespace registry = server::registry;

constexpr wchar_t kMain2[] = L"CLSID\\{128BE9BF-E215-429B-8E14-2E49D0414DD2}";
constexpr wchar_t kRelay[] = L"CLSID\\{1549A93D-E0A4-438F-859F-08ECC0B4F9AF}";
constexpr wchar_t kStub[] = L"CLSID\\{498640EC-7A73-42C9-85ED-DCE2F866018D}";
constexpr wchar_t kLibrary[] = L"TypeLib\\{419AAB9F-E0E6-41D8-BC8D-D137A724EAA2}";
const bool kIs64 = sizeof(void*) == 8;

const std::vector<std::wstring> kKeys = {kMain2,
                                         kRelay,
                                         kStub,
                                         L"Strandline.Main2",
                                         L"Strandline.RibbonEvents",
                                         kLibrary,
                                         L"Interface\\{444DA255-41BF-4177-B24F-1B788A80AFF7}",
                                         L"Interface\\{08B31AE8-FFF3-4A50-9B42-65FDD036FD3D}",
                                         L"Interface\\{CC8FC59F-1F2F-45F7-8B7A-47BF38E83D41}",
                                         L"Interface\\{78BB1DE7-2441-4B93-95AF-AA46BBA9AEEB}",
                                         L"Interface\\{6455E7D1-3103-4371-9284-34B33EC40EFC}"};

// Of the keys above.
constexpr const wchar_t* kParents[] = {L"CLSID", L"TypeLib", L"Interface"};

const Registrar::Root kMachine{HKEY_LOCAL_MACHINE, L"Software\\Classes"};
const Registrar::Root kUser{HKEY_CURRENT_USER, L"Software\\Classes"};

std::wstring At(const Registrar::Root& root, const std::wstring& path) { return root.path + L"\\" + path; }

std::wstring Value(const Registrar::Root& root, const std::wstring& path, const wchar_t* name = nullptr) {
  return registry::Read(root.parent, At(root, path), name);
}
bool Exists(const Registrar::Root& root, const std::wstring& path) {
  return registry::Exists(root.parent, At(root, path));
}

// Those of our keys that stand there.
std::vector<std::wstring> Left(const Registrar::Root& root) {
  std::vector<std::wstring> left;
  for (const std::wstring& key : kKeys) {
    if (Exists(root, key)) left.push_back(key);
  }
  return left;
}

void ExpectClasses(const Registrar::Root& root, const std::wstring& path) {
  struct Case {
    const wchar_t* key;
    const wchar_t* classId;
    const wchar_t* progId;
  };
  const Case cases[] = {{kMain2, L"{128BE9BF-E215-429B-8E14-2E49D0414DD2}", L"Strandline.Main2"},
                        {kRelay, L"{1549A93D-E0A4-438F-859F-08ECC0B4F9AF}", L"Strandline.RibbonEvents"}};
  for (const Case& entry : cases) {
    const std::wstring key = entry.key;
    EXPECT_EQ(Value(root, key + L"\\InprocServer32"), path);
    EXPECT_EQ(Value(root, key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(Value(root, key + L"\\ProgID"), entry.progId);
    EXPECT_EQ(Value(root, key + L"\\TypeLib"), L"{419AAB9F-E0E6-41D8-BC8D-D137A724EAA2}");
    EXPECT_TRUE(Exists(root, key + L"\\Programmable"));
    EXPECT_EQ(Value(root, std::wstring(entry.progId) + L"\\CLSID"), entry.classId);
    EXPECT_FALSE(Value(root, key).empty());
  }
  EXPECT_FALSE(Value(root, kStub).empty());
  EXPECT_FALSE(Exists(root, std::wstring(kStub) + L"\\InprocServer32"));
  EXPECT_FALSE(Exists(root, std::wstring(kStub) + L"\\ProgID"));
}

// As written for a user, by the DLL itself.
void ExpectLibrary(const Registrar::Root& root, const std::wstring& path) {
  const std::wstring version = std::wstring(kLibrary) + L"\\1.0";
  EXPECT_EQ(Value(root, version), L"Strandline 1.0 Type Library");
  EXPECT_EQ(Value(root, version + (kIs64 ? L"\\0\\win64" : L"\\0\\win32")), path);
  EXPECT_FALSE(Exists(root, version + (kIs64 ? L"\\0\\win32" : L"\\0\\win64")));
  EXPECT_EQ(Value(root, version + L"\\FLAGS"), L"0");
  EXPECT_EQ(Value(root, version + L"\\HELPDIR"), path.substr(0, path.rfind(L'\\')));
  struct Case {
    const wchar_t* id;
    const wchar_t* name;
    bool isDual;
  };
  const Case cases[] = {{L"{444DA255-41BF-4177-B24F-1B788A80AFF7}", L"_Main2", true},
                        {L"{08B31AE8-FFF3-4A50-9B42-65FDD036FD3D}", L"_RibbonEvents", true},
                        {L"{CC8FC59F-1F2F-45F7-8B7A-47BF38E83D41}", L"__RibbonEvents", false},
                        {L"{78BB1DE7-2441-4B93-95AF-AA46BBA9AEEB}", L"_AdvertisementsCallbackStub", true},
                        {L"{6455E7D1-3103-4371-9284-34B33EC40EFC}", L"__AdvertisementsCallbackStub", false}};
  for (const Case& entry : cases) {
    const std::wstring key = std::wstring(L"Interface\\") + entry.id;
    EXPECT_EQ(Value(root, key), entry.name);
    EXPECT_EQ(Value(root, key + L"\\ProxyStubClsid32"),
              entry.isDual ? L"{00020424-0000-0000-C000-000000000046}" : L"{00020420-0000-0000-C000-000000000046}");
    EXPECT_EQ(Value(root, key + L"\\TypeLib"), L"{419AAB9F-E0E6-41D8-BC8D-D137A724EAA2}");
    EXPECT_EQ(Value(root, key + L"\\TypeLib", L"Version"), L"1.0");
  }
}

// Roots of the test's own, of which the machine's can be closed to everybody.
class ScratchRoots {
 public:
  ScratchRoots() {
    registry::Delete(HKEY_CURRENT_USER, kBase);
    registry::Write(HKEY_CURRENT_USER, machine.path, nullptr, L"");
    registry::Write(HKEY_CURRENT_USER, user.path, nullptr, L"");
  }
  ~ScratchRoots() {
    Open(machine);
    Open(user);
    registry::Delete(HKEY_CURRENT_USER, kBase);
  }
  static void Close(const Registrar::Root& root) { Protect(root, L"D:P(A;;KR;;;WD)(A;;WDSD;;;WD)"); }
  static void Open(const Registrar::Root& root) { Protect(root, L"D:P(A;;KA;;;WD)"); }

  const Registrar::Root machine{HKEY_CURRENT_USER, L"Software\\StrandlineTest\\Machine"};
  const Registrar::Root user{HKEY_CURRENT_USER, L"Software\\StrandlineTest\\User"};

 private:
  static constexpr wchar_t kBase[] = L"Software\\StrandlineTest";

  static void Protect(const Registrar::Root& root, const wchar_t* access) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(access, SDDL_REVISION_1, &descriptor, nullptr));
    const registry::Key key(root.parent, root.path, WRITE_DAC);
    EXPECT_TRUE(key);
    EXPECT_EQ(::RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    ::LocalFree(descriptor);
  }
};

class Registration : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(dll.Call("DllUnregisterServer"), S_OK);
    ASSERT_EQ(Left(kMachine), std::vector<std::wstring>());
    ASSERT_EQ(Left(kUser), std::vector<std::wstring>());
  }
  void TearDown() override {
    EXPECT_EQ(dll.Call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(Left(kMachine), std::vector<std::wstring>());
    EXPECT_EQ(Left(kUser), std::vector<std::wstring>());
  }
  Dll dll;
};

}  // namespace

TEST_F(Registration, OfTheMachine_TellsClassesNamesAndLibrary) {
  ASSERT_EQ(dll.Call("DllRegisterServer"), S_OK);
  ExpectClasses(kMachine, dll.Path());
  EXPECT_EQ(Left(kMachine), kKeys);
  EXPECT_EQ(Left(kUser), std::vector<std::wstring>());
  EXPECT_TRUE(Exists(kMachine, std::wstring(kLibrary) + (kIs64 ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32")));
}

TEST_F(Registration, Twice_IsOnce) {
  ASSERT_EQ(dll.Call("DllRegisterServer"), S_OK);
  ASSERT_EQ(dll.Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(Left(kMachine), kKeys);
  EXPECT_EQ(dll.Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(dll.Call("DllUnregisterServer"), S_OK);
}

TEST_F(Registration, AnObjectByItsName) {
  ASSERT_EQ(dll.Call("DllRegisterServer"), S_OK);
  CLSID id{};
  ASSERT_EQ(::CLSIDFromProgID(L"Strandline.Main2", &id), S_OK);
  EXPECT_TRUE(id == CLSID_Main2);
  ComRef<_Main2> main;
  ASSERT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Main2, main.PutVoid()), S_OK);
  PlayedProduct product;
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_FALSE(product.word->uses.empty());
  EXPECT_EQ(main->Quit(), S_OK);
  main = {};
  ComRef<IUnknown> stub;
  EXPECT_EQ(
      ::CoCreateInstance(CLSID_AdvertisementsCallbackStub, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, stub.PutVoid()),
      REGDB_E_CLASSNOTREG);
  ComRef<ITypeLib> library;
  EXPECT_EQ(::LoadRegTypeLib(LIBID_Strandline, 1, 0, 0, library.Put()), S_OK);
  ::CoFreeUnusedLibrariesEx(0, 0);
}

TEST_F(Registration, TheOtherArchitecturesLibraryStays) {
  const std::wstring other = std::wstring(kLibrary) + (kIs64 ? L"\\1.0\\0\\win32" : L"\\1.0\\0\\win64");
  ASSERT_EQ(dll.Call("DllRegisterServer"), S_OK);
  ASSERT_EQ(registry::Write(kMachine.parent, At(kMachine, other), nullptr, L"C:\\other\\strandline.dll"),
            ERROR_SUCCESS);
  EXPECT_EQ(dll.Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Left(kMachine), std::vector<std::wstring>{kLibrary});
  EXPECT_EQ(Value(kMachine, other), L"C:\\other\\strandline.dll");
  EXPECT_EQ(registry::Delete(kMachine.parent, At(kMachine, kLibrary)), ERROR_SUCCESS);
}

TEST_F(Registration, OfTheUser_WhereTheMachinesRootIsClosed) {
  const ScratchRoots roots;
  ScratchRoots::Close(roots.machine);
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  EXPECT_EQ(registrar.Register(), S_OK);
  ExpectClasses(roots.user, dll.Path());
  ExpectLibrary(roots.user, dll.Path());
  EXPECT_EQ(Left(roots.user), kKeys);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>());
  EXPECT_EQ(Left(kMachine), std::vector<std::wstring>()) << "it is the user's alone";
  EXPECT_EQ(registrar.Unregister(), S_OK);
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
  for (const wchar_t* parent : kParents) EXPECT_FALSE(Exists(roots.user, parent)) << parent;
}

TEST_F(Registration, OfTheUser_LeavesTheParentsThatOthersUse) {
  const ScratchRoots roots;
  ScratchRoots::Close(roots.machine);
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  registry::Write(roots.user.parent, At(roots.user, L"CLSID\\Another"), nullptr, L"");
  registry::Write(roots.user.parent, At(roots.user, L"Interface"), nullptr, L"a value");
  EXPECT_EQ(registrar.Register(), S_OK);
  EXPECT_EQ(registrar.Unregister(), S_OK);
  EXPECT_TRUE(Exists(roots.user, L"CLSID\\Another"));
  EXPECT_EQ(Value(roots.user, L"Interface"), L"a value");
  EXPECT_FALSE(Exists(roots.user, L"TypeLib"));
}

TEST_F(Registration, OfTheUser_ThatFailsHalfWay_IsTakenBack) {
  const ScratchRoots roots;
  ScratchRoots::Close(roots.machine);
  const Registrar::Root interfaces{roots.user.parent, At(roots.user, L"Interface")};
  registry::Write(interfaces.parent, interfaces.path, nullptr, L"");
  ScratchRoots::Close(interfaces);
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  EXPECT_EQ(registrar.Register(), SELFREG_E_TYPELIB);
  ScratchRoots::Open(interfaces);
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
}

TEST_F(Registration, OfTheMachine_TakesOutAnOlderOneOfTheUser) {
  const ScratchRoots roots;
  ScratchRoots::Close(roots.machine);
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  ASSERT_EQ(registrar.Register(), S_OK);
  ScratchRoots::Open(roots.machine);
  EXPECT_EQ(registrar.Register(), S_OK);
  ExpectClasses(roots.machine, dll.Path());
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
  EXPECT_EQ(registrar.Unregister(), S_OK);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>());
}

TEST_F(Registration, OfTheMachine_WhereItsRootIsOpen) {
  const ScratchRoots roots;
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  EXPECT_EQ(registrar.Register(), S_OK);
  ExpectClasses(roots.machine, dll.Path());
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
  EXPECT_EQ(registrar.Unregister(), S_OK);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>());
}

TEST_F(Registration, WhereBothAreClosed_FailsAndLeavesNothing) {
  const ScratchRoots roots;
  ScratchRoots::Close(roots.machine);
  ScratchRoots::Close(roots.user);
  const Registrar registrar(roots.machine, roots.user, dll.Path());
  EXPECT_EQ(registrar.Register(), SELFREG_E_CLASS);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>());
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
}

// Systems differ in what their own part of it leaves behind.
TEST_F(Registration, TakesOutWhatTheSystemLeaves_AndNothingOfOthers) {
  const ScratchRoots roots;
  const std::wstring ours = L"Interface\\{444DA255-41BF-4177-B24F-1B788A80AFF7}";
  const std::wstring others = L"Interface\\{08B31AE8-FFF3-4A50-9B42-65FDD036FD3D}";
  for (const Registrar::Root* root : {&roots.machine, &roots.user}) {
    registry::Write(root->parent, At(*root, std::wstring(kLibrary) + L"\\1.0\\HELPDIR"), nullptr, L"C:\\");
    registry::Write(root->parent, At(*root, ours + L"\\TypeLib"), nullptr, L"{419AAB9F-E0E6-41D8-BC8D-D137A724EAA2}");
    registry::Write(root->parent, At(*root, others + L"\\TypeLib"), nullptr, L"{00020430-0000-0000-C000-000000000046}");
  }
  EXPECT_EQ(Registrar(roots.machine, roots.user, dll.Path()).Unregister(), S_OK);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>{others});
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>{others});
}

TEST_F(Registration, WithoutATypeLibrary_FailsAndLeavesNothing) {
  const ScratchRoots roots;
  const Registrar registrar(roots.machine, roots.user, L"C:\\no\\such.dll");
  EXPECT_EQ(registrar.Register(), SELFREG_E_TYPELIB);
  EXPECT_EQ(Left(roots.machine), std::vector<std::wstring>());
  EXPECT_EQ(Left(roots.user), std::vector<std::wstring>());
}

}  // namespace strandline::servertest
