// The clipboard: who may do what, what it makes of texts, and who owns the data.

#include <algorithm>
#include <functional>
#include <string>

#include "tests/contract/surface.h"

namespace strandline::contract {
namespace {

using namespace clipboardformat;

using Bytes = std::vector<Byte>;
using Formats = std::vector<Long>;

constexpr Long kMovable = 2;
constexpr Long kShared = 8192;  // an old flag, which makes the block a fixed one

class ClipboardContract : public Contract, private WindowProcedure {
 protected:
  // It is the system's, so that what others have left there goes first.
  ClipboardContract() {
    EXPECT_TRUE(OpenByNobody());
    clipboard.EmptyClipboard();
    clipboard.CloseClipboard();
  }
  ~ClipboardContract() override {
    clipboard.CloseClipboard();
    for (const Long hwnd : mWindows) Host().DestroyWindow(hwnd);
  }

  Long MakeWindow() {
    mWindows.push_back(Host().CreateWindowOf(u"Clipboard Test", u"", 0, {0, 0, 20, 20}, this));
    return mWindows.back();
  }
  // Other programs may have it open for a moment.
  bool OpenByNobody() {
    return Until([this] { return clipboard.OpenClipboard(0) != 0; });
  }
  Long MakeMemory(const Bytes& bytes, Long flags = kMovable) {
    const Long memory = pictures.GlobalAlloc(flags, static_cast<Long>(bytes.size()));
    Byte* const at = pictures.GlobalLock(memory);
    EXPECT_NE(at, nullptr);
    if (at) std::copy(bytes.begin(), bytes.end(), at);
    pictures.GlobalUnlock(memory);
    return memory;
  }
  // The block's bytes, without what it may hold beyond them.
  Bytes Read(Long memory, std::size_t size) {
    const Byte* const at = pictures.GlobalLock(memory);
    Bytes bytes;
    if (at) bytes.assign(at, at + std::min(size, static_cast<std::size_t>(pictures.GlobalSize(memory))));
    pictures.GlobalUnlock(memory);
    return bytes;
  }
  void Put(Long format, const Bytes& bytes) {
    ASSERT_TRUE(OpenByNobody());
    EXPECT_NE(clipboard.EmptyClipboard(), 0);
    EXPECT_NE(clipboard.SetClipboardData(format, MakeMemory(bytes)), 0);
    EXPECT_NE(clipboard.CloseClipboard(), 0);
  }
  Bytes ReadFormat(Long format, std::size_t size) {
    EXPECT_TRUE(OpenByNobody());
    const Bytes bytes = Read(clipboard.GetClipboardData(format), size);
    clipboard.CloseClipboard();
    return bytes;
  }
  // It has to be open.
  Formats Listed() {
    Formats list;
    for (Long format = 0; (format = clipboard.EnumClipboardFormats(format)) != 0;) list.push_back(format);
    return list;
  }

  Clipboard& clipboard = *Services().clipboard;

 private:
  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    return Host().DefaultProcedure(hwnd, message, wParam, lParam);
  }

