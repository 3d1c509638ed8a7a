#pragma once

#include "platform/runtime.h"

namespace strandline::win32 {

// The process and its user. Settings stand in the user's registry below `settingsKey`, a key for each section.
class Win32RunTime final : public RunTime {
 public:
  explicit Win32RunTime(String settingsKey) : mSettingsKey(std::move(settingsKey)) {}

  String CommandLine() override;
  String GetSetting(const String& section, const String& key, const String& defaultValue) override;
  Date Now() override;
  Long MsgBox(const String& text, Long style, const String* title) override;
  Double TwipsPerPixelX() override;
  Double TwipsPerPixelY() override;
  Object ApplicationObject() override { return nullptr; }
  Object ErrorObject(const Error&) override { return nullptr; }
  Object ScreenObject() override { return nullptr; }
  Object PrinterObject() override { return nullptr; }

 private:
  String mSettingsKey;
};

}  // namespace strandline::win32
