#pragma once

// The system's clipboard, each operation under its Windows name, with Windows' own numbers and meanings; a result of 0
// is a failure where nothing else is said.
//
// Only who has it open may read, empty or fill it; the others are refused meanwhile, other windows of this thread as
// well. The window that has it open may open it again, and closes it once. Its data are memory blocks (pictures.h), of
// the format kBitmap a bitmap. Data on demand isn't in: what is put there is there at once.

#include "platform/picture.h"
#include "platform/text.h"
#include "platform/values.h"

namespace strandline {

namespace clipboardformat {
inline constexpr Long kText = 1;  // in the system's single-byte set, ended by a NUL
inline constexpr Long kBitmap = 2;
inline constexpr Long kOemText = 7;  // in the console's single-byte set
inline constexpr Long kUnicodeText = 13;
inline constexpr Long kDropList = 15;
inline constexpr Long kLocale = 16;          // of the plain text; the system adds it
inline constexpr Long kLastStandard = 17;    // of the formats that have a number and no name
inline constexpr Long kFirstNamed = 0xC000;  // from here on formats have names
inline constexpr Long kLast = 0xFFFF;
}  // namespace clipboardformat

namespace errors {
inline constexpr Long kInvalidPicture = 481;
inline constexpr Long kCannotOpenClipboard = 521;
}  // namespace errors

class Clipboard {
 public:
  virtual ~Clipboard() = default;

  // `hwnd` 0: for the program as a whole, with the same rights.
  virtual Long OpenClipboard(Long hwnd) = 0;
  // Now the clipboard adds what it can make of a text: kText, kOemText and kUnicodeText of one of them, and kLocale.
  virtual Long CloseClipboard() = 0;
  // Frees all that is on it, what GetClipboardData has given with it.
  virtual Long EmptyClipboard() = 0;

  // Puts the data there in place of what it had in that format, and gives them back. The clipboard then owns them: they
  // may be read until it is closed and must not be freed. The last character of a text is taken for the NUL that ends
  // it. When it failed (closed, no such format, no such data, a block of no bytes) they still are the caller's.
  virtual Long SetClipboardData(Long format, Long data) = 0;
  // The clipboard's own, to be read only; they live until it is emptied or gets others in their place.
  virtual Long GetClipboardData(Long format) = 0;

  // The number of a format, the same for every program; names are taken without case, up to a NUL.
  virtual Long RegisterClipboardFormatA(const String& name) = 0;
  // At most limit - 1 characters; empty for a format that has no name.
  virtual String GetClipboardFormatNameA(Long format, Long limit) = 0;
  // The format after that one (0: the first), in the order in which they came; 0 after the last and when it is closed.
  virtual Long EnumClipboardFormats(Long format) = 0;
  // These two need no opening.
  virtual Long CountClipboardFormats() = 0;
  virtual Long IsClipboardFormatAvailable(Long format) = 0;

  // Of a list of files as kDropList has it. Index -1: how many. Limit 0: how many characters the name of that file has.
  // Otherwise at most limit - 1 characters of it go to `name`, and the result is how many.
  virtual Long DragQueryFileA(Long drop, Long index, Long limit, String& name) = 0;

  // The run time's own clipboard object, which opens and closes by itself. It stands here and not with the run time
  // since it is refused by the same opening: all raise 521 while anybody has the clipboard open. The format is kText or
  // kUnicodeText; others raise 5.
  virtual String GetText(Long format) = 0;                    // empty when there is none
  virtual void SetText(const String& text, Long format) = 0;  // in place of everything
  // A copy of the picture's bitmap in place of everything. Raises 91 for Nothing, 481 for a picture without a bitmap.
  virtual void SetPicture(const Picture& picture) = 0;
};

[[noreturn]] inline void RaiseCannotOpenClipboard() { Raise(errors::kCannotOpenClipboard, u"Can't open Clipboard"); }
[[noreturn]] inline void RaiseInvalidPicture() { Raise(errors::kInvalidPicture, u"Invalid picture"); }

}  // namespace strandline