  std::vector<Long> mWindows;
};

Long ErrorOf(const std::function<void()>& use) {
  try {
    use();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

TEST_F(ClipboardContract, Closed_CanOnlyBeLookedAt) {
  Put(kText, {'a', 0});
  const Long memory = MakeMemory({'b', 0});
  EXPECT_EQ(clipboard.CloseClipboard(), 0);
  EXPECT_EQ(clipboard.EmptyClipboard(), 0);
  EXPECT_EQ(clipboard.SetClipboardData(kText, memory), 0);
  EXPECT_EQ(clipboard.GetClipboardData(kText), 0);
  EXPECT_EQ(clipboard.EnumClipboardFormats(0), 0);
  EXPECT_EQ(pictures.GlobalFree(memory), 0) << "still the caller's";

  EXPECT_EQ(clipboard.CountClipboardFormats(), 4);
  EXPECT_NE(clipboard.IsClipboardFormatAvailable(kText), 0);
  EXPECT_EQ(clipboard.IsClipboardFormatAvailable(kBitmap), 0);
  EXPECT_EQ(clipboard.GetText(kText), u"a");
}

TEST_F(ClipboardContract, OpenWindow_RefusesOthersAndMayOpenAgain) {
  const Long one = MakeWindow();
  const Long other = MakeWindow();
  ASSERT_TRUE(Until([&] { return clipboard.OpenClipboard(one) != 0; }));
  EXPECT_EQ(clipboard.OpenClipboard(other), 0);
  EXPECT_EQ(clipboard.OpenClipboard(0), 0);
  EXPECT_NE(clipboard.OpenClipboard(one), 0);
  EXPECT_NE(clipboard.CloseClipboard(), 0);
  EXPECT_EQ(clipboard.CloseClipboard(), 0) << "one closing does for both";
  EXPECT_NE(clipboard.OpenClipboard(other), 0);
}

TEST_F(ClipboardContract, OpenByNoWindow_RefusesWindowsAndMayFillIt) {
  const Long window = MakeWindow();
  ASSERT_TRUE(OpenByNobody());
  EXPECT_EQ(clipboard.OpenClipboard(window), 0);
  EXPECT_NE(clipboard.EmptyClipboard(), 0);
  EXPECT_NE(clipboard.SetClipboardData(kText, MakeMemory({'a', 0})), 0);
  EXPECT_NE(clipboard.CloseClipboard(), 0);
  EXPECT_NE(clipboard.OpenClipboard(window), 0);
}

TEST_F(ClipboardContract, WhatIsNoWindow_CantOpenIt) {
  const Long window = MakeWindow();
  Host().DestroyWindow(window);
  EXPECT_EQ(clipboard.OpenClipboard(window), 0);
  EXPECT_EQ(clipboard.CloseClipboard(), 0);
}

TEST_F(ClipboardContract, Texts_AreMadeOfOneAnotherAtTheClosing) {
  const Bytes ansi = {'c', 'a', 'f', 0xE9, 0};
  const Bytes oem = {'c', 'a', 'f', 0x82, 0};
  const Bytes unicode = {'c', 0, 'a', 0, 'f', 0, 0xE9, 0, 0, 0};
  const struct {
    Long format;
    Bytes bytes;
    Formats listed;
  } cases[] = {{kText, ansi, {kText, kLocale, kOemText, kUnicodeText}},
               {kOemText, oem, {kOemText, kLocale, kText, kUnicodeText}},
               {kUnicodeText, unicode, {kUnicodeText, kLocale, kText, kOemText}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.format);
    ASSERT_TRUE(OpenByNobody());
    clipboard.EmptyClipboard();
    EXPECT_NE(clipboard.SetClipboardData(each.format, MakeMemory(each.bytes)), 0);
    EXPECT_EQ(Listed(), Formats{each.format}) << "while open";
    EXPECT_EQ(clipboard.GetClipboardData(each.format == kText ? kUnicodeText : kText), 0);
    clipboard.CloseClipboard();

    ASSERT_TRUE(OpenByNobody());
    EXPECT_EQ(Listed(), each.listed);
    EXPECT_EQ(clipboard.CountClipboardFormats(), 4);
    clipboard.CloseClipboard();
    EXPECT_EQ(ReadFormat(kText, 5), ansi);
    EXPECT_EQ(ReadFormat(kOemText, 5), oem);
    EXPECT_EQ(ReadFormat(kUnicodeText, 10), unicode);
    EXPECT_EQ(ReadFormat(kLocale, 4).size(), 4u);
  }
}

TEST_F(ClipboardContract, AnotherFormat_StandsBesideTheFirst) {
  const Long named = clipboard.RegisterClipboardFormatA(u"Strandline Contract");
  Put(named, {1, 2, 3});
  ASSERT_TRUE(OpenByNobody());
  EXPECT_NE(clipboard.SetClipboardData(kUnicodeText, MakeMemory({'x', 0, 0, 0})), 0);
  EXPECT_EQ(Listed(), (Formats{named, kUnicodeText}));
  clipboard.CloseClipboard();
  EXPECT_EQ(clipboard.CountClipboardFormats(), 5);
  EXPECT_EQ(ReadFormat(named, 3), (Bytes{1, 2, 3}));
}

TEST_F(ClipboardContract, NewData_ReplaceThoseOfTheirFormatAtTheirPlace) {
  const Long named = clipboard.RegisterClipboardFormatA(u"Strandline Contract");
  Put(kText, {'a', 0});
  ASSERT_TRUE(OpenByNobody());
  EXPECT_NE(clipboard.SetClipboardData(named, MakeMemory({1})), 0);
  EXPECT_NE(clipboard.SetClipboardData(kText, MakeMemory({'b', 'c', 0})), 0);
  EXPECT_EQ(Listed(), (Formats{kText, kLocale, kOemText, kUnicodeText, named}));
  clipboard.CloseClipboard();
  EXPECT_EQ(ReadFormat(kText, 3), (Bytes{'b', 'c', 0}));
  EXPECT_EQ(ReadFormat(kUnicodeText, 6), (Bytes{'b', 0, 'c', 0, 0, 0})) << "made of the new one";
}

TEST_F(ClipboardContract, Bytes_ComeBackAsTheyWere) {
  const Long richText = clipboard.RegisterClipboardFormatA(u"Rich Text Format");
  Bytes bytes;
  for (int i = 0; i < 1000; ++i) bytes.push_back(static_cast<Byte>(i * 7));
  for (const Long flags : {kMovable, kShared}) {
    ASSERT_TRUE(OpenByNobody());
    clipboard.EmptyClipboard();
    const Long memory = MakeMemory(bytes, flags);
    EXPECT_GE(pictures.GlobalSize(memory), 1000);
    EXPECT_EQ(clipboard.SetClipboardData(richText, memory), memory) << flags;
    clipboard.CloseClipboard();
    EXPECT_EQ(ReadFormat(richText, 1000), bytes) << flags;
  }
}

TEST_F(ClipboardContract, Memory_OnTheClipboardIsNobodyElsesToFree) {
  ASSERT_TRUE(OpenByNobody());
  clipboard.EmptyClipboard();
  const Long memory = MakeMemory({'a', 'b', 0});
  EXPECT_NE(clipboard.SetClipboardData(kText, memory), 0);
  EXPECT_EQ(Read(memory, 3), (Bytes{'a', 'b', 0})) << "readable until the closing";
  EXPECT_EQ(pictures.GlobalFree(memory), memory);
  EXPECT_EQ(clipboard.SetClipboardData(kOemText, memory), 0);
  clipboard.CloseClipboard();
  EXPECT_EQ(pictures.GlobalFree(memory), memory);
  EXPECT_EQ(ReadFormat(kText, 3), (Bytes{'a', 'b', 0}));
}

TEST_F(ClipboardContract, DataThatWereRead_LiveUntilItIsEmptied) {
  Put(kText, {'a', 'b', 0});
  ASSERT_TRUE(OpenByNobody());
  const Long memory = clipboard.GetClipboardData(kText);
  EXPECT_NE(memory, 0);
  EXPECT_EQ(clipboard.GetClipboardData(kText), memory);
  clipboard.CloseClipboard();
  EXPECT_EQ(Read(memory, 3), (Bytes{'a', 'b', 0}));
  EXPECT_EQ(pictures.GlobalFree(memory), memory);
  ASSERT_TRUE(OpenByNobody());
  EXPECT_EQ(Read(clipboard.GetClipboardData(kText), 3), (Bytes{'a', 'b', 0}));
  EXPECT_NE(clipboard.EmptyClipboard(), 0);
  EXPECT_EQ(pictures.GlobalLock(memory), nullptr);
  EXPECT_EQ(clipboard.GetClipboardData(kText), 0);
  EXPECT_EQ(Listed(), Formats());
}

TEST_F(ClipboardContract, WhatIsNoData_IsRefused) {
  const Long memory = MakeMemory({1});
  const Long nothing = pictures.GlobalAlloc(kMovable, 0);
  EXPECT_EQ(pictures.GlobalSize(nothing), 0);
  ASSERT_TRUE(OpenByNobody());
  clipboard.EmptyClipboard();
  EXPECT_EQ(clipboard.SetClipboardData(kText, 0), 0);
  EXPECT_EQ(clipboard.SetClipboardData(kText, 0x12345), 0);
  EXPECT_EQ(clipboard.SetClipboardData(kText, nothing), 0);
  EXPECT_EQ(clipboard.SetClipboardData(0, memory), 0);
  EXPECT_EQ(clipboard.SetClipboardData(-1, memory), 0);
  EXPECT_EQ(clipboard.SetClipboardData(0x10000, memory), 0);
  EXPECT_EQ(clipboard.GetClipboardData(0), 0);
  EXPECT_EQ(clipboard.GetClipboardData(-1), 0);
  EXPECT_EQ(clipboard.EnumClipboardFormats(kText), 0);
  EXPECT_EQ(clipboard.IsClipboardFormatAvailable(0), 0);
  EXPECT_EQ(clipboard.CountClipboardFormats(), 0);
  EXPECT_EQ(pictures.GlobalFree(memory), 0);
  EXPECT_EQ(pictures.GlobalFree(nothing), 0);
  EXPECT_EQ(pictures.GlobalSize(memory), 0);
}

TEST_F(ClipboardContract, FormatNames_AreTakenWithoutCaseUpToANul) {
  const Long format = clipboard.RegisterClipboardFormatA(u"Strandline Contract Name");
  EXPECT_GT(format, kFirstNamed);
  EXPECT_LE(format, kLast);
  EXPECT_EQ(clipboard.RegisterClipboardFormatA(u"strandline CONTRACT name"), format);
  EXPECT_EQ(clipboard.RegisterClipboardFormatA(TextView(u"Strandline Contract Name\0more", 29)), format);
  EXPECT_NE(clipboard.RegisterClipboardFormatA(u"Strandline Contract Names"), format);
  EXPECT_EQ(clipboard.RegisterClipboardFormatA(u""), 0);
  EXPECT_EQ(clipboard.RegisterClipboardFormatA(TextView(u"\0x", 2)), 0);
  EXPECT_NE(clipboard.RegisterClipboardFormatA(std::u16string(255, u'q')), 0);
  EXPECT_EQ(clipboard.RegisterClipboardFormatA(std::u16string(256, u'q')), 0);
}

TEST_F(ClipboardContract, FormatNames_AreCutToTheLimit) {
  const Long format = clipboard.RegisterClipboardFormatA(u"Strandline Cut");
  EXPECT_EQ(clipboard.GetClipboardFormatNameA(format, 255), u"Strandline Cut");
  EXPECT_EQ(clipboard.GetClipboardFormatNameA(format, 15), u"Strandline Cut");
  EXPECT_EQ(clipboard.GetClipboardFormatNameA(format, 14), u"Strandline Cu");
  for (const Long limit : {1, 0, -1}) EXPECT_EQ(clipboard.GetClipboardFormatNameA(format, limit), u"") << limit;
  for (const Long nameless : {-1, 0, 1, 13, 17, 0xBFFF, 0x10000}) {
    EXPECT_EQ(clipboard.GetClipboardFormatNameA(nameless, 255), u"") << nameless;
  }
}

TEST_F(ClipboardContract, Bitmap_IsABitmapForWhoeverReadsIt) {
  const Long screen = graphics.GetDC(0);
  const Long memory = graphics.CreateCompatibleDC(screen);
  const Long bitmap = graphics.CreateCompatibleBitmap(screen, 3, 2);
  const Long stock = graphics.SelectObject(memory, bitmap);
  Canvas().FillRectangle(memory, {0, 0, 3, 2}, kRed);
  graphics.SelectObject(memory, stock);

  ASSERT_TRUE(OpenByNobody());
  clipboard.EmptyClipboard();
  EXPECT_EQ(clipboard.SetClipboardData(kBitmap, 0), 0);
  EXPECT_EQ(clipboard.SetClipboardData(kBitmap, bitmap), bitmap);
  clipboard.CloseClipboard();

  ASSERT_TRUE(OpenByNobody());
  const Long read = clipboard.GetClipboardData(kBitmap);
  EXPECT_NE(read, 0);
  EXPECT_EQ(clipboard.GetClipboardData(kBitmap), read);
  graphics.SelectObject(memory, read);
  EXPECT_EQ(graphics.GetPixel(memory, 2, 1), kRed);
  EXPECT_EQ(graphics.GetPixel(memory, 3, 1), -1);
  graphics.SelectObject(memory, stock);
  EXPECT_NE(clipboard.EmptyClipboard(), 0);
  EXPECT_EQ(graphics.SelectObject(memory, read), 0) << "gone with the emptying";
  graphics.DeleteDC(memory);
  graphics.ReleaseDC(0, screen);
}

// A list of files: its record, then the names.
Bytes DropList(bool wide, const std::string& names) {
  Bytes list(20);
  list[0] = 20;
  list[16] = wide;
  for (const char c : names) {
    list.push_back(static_cast<Byte>(c));
    if (wide) list.push_back(0);
  }
  return list;
}

TEST_F(ClipboardContract, DropLists_TellTheirNames) {
  for (const bool wide : {false, true}) {
    SCOPED_TRACE(wide);
    const Long drop = MakeMemory(DropList(wide, std::string("C:\\one.doc\0D:\\b\0\0", 17)));
    String name = u"as it was";
    EXPECT_EQ(clipboard.DragQueryFileA(drop, -1, 0, name), 2);
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 0, 0, name), 10);
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 2, 255, name), 0);
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 0, -1, name), 0);
    EXPECT_EQ(name, u"as it was");
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 0, 255, name), 10);
    EXPECT_EQ(name, u"C:\\one.doc");
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 1, 3, name), 2);
    EXPECT_EQ(name, u"D:");
    EXPECT_EQ(pictures.GlobalFree(drop), 0);
  }
}

