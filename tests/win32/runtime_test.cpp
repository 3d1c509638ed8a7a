// The process, its user and its screen on the real system.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win32/windows_api.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

constexpr wchar_t kSection[] = L"Software\\Strandline Tests\\Init";

// A section of the settings, gone with this.
class Section {
 public:
  Section() { ::RegCreateKeyExW(HKEY_CURRENT_USER, kSection, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &mKey, nullptr); }
  ~Section() {
    ::RegCloseKey(mKey);
    ::RegDeleteKeyW(HKEY_CURRENT_USER, kSection);
    ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Strandline Tests");
  }
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;

  void Set(const wchar_t* name, DWORD type, const void* data, std::size_t bytes) {
    ::RegSetValueExW(mKey, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes));
  }
  void Set(const wchar_t* name, const std::wstring& text, std::size_t more = 1) {
    Set(name, REG_SZ, text.c_str(), (text.size() + more) * sizeof(wchar_t));
  }

 private:
  HKEY mKey = nullptr;
};

Long boxAnswer = 0;
String boxTitle;
Long boxOwner = 0;
Long boxWitness = 0;  // a window of which to note
bool isWitnessEnabled = false;
void OnBoxTimer(Long hwnd, Long, Long id, Long) {
  const String dialogClass = u"#32770";
  const Long box = platform::Windows().FindWindowA(&dialogClass, nullptr);
  if (box == 0) return;
  platform::Windows().KillTimer(hwnd, id);
  boxTitle = platform::Windows().GetWindowTextA(box, 256);
  boxOwner = win32::ToNumber(::GetWindow(win32::ToHandle<HWND>(box), GW_OWNER));
  isWitnessEnabled = ::IsWindowEnabled(win32::ToHandle<HWND>(boxWitness));
  constexpr Long kCommand = 273;
  platform::Windows().SendMessageA(box, kCommand, boxAnswer, 0);
}

void ShowBox(const String* title) {
  boxAnswer = msgbox::kAnswerOk;
  boxTitle = {};
  boxOwner = -1;
  const Long timer = platform::Windows().SetTimer(0, 0, 10, &OnBoxTimer);
  ASSERT_NE(timer, 0);
  EXPECT_EQ(platform::RunTime().MsgBox(u"Well?", msgbox::kOk, title), msgbox::kAnswerOk);
}

// As when another program is at the front; false where that can't be.
bool Deactivate(const TestWindow& window, bool shown) {
  const HWND hwnd = win32::ToHandle<HWND>(window.Hwnd());
  ::ShowWindow(hwnd, SW_HIDE);
  ::SetActiveWindow(nullptr);
  if (shown) ::ShowWindow(hwnd, SW_SHOWNA);
  return ::GetActiveWindow() == nullptr;
}

