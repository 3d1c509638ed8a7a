#include "platform/desk/picture_decoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace strandline::desk {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

const fs::path kSamples = fs::path(STRANDLINE_SOURCE_DIR) / "tests/data/pictures";
const fs::path kDamaged = fs::path(STRANDLINE_SOURCE_DIR) / "fuzz/corpus/pictures";
constexpr std::uint32_t kColorKey = 0x0000FF;

Bytes ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

bool operator==(const DecodedImage& a, const DecodedImage& b) {
  return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

// The samples' patterns are drawn from a palette of which the last entry is the colour key.
std::uint32_t PatternColor(int index, int colors) {
  if (index == colors - 1) return kColorKey;
  const int red = index * 37 % 256;
  const int green = (255 - index * 3 + 3 * 256) % 256;
  const int blue = index * index % 256;
  return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

DecodedImage Pattern(int width, int height, int colors) {
  DecodedImage image{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) image.pixels.push_back(PatternColor((x * 7 + y * 13 + x * y) % colors, colors));
  }
  return image;
}

void ExpectPicture(const std::optional<DecodedImage>& actual, const DecodedImage& expected) {
  ASSERT_TRUE(actual);
  EXPECT_EQ(actual->width, expected.width);
  EXPECT_EQ(actual->height, expected.height);
  EXPECT_EQ(actual->pixels, expected.pixels);
}

// ---- GIF

struct GifSample {
  std::string file;
  int width;
  int height;
  int colors;
};

TEST(PictureDecoder, AGif_HasExactlyItsPaletteColors) {
  const GifSample samples[] = {
      {"pattern_32x32_64.gif", 32, 32, 64},
      {"pattern_223x32_256.gif", 223, 32, 256},
      {"pattern_120x90_256.gif", 120, 90, 256},  // Long enough to fill the table of codes.
      {"pattern_9x13_4_interlaced.gif", 9, 13, 4},
      {"pattern_32x32_64_interlaced.gif", 32, 32, 64},
      {"pattern_16x16_16_transparent.gif", 16, 16, 16},
      {"pattern_12x8_8_two_frames.gif", 12, 8, 8},
  };
  for (const GifSample& sample : samples) {
    SCOPED_TRACE(sample.file);
    ExpectPicture(DecodePicture(ReadFile(kSamples / sample.file)), Pattern(sample.width, sample.height, sample.colors));
  }
}

// A GIF whose frame has 4 by 2 pixels, each row going through the palette, the second from one color further on.
struct SmallGif {
  static constexpr std::uint32_t kPalette[] = {0x0000FF, 0xFF0000, 0x00FF00, 0xFFFFFF};

  std::uint8_t screenWidth = 4;
  std::uint8_t screenHeight = 2;
  std::uint8_t background = 0;
  std::uint8_t left = 0;
  std::uint8_t top = 0;
  bool globalPalette = true;  // Otherwise the frame has a palette of its own.

  static std::uint32_t ColorAt(int x, int y) { return kPalette[(x + y) % 4]; }

  Bytes Encode() const {
    Bytes bytes{'G', 'I', 'F', '8', '9', 'a', screenWidth, 0, screenHeight, 0};
    const std::uint8_t paletteFlags = 0x81;  // There is a palette, of four colours.
    bytes.insert(bytes.end(), {globalPalette ? paletteFlags : std::uint8_t{0}, background, 0});
    if (globalPalette) AddPalette(bytes);
    bytes.insert(bytes.end(), {',', left, 0, top, 0, 4, 0, 2, 0, globalPalette ? std::uint8_t{0} : paletteFlags});
    if (!globalPalette) AddPalette(bytes);
    AddPixels(bytes);
    bytes.push_back(';');
    return bytes;
  }

 private:
  static void AddPalette(Bytes& bytes) {
    for (const std::uint32_t color : kPalette) {
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(color >> 16), static_cast<std::uint8_t>(color >> 8),
                                 static_cast<std::uint8_t>(color)});
    }
  }

  // Clearing the table of codes before each pixel keeps every code at three bits.
  static void AddPixels(Bytes& bytes) {
    constexpr unsigned kClear = 4;
    constexpr unsigned kEnd = 5;
    std::uint64_t bits = 0;
    int count = 0;
    const auto add = [&bits, &count](std::uint64_t code) {
      bits |= code << count;
      count += 3;
    };
    for (int i = 0; i < 8; ++i) {
      add(kClear);
      add(static_cast<std::uint64_t>((i % 4 + i / 4) % 4));
    }
    add(kEnd);
    const auto length = static_cast<std::uint8_t>((count + 7) / 8);
    bytes.insert(bytes.end(), {2, length});
    for (int i = 0; i < length; ++i) bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
    bytes.push_back(0);
  }
};

