// What goes to the clipboard and comes from it: bytes, texts, lists of files.

#include <algorithm>

#include "foundation/cCustomClipboard.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {

using namespace clipboardformat;

constexpr ModuleInfo kModuleInfo{u"cCustomClipboard", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

constexpr Long kSharedMemory = 8192;  // GMEM_DDESHARE

// UTF-8 as it begins: Latin letters, and the dashes and quotation marks of typesetting.
constexpr Byte kLatinLead = 0xC3;
constexpr Byte kPunctuationLead = 0xE2;
constexpr Byte kPunctuationSecond = 0x80;
constexpr Byte kNoBreakSpace = 0xA0;
// What is left of the characters whose lead is 0xC2: their second byte is already the one wanted.
constexpr char16_t kLeftover = 0x00C2;

// A list of files: where the names begin, a point, whether that is on the window's border, whether the names are wide.
constexpr Long kDropFilesSize = 20;
constexpr Long kDropFilesWide = 16;

Array<Byte> First(const Array<Byte>& bytes, Long count) {
  Array<Byte> first(0, count - 1);
  std::copy_n(bytes.Elements().begin(), count, first.Data());
  return first;
}

Byte ToByte(Long value) {
  if (value < 0 || value > 0xFF) Raise(errors::kOverflow);
  return static_cast<Byte>(value);
}

String Without(const String& text, char16_t character) {
  std::u16string rest(text.View());
  std::erase(rest, character);
  return rest;
}

// One byte longer than the text, so that a NUL ends it. Of a set with longer characters the text gets what has room.
Array<Byte> EndedBytes(const String& text) {
  const Array<Byte> codes = platform::RunTime().BytesFromText(text);
  const auto count = std::min(codes.Elements().size(), text.View().size());
  Array<Byte> bytes(0, text.Length());
  std::copy_n(codes.Elements().begin(), count, bytes.Data());
  return bytes;
}

// A path of a list of files; empty when there is none at that index (from 0).
String DroppedFile(Long drop, Long index) {
  Clipboard& clipboard = platform::Clipboard();
  String name;
  const Long length = clipboard.DragQueryFileA(drop, index, 0, name);
  if (length > 0) clipboard.DragQueryFileA(drop, index, length + 1, name);
  return name;
}

// The paths, each with the NUL that ends it.
std::u16string DropNames(const Array<String>& files) {
  std::u16string names;
  for (const String& file : files.Elements()) {
    const TextView path = file.View().substr(0, file.View().find(u'\0'));
    // An empty one would end the list.
    if (path.empty()) continue;
    names += path;
    names += u'\0';
  }
  return names;
}

// The names are wide, so that they don't depend on the code page.
Array<Byte> DropFiles(TextView names) {
  Array<Byte> list(0, ToLong(kDropFilesSize + 2 * (static_cast<std::int64_t>(names.size()) + 1) - 1));
  list(0) = kDropFilesSize;
  list(kDropFilesWide) = 1;
  Byte* at = list.Data() + kDropFilesSize;
  for (const char16_t c : names) {
    *at++ = static_cast<Byte>(c);
    *at++ = static_cast<Byte>(c >> 8);
  }
  return list;
}

}  // namespace

// ---- Bytes.

Boolean cCustomClipboard::GetBinaryData(Long& lFormatId, Array<Byte>& bData) {
  METHOD(Boolean, u"GetBinaryData", lFormatId, bData);
  Long hMem = 0;
  Long lSize = 0;
  const Byte* lPtr = nullptr;
  REPORTS(hMem, lSize);
  setlFormatId(lFormatId);
  bData.Erase();
  hMem = GetClipboardMemoryHandle(lFormatId);
  if (hMem == 0) return here.Leave();
  STEP(lSize = platform::Pictures().GlobalSize(hMem));
  STEP(lPtr = platform::Pictures().GlobalLock(hMem));
  // A block that can't be locked can't be read, whatever its size.
  if (!lPtr) return here.Leave();
  if (lSize > 0) {
    STEP(bData.Size(0, lSize - 1); std::copy_n(lPtr, lSize, bData.Data()));
  }
  STEP(platform::Pictures().GlobalUnlock(hMem));
  return here.result = lSize >= 1;
}

Long cCustomClipboard::GetClipboardMemoryHandle(Long& lFormatId) {
  METHOD(Long, u"GetClipboardMemoryHandle", lFormatId);
  setlFormatId(lFormatId);
  STEP(pbNotReady());
  STEP(here.result = platform::Clipboard().GetClipboardData(lFormatId));
  return here.Leave();
}

