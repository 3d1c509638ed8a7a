// Mixing pictures where no component for it is installed.

#include "platform/win32/built_in_blender.h"

#include <gtest/gtest.h>

#include "platform/looks/mix.h"
#include "platform/win32/win32_components.h"
#include "tests/support/raised.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::win32test {
namespace {

using win32::NewBuiltInBlender;
using win32::ToNumber;
using win32::Win32Components;

// A memory context with a bitmap of one colour.
class Filled {
 public:
  Filled(int width, int height, COLORREF color) {
    const HDC screen = ::GetDC(nullptr);
    mHdc = ::CreateCompatibleDC(screen);
    mBitmap = ::CreateCompatibleBitmap(screen, width, height);
    ::ReleaseDC(nullptr, screen);
    mOld = ::SelectObject(mHdc, mBitmap);
    const RECT all{0, 0, width, height};
    ::SetDCBrushColor(mHdc, color);
    ::FillRect(mHdc, &all, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
  }
  ~Filled() {
    ::SelectObject(mHdc, mOld);
    ::DeleteObject(mBitmap);
    ::DeleteDC(mHdc);
  }
  Filled(const Filled&) = delete;
  Filled& operator=(const Filled&) = delete;

  Long Hdc() const { return ToNumber(mHdc); }
  COLORREF At(int x, int y) const { return ::GetPixel(mHdc, x, y); }

 private:
  HDC mHdc;
  HBITMAP mBitmap;
  HGDIOBJ mOld;
};

// No machine of ours has one installed.
TEST(BuiltInBlender, AnswersWhereNoneIsRegistered) {
  Win32Components components;
  const Object blender = components.CreateObject(u"alphablender.MAIN2");
  const Filled from(7, 5, RGB(200, 100, 0)), to(7, 5, RGB(0, 110, 255)), dest(9, 9, RGB(1, 2, 3));
  Integer width = 7, height = 5;
  blender.Call("Create", Variant::ByRef(width), Variant::ByRef(height));
  Long target = dest.Hdc();
  blender.Call("AlphaBlend", Variant::ByRef(target), Integer{0}, Integer{0}, from.Hdc(), to.Hdc(), 0.3f);
  const int share = ShareOf(0.3f);
  const COLORREF mixed = RGB(MixChannel(200, 0, share), MixChannel(100, 110, share), MixChannel(0, 255, share));
  EXPECT_EQ(dest.At(0, 0), mixed);
  EXPECT_EQ(dest.At(6, 4), mixed);
  EXPECT_EQ(dest.At(7, 4), static_cast<COLORREF>(RGB(1, 2, 3)));
  EXPECT_EQ(dest.At(6, 5), static_cast<COLORREF>(RGB(1, 2, 3)));
  EXPECT_EQ(from.At(0, 0), static_cast<COLORREF>(RGB(200, 100, 0)));
}

TEST(BuiltInBlender, LeavesTheSystemsObjectsAsTheyWere) {
  const Object blender = NewBuiltInBlender();
  const Filled from(20, 20, RGB(9, 9, 9)), to(20, 20, RGB(90, 90, 90)), dest(20, 20, 0);
  blender.Call("Create", Integer{20}, Integer{20});
  const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
  for (int i = 0; i < 200; ++i) {
    blender.Call("AlphaBlend", dest.Hdc(), Integer{0}, Integer{0}, from.Hdc(), to.Hdc(), 0.5f);
  }
  EXPECT_EQ(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before);
}

TEST(BuiltInBlender, RaisesWhatAnInstalledOneWould) {
  const Object blender = NewBuiltInBlender();
  EXPECT_EQ(Raised([&] { blender.Call("AlphaBlend", Long{1}, Integer{0}, Integer{0}, Long{1}, Long{1}, 0.5f); }),
            errors::kInvalidArgument);
  EXPECT_EQ(Raised([&] { blender.Call("Create", Integer{2}); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { blender.Call("Create", u"wide", Integer{2}); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { blender.Call("Mix"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { blender.Let("Create", Integer{2}); }), errors::kNoSuchMember);
  // Handles that are none change nothing, and nobody falls.
  blender.Call("Create", Integer{2}, Integer{2});
  blender.Call("AlphaBlend", Long{1}, Integer{0}, Integer{0}, Long{2}, Long{3}, 0.5f);
}

TEST(Components_OfANameThatNobodyHas, CantBeCreated) {
  Win32Components components;
  EXPECT_EQ(Raised([&] { components.CreateObject(u"AlphaBlender.Main3"); }), errors::kCannotCreateComponent);
}

}  // namespace
}  // namespace strandline::win32test