DecodedImage SmallGifOnScreen(const SmallGif& gif, std::uint32_t background) {
  DecodedImage image{gif.screenWidth, gif.screenHeight, {}};
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      const bool covered = x >= gif.left && x < gif.left + 4 && y >= gif.top && y < gif.top + 2;
      image.pixels.push_back(covered ? SmallGif::ColorAt(x - gif.left, y - gif.top) : background);
    }
  }
  return image;
}

TEST(PictureDecoder, AGifFrameSmallerThanItsScreen_LiesAtItsOffsetOnTheBackground) {
  SmallGif gif;
  gif.screenWidth = 9;
  gif.screenHeight = 6;
  gif.left = 3;
  gif.top = 2;
  gif.background = 3;
  ExpectPicture(DecodePicture(gif.Encode()), SmallGifOnScreen(gif, SmallGif::kPalette[3]));
  gif.background = 200;  // Beyond the palette.
  ExpectPicture(DecodePicture(gif.Encode()), SmallGifOnScreen(gif, 0));
}

TEST(PictureDecoder, AGifWithAPaletteForItsFrameOnly_HasThoseColorsOnBlack) {
  SmallGif gif;
  gif.screenWidth = 5;
  gif.globalPalette = false;
  gif.background = 2;
  ExpectPicture(DecodePicture(gif.Encode()), SmallGifOnScreen(gif, 0));
}

TEST(PictureDecoder, AGifFrameReachingBeyondItsScreen_IsDamaged) {
  SmallGif gif;
  gif.screenWidth = 6;
  gif.left = 2;
  EXPECT_TRUE(DecodePicture(gif.Encode()));
  gif.left = 3;
  EXPECT_FALSE(DecodePicture(gif.Encode()));
}

TEST(PictureDecoder, AGifWithoutItsLastByte_IsStillWhole_AndBytesAfterThePictureAreIgnored) {
  const SmallGif gif;
  Bytes bytes = gif.Encode();
  bytes.pop_back();
  ExpectPicture(DecodePicture(bytes), SmallGifOnScreen(gif, 0));
  bytes.insert(bytes.end(), {';', 'm', 'o', 'r', 'e'});
  ExpectPicture(DecodePicture(bytes), SmallGifOnScreen(gif, 0));
}

// ---- JPEG

TEST(PictureDecoder, AJpeg_HasItsSizeAndItsColorsWithinTheLossOfItsQuality) {
  struct Sample {
    std::string file;
    int width;
    int height;
    int tolerance;
    bool gray = false;
  };
  const Sample samples[] = {
      {"ramp_1x1.jpg", 1, 1, 4},
      {"ramp_7x5.jpg", 7, 5, 16},
      {"ramp_16x16.jpg", 16, 16, 16},
      {"ramp_223x32.jpg", 223, 32, 16},
      {"ramp_40x24_progressive.jpg", 40, 24, 16},
      {"ramp_40x24_halved_color.jpg", 40, 24, 32},
      {"ramp_40x24_gray.jpg", 40, 24, 16, true},
  };
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.file);
    const auto image = DecodePicture(ReadFile(kSamples / sample.file));
    ASSERT_TRUE(image);
    ASSERT_EQ(image->width, sample.width);
    ASSERT_EQ(image->height, sample.height);
    ASSERT_EQ(image->pixels.size(), static_cast<std::size_t>(sample.width * sample.height));
    int worst = 0;
    for (int y = 0; y < sample.height; ++y) {
      for (int x = 0; x < sample.width; ++x) {
        int expected[] = {x * 255 / sample.width, y * 255 / sample.height,
                          (x + y) * 255 / (sample.width + sample.height)};
        if (sample.gray) std::fill_n(expected, 3, (299 * expected[0] + 587 * expected[1] + 114 * expected[2]) / 1000);
        const std::uint32_t pixel = image->pixels[static_cast<std::size_t>(y * sample.width + x)];
        for (int i = 0; i < 3; ++i) {
          worst = std::max(worst, std::abs(static_cast<int>(pixel >> (16 - 8 * i) & 0xFF) - expected[i]));
        }
        EXPECT_EQ(pixel >> 24, 0u);
      }
    }
    EXPECT_LE(worst, sample.tolerance);
  }
}

