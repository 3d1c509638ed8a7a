#include "win32_runtime.h"

#include <algorithm>
#include <string>
#include <vector>

#include "windows_api.h"

namespace strandline::win32 {

namespace {

Double TwipsPerPixel(int direction) {
  const HDC screen = ::GetDC(nullptr);
  const int dotsPerInch = ::GetDeviceCaps(screen, direction);
  ::ReleaseDC(nullptr, screen);
  return 1440.0 / (dotsPerInch > 0 ? dotsPerInch : 96);
}

}  // namespace

String Win32RunTime::CommandLine() { return reinterpret_cast<const char16_t*>(::GetCommandLineW()); }

String Win32RunTime::GetSetting(const String& section, const String& key, const String& defaultValue) {
  const String path = Concat({mSettingsKey, u"\\", section});
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, Wide(path), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return defaultValue;
  DWORD type = 0;
  DWORD size = 0;
  std::vector<wchar_t> text;
  LSTATUS found = ::RegQueryValueExW(opened, Wide(key), nullptr, &type, nullptr, &size);
  if (found == ERROR_SUCCESS && type == REG_SZ) {
    text.resize(size / sizeof(wchar_t) + 1);
    size = static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t));
    found = ::RegQueryValueExW(opened, Wide(key), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
  }
  ::RegCloseKey(opened);
  if (found != ERROR_SUCCESS || type != REG_SZ) return defaultValue;
  return FromWide(text.data(), static_cast<std::size_t>(std::find(text.begin(), text.end(), L'\0') - text.begin()));
}

Date Win32RunTime::Now() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  Date date;
  ::SystemTimeToVariantTime(&now, &date.days);
  return date;
}

Long Win32RunTime::MsgBox(const String& text, Long style, const String* title) {
  wchar_t hostTitle[256] = L"";
  const HWND owner = ::GetActiveWindow();
  if (!title) ::GetWindowTextW(owner, hostTitle, static_cast<int>(std::size(hostTitle)));
  return ::MessageBoxW(owner, Wide(text), title ? Wide(*title) : hostTitle, static_cast<UINT>(style));
}

Double Win32RunTime::TwipsPerPixelX() { return TwipsPerPixel(LOGPIXELSX); }
Double Win32RunTime::TwipsPerPixelY() { return TwipsPerPixel(LOGPIXELSY); }

}  // namespace strandline::win32
