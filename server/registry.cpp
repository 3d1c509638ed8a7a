#include "server/registry.h"

namespace strandline::server::registry {

Key::Key(HKEY parent, const std::wstring& path, REGSAM access) {
  if (::RegOpenKeyExW(parent, path.c_str(), 0, access, &mKey) != ERROR_SUCCESS) mKey = nullptr;
}
Key::~Key() {
  if (mKey) ::RegCloseKey(mKey);
}

bool Exists(HKEY parent, const std::wstring& path, REGSAM view) {
  return static_cast<bool>(Key(parent, path, KEY_READ | view));
}

LSTATUS Write(HKEY parent, const std::wstring& path, const wchar_t* name, const std::wstring& text) {
  HKEY key = nullptr;
  LSTATUS status = ::RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  status = ::RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size);
  ::RegCloseKey(key);
  return status;
}

std::wstring Read(HKEY parent, const std::wstring& path, const wchar_t* name) {
  const Key key(parent, path, KEY_READ);
  DWORD type = 0;
  DWORD size = 0;
  if (!key || ::RegQueryValueExW(key.get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS || type != REG_SZ) {
    return {};
  }
  std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (::RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return text.c_str();
}

LSTATUS Delete(HKEY parent, const std::wstring& path) {
  {
    const Key key(parent, path, KEY_READ);
    if (!key) return ERROR_SUCCESS;
    wchar_t name[256];
    DWORD length = 256;
    while (::RegEnumKeyExW(key.get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
      const LSTATUS status = Delete(key.get(), name);
      if (status != ERROR_SUCCESS) return status;
      length = 256;
    }
  }
  return ::RegDeleteKeyW(parent, path.c_str());
}

void DeleteIfEmpty(HKEY parent, const std::wstring& path) {
  DWORD keys = 1;
  DWORD values = 1;
  {
    const Key key(parent, path, KEY_READ);
    if (!key) return;
    ::RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                       nullptr, nullptr);
  }
  if (keys == 0 && values == 0) ::RegDeleteKeyW(parent, path.c_str());
}

}  // namespace strandline::server::registry
