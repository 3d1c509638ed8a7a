#pragma once

// What the process, its user and its screen tell: the command line, the settings store, the clock, dates in text,
// lower case, message boxes, the code page, and the objects by which a report shows the run time's own state.

#include "platform/variant.h"

namespace strandline {

namespace msgbox {
inline constexpr Long kOk = 0;
inline constexpr Long kYesNoCancel = 3;
inline constexpr Long kExclamation = 48;
inline constexpr Long kAnswerOk = 1;
inline constexpr Long kAnswerCancel = 2;
inline constexpr Long kAnswerYes = 6;
inline constexpr Long kAnswerNo = 7;
}  // namespace msgbox

class RunTime {
 public:
  virtual ~RunTime() = default;

  virtual String CommandLine() = 0;  // of the host process
  // A value of the user's settings store under the library's title; the default where there is none.
  virtual String GetSetting(const String& section, const String& key, const String& defaultValue) = 0;
  virtual Date Now() = 0;
  // A date, with or without a time of day, as the user's locale writes it; 13 where it isn't one.
  virtual Date DateFromText(const String& text) = 0;
  // The other way, in the locale's short form: without a time at midnight, without a date on day 0. A date outside the
  // calendar raises 5.
  virtual String TextFromDate(Date date) = 0;
  // Each character's partner by the system's table, whatever the language.
  virtual String LowerCase(const String& text) = 0;
  // Shows a message and waits for the user's answer. Without a title of its own the box bears the host's.
  virtual Long MsgBox(const String& text, Long style, const String* title) = 0;
  // Of the screen; 15 at 96 dots per inch.
  virtual Double TwipsPerPixelX() = 0;
  virtual Double TwipsPerPixelY() = 0;

  // Between texts and bytes in the default code page, NULs as they are. A byte or character that the other side lacks
  // becomes one that says so, a question mark among the bytes. The array is from 0; of no text, sized and empty.
  virtual String TextFromBytes(const Array<Byte>& bytes) = 0;
  virtual Array<Byte> BytesFromText(const String& text) = 0;

  // For a report: the application, the error at hand, the screen, the printer; Nothing for what doesn't exist.
  virtual Object ApplicationObject() = 0;
  virtual Object ErrorObject(const Error& error) = 0;
  virtual Object ScreenObject() = 0;
  virtual Object PrinterObject() = 0;
};

}  // namespace strandline