Long NumberOfError(const Object& object, Name member) {
  try {
    object.Get(member);
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

}  // namespace

TEST(RunTime, TheCommandLine_IsTheProcesss) {
  Stage stage;
  EXPECT_EQ(platform::RunTime().CommandLine(), String(reinterpret_cast<const char16_t*>(::GetCommandLineW())));
  EXPECT_FALSE(platform::RunTime().CommandLine().IsEmpty());
}

TEST(RunTime, Now_IsTheUsersTime) {
  Stage stage;
  const Double first = platform::RunTime().Now().days;
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  Double middle = 0;
  ::SystemTimeToVariantTime(&now, &middle);
  const Double last = platform::RunTime().Now().days;
  EXPECT_LE(first, middle);
  EXPECT_LE(middle, last);
  EXPECT_GT(first, 45'000);
}

TEST(RunTime, Settings_AreTextsOfASection) {
  Stage stage;
  RunTime& runTime = platform::RunTime();
  EXPECT_EQ(runTime.GetSetting(u"Init", u"text", u"default"), u"default");
  Section section;
  const DWORD number = 7;
  const std::wstring longText(5000, L'x');
  section.Set(L"text", L"v\u00E4lue \u4E2D");
  section.Set(L"empty", L"");
  section.Set(L"long", longText);
  section.Set(L"unended", L"abc", 0);
  section.Set(L"twice", std::wstring(L"one\0two", 7));
  section.Set(L"number", REG_DWORD, &number, sizeof number);
  EXPECT_EQ(runTime.GetSetting(u"Init", u"text", u"default"), u"v\u00E4lue \u4E2D");
  EXPECT_EQ(runTime.GetSetting(u"INIT", u"TEXT", u"default"), u"v\u00E4lue \u4E2D");
  EXPECT_EQ(runTime.GetSetting(u"Init", u"empty", u"default"), u"");
  EXPECT_EQ(runTime.GetSetting(u"Init", u"long", u"default").Length(), 5000);
  EXPECT_EQ(runTime.GetSetting(u"Init", u"unended", u"default"), u"abc");
  EXPECT_EQ(runTime.GetSetting(u"Init", u"twice", u"default"), u"one");
  EXPECT_EQ(runTime.GetSetting(u"Init", u"number", u"default"), u"default");
  EXPECT_EQ(runTime.GetSetting(u"Init", u"absent", u"default"), u"default");
  EXPECT_EQ(runTime.GetSetting(u"Elsewhere", u"text", u"default"), u"default");
}

TEST(RunTime, Twips_AreThoseOfTheScreensResolution) {
  Stage stage;
  const HDC screen = ::GetDC(nullptr);
  const Double across = 1440.0 / ::GetDeviceCaps(screen, LOGPIXELSX);
  const Double down = 1440.0 / ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  EXPECT_EQ(platform::RunTime().TwipsPerPixelX(), across);
  EXPECT_EQ(platform::RunTime().TwipsPerPixelY(), down);
}

TEST(RunTime, TheApplication_IsTheModule) {
  Stage stage;
  const Object application = platform::RunTime().ApplicationObject();
  EXPECT_TRUE(application == platform::RunTime().ApplicationObject());
  EXPECT_EQ(application.Get("Title").ToText(), u"Strandline");
  wchar_t file[1024];
  const DWORD length = ::GetModuleFileNameW(nullptr, file, 1024);
  const String whole = Concat({application.Get("Path").ToText(), u"\\", application.Get("EXEName").ToText(), u".exe"});
  EXPECT_EQ(LowerCase(whole), LowerCase(win32::FromWide(file, length)));
  for (const Name member : {Name("Major"), Name("Minor"), Name("Revision")}) {
    EXPECT_GE(application.Get(member).ToLong(), 0);
  }
  EXPECT_EQ(NumberOfError(application, "Absent"), errors::kNoSuchMember);
}

TEST(RunTime, AnError_IsAnObjectOfItsOwn) {
  Stage stage;
  const Object first = platform::RunTime().ErrorObject({errors::kOverflow, u"too much"});
  const Object second = platform::RunTime().ErrorObject({errors::kOverflow, u"too much", u"Word"});
  EXPECT_EQ(first.Get("Number").ToLong(), errors::kOverflow);
  EXPECT_EQ(first.Get("Description").ToText(), u"too much");
  EXPECT_EQ(first.Get("Source").ToText(), u"Strandline");
  EXPECT_EQ(second.Get("Source").ToText(), u"Word");
  EXPECT_NE(first.Identity(), second.Identity());
}

TEST(RunTime, TheScreen_IsInTwips) {
  Stage stage;
  const Object screen = platform::RunTime().ScreenObject();
  EXPECT_EQ(screen.Get("TwipsPerPixelX").ToDouble(), platform::RunTime().TwipsPerPixelX());
  EXPECT_EQ(screen.Get("Width").ToDouble(), ::GetSystemMetrics(SM_CXSCREEN) * platform::RunTime().TwipsPerPixelX());
  EXPECT_EQ(screen.Get("Height").ToDouble(), ::GetSystemMetrics(SM_CYSCREEN) * platform::RunTime().TwipsPerPixelY());
}

TEST(RunTime, ThePrinter_IsTheDefaultOne) {
  Stage stage;
  wchar_t kept[512] = L"";
  ::GetProfileStringW(L"windows", L"device", L"", kept, 512);
  ::WriteProfileStringW(L"windows", L"device", L"");
  EXPECT_TRUE(platform::RunTime().PrinterObject().IsNothing());
  ::WriteProfileStringW(L"windows", L"device", L"without commas");
  EXPECT_TRUE(platform::RunTime().PrinterObject().IsNothing());
  ::WriteProfileStringW(L"windows", L"device", L"Office laser,winspool,Ne00:");
  const Object printer = platform::RunTime().PrinterObject();
  EXPECT_FALSE(printer.IsNothing());
  if (!printer.IsNothing()) {
    EXPECT_EQ(printer.Get("DeviceName").ToText(), u"Office laser");
    EXPECT_EQ(printer.Get("DriverName").ToText(), u"winspool");
    EXPECT_EQ(printer.Get("Port").ToText(), u"Ne00:");
  }
  ::WriteProfileStringW(L"windows", L"device", kept);
}

TEST(MsgBox, GivesTheUsersAnswer) {
  Stage stage;
  TestWindow window(u"The host");
  const String title = u"A box";
  const struct {
    Long answer;
    const String* title;
    const char16_t* shown;
  } cases[] = {{msgbox::kAnswerYes, &title, u"A box"},
               {msgbox::kAnswerNo, nullptr, u"The host"},
               {msgbox::kAnswerCancel, &title, u"A box"}};
  for (const auto& c : cases) {
    boxAnswer = c.answer;
    platform::Windows().SetTimer(window.Hwnd(), 80, 10, &OnBoxTimer);
    EXPECT_EQ(platform::RunTime().MsgBox(u"Well?", msgbox::kYesNoCancel | msgbox::kExclamation, c.title), c.answer);
    EXPECT_EQ(boxTitle, c.shown);
  }
}

TEST(MsgBox, WithoutAnActiveWindow_BelongsToTheHostsOwn) {
  Stage stage;
  TestWindow hidden(u"Hidden");
  ASSERT_TRUE(Deactivate(hidden, false));
  TestWindow window(u"The host");
  ASSERT_TRUE(Deactivate(window, true));
  boxWitness = window.Hwnd();
  ShowBox(nullptr);
  EXPECT_EQ(boxOwner, window.Hwnd());
  EXPECT_EQ(boxTitle, u"The host");
  EXPECT_FALSE(isWitnessEnabled);
}

TEST(MsgBox, OverADialogThatKeepsTheHostWaiting_BelongsToThat) {
  Stage stage;
  TestWindow window(u"The host");
  const HWND host = win32::ToHandle<HWND>(window.Hwnd());
  const HWND dialog = ::CreateWindowExW(0, L"STATIC", L"A dialog", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, host, nullptr,
                                        ::GetModuleHandleW(nullptr), nullptr);
  ::SetActiveWindow(dialog);
  ::EnableWindow(host, FALSE);
  ::SetActiveWindow(nullptr);
  ASSERT_EQ(::GetActiveWindow(), nullptr);
  ShowBox(nullptr);
  EXPECT_EQ(boxOwner, win32::ToNumber(dialog));
  EXPECT_EQ(boxTitle, u"A dialog");
  ::DestroyWindow(dialog);
}

TEST(MsgBox, WithoutAnyWindow_StillKeepsTheThreadsWindowsFromTheUser) {
  Stage stage;
  TestWindow window(u"Hidden");
  ASSERT_TRUE(Deactivate(window, false));
  boxWitness = window.Hwnd();
  const String title = u"A box";
  ShowBox(&title);
  EXPECT_EQ(boxOwner, 0);
  EXPECT_EQ(boxTitle, u"A box");
  EXPECT_FALSE(isWitnessEnabled);
  EXPECT_TRUE(::IsWindowEnabled(win32::ToHandle<HWND>(window.Hwnd())));
}

}  // namespace strandline::win32test
