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

Date Win32RunTime::DateFromText(const String& text) {
  Date date;
  // It only reads the text, whatever its declaration says.
  auto* const characters = const_cast<wchar_t*>(Wide(text));
  if (FAILED(::VarDateFromStr(characters, LOCALE_USER_DEFAULT, 0, &date.days))) Raise(errors::kTypeMismatch);
  return date;
}

String Win32RunTime::TextFromDate(Date date) {
  BSTR text = nullptr;
  const HRESULT result = ::VarBstrFromDate(date.days, LOCALE_USER_DEFAULT, 0, &text);
  if (FAILED(result)) Raise(result == E_OUTOFMEMORY ? errors::kOutOfMemory : errors::kInvalidArgument);
  const String made = FromBstr(text);
  ::SysFreeString(text);
  return made;
}

String Win32RunTime::LowerCase(const String& text) {
  std::u16string lower(text.View());
  ::CharLowerBuffW(reinterpret_cast<wchar_t*>(lower.data()), static_cast<DWORD>(lower.size()));
  return lower;
}

namespace {

BOOL CALLBACK TakeMainWindow(HWND window, LPARAM found) {
  if (!::IsWindowVisible(window) || ::GetWindow(window, GW_OWNER)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The window that a message box belongs to: while another program is at the front, the host's own has to be looked for,
// or the dialog that keeps it waiting. Null in a host without a window.
HWND BoxOwner() {
  if (const HWND active = ::GetActiveWindow()) return active;
  HWND main = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), &TakeMainWindow, reinterpret_cast<LPARAM>(&main));
  return main && !::IsWindowEnabled(main) ? ::GetLastActivePopup(main) : main;
}

}  // namespace

// Nobody may use the host's windows under a box, even where none of them owns it.
Long Win32RunTime::MsgBox(const String& text, Long style, const String* title) {
  wchar_t hostTitle[256] = L"";
  const HWND owner = BoxOwner();
  if (!title) ::GetWindowTextW(owner, hostTitle, static_cast<int>(std::size(hostTitle)));
  const UINT modality = owner ? MB_APPLMODAL : MB_TASKMODAL;
  return ::MessageBoxW(owner, Wide(text), title ? Wide(*title) : hostTitle, static_cast<UINT>(style) | modality);
}

Double Win32RunTime::TwipsPerPixelX() { return TwipsPerPixel(LOGPIXELSX); }
Double Win32RunTime::TwipsPerPixelY() { return TwipsPerPixel(LOGPIXELSY); }

String Win32RunTime::TextFromBytes(const Array<Byte>& bytes) {
  const int size = static_cast<int>(bytes.Elements().size());
  const auto* const begin = reinterpret_cast<const char*>(bytes.Elements().data());
  const int length = ::MultiByteToWideChar(CP_ACP, 0, begin, size, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_ACP, 0, begin, size, text.data(), length);
  return FromWide(text.data(), text.size());
}

Array<Byte> Win32RunTime::BytesFromText(const String& text) {
  const int length = text.Length();
  const int size = ::WideCharToMultiByte(CP_ACP, 0, Wide(text), length, nullptr, 0, nullptr, nullptr);
  Array<Byte> bytes(0, size - 1);
  ::WideCharToMultiByte(CP_ACP, 0, Wide(text), length, reinterpret_cast<char*>(bytes.Data()), size, nullptr, nullptr);
  return bytes;
}

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
      Members{{"Number", error.number}, {"Description", error.description}, {"Source", error.source}});
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
