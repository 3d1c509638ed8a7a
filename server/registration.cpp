#include "server/registration.h"

#include <utility>

#include "platform/win32/windows_api.h"
#include "server/module.h"
#include "server/registry.h"
//
#include "strandline_com.h"

namespace strandline::server {

namespace {

using win32::ComRef;

struct RegisteredClass {
  const CLSID& id;
  const wchar_t* progId;  // null for a class of which outsiders make no objects
  const wchar_t* words;
};

const RegisteredClass kClasses[] = {
    {CLSID_Main2, L"Strandline.Main2", L"Strandline toolbar"},
    {CLSID_RibbonEvents, L"Strandline.RibbonEvents", L"Strandline ribbon relay"},
    {CLSID_AdvertisementsCallbackStub, nullptr, L"Strandline relay of the ads"},
};

// By whom calls to an interface are brought to another apartment: the system, as the type library describes the
// interface, or as it does for IDispatch.
constexpr wchar_t kByTypeLibrary[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kAsDispatch[] = L"{00020420-0000-0000-C000-000000000046}";

struct RegisteredInterface {
  const IID& id;
  const wchar_t* name;
  const wchar_t* carrier;
};

const RegisteredInterface kInterfaces[] = {
    {IID__Main2, L"_Main2", kByTypeLibrary},
    {IID__RibbonEvents, L"_RibbonEvents", kByTypeLibrary},
    {DIID___RibbonEvents, L"__RibbonEvents", kAsDispatch},
    {IID__AdvertisementsCallbackStub, L"_AdvertisementsCallbackStub", kByTypeLibrary},
    {DIID___AdvertisementsCallbackStub, L"__AdvertisementsCallbackStub", kAsDispatch},
};

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr const wchar_t* kPlatform = kSystem == SYS_WIN64 ? L"win64" : L"win32";
constexpr const wchar_t* kOtherPlatform = kSystem == SYS_WIN64 ? L"win32" : L"win64";
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::wstring TextOf(const GUID& id) {
  wchar_t text[40];
  ::StringFromGUID2(id, text, 40);
  return text;
}
std::wstring ClassKey(const CLSID& id) { return L"CLSID\\" + TextOf(id); }

std::wstring LibraryKey() { return L"TypeLib\\" + TextOf(LIBID_Strandline); }

// Several writes to one root, the first failure of which counts.
class Writer {
 public:
  explicit Writer(HKEY root) : mRoot(root) {}
  void Write(const std::wstring& path, const wchar_t* name, const std::wstring& text) {
    if (mStatus == ERROR_SUCCESS) mStatus = registry::Write(mRoot, path, name, text);
  }
  LSTATUS Status() const { return mStatus; }

 private:
  HKEY mRoot;
  LSTATUS mStatus = ERROR_SUCCESS;
};

}  // namespace

Registrar::Registrar(Root machine, Root user, std::wstring modulePath)
    : mMachine(std::move(machine)), mUser(std::move(user)), mModulePath(std::move(modulePath)) {}

Registrar Registrar::OfThisModule() {
  return Registrar({HKEY_LOCAL_MACHINE, L"Software\\Classes"}, {HKEY_CURRENT_USER, L"Software\\Classes"}, ModulePath());
}

bool Registrar::IsOpen(const Root& root) const {
  return static_cast<bool>(registry::Key(root.parent, root.path, KEY_READ | KEY_WRITE));
}

// A user's own classes hide those of the machine, and the system would put a type library where it finds one of that
// identifier; so they go first.
HRESULT Registrar::Register() const {
  if (IsOpen(mMachine)) {
    Remove(mUser);
    if (SUCCEEDED(RegisterAt(mMachine, false))) return S_OK;
  }
  // A user who never had classes of their own hasn't got the key.
  HKEY made = nullptr;
  const LSTATUS status =
      ::RegCreateKeyExW(mUser.parent, mUser.path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &made, nullptr);
  if (status != ERROR_SUCCESS) return SELFREG_E_CLASS;
  ::RegCloseKey(made);
  return RegisterAt(mUser, true);
}

HRESULT Registrar::RegisterAt(const Root& root, bool forUser) const {
  const registry::Key classes(root.parent, root.path, KEY_READ | KEY_WRITE);
  HRESULT result = SELFREG_E_CLASS;
  if (classes && WriteClasses(classes.get()) == ERROR_SUCCESS) result = RegisterTypeLibrary(classes.get(), forUser);
  if (FAILED(result)) Remove(root);
  return result;
}

LSTATUS Registrar::WriteClasses(HKEY classes) const {
  Writer writer(classes);
  for (const RegisteredClass& known : kClasses) {
    const std::wstring key = ClassKey(known.id);
    writer.Write(key, nullptr, known.words);
    writer.Write(key + L"\\Programmable", nullptr, L"");
    writer.Write(key + L"\\TypeLib", nullptr, TextOf(LIBID_Strandline));
    if (!known.progId) continue;
    writer.Write(key + L"\\InprocServer32", nullptr, mModulePath);
    writer.Write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    writer.Write(key + L"\\ProgID", nullptr, known.progId);
    writer.Write(known.progId, nullptr, known.words);
    writer.Write(std::wstring(known.progId) + L"\\CLSID", nullptr, TextOf(known.id));
  }
  return writer.Status();
}

// The system's own way to register for a user isn't on every Windows, and some do it for the machine all the same.
HRESULT Registrar::RegisterTypeLibrary(HKEY classes, bool forUser) const {
  ComRef<ITypeLib> library;
  if (FAILED(::LoadTypeLibEx(mModulePath.c_str(), REGKIND_NONE, library.Put()))) return SELFREG_E_TYPELIB;
  if (forUser) return WriteTypeLibrary(classes) == ERROR_SUCCESS ? S_OK : SELFREG_E_TYPELIB;
  std::wstring path = mModulePath;
  return SUCCEEDED(::RegisterTypeLib(library.get(), path.data(), nullptr)) ? S_OK : SELFREG_E_TYPELIB;
}

LSTATUS Registrar::WriteTypeLibrary(HKEY classes) const {
  Writer writer(classes);
  const std::wstring version = LibraryKey() + L"\\1.0";
  writer.Write(version, nullptr, L"Strandline 1.0 Type Library");
  writer.Write(version + L"\\FLAGS", nullptr, L"0");
  writer.Write(version + L"\\HELPDIR", nullptr, mModulePath.substr(0, mModulePath.find_last_of(L'\\')));
  writer.Write(version + L"\\0\\" + kPlatform, nullptr, mModulePath);
  for (const RegisteredInterface& known : kInterfaces) {
    const std::wstring key = L"Interface\\" + TextOf(known.id);
    // First, so that one that is cut off can be told for ours.
    writer.Write(key + L"\\TypeLib", nullptr, TextOf(LIBID_Strandline));
    writer.Write(key, nullptr, known.name);
    writer.Write(key + L"\\ProxyStubClsid32", nullptr, known.carrier);
    writer.Write(key + L"\\TypeLib", L"Version", L"1.0");
  }
  return writer.Status();
}

HRESULT Registrar::Unregister() const {
  ::UnRegisterTypeLib(LIBID_Strandline, 1, 0, LOCALE_NEUTRAL, kSystem);
  const HRESULT ofMachine = Remove(mMachine);
  const HRESULT ofUser = Remove(mUser);
  return FAILED(ofMachine) ? ofMachine : ofUser;
}

// A user's classes begin with the first one that is registered; the keys above it go with the last one.
HRESULT Registrar::Remove(const Root& root) const {
  const bool hadOurs = registry::Exists(root.parent, root.path + L"\\" + ClassKey(CLSID_Main2)) ||
                       registry::Exists(root.parent, root.path + L"\\" + LibraryKey());
  HRESULT result = S_OK;
  if (RemoveTypeLibrary(root) != ERROR_SUCCESS) result = SELFREG_E_TYPELIB;
  if (RemoveClasses(root) != ERROR_SUCCESS) result = SELFREG_E_CLASS;
  if (hadOurs && &root == &mUser) {
    for (const wchar_t* const parent : {L"CLSID", L"TypeLib", L"Interface"}) {
      registry::DeleteIfEmpty(root.parent, root.path + L"\\" + parent);
    }
  }
  return result;
}

// Both architectures share the names, but not the classes.
LSTATUS Registrar::RemoveClasses(const Root& root) const {
  const registry::Key classes(root.parent, root.path, KEY_READ);
  if (!classes) return ERROR_SUCCESS;
  LSTATUS status = ERROR_SUCCESS;
  for (const RegisteredClass& known : kClasses) {
    LSTATUS removed = registry::Delete(classes.get(), ClassKey(known.id));
    const bool isShared = registry::Exists(root.parent, root.path + L"\\" + ClassKey(known.id), kOtherView);
    if (removed == ERROR_SUCCESS && known.progId && !isShared) removed = registry::Delete(classes.get(), known.progId);
    if (removed != ERROR_SUCCESS) status = removed;
  }
  return status;
}

// The system leaves some of its keys behind, parents that have nothing below them any more among them.
LSTATUS Registrar::RemoveTypeLibrary(const Root& root) const {
  const registry::Key classes(root.parent, root.path, KEY_READ);
  if (!classes) return ERROR_SUCCESS;
  const std::wstring neutral = LibraryKey() + L"\\1.0\\0\\";
  const bool isShared = registry::Exists(classes.get(), neutral + kOtherPlatform);
  LSTATUS status = registry::Delete(classes.get(), isShared ? neutral + kPlatform : LibraryKey());
  for (const RegisteredInterface& known : kInterfaces) {
    const std::wstring interfaceKey = L"Interface\\" + TextOf(known.id);
    if (registry::Read(classes.get(), interfaceKey + L"\\TypeLib", nullptr) != TextOf(LIBID_Strandline)) continue;
    const LSTATUS removed = registry::Delete(classes.get(), interfaceKey);
    if (removed != ERROR_SUCCESS) status = removed;
  }
  return status;
}

}  // namespace strandline::server
