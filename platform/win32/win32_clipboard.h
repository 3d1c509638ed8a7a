#pragma once

#include "platform/clipboard.h"
#include "platform/win32/win32_memory.h"

namespace strandline::win32 {

// The system's clipboard. Memory has the same numbers as with Win32Pictures on that memory; bitmaps, palettes and
// enhanced metafiles are their own handles.
class Win32Clipboard final : public Clipboard {
 public:
  // The memory outlives this.
  explicit Win32Clipboard(Win32Memory& memory) : mMemory(memory) {}

  Long OpenClipboard(Long hwnd) override;
  Long CloseClipboard() override;
  Long EmptyClipboard() override;
  Long SetClipboardData(Long format, Long data) override;
  Long GetClipboardData(Long format) override;
  Long RegisterClipboardFormatA(const String& name) override;
  String GetClipboardFormatNameA(Long format, Long limit) override;
  Long EnumClipboardFormats(Long format) override;
  Long CountClipboardFormats() override;
  Long IsClipboardFormatAvailable(Long format) override;
  Long DragQueryFileA(Long drop, Long index, Long limit, String& name) override;
  String GetText(Long format) override;
  void SetText(const String& text, Long format) override;
  void SetPicture(const Picture& picture) override;

 private:
  void OpenForItself();
  void OpenForText(Long format);

  Win32Memory& mMemory;
  bool mIsOpen = false;  // by this
};

}  // namespace strandline::win32
