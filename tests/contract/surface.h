#pragma once

#include "tests/contract/contract.h"

namespace strandline::contract {

// A memory context with a bitmap of its own, colour or one bit.
class Surface {
 public:
  Surface(Long width, Long height, bool mono = false) : mWidth(width), mHeight(height) {
    Graphics& graphics = platform::Graphics();
    mHdc = graphics.CreateCompatibleDC(0);
    mBitmap = graphics.CreateBitmap(width, height, 1, mono ? 1 : 32);
    mOld = graphics.SelectObject(mHdc, mBitmap);
    EXPECT_TRUE(mHdc != 0 && mBitmap != 0 && mOld != 0);
  }
  ~Surface() {
    Graphics& graphics = platform::Graphics();
    EXPECT_EQ(graphics.SelectObject(mHdc, mOld), mBitmap);
    EXPECT_NE(graphics.DeleteObject(mBitmap), 0);
    EXPECT_NE(graphics.DeleteDC(mHdc), 0);
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  Long Hdc() const { return mHdc; }
  Long Bitmap() const { return mBitmap; }
  Long At(Long x, Long y) const { return platform::Graphics().GetPixel(mHdc, x, y); }
  void Set(Long x, Long y, Long color) { Fill({x, y, x + 1, y + 1}, color); }
  void Fill(const Rect& area, Long color) {
    const Long brush = platform::Graphics().CreateSolidBrush(color);
    EXPECT_NE(platform::Graphics().FillRect(mHdc, area, brush), 0);
    EXPECT_NE(platform::Graphics().DeleteObject(brush), 0);
  }
  template <class ColorAt>
  void FillWith(ColorAt colorAt) {
    for (Long y = 0; y < mHeight; ++y) {
      for (Long x = 0; x < mWidth; ++x) Set(x, y, colorAt(x, y));
    }
  }
  // How many pixels differ from what they should be; the first is told.
  template <class ColorAt>
  int Wrong(ColorAt colorAt) const {
    int wrong = 0;
    for (Long y = 0; y < mHeight; ++y) {
      for (Long x = 0; x < mWidth; ++x) {
        const Long color = At(x, y);
        if (color == colorAt(x, y)) continue;
        if (wrong++ == 0) {
          ADD_FAILURE() << std::hex << color << " instead of " << colorAt(x, y) << std::dec << " at " << x << ' ' << y;
        }
      }
    }
    return wrong;
  }

 private:
  Long mWidth;
  Long mHeight;
  Long mHdc = 0;
  Long mBitmap = 0;
  Long mOld = 0;
};

}  // namespace strandline::contract
