#include "tests/drawing/drawing_fixture.h"

#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

namespace {

constexpr Long kPictureOfBitmap = 1;
constexpr char kPixelLetters[] = ".#wrg";

desk::Desk::Options DeskOptions(const FloorOptions& options) {
  desk::Desk::Options result;
  result.dpi = options.dpi;
  return result;
}

wordsim::Settings WordSettings(const FloorOptions& options) {
  wordsim::Settings settings;
  settings.wordVersion = options.wordVersion;
  settings.productName = options.productName;
  return settings;
}

Platform Wrapped(desk::Desk& desk, Windows& windows, Graphics& graphics, Pictures& pictures, Modules& modules) {
  Platform services = desk.Services();
  services.windows = &windows;
  services.graphics = &graphics;
  services.pictures = &pictures;
  services.modules = &modules;
  return services;
}

}  // namespace

DrawingFloor::DrawingFloor(const FloorOptions& options)
    : desk(DeskOptions(options)),
      word(desk.Services(), desk.Host(), desk.Canvas(), desk.Clock(), WordSettings(options)),
      mFailingWindows(desk.Windows(), faults),
      mFailingGraphics(desk.Graphics(), faults),
      mFailingPictures(desk.Pictures(), faults),
      mFailingModules(desk.Modules(), faults),
      mWindows(mFailingWindows, &calls),
      mGraphics(mFailingGraphics, &calls),
      mPictures(mFailingPictures, &calls),
      mModules(mFailingModules, &calls),
      library(Wrapped(desk, mWindows, mGraphics, mPictures, mModules)) {
  desk::DeskComponents& components = desk.Components();
  for (const char16_t* name :
       {u"StylanthAMA.Main2", u"StylanthAPA.Main2", u"StylanthMLA.Main2", u"StylanthTurabian.Main2"}) {
    components.Register(name, [this, progId = String(name)] { return word.CreateComponent(progId); });
  }
  components.Register(u"QuillmereError.Main2", [this] { return errors.Create(); });
  CommonWordInteractionFunctions::Initialize(word.Application());
  CommonPropertyFunctions::properties(word.Properties());
}

DrawingFloor::~DrawingFloor() { faults.Clear(); }

Long DrawingFloor::MakeBitmap(Long width, Long height, Long color) {
  const Long hdc = desk.Graphics().CreateCompatibleDC(0);
  const Long bitmap = desk.Graphics().CreateBitmap(width, height, 1, 32);
  const Long old = desk.Graphics().SelectObject(hdc, bitmap);
  Fill(hdc, {0, 0, width, height}, color);
  desk.Graphics().SelectObject(hdc, old);
  desk.Graphics().DeleteDC(hdc);
  return bitmap;
}

Long DrawingFloor::MakeContext(Long width, Long height, Long color) {
  const Long hdc = desk.Graphics().CreateCompatibleDC(0);
  desk.Graphics().SelectObject(hdc, MakeBitmap(width, height, color));
  return hdc;
}

void DrawingFloor::DeleteContext(Long hdc) {
  desk.Graphics().DeleteObject(desk.Graphics().SelectObject(hdc, desk::ObjectTable::kStockBitmap));
  desk.Graphics().DeleteDC(hdc);
}

void DrawingFloor::Fill(Long hdc, const Rect& area, Long color) {
  const Long brush = desk.Graphics().CreateSolidBrush(color);
  desk.Graphics().FillRect(hdc, area, brush);
  desk.Graphics().DeleteObject(brush);
}

Picture DrawingFloor::MakePicture(const std::vector<std::string>& rows) {
  const Long height = static_cast<Long>(rows.size());
  const Picture picture = MakePicture(static_cast<Long>(rows.at(0).size()), height, kKey);
  desk::Surface& surface = desk.Objects().Find<desk::Bitmap>(picture->Handle())->surface;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < surface.width; ++x) {
      const Long color = ColorOf(rows[static_cast<std::size_t>(y)].at(static_cast<std::size_t>(x)));
      *surface.At(x, y) = desk::PixelFromColorRef(static_cast<std::uint32_t>(color));
    }
  }
  return picture;
}

Picture DrawingFloor::MakePicture(Long width, Long height, Long color) {
  const Guid id{0x7BF80980, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
  Picture picture;
  desk.Pictures().OleCreatePictureIndirect({20, kPictureOfBitmap, MakeBitmap(width, height, color), 0, 0}, id, true,
                                           picture);
  return picture;
}

const desk::Surface& DrawingFloor::SurfaceOf(Long hdc) {
  const desk::Context* context = desk.Objects().Find<desk::Context>(hdc);
  const desk::Bitmap* bitmap = context ? desk.Objects().Find<desk::Bitmap>(context->bitmap) : nullptr;
  static const desk::Surface kNone;
  return bitmap ? bitmap->surface : kNone;
}

const desk::Surface& DrawingFloor::BitmapSurface(Long bitmap) {
  const desk::Bitmap* found = desk.Objects().Find<desk::Bitmap>(bitmap);
  static const desk::Surface kNone;
  return found ? found->surface : kNone;
}

Long DrawingFloor::ColorOf(char pixel) {
  switch (pixel) {
    case '#':
      return kBlack;
    case 'w':
      return kWhite;
    case 'r':
      return kRed;
    case 'g':
      return kGreen;
    default:
      return kKey;
  }
}

Lines DrawingFloor::Rows(const desk::Surface& surface) {
  Lines rows;
  for (int y = 0; y < surface.height; ++y) {
    std::string row;
    for (int x = 0; x < surface.width; ++x) {
      const std::uint32_t pixel = surface.Get(x, y);
      char shown = '?';
      for (const char letter : std::string_view(kPixelLetters)) {
        const std::uint32_t color = desk::PixelFromColorRef(static_cast<std::uint32_t>(ColorOf(letter)));
        if (surface.IsMono() ? color == (pixel ? 0xFFFFFFu : 0u) : color == pixel) shown = letter;
      }
      row += shown;
    }
    rows.push_back(row);
  }
  return rows;
}

Lines DrawingFloor::Misused() {
  Lines lines;
  for (const desk::Misuse& misuse : desk.Misuses().All()) lines.push_back(misuse.call + ": " + misuse.what);
  return lines;
}

Lines DrawingTest::TakeErrors() {
  const Lines asked = floor->errors.Asked();
  floor->errors.questions.clear();
  return asked;
}

void DrawingTest::ExpectNothingUnnoticed() {
  EXPECT_EQ(Listed(TakeErrors()), "");
  EXPECT_EQ(Listed(floor->Misused()), "");
}

}  // namespace strandline
