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
const IID* const kInterfaces[] = {&IID__Main2, &IID__RibbonEvents, &DIID___RibbonEvents,
                                  &IID__AdvertisementsCallbackStub, &DIID___AdvertisementsCallbackStub};

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::wstring TextOf(const GUID& id) {
  wchar_t text[40];
  ::StringFromGUID2(id, text, 40);
  return text;
}
std::wstring ClassKey(const CLSID& id) { return L"CLSID\\" + TextOf(id); }

// Functions that older systems don't have.
template <class Function>
Function AutomationFunction(const char* name) {
  const HMODULE automation = ::GetModuleHandleW(L"oleaut32.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(automation, name)));
}

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

HRESULT Registrar::Register() const {
  if (IsOpen(mMachine) && SUCCEEDED(RegisterAt(mMachine, false))) return S_OK;
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
  if (classes && WriteClasses(classes.get()) == ERROR_SUCCESS) result = RegisterTypeLibrary(forUser);
  if (FAILED(result)) RemoveClasses(root);
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

HRESULT Registrar::RegisterTypeLibrary(bool forUser) const {
  ComRef<ITypeLib> library;
  if (FAILED(::LoadTypeLibEx(mModulePath.c_str(), REGKIND_NONE, library.Put()))) return SELFREG_E_TYPELIB;
  using Function = HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*);
  Function way = forUser ? AutomationFunction<Function>("RegisterTypeLibForUser") : nullptr;
  if (!way) way = &::RegisterTypeLib;
  std::wstring path = mModulePath;
  return SUCCEEDED(way(library.get(), path.data(), nullptr)) ? S_OK : SELFREG_E_TYPELIB;
}

HRESULT Registrar::Unregister() const {
  using Function = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);
  ::UnRegisterTypeLib(LIBID_Strandline, 1, 0, LOCALE_NEUTRAL, kSystem);
  if (const auto forUser = AutomationFunction<Function>("UnRegisterTypeLibForUser")) {
    forUser(LIBID_Strandline, 1, 0, LOCALE_NEUTRAL, kSystem);
  }
  HRESULT result = S_OK;
  for (const Root* root : {&mMachine, &mUser}) {
    if (RemoveTypeLibrary(*root) != ERROR_SUCCESS) result = SELFREG_E_TYPELIB;
    if (RemoveClasses(*root) != ERROR_SUCCESS) result = SELFREG_E_CLASS;
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
  const std::wstring library = TextOf(LIBID_Strandline);
  const std::wstring key = L"TypeLib\\" + library;
  const std::wstring neutral = key + L"\\1.0\\0\\";
  const bool isShared = registry::Exists(classes.get(), neutral + (kSystem == SYS_WIN64 ? L"win32" : L"win64"));
  LSTATUS status =
      registry::Delete(classes.get(), isShared ? neutral + (kSystem == SYS_WIN64 ? L"win64" : L"win32") : key);
  for (const IID* const id : kInterfaces) {
    const std::wstring interfaceKey = L"Interface\\" + TextOf(*id);
    if (registry::Read(classes.get(), interfaceKey + L"\\TypeLib", nullptr) != library) continue;
    const LSTATUS removed = registry::Delete(classes.get(), interfaceKey);
    if (removed != ERROR_SUCCESS) status = removed;
  }
  return status;
}

}  // namespace strandline::server
