#include "tests/script/helper/class_keys.h"

#include "platform/win32/windows_api.h"

namespace strandline::script {

using win32::Wide;

namespace {

struct Place {
  HKEY root;
  const char16_t* path;
};
const Place kPlaces[] = {{HKEY_CURRENT_USER, u"Software\\Classes\\"}, {HKEY_LOCAL_MACHINE, u"Software\\Classes\\"}};

String TextOf(const CLSID& id) {
  wchar_t text[64];
  const int length = ::StringFromGUID2(id, text, 64);
  return win32::FromWide(text, length > 0 ? static_cast<std::size_t>(length - 1) : 0);
}

bool Write(const Place& place, const String& key, const wchar_t* name, const String& value) {
  const String path = Concat({place.path, key});
  const DWORD bytes = static_cast<DWORD>((value.Length() + 1) * 2);
  return ::RegSetKeyValueW(place.root, Wide(path), name, REG_SZ, value.c_str(), bytes) == ERROR_SUCCESS;
}

void Remove(const String& key) {
  for (const Place& place : kPlaces) ::RegDeleteTreeW(place.root, Wide(Concat({place.path, key})));
}

String ServerKey(const CLSID& id) { return Concat({u"CLSID\\", TextOf(id)}); }

}  // namespace

bool WriteProgId(const String& progId, const _GUID& id) {
  for (const Place& place : kPlaces) {
    CLSID found{};
    if (Write(place, Concat({progId, u"\\CLSID"}), nullptr, TextOf(id)) &&
        SUCCEEDED(::CLSIDFromProgID(Wide(progId), &found)) && found == id) {
      return true;
    }
  }
  return false;
}

void RemoveProgId(const String& progId) { Remove(progId); }

bool WriteServer(const _GUID& id, const String& modulePath) {
  const String key = Concat({ServerKey(id), u"\\InprocServer32"});
  bool written = false;
  for (const Place& place : kPlaces) {
    written = (Write(place, key, nullptr, modulePath) && Write(place, key, L"ThreadingModel", u"Apartment")) || written;
  }
  return written;
}

void RemoveServer(const _GUID& id) { Remove(ServerKey(id)); }

}  // namespace strandline::script
