// What the desk's clipboard has beyond the contract: other programs, misuse, and an exact account of memory.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/desk/desk.h"
#include "platform/desk/desk_clipboard_text.h"

namespace strandline::desk {
namespace {

using namespace clipboardformat;

using Bytes = std::vector<Byte>;
using Formats = std::vector<Long>;

class ClipboardTest : public testing::Test {
 protected:
  Long MakeMemory(const Bytes& bytes) {
    const Long memory = mDesk.Pictures().GlobalAlloc(2, static_cast<Long>(bytes.size()));
    Byte* const at = mDesk.Pictures().GlobalLock(memory);
    if (at) std::copy(bytes.begin(), bytes.end(), at);
    mDesk.Pictures().GlobalUnlock(memory);
    return memory;
  }
  Bytes Read(Long memory) {
    const Byte* const at = mDesk.Pictures().GlobalLock(memory);
    Bytes bytes(at, at + (at ? mDesk.Pictures().GlobalSize(memory) : 0));
    mDesk.Pictures().GlobalUnlock(memory);
    return bytes;
  }
  // What a reader finds who opens for it.
  Bytes ReadFormat(Long format) {
    EXPECT_EQ(mClipboard.OpenClipboard(0), 1);
    const Long memory = mClipboard.GetClipboardData(format);
    const Bytes bytes = memory ? Read(memory) : Bytes();
    mClipboard.CloseClipboard();
    return bytes;
  }
  // Puts the data there alone, and closes.
  Long Put(Long format, Long data) {
    EXPECT_EQ(mClipboard.OpenClipboard(0), 1);
    mClipboard.EmptyClipboard();
    const Long result = mClipboard.SetClipboardData(format, data);
    mClipboard.CloseClipboard();
    return result;
  }
  Long MakeBitmap(Long color) {
    const Long screen = mDesk.Graphics().GetDC(0);
    const Long bitmap = mDesk.Graphics().CreateCompatibleBitmap(screen, 3, 2);
    const Long memory = mDesk.Graphics().CreateCompatibleDC(screen);
    const Long former = mDesk.Graphics().SelectObject(memory, bitmap);
    mDesk.Canvas().FillRectangle(memory, {0, 0, 3, 2}, color);
    mDesk.Graphics().SelectObject(memory, former);
    mDesk.Graphics().DeleteDC(memory);
    mDesk.Graphics().ReleaseDC(0, screen);
    return bitmap;
  }
  std::vector<std::string> Misuses() const {
    std::vector<std::string> list;
    for (const Misuse& misuse : mDesk.Misuses().All()) list.push_back(misuse.what + ", " + misuse.call);
    return list;
  }
  Formats Listed() {
    Formats list;
    mClipboard.OpenClipboard(0);
    for (Long format = 0; (format = mClipboard.EnumClipboardFormats(format)) != 0;) list.push_back(format);
    mClipboard.CloseClipboard();
    return list;
  }
  int LiveBlocks() const { return mDesk.Pictures().Memory().LiveBlocks(); }

