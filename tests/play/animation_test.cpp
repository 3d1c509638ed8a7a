// tools/make-animation: every frame, put over those before it, is the picture that was given.

#include <gtest/gtest.h>
#include <png.h>
#include <sys/wait.h>
#include <zlib.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "play/png_file.h"

namespace strandline::play {
namespace {

constexpr int kWidth = 37;
constexpr int kHeight = 21;
using Pixels = std::vector<std::uint32_t>;

std::uint32_t NumberAt(const std::string& data, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(data[at + i]);
  return number;
}

std::string Bytes(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

std::string Chunk(const std::string& kind, const std::string& content) {
  const std::string told = kind + content;
  const auto crc = crc32(0, reinterpret_cast<const Bytef*>(told.data()), static_cast<uInt>(told.size()));
  return Bytes(static_cast<std::uint32_t>(content.size())) + told + Bytes(static_cast<std::uint32_t>(crc));
}

// A frame's rectangle and pixels, as libpng reads them once they stand alone.
struct Frame {
  std::uint32_t width, height, left, top, delay;
  Pixels pixels;
};

void Read(Frame& frame, const std::string& packed) {
  const std::string alone = "\x89PNG\r\n\x1a\n" +
                            Chunk("IHDR", Bytes(frame.width) + Bytes(frame.height) + std::string("\x08\x02\0\0\0", 5)) +
                            Chunk("IDAT", packed) + Chunk("IEND", "");
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_memory(&image, alone.data(), alone.size())) << image.message;
  image.format = PNG_FORMAT_BGRA;
  frame.pixels.resize(static_cast<std::size_t>(image.width) * image.height);
  ASSERT_TRUE(png_image_finish_read(&image, nullptr, frame.pixels.data(), 0, nullptr)) << image.message;
  for (std::uint32_t& pixel : frame.pixels) pixel &= 0xFFFFFF;
}

std::vector<Frame> FramesOf(const std::string& data) {
  std::vector<Frame> frames;
  std::uint32_t sequence = 0;
  for (std::size_t at = 8; at + 12 <= data.size();) {
    const std::uint32_t length = NumberAt(data, at);
    const std::string kind = data.substr(at + 4, 4);
    const std::string content = data.substr(at + 8, length);
    EXPECT_EQ(data.substr(at, length + 12), Chunk(kind, content));
    if (kind == "fcTL") {
      EXPECT_EQ(NumberAt(content, 0), sequence++);
      frames.push_back({NumberAt(content, 4),
                        NumberAt(content, 8),
                        NumberAt(content, 12),
                        NumberAt(content, 16),
                        NumberAt(content, 20) >> 16,
                        {}});
    } else if (kind == "IDAT") {
      Read(frames.back(), content);
    } else if (kind == "fdAT") {
      EXPECT_EQ(NumberAt(content, 0), sequence++);
      Read(frames.back(), content.substr(4));
    }
    at += length + 12;
  }
  return frames;
}

class Animation : public testing::Test {
 protected:
  Animation() { std::filesystem::create_directories(mFolder); }
  ~Animation() override { std::filesystem::remove_all(mFolder); }

  int Make(const std::string& words) {
    const std::string command =
        "cd '" + mFolder + "' && '" STRANDLINE_SOURCE_DIR "/tools/make-animation' " + words + " 2>errors.txt";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Contents(const char* name) const {
    std::ifstream file(mFolder + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::string mFolder = testing::TempDir() + "strandline_animation";
};

TEST_F(Animation, EachFrame_IsThePictureThatWasGiven) {
  std::vector<Pixels> given(4, Pixels(kWidth * kHeight));
  for (std::size_t i = 0; i < given[0].size(); ++i)
    given[0][i] = static_cast<std::uint32_t>(i * 2654435761u) & 0xFFFFFF;
  given[1] = given[0];
  given[1][5 * kWidth + 8] ^= 0x0000FF;
  given[1][9 * kWidth + 3] ^= 0xFF0000;
  given[2] = given[1];
  given[3] = given[0];
  given[3].back() ^= 1;
  std::string words = "film.png 0.25";
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::string name = std::to_string(i) + ".png";
    ASSERT_TRUE(WritePngFile(mFolder + "/" + name, kWidth, kHeight, given[i]));
    words += " " + name;
  }
  ASSERT_EQ(Make(words), 0) << Contents("errors.txt");
  const std::vector<Frame> frames = FramesOf(Contents("film.png"));
  ASSERT_EQ(frames.size(), given.size());
  Pixels shown(kWidth * kHeight);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const Frame& frame = frames[i];
    for (std::uint32_t y = 0; y < frame.height; ++y) {
      for (std::uint32_t x = 0; x < frame.width; ++x) {
        shown[(frame.top + y) * kWidth + frame.left + x] = frame.pixels[y * frame.width + x];
      }
    }
    EXPECT_EQ(shown, given[i]) << i;
    EXPECT_EQ(frame.delay, 250u);
  }
  EXPECT_EQ(frames[1].width * frames[1].height, 6u * 5u) << "what is the same as before isn't stored";
}

TEST_F(Animation, WhatIsWrong_IsToldInOneLine) {
  ASSERT_TRUE(WritePngFile(mFolder + "/a.png", 2, 2, Pixels(4)));
  ASSERT_TRUE(WritePngFile(mFolder + "/b.png", 3, 2, Pixels(6)));
  std::ofstream(mFolder + "/text.png") << "no picture";
  const struct {
    const char* words;
    const char* error;
  } kCases[] = {{"film.png 1", "usage: "},
                {"film.png soon a.png", "SECONDS must be a number"},
                {"film.png 1 a.png none.png", "there is no picture none.png"},
                {"film.png 1 a.png b.png", "b.png has another size than a.png"},
                {"film.png 1 text.png", "text.png is no PNG"}};
  for (const auto& each : kCases) {
    EXPECT_EQ(Make(each.words), 1) << each.words;
    EXPECT_EQ(Contents("errors.txt").find(std::string("make-animation: ") + each.error), 0u) << Contents("errors.txt");
  }
}

}  // namespace
}  // namespace strandline::play
