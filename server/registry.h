#pragma once

// The few uses of the system's registry that registration needs. Only calls that every Windows has.

#include <string>
//
#include "platform/win32/windows_api.h"

namespace strandline::server::registry {

class Key {
 public:
  // An open that fails leaves the key closed.
  Key(HKEY parent, const std::wstring& path, REGSAM access);
  ~Key();
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  explicit operator bool() const { return mKey != nullptr; }
  HKEY get() const { return mKey; }

 private:
  HKEY mKey = nullptr;
};

bool Exists(HKEY parent, const std::wstring& path, REGSAM view = 0);
// A text value of the key, made if it isn't there; the key's own for a null name.
LSTATUS Write(HKEY parent, const std::wstring& path, const wchar_t* name, const std::wstring& text);
// Empty for one that isn't there.
std::wstring Read(HKEY parent, const std::wstring& path, const wchar_t* name);
// The key and all below it. One that isn't there is no error.
LSTATUS Delete(HKEY parent, const std::wstring& path);
// The key alone, where it has neither a value nor a key below it.
void DeleteIfEmpty(HKEY parent, const std::wstring& path);

}  // namespace strandline::server::registry