  mutable Desk mDesk;
  DeskClipboard& mClipboard = mDesk.Clipboard();
};

Long ErrorOf(const std::function<void()>& use) {
  try {
    use();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

TEST_F(ClipboardTest, HeldByAnother_RefusesToOpen) {
  EXPECT_TRUE(mClipboard.HoldByAnother(true));
  EXPECT_EQ(mClipboard.OpenClipboard(0), 0);
  EXPECT_EQ(mClipboard.CloseClipboard(), 0);
  EXPECT_EQ(ErrorOf([this] { mClipboard.GetText(kText); }), errors::kCannotOpenClipboard);
  EXPECT_EQ(ErrorOf([this] { mClipboard.SetText(u"x", kText); }), errors::kCannotOpenClipboard);
  EXPECT_TRUE(mClipboard.SetTextFromOutside(u"held")) << "the one who holds it may fill it";
  EXPECT_EQ(mClipboard.IsClipboardFormatAvailable(kText), 1);
  EXPECT_TRUE(mClipboard.HoldByAnother(false));
  EXPECT_EQ(mClipboard.GetText(kText), u"held");
}

TEST_F(ClipboardTest, OpenHere_KeepsOthersOut) {
  EXPECT_EQ(mClipboard.OpenClipboard(0), 1);
  EXPECT_TRUE(mClipboard.IsOpen());
  EXPECT_FALSE(mClipboard.HoldByAnother(true));
  EXPECT_FALSE(mClipboard.SetTextFromOutside(u"x"));
  EXPECT_FALSE(mClipboard.EmptyFromOutside());
  EXPECT_EQ(mClipboard.CloseClipboard(), 1);
  EXPECT_FALSE(mClipboard.IsOpen());
  EXPECT_EQ(mClipboard.CountClipboardFormats(), 0);
}

TEST_F(ClipboardTest, Outside_PutsTextsAndRichTextBesideEachOther) {
  mClipboard.SetRichTextFromOutside(u"{\\rtf1 caf\u00e9}");
  mClipboard.SetTextFromOutside(u"caf\u00e9");
  const Long richText = mClipboard.RegisterClipboardFormatA(u"rich text format");
  EXPECT_EQ(Listed(), (Formats{richText, kText, kLocale, kOemText, kUnicodeText}));
  EXPECT_EQ(ReadFormat(richText), (Bytes{'{', '\\', 'r', 't', 'f', '1', ' ', 'c', 'a', 'f', 0xE9, '}', 0}));
  EXPECT_EQ(ReadFormat(kOemText), (Bytes{'c', 'a', 'f', 0x82, 0}));
  EXPECT_EQ(ReadFormat(kUnicodeText), (Bytes{'c', 0, 'a', 0, 'f', 0, 0xE9, 0, 0, 0}));

  const std::vector<DeskClipboard::Item> content = mClipboard.Content();
  ASSERT_EQ(content.size(), 2u);
  EXPECT_EQ(content[0].name, u"Rich Text Format");
  EXPECT_EQ(content[0].text, u"{\\rtf1 caf\u00e9}");
  EXPECT_EQ(content[1].name, u"Text");
  EXPECT_EQ(content[1].text, u"caf\u00e9");
}

TEST_F(ClipboardTest, OutsideText_ReplacesEveryFormOfTheFormerOne) {
  mClipboard.SetText(u"former", kUnicodeText);
  mClipboard.SetTextFromOutside(u"new");
  EXPECT_EQ(mClipboard.GetText(kUnicodeText), u"new");
  EXPECT_EQ(mClipboard.Content().size(), 1u);
}

TEST_F(ClipboardTest, Outside_RefusesWhatIsNoContent) {
  EXPECT_FALSE(mClipboard.SetFromOutside(kText, {}));
  for (const Long format : {0, -1, 0x10000, static_cast<int>(kBitmap)}) {
    EXPECT_FALSE(mClipboard.SetFromOutside(format, Bytes{1})) << format;
  }
  EXPECT_EQ(mClipboard.CountClipboardFormats(), 0);
}

TEST_F(ClipboardTest, EmptyFromOutside_TakesBackWhatWasLent) {
  mClipboard.SetTextFromOutside(u"ab");
  mClipboard.OpenClipboard(0);
  const Long memory = mClipboard.GetClipboardData(kText);
  mClipboard.CloseClipboard();
  EXPECT_EQ(Read(memory), (Bytes{'a', 'b', 0})) << "after the closing too";
  EXPECT_TRUE(mClipboard.EmptyFromOutside());
  EXPECT_EQ(mDesk.Pictures().GlobalLock(memory), nullptr);
  EXPECT_EQ(Misuses(), std::vector<std::string>{"dead: memory 1, GlobalLock"});
}

TEST_F(ClipboardTest, Memory_IsTheClipboardsFromTheHandoverOn) {
  const Long memory = MakeMemory({'a', 0});
  EXPECT_EQ(LiveBlocks(), 1);
  mClipboard.OpenClipboard(0);
  EXPECT_EQ(mClipboard.SetClipboardData(kText, memory), memory);
  EXPECT_EQ(LiveBlocks(), 0) << "nobody is to free it";
  EXPECT_EQ(Read(memory), (Bytes{'a', 0})) << "may be read until the closing";
  EXPECT_TRUE(Misuses().empty());
  EXPECT_EQ(mDesk.Pictures().GlobalFree(memory), memory);
  EXPECT_EQ(mClipboard.SetClipboardData(kOemText, memory), 0);
  mClipboard.CloseClipboard();
  EXPECT_EQ(mDesk.Pictures().GlobalSize(memory), 0);
  EXPECT_EQ(mDesk.Pictures().GlobalFree(memory), memory);
  EXPECT_EQ(Misuses(), (std::vector<std::string>{
                           "owned by the clipboard: memory 1, GlobalFree",
                           "owned by the clipboard: memory 1, SetClipboardData",
                           "dead: memory 1, GlobalSize",
                           "dead: memory 1, GlobalFree",
                       }));
  EXPECT_EQ(mClipboard.GetText(kText), u"a");
}

TEST_F(ClipboardTest, LockedMemory_AtTheClosingIsAMisuse) {
  const Long memory = MakeMemory({'a', 0});
  mClipboard.OpenClipboard(0);
  mDesk.Pictures().GlobalLock(memory);
  mClipboard.SetClipboardData(kText, memory);
  mClipboard.CloseClipboard();
  EXPECT_EQ(Misuses(), std::vector<std::string>{"locked: memory 1, CloseClipboard"});
}

TEST_F(ClipboardTest, RefusedMemory_StaysTheCallers) {
  const Long memory = MakeMemory({1, 2});
  const Long nothing = mDesk.Pictures().GlobalAlloc(2, 0);
  EXPECT_EQ(mClipboard.SetClipboardData(kText, memory), 0) << "closed";
  mClipboard.OpenClipboard(0);
  EXPECT_EQ(mClipboard.SetClipboardData(0, memory), 0);
  EXPECT_EQ(mClipboard.SetClipboardData(0x10000, memory), 0);
  EXPECT_EQ(mClipboard.SetClipboardData(kText, 0), 0);
  EXPECT_EQ(mClipboard.SetClipboardData(kText, nothing), 0);
  EXPECT_TRUE(Misuses().empty());
  EXPECT_EQ(mClipboard.SetClipboardData(kText, 4711), 0);
  EXPECT_EQ(Misuses(), std::vector<std::string>{"no such memory, SetClipboardData"});
  EXPECT_EQ(mDesk.Pictures().GlobalFree(memory), 0);
  EXPECT_EQ(mDesk.Pictures().GlobalFree(nothing), 0);
}

TEST_F(ClipboardTest, LentMemory_IsTheSameAtEachReadingAndNotToBeFreed) {
  Put(kText, MakeMemory({'a', 0}));
  mClipboard.OpenClipboard(0);
  const Long lent = mClipboard.GetClipboardData(kText);
  EXPECT_EQ(mClipboard.GetClipboardData(kText), lent);
  mClipboard.CloseClipboard();
  mClipboard.OpenClipboard(0);
  EXPECT_EQ(mClipboard.GetClipboardData(kText), lent);
  EXPECT_EQ(LiveBlocks(), 0);
  EXPECT_EQ(mDesk.Pictures().GlobalFree(lent), lent);
  Ref<Stream> stream;
  EXPECT_NE(mDesk.Pictures().CreateStreamOnHGlobal(lent, true, stream), 0);
  EXPECT_EQ(Misuses().size(), 2u);
}

TEST_F(ClipboardTest, NewText_TakesBackTheLoanOfTheOneMadeOfTheFormer) {
  Put(kText, MakeMemory({'a', 0}));
  mClipboard.OpenClipboard(0);
  const Long former = mClipboard.GetClipboardData(kUnicodeText);
  EXPECT_EQ(mClipboard.SetClipboardData(kText, MakeMemory({'b', 0})) != 0, true);
  EXPECT_EQ(Read(mClipboard.GetClipboardData(kUnicodeText)), (Bytes{'b', 0, 0, 0}));
  EXPECT_EQ(mDesk.Pictures().GlobalLock(former), nullptr);
  EXPECT_EQ(Misuses().size(), 1u);
}

TEST_F(ClipboardTest, Bitmap_IsTheClipboardsAndLentAsItsOwn) {
  const Long bitmap = MakeBitmap(0x0000FF);
  EXPECT_EQ(Put(kBitmap, bitmap), bitmap);
  EXPECT_FALSE(mDesk.Objects().IsLive(bitmap));
  ASSERT_EQ(mClipboard.Content().size(), 1u);
  EXPECT_TRUE(mClipboard.Content()[0].isPicture);
  EXPECT_EQ(mClipboard.Content()[0].name, u"Bitmap Picture");

  mClipboard.OpenClipboard(0);
  const Long lent = mClipboard.GetClipboardData(kBitmap);
  ASSERT_NE(lent, 0);
  EXPECT_EQ(mClipboard.GetClipboardData(kBitmap), lent);
  EXPECT_TRUE(mClipboard.IsLent(lent));
  EXPECT_EQ(*mDesk.Objects().Find<Bitmap>(lent)->surface.At(2, 1), 0xFF0000u);
  EXPECT_EQ(mClipboard.SetClipboardData(kBitmap, lent), 0) << "its own";
  mClipboard.EmptyClipboard();
  EXPECT_FALSE(mDesk.Objects().IsLive(lent));
  EXPECT_FALSE(mClipboard.IsLent(lent));
  EXPECT_EQ(Misuses(), std::vector<std::string>{"owned by the clipboard: bitmap 2, SetClipboardData"});
  EXPECT_TRUE(mDesk.Objects().Lost().empty());
}

TEST_F(ClipboardTest, Bitmap_ThatSomebodyUsesIsRefused) {
  const Long bitmap = MakeBitmap(0);
  const Long memory = mDesk.Graphics().CreateCompatibleDC(0);
  mDesk.Graphics().SelectObject(memory, bitmap);
  EXPECT_EQ(Put(kBitmap, bitmap), 0);
  EXPECT_EQ(Put(kBitmap, ObjectTable::kStockBitmap), 0);
  EXPECT_EQ(Put(kBitmap, memory), 0);
  EXPECT_TRUE(mDesk.Objects().IsLive(bitmap));
  EXPECT_EQ(Misuses(), (std::vector<std::string>{"selected: bitmap 1, SetClipboardData",
                                                 "not of the kind wanted: dc 3, SetClipboardData"}));
}

TEST_F(ClipboardTest, LentBitmap_ThatSomebodyDeletedIsAMisuse) {
  Put(kBitmap, MakeBitmap(0));
  mClipboard.OpenClipboard(0);
  const Long lent = mClipboard.GetClipboardData(kBitmap);
  mDesk.Graphics().DeleteObject(lent);
  const Long next = mClipboard.GetClipboardData(kBitmap);
  EXPECT_NE(next, lent);
  EXPECT_TRUE(mDesk.Objects().IsLive(next));
  EXPECT_EQ(Misuses(), std::vector<std::string>{"deleted, but owned by the clipboard: bitmap 2, GetClipboardData"});
}

TEST_F(ClipboardTest, FormatNumbers_AreTheSameInEveryRunAndCanRunOut) {
  EXPECT_EQ(mClipboard.RegisterClipboardFormatA(u"First"), 0xC001);
  EXPECT_EQ(mClipboard.RegisterClipboardFormatA(u"Second"), 0xC002);
  for (Long i = 3; i <= 0x3FFF; ++i) mClipboard.RegisterClipboardFormatA(DecimalText(i));
  EXPECT_EQ(mClipboard.GetClipboardFormatNameA(0xFFFF, 10), u"16383");
  EXPECT_EQ(mClipboard.RegisterClipboardFormatA(u"One more"), 0);
  EXPECT_EQ(mClipboard.RegisterClipboardFormatA(u"second"), 0xC002);
}

TEST(ClipboardText, GoesThroughBothSingleByteSets) {
  for (const Long format : {kText, kOemText}) {
    Bytes bytes;
    for (int byte = 1; byte < 256; ++byte) bytes.push_back(static_cast<Byte>(byte));
    const String text = DecodeText(format, bytes);
    EXPECT_EQ(text.Length(), 255);
    bytes.push_back(0);
    EXPECT_EQ(EncodeText(format, text), bytes) << format;
  }
  EXPECT_EQ(DecodeText(kText, Bytes{0x80, 0xE9}), u"\u20ac\u00e9");
  EXPECT_EQ(DecodeText(kOemText, Bytes{0x82, 0xFB}), u"\u00e9\u221a");
  EXPECT_EQ(EncodeText(kText, u"\u4e00"), (Bytes{'?', 0}));
  EXPECT_EQ(DecodeText(kUnicodeText, Bytes{'a', 0, 'b'}), u"a") << "half a character";
  EXPECT_EQ(DecodeText(kText, Bytes{'a', 0, 'b'}), u"a");
}

TEST(ClipboardText, DropLists_ThatArentOneHoldNoNames) {
  Bytes list(20);
  EXPECT_TRUE(DecodeDropList(Bytes(19)).empty());
  list[0] = 21;
  EXPECT_TRUE(DecodeDropList(list).empty()) << "begins past the end";
  list[3] = 0xFF;
  EXPECT_TRUE(DecodeDropList(list).empty());
  list[0] = 20;
  list[3] = 0;
  EXPECT_TRUE(DecodeDropList(list).empty());
  for (const Byte byte : Bytes{'a', 0, 'b'}) list.push_back(byte);
  EXPECT_EQ(DecodeDropList(list), (std::vector<String>{u"a", u"b"})) << "without an end";
}

}  // namespace
}  // namespace strandline::desk