TEST_F(ClipboardContract, WhatIsNoDropList_HasNoNames) {
  String name;
  EXPECT_EQ(clipboard.DragQueryFileA(0, -1, 0, name), 0);
  EXPECT_EQ(clipboard.DragQueryFileA(0x12345, 0, 255, name), 0);
  const Bytes lists[] = {Bytes(3), Bytes(20), DropList(false, std::string("\0", 1)), [] {
                           Bytes astray = DropList(false, std::string("a\0\0", 3));
                           astray[2] = 0xFF;
                           return astray;
                         }()};
  for (const Bytes& list : lists) {
    const Long drop = MakeMemory(list);
    EXPECT_EQ(clipboard.DragQueryFileA(drop, -1, 0, name), 0) << list.size();
    EXPECT_EQ(clipboard.DragQueryFileA(drop, 0, 255, name), 0) << list.size();
    pictures.GlobalFree(drop);
  }
}

TEST_F(ClipboardContract, OwnObject_OpensAndClosesByItself) {
  const Long named = clipboard.RegisterClipboardFormatA(u"Strandline Contract");
  EXPECT_EQ(clipboard.GetText(kText), u"") << "nothing there";
  Put(named, {1});
  EXPECT_EQ(clipboard.GetText(kUnicodeText), u"") << "no text there";
  clipboard.SetText(u"caf\u00e9 \u4e00", kUnicodeText);
  EXPECT_EQ(clipboard.GetText(kUnicodeText), u"caf\u00e9 \u4e00");
  EXPECT_EQ(clipboard.GetText(kText), u"caf\u00e9 ?");
  EXPECT_EQ(clipboard.IsClipboardFormatAvailable(named), 0) << "in place of everything";
  clipboard.SetText(u"caf\u00e9 \u4e00", kText);
  EXPECT_EQ(clipboard.GetText(kUnicodeText), u"caf\u00e9 ?");
  clipboard.SetText(u"", kText);
  EXPECT_EQ(clipboard.GetText(kText), u"");
  EXPECT_EQ(ReadFormat(kText, 1), Bytes{0});
}

