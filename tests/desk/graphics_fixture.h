#pragma once

// Graphics on a small screen, with windows that stand where a test puts them.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/desk/software_graphics.h"

namespace strandline::desk {

class PlacedWindows final : public WindowAreas {
 public:
  struct Placed {
    Clip bounds;
    Region visible;  // on the screen
    Region invalid;  // in the window's pixels
  };

  Placed& Place(Long hwnd, const Clip& bounds) { return mPlaced[hwnd] = {bounds, Region(bounds), Region()}; }
  Placed& At(Long hwnd) { return mPlaced.at(hwnd); }
  void Remove(Long hwnd) { mPlaced.erase(hwnd); }

  bool IsWindow(Long hwnd) override { return mPlaced.contains(hwnd); }
  Clip BoundsOf(Long hwnd) override { return mPlaced.at(hwnd).bounds; }
  const Region& VisibleRegion(Long hwnd) override { return mPlaced.at(hwnd).visible; }
  const Region& InvalidRegion(Long hwnd) override { return mPlaced.at(hwnd).invalid; }
  void Validate(Long hwnd) override { mPlaced.at(hwnd).invalid = Region(); }

 private:
  std::map<Long, Placed> mPlaced;
};

class GraphicsTest : public testing::Test {
 protected:
  static constexpr Long kWindow = 100;

  Long Paint(Long hdc, const Rect& rectangle, Long color) {
    const Long brush = mGraphics.CreateSolidBrush(color);
    const Long result = mGraphics.FillRect(hdc, rectangle, brush);
    mGraphics.DeleteObject(brush);
    return result;
  }
  // A memory context with a new bitmap selected.
  Long MakeColor(Long width, Long height, Long color) {
    const Long hdc = mGraphics.CreateCompatibleDC(0);
    mGraphics.SelectObject(hdc, mGraphics.CreateBitmap(width, height, 1, 32));
    Paint(hdc, {0, 0, width, height}, color);
    return hdc;
  }
  Long MakeMono(Long width, Long height) {
    const Long hdc = mGraphics.CreateCompatibleDC(0);
    mGraphics.SelectObject(hdc, mGraphics.CreateBitmap(width, height, 1, 1));
    return hdc;
  }
  // What a misuse was, and in which call; one line each.
  std::vector<std::string> Misused() const {
    std::vector<std::string> lines;
    for (const Misuse& misuse : mMisuses->All()) lines.push_back(misuse.call + ": " + misuse.what);
    return lines;
  }
  ObjectTable& Objects() { return *mGraphics.Objects(); }

  std::shared_ptr<MisuseLog> mMisuses = std::make_shared<MisuseLog>();
  Surface mScreen{40, 30};
  PlacedWindows mWindows;
  SoftwareGraphics mGraphics{mScreen, mWindows, mMisuses};
};

using Lines = std::vector<std::string>;

inline constexpr Long kRed = 0x0000FF;  // COLORREF
inline constexpr Long kGreen = 0x00FF00;
inline constexpr Long kBlue = 0xFF0000;
inline constexpr Long kBlack = 0;
inline constexpr Long kWhite = 0xFFFFFF;

}  // namespace strandline::desk
