#pragma once

#include "platform/runtime.h"

namespace strandline::win32 {

// The process and its user. Settings stand in the user's registry below `settingsKey`, a key for each section.
class Win32RunTime final : public RunTime {
 public:
  explicit Win32RunTime(String settingsKey) : mSettingsKey(std::move(settingsKey)) {}

  String CommandLine() override;
  String GetSetting(const String& section, const String& key, const String& defaultValue) override;
  // Whole seconds of the user's local time.
  Date Now() override;
  Date DateFromText(const String& text) override;
  String TextFromDate(Date date) override;
  String LowerCase(const String& text) override;
  // The thread's active window owns the box.
  Long MsgBox(const String& text, Long style, const String* title) override;
  Double TwipsPerPixelX() override;
  Double TwipsPerPixelY() override;
  // The code page is the system's for programs that don't speak Unicode.
  String TextFromBytes(const Array<Byte>& bytes) override;
  Array<Byte> BytesFromText(const String& text) override;

  Object ApplicationObject() override;
  Object ErrorObject(const Error& error) override;
  Object ScreenObject() override;
  // The user's default printer; Nothing without one.
  Object PrinterObject() override;

 private:
  String mSettingsKey;
  Object mApplication;  // made when first asked for
  Long mErrors = 0;
};

}  // namespace strandline::win32