TEST(PictureDecoder, AJpegForFourInks_IsRefused) {
  EXPECT_FALSE(DecodePicture(ReadFile(kSamples / "ramp_40x24_four_inks.jpg")));
}

// ---- BMP

void AddLittleEndian(Bytes& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

struct BmpVariant {
  std::string name;
  int bitsPerPixel;
  int colors = 0;  // Of the palette.
  bool fromTheTop = false;
  bool oldestHeader = false;
  bool redFirst = false;   // Masks say that red is the lowest byte.
  bool runs = false;       // Rows packed as runs of equal pixels.
  std::uint32_t junk = 0;  // What the unused byte of a pixel holds.
};

constexpr int kBmpWidth = 19;
constexpr int kBmpHeight = 7;

int BmpIndex(const BmpVariant& variant, int x, int y) { return (x / 3 * 5 + y * 11) % variant.colors; }

std::uint32_t BmpColor(const BmpVariant& variant, int x, int y) {
  if (variant.colors != 0) return PatternColor(BmpIndex(variant, x, y), variant.colors);
  return PatternColor((x * 7 + y * 13) % 256, 256);
}

Bytes BmpRow(const BmpVariant& variant, int y) {
  Bytes row;
  std::uint32_t packed = 0;
  for (int x = 0; x < kBmpWidth; ++x) {
    if (variant.bitsPerPixel <= 8) {
      const int perByte = 8 / variant.bitsPerPixel;
      packed = packed << variant.bitsPerPixel | static_cast<std::uint32_t>(BmpIndex(variant, x, y));
      if (x % perByte == perByte - 1) AddLittleEndian(row, packed, 1);
    } else {
      std::uint32_t color = BmpColor(variant, x, y);
      if (variant.redFirst) color = (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16;
      AddLittleEndian(row, color | variant.junk << 24, variant.bitsPerPixel / 8);
    }
  }
  if (variant.bitsPerPixel < 8) {
    const int used = kBmpWidth * variant.bitsPerPixel % 8;
    if (used != 0) AddLittleEndian(row, packed << (8 - used), 1);
  }
  while (row.size() % 4 != 0) row.push_back(0);
  return row;
}

// A row as runs of up to three pixels, then one stretch of four pixels as they are, then the end of the row.
Bytes BmpRowOfRuns(const BmpVariant& variant, int y) {
  Bytes row;
  const auto index = [&variant, y](int x) { return static_cast<std::uint8_t>(BmpIndex(variant, x, y)); };
  const bool bytes = variant.bitsPerPixel == 8;
  int x = 0;
  for (; x + 3 <= kBmpWidth - 4; x += 3) {
    AddLittleEndian(row, 3, 1);
    AddLittleEndian(row, bytes ? index(x) : index(x) * 0x11u, 1);
  }
  AddLittleEndian(row, static_cast<std::uint32_t>(kBmpWidth - x) << 8, 2);
  const std::size_t start = row.size();
  for (; x < kBmpWidth; x += bytes ? 1 : 2) {
    AddLittleEndian(row, bytes ? index(x) : index(x) * 0x10u + (x + 1 < kBmpWidth ? index(x + 1) : 0u), 1);
  }
  if ((row.size() - start) % 2 != 0) row.push_back(0);
  AddLittleEndian(row, 0, 2);
  return row;
}

Bytes EncodeBmp(const BmpVariant& variant) {
  Bytes rows;
  for (int i = 0; i < kBmpHeight; ++i) {
    const int y = variant.fromTheTop ? i : kBmpHeight - 1 - i;
    const Bytes row = variant.runs ? BmpRowOfRuns(variant, y) : BmpRow(variant, y);
    rows.insert(rows.end(), row.begin(), row.end());
  }
  if (variant.runs) AddLittleEndian(rows, 0x0100, 2);

  Bytes header;
  AddLittleEndian(header, variant.oldestHeader ? 12 : 40, 4);
  const int sizeBytes = variant.oldestHeader ? 2 : 4;
  AddLittleEndian(header, kBmpWidth, sizeBytes);
  AddLittleEndian(header, static_cast<std::uint32_t>(variant.fromTheTop ? -kBmpHeight : kBmpHeight), sizeBytes);
  AddLittleEndian(header, 1, 2);
  AddLittleEndian(header, static_cast<std::uint32_t>(variant.bitsPerPixel), 2);
  if (!variant.oldestHeader) {
    AddLittleEndian(header, variant.redFirst ? 3 : !variant.runs ? 0 : variant.bitsPerPixel == 8 ? 1 : 2, 4);
    AddLittleEndian(header, static_cast<std::uint32_t>(rows.size()), 4);
    AddLittleEndian(header, 2835, 4);
    AddLittleEndian(header, 2835, 4);
    AddLittleEndian(header, static_cast<std::uint32_t>(variant.colors), 4);
    AddLittleEndian(header, 0, 4);
  }
  if (variant.redFirst) {
    for (const std::uint32_t mask : {0x0000FFu, 0x00FF00u, 0xFF0000u}) AddLittleEndian(header, mask, 4);
  }
  for (int i = 0; i < variant.colors; ++i) {
    AddLittleEndian(header, PatternColor(i, variant.colors), variant.oldestHeader ? 3 : 4);
  }

  Bytes bytes{'B', 'M'};
  const auto rowsAt = static_cast<std::uint32_t>(14 + header.size());
  AddLittleEndian(bytes, rowsAt + static_cast<std::uint32_t>(rows.size()), 4);
  AddLittleEndian(bytes, 0, 4);
  AddLittleEndian(bytes, rowsAt, 4);
  bytes.insert(bytes.end(), header.begin(), header.end());
  bytes.insert(bytes.end(), rows.begin(), rows.end());
  return bytes;
}

const std::vector<BmpVariant>& BmpVariants() {
  static const std::vector<BmpVariant> variants{
      {"1 bit", 1, 2},
      {"1 bit from the top", 1, 2, true},
      {"1 bit, oldest header", 1, 2, false, true},
      {"4 bits", 4, 16},
      {"4 bits, short palette", 4, 5},
      {"4 bits from the top", 4, 16, true},
      {"4 bits in runs", 4, 16, false, false, false, true},
      {"8 bits", 8, 256},
      {"8 bits, short palette", 8, 3},
      {"8 bits from the top", 8, 256, true},
      {"8 bits, oldest header", 8, 256, false, true},
      {"8 bits in runs", 8, 256, false, false, false, true},
      {"24 bits", 24},
      {"24 bits from the top", 24, 0, true},
      {"24 bits, oldest header", 24, 0, false, true},
      {"32 bits", 32},
      {"32 bits from the top", 32, 0, true},
      {"32 bits, unused byte filled", 32, 0, false, false, false, false, 0xA5},
      {"32 bits with masks, red first", 32, 0, false, false, true},
  };
  return variants;
}

TEST(PictureDecoder, ABmpOfAnyKind_HasExactlyItsPixels) {
  for (const BmpVariant& variant : BmpVariants()) {
    SCOPED_TRACE(variant.name);
    DecodedImage expected{kBmpWidth, kBmpHeight, {}};
    for (int y = 0; y < kBmpHeight; ++y) {
      for (int x = 0; x < kBmpWidth; ++x) expected.pixels.push_back(BmpColor(variant, x, y));
    }
    ExpectPicture(DecodePicture(EncodeBmp(variant)), expected);
  }
}

// ---- Damage

struct Sample {
  std::string name;
  Bytes bytes;
};

std::vector<Sample> SoundSamples() {
  std::vector<Sample> samples;
  for (const fs::path& file : FilesIn(kSamples)) {
    Bytes bytes = ReadFile(file);
    // The longest would take most of the time and show nothing that the others don't.
    if (bytes.size() < 4096 && DecodePicture(bytes)) samples.push_back({file.filename().string(), std::move(bytes)});
  }
  for (const BmpVariant& variant : BmpVariants()) samples.push_back({variant.name, EncodeBmp(variant)});
  return samples;
}

TEST(PictureDecoder, APictureCutShort_IsNone_UnlessNothingOfItIsMissing) {
  for (const Sample& sample : SoundSamples()) {
    SCOPED_TRACE(sample.name);
    const auto whole = DecodePicture(sample.bytes);
    ASSERT_TRUE(whole);
    int forgiven = 0;
    for (std::size_t length = 0; length < sample.bytes.size(); ++length) {
      // The copy has no spare bytes behind it, so that a checking build sees any read beyond the end.
      const Bytes cut(sample.bytes.begin(), sample.bytes.begin() + static_cast<std::ptrdiff_t>(length));
      if (const auto image = DecodePicture(cut)) {
        ASSERT_TRUE(*image == *whole) << "cut to " << length;
        ++forgiven;
      }
    }
    // The last row's padding, or what a GIF has after its first frame: a second frame and its extension, the trailer.
    EXPECT_LE(forgiven, 3);
  }
}

TEST(PictureDecoder, AJpegCutShort_IsNone) {
  for (const Sample& sample : SoundSamples()) {
    if (!sample.name.ends_with(".jpg")) continue;
    for (std::size_t length = 0; length < sample.bytes.size(); ++length) {
      ASSERT_FALSE(DecodePicture(std::span(sample.bytes).first(length))) << sample.name << " cut to " << length;
    }
  }
}

TEST(PictureDecoder, APictureWithFlippedBits_IsWholeOrNone) {
  std::mt19937 random(20030401);
  for (const Sample& sample : SoundSamples()) {
    SCOPED_TRACE(sample.name);
    for (int round = 0; round < 150; ++round) {
      Bytes bytes = sample.bytes;
      const auto flips = 1 + random() % 4;
      for (std::uint32_t i = 0; i < flips; ++i) {
        bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1u << random() % 8);
      }
      const auto image = DecodePicture(bytes);
      if (!image) continue;
      ASSERT_GT(image->width, 0);
      ASSERT_GT(image->height, 0);
      ASSERT_EQ(image->pixels.size(), static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height));
      ASSERT_TRUE(std::all_of(image->pixels.begin(), image->pixels.end(), [](auto pixel) { return pixel >> 24 == 0; }));
    }
  }
}

