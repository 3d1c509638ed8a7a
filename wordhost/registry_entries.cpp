#include "wordhost/registry_entries.h"

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

using win32::Wide;

HKEY RootOf(Hive hive) { return hive == Hive::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

bool IsEmpty(HKEY key) {
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS asked = ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                           nullptr, nullptr, nullptr);
  return asked == ERROR_SUCCESS && keys == 0 && values == 0;
}

// The key and those above it, as far as nothing is left in them.
void RemoveIfEmpty(HKEY root, String path) {
  for (;;) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, Wide(path), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    const bool isEmpty = IsEmpty(key);
    ::RegCloseKey(key);
    if (!isEmpty || ::RegDeleteKeyW(root, Wide(path)) != ERROR_SUCCESS) return;
    const auto end = path.View().rfind(u'\\');
    if (end == TextView::npos) return;
    path = String(path.View().substr(0, end));
  }
}

}  // namespace

bool RegistryEntries::Put(Hive hive, const String& key, const String& name, const String& text) {
  HKEY opened = nullptr;
  if (::RegCreateKeyExW(RootOf(hive), Wide(key), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr) !=
      ERROR_SUCCESS) {
    return false;
  }
  const auto bytes = static_cast<DWORD>((static_cast<std::size_t>(text.Length()) + 1) * sizeof(wchar_t));
  const LSTATUS written =
      ::RegSetValueExW(opened, Wide(name), 0, REG_SZ, reinterpret_cast<const BYTE*>(Wide(text)), bytes);
  ::RegCloseKey(opened);
  const std::lock_guard lock(mMutex);
  mEntries.push_back({hive, key, name});
  return written == ERROR_SUCCESS;
}

void RegistryEntries::TakeAway() {
  const std::lock_guard lock(mMutex);
  for (; !mEntries.empty(); mEntries.pop_back()) {
    const Entry& entry = mEntries.back();
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(RootOf(entry.hive), Wide(entry.key), 0, KEY_WRITE, &opened) == ERROR_SUCCESS) {
      ::RegDeleteValueW(opened, Wide(entry.name));
      ::RegCloseKey(opened);
    }
    RemoveIfEmpty(RootOf(entry.hive), entry.key);
  }
}

}  // namespace strandline::wordhost