Boolean cCustomClipboard::SetBinaryData(Long& lFormatId, const Array<Byte>& bData) {
  METHOD(Boolean, u"SetBinaryData", lFormatId, bData);
  Long lSize = 0;
  Long hMem = 0;
  Byte* lPtr = nullptr;
  REPORTS(lSize, hMem);
  setlFormatId(lFormatId);
  STEP(pbNotReady());
  STEP(lSize = ToLong(std::int64_t{bData.Upper()} - bData.Lower() + 1));
  STEP(hMem = platform::Pictures().GlobalAlloc(kSharedMemory, lSize));
  // Without memory there is nothing to hand over; to the system none would mean that the data come later.
  if (hMem == 0) return here.Leave();
  STEP(lPtr = platform::Pictures().GlobalLock(hMem));
  if (lPtr) {
    STEP(std::copy(bData.Elements().begin(), bData.Elements().end(), lPtr));
    STEP(platform::Pictures().GlobalUnlock(hMem));
    here.result = SetClipboardMemoryHandle(lFormatId, hMem);
  }
  if (!here.result) STEP(platform::Pictures().GlobalFree(hMem));
  return here.Leave();
}

Boolean cCustomClipboard::SetClipboardMemoryHandle(Long& lFormatId, Long hMem) {
  METHOD(Boolean, u"SetClipboardMemoryHandle", lFormatId, hMem);
  setlFormatId(lFormatId);
  STEP(here.result = platform::Clipboard().SetClipboardData(lFormatId, hMem) != 0);
  return here.Leave();
}

// ---- Texts.

// Bytes are read from `i` on and written from `j` on, in place: characters in UTF-8 become single bytes. A lead that
// isn't followed by what it announces is passed over, and what stands at its place stays there; bytes that end amid a
// mark of punctuation raise 9, and a byte that its change takes out of its range raises 6.
// odd: folded-bytes
Boolean cCustomClipboard::GetTextData(String& sTextOut, Long& lFormatId) {
  METHOD(Boolean, u"GetTextData", sTextOut, lFormatId);
  Array<Byte> bData;
  Long i = 0;
  Long j = 0;
  Long lHwndCache = 0;
  Long last = -1;
  Integer byte = 0;
  REPORTS(bData, i, j, lHwndCache, last, byte);
  setlFormatId(lFormatId);
  if (lFormatId == kText || lFormatId == kUnicodeText) {
    if (m_bClipboardIsOpen) {
      lHwndCache = m_hWnd;
      ClipboardClose(true);
    }
    STEP(sTextOut = platform::Clipboard().GetText(lFormatId));
    ClipboardOpen(lHwndCache, true);
    return here.result = true;
  }
  if (!GetBinaryData(lFormatId, bData)) return here.Leave();
  STEP(last = bData.Upper());
  while (i <= last) {
    STEP(byte = bData(i));
    if (byte == kLatinLead) {
      if (i < last) {
        STEP(bData(j) = ToByte(bData(i + 1) + 64));
        ++i;
      }
    } else if (byte == kNoBreakSpace) {
      STEP(bData(j) = u' ');
    } else if (byte == kPunctuationLead) {
      // So as it stands: the test of the place holds always, and it is the subscript that ends a mark cut short.
      CONDITION(isMark, i - 2 <= last && bData(i + 1) == kPunctuationSecond);
      if (isMark) {
        STEP(bData(j) = ToByte(bData(i + 2) - 9));
        i += 2;
      }
    } else {
      STEP(bData(j) = static_cast<Byte>(byte));
    }
    ++i;
    ++j;
  }
  if (i != j) STEP(bData = First(bData, j));
  STEP(sTextOut = platform::RunTime().TextFromBytes(bData));
  STEP(sTextOut = Without(sTextOut, kLeftover));
  return here.result = true;
}

Boolean cCustomClipboard::SetTextData(Long& lFormatId, const String& sText) {
  METHOD(Boolean, u"SetTextData", lFormatId, sText);
  Array<Byte> bData;
  REPORTS(bData);
  setlFormatId(lFormatId);
  if (sText.IsEmpty()) return here.Leave();
  STEP(bData = EndedBytes(sText));
  return here.result = SetBinaryData(lFormatId, bData);
}

// ---- Lists of files.

Boolean cCustomClipboard::GetFileList(Array<String>& sFiles, Long& iFileCount) {
  METHOD(Boolean, u"GetFileList", sFiles, iFileCount);
  Long lFormatId = kDropList;
  Long hDrop = 0;
  Long i = 0;
  String unused;
  REPORTS(lFormatId, hDrop, i);
  sFiles.Erase();
  iFileCount = 0;
  hDrop = GetClipboardMemoryHandle(lFormatId);
  if (hDrop == 0) return here.Leave();
  STEP(iFileCount = platform::Clipboard().DragQueryFileA(hDrop, -1, 0, unused));
  if (iFileCount < 1) return here.Leave();
  STEP(sFiles.Size(1, iFileCount));
  for (i = 1; i <= iFileCount; ++i) STEP(sFiles(i) = DroppedFile(hDrop, i - 1));
  return here.result = true;
}

Boolean cCustomClipboard::SetFileList(const Array<String>& sFiles) {
  METHOD(Boolean, u"SetFileList", sFiles);
  Long lFormatId = kDropList;
  Array<Byte> bData;
  std::u16string names;
  REPORTS(lFormatId, bData);
  STEP(names = DropNames(sFiles));
  if (names.empty()) return here.Leave();
  STEP(bData = DropFiles(names));
  return here.result = SetBinaryData(lFormatId, bData);
}

}  // namespace strandline