TEST(PictureDecoder, EachDamagedPictureOfTheCorpus_IsNone_WithoutAWord) {
  const std::vector<fs::path> files = FilesIn(kDamaged);
  for (const std::string_view format : {"gif-", "jpeg-", "bmp-"}) {
    EXPECT_TRUE(std::any_of(files.begin(), files.end(), [format](const fs::path& file) {
      return file.filename().string().starts_with(format);
    })) << format;
  }
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  std::vector<std::string> decoded;
  for (const fs::path& file : files) {
    if (DecodePicture(ReadFile(file))) decoded.push_back(file.filename().string());
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(decoded, std::vector<std::string>{});
}

TEST(PictureDecoder, ABmpClaimingMoreThanSixteenMegapixels_IsNone) {
  // Runs need no byte for a pixel never reached, so such a file is sound in all but its size.
  const auto blank = [](std::uint32_t width, std::uint32_t height) {
    Bytes bytes{'B', 'M'};
    for (const std::uint32_t field : {0u, 0u, 62u, 40u, width, height}) AddLittleEndian(bytes, field, 4);
    AddLittleEndian(bytes, 0x00080001, 4);
    for (const std::uint32_t field : {1u, 0u, 0u, 0u, 2u, 0u, 0x0000FFu, 0xFFFFFFu, 0x0100u}) {
      AddLittleEndian(bytes, field, 4);
    }
    return bytes;
  };
  EXPECT_TRUE(DecodePicture(blank(4096, 4096)));
  EXPECT_FALSE(DecodePicture(blank(4096, 4097)));
  EXPECT_FALSE(DecodePicture(blank(0x10000, 0x10000)));
}

}  // namespace
}  // namespace strandline::desk
