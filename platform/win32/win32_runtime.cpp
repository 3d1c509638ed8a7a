#include "platform/win32/win32_runtime.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/property_bag.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

constexpr Double kTwipsOfAnInch = 1440;

// The identities of the report's objects, apart from one another and, odd as they are, from all that lies in memory.
constexpr Long kApplicationIdentity = 0x7E000001;
constexpr Long kScreenIdentity = 0x7E000003;
constexpr Long kPrinterIdentity = 0x7E000005;
constexpr Long kFirstErrorIdentity = 0x7F000001;

using Members = std::vector<PropertyBag::Member>;

Double TwipsPerPixel(int direction) {
  const HDC screen = ::GetDC(nullptr);
  const int dotsPerInch = ::GetDeviceCaps(screen, direction);
  ::ReleaseDC(nullptr, screen);
  return kTwipsOfAnInch / (dotsPerInch > 0 ? dotsPerInch : 96);
}

// The file of the module that this code is part of, with its folder.
TextView OwnFile(std::vector<wchar_t>& buffer) {
  for (buffer.resize(MAX_PATH);; buffer.resize(buffer.size() * 2)) {
    const DWORD length = ::GetModuleFileNameW(OwnModule(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length < buffer.size()) return TextView(reinterpret_cast<const char16_t*>(buffer.data()), length);
  }
}

// The pieces of a text between commas.
std::vector<String> Pieces(TextView text) {
  std::vector<String> pieces;
  for (std::size_t end = 0; end != TextView::npos;) {
    end = text.find(u',');
    pieces.emplace_back(text.substr(0, end));
    if (end != TextView::npos) text.remove_prefix(end + 1);
  }
  return pieces;
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
  // It may have become another one in between.
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

Object Win32RunTime::ApplicationObject() {
  if (!mApplication.IsNothing()) return mApplication;
  std::vector<wchar_t> buffer;
  const TextView file = OwnFile(buffer);
  const std::size_t slash = file.rfind(u'\\');
  const TextView folder = slash == TextView::npos ? TextView() : file.substr(0, slash);
  const TextView name = slash == TextView::npos ? file : file.substr(slash + 1);
  mApplication = New<PropertyBag>(kApplicationIdentity, Members{{"Title", u"Strandline"},
                                                                {"EXEName", String(name.substr(0, name.rfind(u'.')))},
                                                                {"Path", String(folder)},
                                                                {"Major", Integer{1}},
                                                                {"Minor", Integer{0}},
                                                                {"Revision", Integer{0}}});
  return mApplication;
}

Object Win32RunTime::ErrorObject(const Error& error) {
  return New<PropertyBag>(
      kFirstErrorIdentity + 2 * (mErrors++ & 0x7FFFF),
      Members{{"Number", error.number}, {"Description", error.description}, {"Source", u"Strandline"}});
}

Object Win32RunTime::ScreenObject() {
  const Double x = TwipsPerPixelX();
  const Double y = TwipsPerPixelY();
  return New<PropertyBag>(kScreenIdentity, Members{{"Width", static_cast<Single>(::GetSystemMetrics(SM_CXSCREEN) * x)},
                                                   {"Height", static_cast<Single>(::GetSystemMetrics(SM_CYSCREEN) * y)},
                                                   {"TwipsPerPixelX", static_cast<Single>(x)},
                                                   {"TwipsPerPixelY", static_cast<Single>(y)}});
}

// The system keeps the default printer as a line of name, driver and port.
Object Win32RunTime::PrinterObject() {
  wchar_t line[512] = L"";
  const DWORD length = ::GetProfileStringW(L"windows", L"device", L"", line, static_cast<DWORD>(std::size(line)));
  const std::vector<String> pieces = Pieces(FromWide(line, length));
  if (pieces.size() < 3 || pieces[0].IsEmpty()) return nullptr;
  return New<PropertyBag>(kPrinterIdentity,
                          Members{{"DeviceName", pieces[0]}, {"DriverName", pieces[1]}, {"Port", pieces[2]}});
}

}  // namespace strandline::win32
