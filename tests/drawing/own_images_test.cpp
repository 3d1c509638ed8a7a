// The numbered images that the library carries: each is there, in its size and format, against the exact key.

#include <cstring>
#include <map>
#include <set>

#include "platform/desk/own_resources.h"
#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

struct ImageCase {
  Integer number;
  int width, height;
};

const ImageCase kLarge[] = {{101, 1, 1},   {102, 32, 32}, {103, 25, 30}, {104, 25, 30},  {105, 32, 32}, {106, 30, 30},
                            {107, 30, 30}, {108, 30, 30}, {109, 30, 30}, {110, 30, 30},  {111, 28, 28}, {112, 30, 32},
                            {113, 30, 32}, {114, 32, 32}, {115, 32, 30}, {116, 223, 32}, {117, 34, 26}, {118, 32, 32}};
const ImageCase kOthers[] = {{303, 28, 32}, {314, 32, 32}, {316, 32, 32}, {317, 32, 32}, {318, 32, 32}};

std::vector<ImageCase> AllImages() {
  std::vector<ImageCase> all(std::begin(kLarge), std::end(kLarge));
  all.push_back({201, 1, 1});
  for (Integer number = 202; number <= 218; ++number) all.push_back({number, 16, 16});
  all.insert(all.end(), std::begin(kOthers), std::end(kOthers));
  return all;
}

class OwnImagesTest : public DrawingTest {
 protected:
  static Array<Byte> BytesOf(Integer number) {
    Array<Byte> bytes;
    platform::Modules().LoadResData(number, u"CUSTOM", bytes);
    return bytes;
  }
};

TEST_F(OwnImagesTest, TheLibrary_CarriesExactlyTheImagesOfTheTables) {
  std::set<Long> expected;
  for (const ImageCase& image : AllImages()) expected.insert(image.number);
  std::set<Long> carried;
  for (const desk::OwnImage& image : desk::OwnImages()) carried.insert(image.id);
  EXPECT_EQ(carried, expected);
}

TEST_F(OwnImagesTest, EachImage_LoadsInItsSize) {
  for (const ImageCase& image : AllImages()) {
    SCOPED_TRACE(image.number);
    const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(image.number, 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(floor->BitmapSurface(picture->Handle()).width, image.width);
    EXPECT_EQ(floor->BitmapSurface(picture->Handle()).height, image.height);
    EXPECT_EQ(ToolbarUtilities::HM2PixX(picture->Width()), image.width);
    EXPECT_EQ(ToolbarUtilities::HM2PixY(picture->Height()), image.height);
  }
}

TEST_F(OwnImagesTest, EachImage_IsAGifButTheTwoOfOnePixel) {
  for (const ImageCase& image : AllImages()) {
    const Array<Byte> bytes = BytesOf(image.number);
    ASSERT_GT(bytes.Elements().size(), 6u) << image.number;
    const bool isBmp = image.number == 101 || image.number == 201;
    const auto startsWith = [&](const char* sign) {
      return std::memcmp(bytes.Elements().data(), sign, std::strlen(sign)) == 0;
    };
    EXPECT_EQ(startsWith("BM"), isBmp) << image.number;
    EXPECT_EQ(startsWith("GIF8"), !isBmp) << image.number;
  }
}

// A pixel is the key exactly or far enough from it that no rim of its colour shows.
TEST_F(OwnImagesTest, EachImage_IsTransparentByTheExactKey) {
  for (const ImageCase& image : AllImages()) {
    SCOPED_TRACE(image.number);
    const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(image.number, 0);
    ASSERT_TRUE(picture);
    int transparent = 0, opaque = 0, nearMisses = 0;
    for (const std::uint32_t pixel : floor->BitmapSurface(picture->Handle()).pixels) {
      const int red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
      if (pixel == 0x0000FF) {
        ++transparent;
      } else if (red < 24 && green < 24 && blue > 231) {
        ++nearMisses;
      } else {
        ++opaque;
      }
    }
    EXPECT_EQ(nearMisses, 0);
    if (image.width == 1) {
      EXPECT_EQ(transparent, 1);  // a cell without an icon
    } else {
      EXPECT_GT(transparent, 0);
      EXPECT_GT(opaque, image.width * image.height / 10);
    }
  }
}

TEST_F(OwnImagesTest, IconsOfOneSet_DifferFromEachOther) {
  std::map<std::vector<Byte>, Integer> seen;
  for (const ImageCase& image : AllImages()) {
    if (image.width == 1) continue;
    const auto [known, isNew] = seen.emplace(BytesOf(image.number).Elements(), image.number);
    EXPECT_TRUE(isNew) << image.number << " is the same as " << known->second;
  }
}

TEST_F(OwnImagesTest, EachCellsPicture_IsAmongThem) {
  ToolbarUtilities::Initialize(nullptr, floor->word.ProductState(), u"Quillmere");
  for (Integer cell = 1; cell <= ToolbarUtilities::kCells; ++cell) {
    for (const bool small : {false, true}) {
      EXPECT_TRUE(BytesOf(ToolbarUtilities::pictureIndex(cell, small)).IsSized()) << cell;
    }
  }
}

}  // namespace
}  // namespace strandline
