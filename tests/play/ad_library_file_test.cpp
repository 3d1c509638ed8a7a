#include "play/ad_library_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace strandline::play {
namespace {

namespace fs = std::filesystem;

class AdLibraryFiles : public testing::Test {
 protected:
  AdLibraryFiles() : mFolder(fs::path(testing::TempDir()) / "strandline_ad_files") {
    fs::create_directories(mFolder / "ads");
    std::ofstream(mFolder / "ads" / "a.dll", std::ios::binary) << std::string("MZ\0\xFF", 4);
    std::ofstream(mFolder / "empty.dll", std::ios::binary);
  }
  ~AdLibraryFiles() override { fs::remove_all(mFolder); }

  const fs::path mFolder;
};

TEST_F(AdLibraryFiles, AreTakenFromTheScenesFolder) {
  AdLibraryFile file;
  EXPECT_EQ(ReadAdLibrary((mFolder / "x.scene").string(), "ads/a.dll", file), "");
  EXPECT_EQ(file.bytes, (std::vector<std::uint8_t>{'M', 'Z', 0, 0xFF}));
  EXPECT_EQ(file.path, (mFolder / "ads/a.dll").string());
  EXPECT_EQ(ReadAdLibrary("elsewhere.scene", (mFolder / "empty.dll").string(), file), "");
  EXPECT_TRUE(file.bytes.empty());
}

TEST_F(AdLibraryFiles, ThatCantBeRead_AreToldInOneLine) {
  for (const char* name : {"missing.dll", "ads", ".", ""}) {
    AdLibraryFile file{"kept", {1}};
    const std::string wrong = ReadAdLibrary((mFolder / "x.scene").string(), name, file);
    EXPECT_NE(wrong.find("is no file; name one, relative to the scene's folder, or none"), std::string::npos) << wrong;
    EXPECT_EQ(wrong.find('\n'), std::string::npos);
    EXPECT_EQ(file.path, "kept");
  }
}

}  // namespace
}  // namespace strandline::play
