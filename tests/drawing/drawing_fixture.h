#pragma once

// The drawing floor on a desk: the library is loaded and knows a simulated Word of a chosen version, but no Main2 and
// no toolbar. Its calls are written down, can be made to fail, and errors arrive at a script.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "addin/library.h"
#include "drawing/Painter.h"
#include "drawing/ToolbarUtilities.h"
#include "platform/desk/desk.h"
#include "platform/wrappers/failing.h"
#include "platform/wrappers/recording.h"
#include "tests/drawing/call_lines.h"
#include "tests/foundation/error_component.h"
#include "wordsim/word_world.h"

namespace strandline {

using Lines = std::vector<std::string>;

// COLORREF, 0x00BBGGRR
inline constexpr Long kBlack = 0;
inline constexpr Long kWhite = 0xFFFFFF;
inline constexpr Long kRed = 0x0000FF;
inline constexpr Long kGreen = 0x00FF00;
inline constexpr Long kKey = 0xFF0000;  // blue: what is transparent everywhere

inline constexpr const char16_t* kWord2000 = u"9.0";
inline constexpr const char16_t* kWord2002 = u"10.0";
inline constexpr const char16_t* kWord2003 = u"11.0";
inline constexpr const char16_t* kWord2007 = u"12.0";

struct FloorOptions {
  String wordVersion = kWord2003;
  String productName = u"Quillmere";
  Long dpi = 96;
};

class DrawingFloor {
 public:
  explicit DrawingFloor(const FloorOptions& options = {});
  ~DrawingFloor();

  // A memory context with a new colour bitmap of one colour. The test's own: none of these calls is written down.
  Long MakeContext(Long width, Long height, Long color);
  void DeleteContext(Long hdc);  // with its bitmap
  Long MakeBitmap(Long width, Long height, Long color);
  // A picture that owns a new bitmap of those rows; each character is a pixel of the colour that ColorOf gives it.
  Picture MakePicture(const std::vector<std::string>& rows);
  Picture MakePicture(Long width, Long height, Long color);
  void Fill(Long hdc, const Rect& area, Long color);
  void SetPixel(Long hdc, Long x, Long y, Long color) { Fill(hdc, {x, y, x + 1, y + 1}, color); }
  Long PixelAt(Long hdc, Long x, Long y) { return desk.Graphics().GetPixel(hdc, x, y); }

  // The pixels of the bitmap that the context holds, and of a bitmap; rows of characters as ColorOf knows them.
  const desk::Surface& SurfaceOf(Long hdc);
  const desk::Surface& BitmapSurface(Long bitmap);
  Lines RowsOf(Long hdc) { return Rows(SurfaceOf(hdc)); }
  Lines RowsOfBitmap(Long bitmap) { return Rows(BitmapSurface(bitmap)); }
  static Lines Rows(const desk::Surface& surface);
  // '.' key, '#' black, 'w' white, 'r' red, 'g' green; '?' stands for any other.
  static Long ColorOf(char pixel);

  int Contexts() { return desk.Objects().Count(desk::ObjectKind::kContext); }
  int Bitmaps() { return desk.Objects().Count(desk::ObjectKind::kBitmap); }
  int Brushes() { return desk.Objects().Count(desk::ObjectKind::kBrush); }
  int Regions() { return desk.Objects().Count(desk::ObjectKind::kRegion); }
  int Blocks() { return desk.Pictures().Memory().LiveBlocks(); }
  // "call: what", of the handles that were used wrongly.
  Lines Misused();

  // From now on a transparent copy goes step by step.
  void WithoutColorKeyBlt() { faults.Arm("ColorKeyBlt", 1'000'000); }

  ErrorScript errors;  // outlives the component that the library holds
  desk::Desk desk;
  wordsim::WordWorld word;
  Faults faults;
  CallLines calls;

 private:
  FailingWindows mFailingWindows;
  FailingGraphics mFailingGraphics;
  FailingPictures mFailingPictures;
  FailingModules mFailingModules;
  RecordingWindows mWindows;
  RecordingGraphics mGraphics;
  RecordingPictures mPictures;
  RecordingModules mModules;

 public:
  Library library;
};

// Checks at the end that no handle was used wrongly and that no error went unnoticed.
class DrawingTest : public testing::Test {
 protected:
  explicit DrawingTest(const FloorOptions& options = {}) { Load(options); }
  // A new floor, after a look at the one before.
  void Load(const FloorOptions& options) {
    if (floor) ExpectNothingUnnoticed();
    floor.reset();
    floor = std::make_unique<DrawingFloor>(options);
  }
  void TearDown() override { ExpectNothingUnnoticed(); }
  // "number module.procedure" of the errors since the last taking.
  Lines TakeErrors();
  void ExpectNothingUnnoticed();

  std::unique_ptr<DrawingFloor> floor;
};

}  // namespace strandline
