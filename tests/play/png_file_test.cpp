#include "play/png_file.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstring>
#include <filesystem>
#include <vector>

namespace strandline::play {
namespace {

// As libpng reads it; empty where it doesn't.
std::vector<std::uint32_t> Read(const std::string& path, int& width, int& height) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
  image.format = PNG_FORMAT_BGRA;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(image.width) * image.height);
  const bool isRead = png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
  width = static_cast<int>(image.width);
  height = static_cast<int>(image.height);
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return isRead ? pixels : std::vector<std::uint32_t>();
}

TEST(PngFile_APictureOfAnySize, IsReadBackPixelByPixel) {
  const std::string path = testing::TempDir() + "strandline_written.png";
  const struct { int width, height; } kSizes[] = {{1, 1}, {3, 2}, {21845, 1}, {2, 500}, {814, 40}};
  for (const auto& size : kSizes) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.width * size.height));
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<std::uint32_t>(i * 2654435761u) & 0xFFFFFF;
    ASSERT_TRUE(WritePngFile(path, size.width, size.height, pixels));
    int width = 0, height = 0;
    EXPECT_EQ(Read(path, width, height), pixels) << size.width;
    EXPECT_EQ(width, size.width);
    EXPECT_EQ(height, size.height);
  }
  std::filesystem::remove(path);
}

TEST(PngFile_WhatIsNoPicture, IsRefused) {
  const std::vector<std::uint32_t> pixels(6);
  const std::string path = testing::TempDir() + "strandline_refused.png";
  EXPECT_FALSE(WritePngFile(path, 0, 0, {}));
  EXPECT_FALSE(WritePngFile(path, -3, -2, pixels));
  EXPECT_FALSE(WritePngFile(path, 3, 3, pixels));
  EXPECT_FALSE(WritePngFile("/nowhere/at/all.png", 3, 2, pixels));
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace strandline::play
