#pragma once

#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "platform/host.h"
#include "platform/runtime.h"
#include "platform/windows.h"

namespace strandline::desk {

// The process, its user and its screen, all settable. The calendar goes with the virtual clock. An open message box
// lets messages run once; then its handler answers.
class DeskRunTime final : public RunTime {
 public:
  // The user's answer, as one of msgbox's numbers. `title` null: the host's own.
  using BoxHandler = std::function<Long(const String& text, Long style, const String* title)>;

  // Windows and clock outlive this.
  DeskRunTime(Windows& windows, HostClock& clock) : mWindows(windows), mClock(clock) {}

  void SetCommandLine(const String& commandLine) { mCommandLine = commandLine; }
  // Sections and keys are taken without case.
  void SetSetting(const String& section, const String& key, const String& value);
  // The calendar's date and time at the clock's beginning.
  void SetStart(Date start) { mStart = start; }
  // Of the application object.
  void SetPath(const String& path) { mPath = path; }
  // Null: OK, or Yes where the box asks.
  void SetBoxHandler(BoxHandler handler) { mBoxHandler = std::move(handler); }
  // Pixels, and dots per inch in both directions. What isn't positive is ignored.
  void SetScreen(Long width, Long height);
  void SetDpi(Long dpi);
  Long Dpi() const { return mDpi; }

  String CommandLine() override { return mCommandLine; }
  String GetSetting(const String& section, const String& key, const String& defaultValue) override;
  Date Now() override;
  // The user is in the United States: see date_text.h.
  Date DateFromText(const String& text) override;
  String TextFromDate(Date date) override;
  String LowerCase(const String& text) override { return strandline::LowerCase(text); }
  Long MsgBox(const String& text, Long style, const String* title) override;
  Double TwipsPerPixelX() override;
  Double TwipsPerPixelY() override { return TwipsPerPixelX(); }
  // The code page is 1252.
  String TextFromBytes(const Array<Byte>& bytes) override;
  Array<Byte> BytesFromText(const String& text) override;

  Object ApplicationObject() override;
  Object ErrorObject(const Error& error) override;
  Object ScreenObject() override;
  // The desk has no printer.
  Object PrinterObject() override { return nullptr; }

 private:
  using SettingName = std::pair<String, String>;

  Windows& mWindows;
  HostClock& mClock;
  String mCommandLine;
  std::map<SettingName, String> mSettings;  // section and key in lower case
  Date mStart;
  String mPath = u"C:\\Program Files\\Quillmere";
  BoxHandler mBoxHandler;
  Long mWidth = 1024;
  Long mHeight = 768;
  Long mDpi = 96;
  Object mApplication;  // made when first asked for
  Long mErrorObjects = 0;
};

// The date of a calendar day and time; days since 1899-12-30.
Date MakeDate(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

}  // namespace strandline::desk