TEST_F(ClipboardContract, OwnObject_TakesTextUpToANul) {
  Put(kText, {'a', 'b', 0, 'c'});
  EXPECT_EQ(clipboard.GetText(kText), u"ab");
}

TEST_F(ClipboardContract, TextWithoutAnEnd_LosesItsLastCharacter) {
  Put(kText, {'a', 'b'});
  EXPECT_EQ(clipboard.GetText(kText), u"a");
  EXPECT_EQ(clipboard.GetText(kUnicodeText), u"a");
  Put(kUnicodeText, {'a', 0, 'b', 0, 'c', 0});
  EXPECT_EQ(clipboard.GetText(kUnicodeText), u"ab");
  EXPECT_EQ(clipboard.GetText(kText), u"ab");
}

TEST_F(ClipboardContract, OwnObject_IsRefusedWhileItIsOpen) {
  const Long window = MakeWindow();
  for (const Long opener : {Long{0}, window}) {
    ASSERT_TRUE(Until([&] { return clipboard.OpenClipboard(opener) != 0; }));
    EXPECT_EQ(ErrorOf([this] { clipboard.GetText(kText); }), errors::kCannotOpenClipboard);
    EXPECT_EQ(ErrorOf([this] { clipboard.SetText(u"x", kText); }), errors::kCannotOpenClipboard);
    EXPECT_NE(clipboard.EmptyClipboard(), 0) << "still open";
    EXPECT_NE(clipboard.CloseClipboard(), 0);
  }
  EXPECT_EQ(ErrorOf([this] { clipboard.GetText(kOemText); }), errors::kInvalidArgument);
  EXPECT_EQ(ErrorOf([this] { clipboard.SetText(u"x", kBitmap); }), errors::kInvalidArgument);
  EXPECT_EQ(clipboard.CountClipboardFormats(), 0);
}

