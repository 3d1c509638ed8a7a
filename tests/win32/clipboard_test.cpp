// The clipboard that all programs share.

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "platform/win32/windows_api.h"
#include "tests/win32/scarce_memory.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

TEST(Clipboard, WhatIsThrownWhileItIsOpen_LeavesItClosed) {
  Stage stage;
  Clipboard& clipboard = platform::Clipboard();
  const String text = std::u16string(100'000, u'x');
  for (const Long format : {Long{CF_TEXT}, Long{CF_UNICODETEXT}}) {
    clipboard.SetText(text, format);
    {
      const ScarceMemory scarce(50'000);
      EXPECT_THROW(clipboard.GetText(format), std::bad_alloc) << format;
      EXPECT_FALSE(::CloseClipboard()) << format;
    }
    EXPECT_EQ(clipboard.GetText(format), text) << format;
  }
  const ScarceMemory scarce(50'000);
  EXPECT_THROW(clipboard.SetText(text, CF_TEXT), std::bad_alloc);
  EXPECT_FALSE(::CloseClipboard());
}

}  // namespace strandline::win32test