// ---- A picture, by the run time's own object.

class ClipboardPictureContract : public ClipboardContract {
 protected:
  // Of 3 by 2 pixels, each of its own colour; owns its bitmap.
  Picture MakePicture() {
    Surface surface(3, 2);
    surface.FillWith(ColorAt);
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long bitmap = graphics.CreateBitmap(3, 2, 1, 32);
    const Long former = graphics.SelectObject(hdc, bitmap);
    graphics.BitBlt(hdc, 0, 0, 3, 2, surface.Hdc(), 0, 0, rop::kSrcCopy);
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
    return PictureOf(bitmap, true);
  }
  Picture PictureOf(Long bitmap, bool own) {
    Guid id;
    Picture picture;
    EXPECT_EQ(pictures.CLSIDFromString(u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}", id), 0);
    EXPECT_EQ(pictures.OleCreatePictureIndirect({20, 1, bitmap, 0, 0}, id, own, picture), 0);
    return picture;
  }
  static Long ColorAt(Long x, Long y) { return x * 0x40 | y * 0x8000 | 0x200000; }
  // How many pixels of the bitmap differ from the picture's; the clipboard has to be open where it is its own.
  int WrongPixels(Long bitmap) {
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long former = graphics.SelectObject(hdc, bitmap);
    int wrong = former == 0;
    for (Long y = 0; y < 2; ++y) {
      for (Long x = 0; x < 3; ++x) wrong += graphics.GetPixel(hdc, x, y) != ColorAt(x, y);
    }
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
    return wrong;
  }
};

TEST_F(ClipboardPictureContract, IsThereInPlaceOfEverything_AsACopy) {
  Put(clipboard.RegisterClipboardFormatA(u"Rich Text Format"), {'{', '}', 0});
  Picture picture = MakePicture();
  const Long window = MakeWindow();
  clipboard.SetPicture(picture);
  EXPECT_EQ(WrongPixels(picture->Handle()), 0) << "still the picture's";
  picture = nullptr;
  EXPECT_NE(clipboard.IsClipboardFormatAvailable(kBitmap), 0);
  EXPECT_EQ(clipboard.IsClipboardFormatAvailable(clipboard.RegisterClipboardFormatA(u"Rich Text Format")), 0);
  EXPECT_EQ(clipboard.CloseClipboard(), 0) << "it closes by itself";
  ASSERT_TRUE(Until([&] { return clipboard.OpenClipboard(window) != 0; }));
  const Long bitmap = clipboard.GetClipboardData(kBitmap);
  EXPECT_NE(bitmap, 0);
  EXPECT_EQ(WrongPixels(bitmap), 0);
}

TEST_F(ClipboardPictureContract, WhileItIsOpen_IsRefused) {
  const Picture picture = MakePicture();
  for (const Long window : {Long{0}, MakeWindow()}) {
    Put(kText, {'a', 0});
    ASSERT_TRUE(Until([&] { return clipboard.OpenClipboard(window) != 0; }));
    EXPECT_EQ(ErrorOf([&] { clipboard.SetPicture(picture); }), errors::kCannotOpenClipboard);
    EXPECT_NE(clipboard.CloseClipboard(), 0);
    EXPECT_EQ(clipboard.GetText(kText), u"a");
  }
}

TEST_F(ClipboardPictureContract, OfNothingOrWithoutABitmap_IsRefusedAndLeavesWhatIsThere) {
  Put(kText, {'a', 0});
  EXPECT_EQ(ErrorOf([&] { clipboard.SetPicture(nullptr); }), errors::kObjectNotSet);
  const Picture picture = MakePicture();
  EXPECT_NE(graphics.DeleteObject(picture->Handle()), 0);
  EXPECT_EQ(ErrorOf([&] { clipboard.SetPicture(picture); }), errors::kInvalidPicture);
  EXPECT_EQ(clipboard.GetText(kText), u"a");
}

// What is read from the clipboard may be put there again.
TEST_F(ClipboardPictureContract, OfTheClipboardsOwnBitmap_StaysThere) {
  clipboard.SetPicture(MakePicture());
  ASSERT_TRUE(OpenByNobody());
  const Picture lent = PictureOf(clipboard.GetClipboardData(kBitmap), false);
  EXPECT_NE(clipboard.CloseClipboard(), 0);
  clipboard.SetPicture(lent);
  ASSERT_TRUE(OpenByNobody());
  EXPECT_EQ(WrongPixels(clipboard.GetClipboardData(kBitmap)), 0);
}

}  // namespace
}  // namespace strandline::contract
