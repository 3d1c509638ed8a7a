// Memory blocks, streams and pictures: who frees what, and once.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/desk/desk_pictures.h"
#include "platform/desk/software_graphics.h"

namespace strandline::desk {
namespace {

constexpr Long kInvalidClassText = static_cast<Long>(0x800401F3);
constexpr Long kInvalidPicture = static_cast<Long>(0x800A01E1);
constexpr Long kNoInterface = static_cast<Long>(0x80004002);
constexpr Long kMovable = 2;
constexpr const char16_t* kPictureInterface = u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}";

class NoWindows final : public WindowAreas {
 public:
  bool IsWindow(Long) override { return false; }
  Clip BoundsOf(Long) override { return {}; }
  const Region& VisibleRegion(Long) override { return mNone; }
  const Region& InvalidRegion(Long) override { return mNone; }
  void Validate(Long) override {}

 private:
  Region mNone;
};

// A bitmap file of one colour, 24 bits a pixel.
std::vector<Byte> MakeBmp(int width, int height, Byte red, Byte green, Byte blue) {
  const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  std::vector<Byte> file(54 + row * static_cast<std::size_t>(height));
  const auto put = [&file](std::size_t at, std::size_t value) {
    for (std::size_t i = 0; i < 4; ++i) file[at + i] = static_cast<Byte>(value >> 8 * i);
  };
  file[0] = 'B';
  file[1] = 'M';
  put(2, file.size());
  put(10, 54);
  put(14, 40);
  put(18, static_cast<std::size_t>(width));
  put(22, static_cast<std::size_t>(height));
  file[26] = 1;
  file[28] = 24;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Byte* pixel = &file[54 + row * static_cast<std::size_t>(y) + 3 * static_cast<std::size_t>(x)];
      pixel[0] = blue;
      pixel[1] = green;
      pixel[2] = red;
    }
  }
  return file;
}

class PicturesTest : public testing::Test {
 protected:
  PicturesTest() { mPictures.CLSIDFromString(kPictureInterface, mInterface); }

  Long MakeMemory(const std::vector<Byte>& bytes) {
    const Long memory = mPictures.GlobalAlloc(kMovable, static_cast<Long>(bytes.size()));
    Byte* at = mPictures.GlobalLock(memory);
    if (at) std::copy(bytes.begin(), bytes.end(), at);
    mPictures.GlobalUnlock(memory);
    return memory;
  }
  Ref<Stream> MakeStream(const std::vector<Byte>& bytes) {
    Ref<Stream> stream;
    EXPECT_EQ(mPictures.CreateStreamOnHGlobal(MakeMemory(bytes), true, stream), 0);
    return stream;
  }
  Picture Load(const std::vector<Byte>& bytes) {
    Picture picture;
    EXPECT_EQ(mPictures.OleLoadPicture(MakeStream(bytes), static_cast<Long>(bytes.size()), true, mInterface, picture),
              0);
    return picture;
  }
  Picture Wrap(Long bitmap, bool own) {
    Picture picture;
    EXPECT_EQ(mPictures.OleCreatePictureIndirect({20, 1, bitmap, 0, 0}, mInterface, own, picture), 0);
    return picture;
  }
  int Bitmaps() { return mGraphics.Objects()->Count(ObjectKind::kBitmap); }

  std::shared_ptr<MisuseLog> mMisuses = std::make_shared<MisuseLog>();
  Surface mScreen{8, 8};
  NoWindows mWindows;
  SoftwareGraphics mGraphics{mScreen, mWindows, mMisuses};
  DeskPictures mPictures{mGraphics.Objects(), mMisuses};
  Guid mInterface;
};

TEST_F(PicturesTest, Memory_BeginsWithZerosAndIsFreedOnce) {
  const Long memory = mPictures.GlobalAlloc(kMovable, 3);
  Byte* bytes = mPictures.GlobalLock(memory);
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(std::count(bytes, bytes + 3, 0), 3);
  EXPECT_EQ(mPictures.GlobalLock(memory), bytes);
  EXPECT_EQ(mPictures.GlobalUnlock(memory), 1);
  EXPECT_EQ(mPictures.GlobalUnlock(memory), 0);
  EXPECT_EQ(mPictures.Memory().LiveBlocks(), 1);
  EXPECT_EQ(mPictures.GlobalFree(memory), 0);
  EXPECT_EQ(mPictures.Memory().LiveBlocks(), 0);
  EXPECT_TRUE(mMisuses->All().empty());

  EXPECT_EQ(mPictures.GlobalFree(memory), memory);
  EXPECT_EQ(mPictures.GlobalLock(memory), nullptr);
  EXPECT_EQ(mPictures.GlobalUnlock(memory), 0);
  ASSERT_EQ(mMisuses->All().size(), 3u);
  EXPECT_EQ(mMisuses->All()[0].what, "dead: memory 1");
  EXPECT_EQ(mMisuses->All()[0].call, "GlobalFree");
  EXPECT_NE(mPictures.GlobalAlloc(kMovable, 3), memory);
}

TEST_F(PicturesTest, Memory_OfOddSizes) {
  EXPECT_EQ(mPictures.GlobalAlloc(kMovable, -1), 0);
  EXPECT_EQ(mPictures.GlobalAlloc(kMovable, 0x7FFFFFFF), 0);
  const Long empty = mPictures.GlobalAlloc(kMovable, 0);
  EXPECT_NE(empty, 0);
  EXPECT_EQ(mPictures.GlobalLock(empty), nullptr);
  EXPECT_EQ(mPictures.GlobalLock(0), nullptr);
  EXPECT_EQ(mPictures.GlobalFree(0), 0);
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(PicturesTest, LostMemory_NamesItsMaker) {
  mMisuses->whoIsCalling = [] { return std::string("LoadImage"); };
  mPictures.GlobalAlloc(kMovable, 5);
  EXPECT_EQ(mPictures.Memory().Lost(), std::vector<std::string>{"memory 1, LoadImage"});
}

TEST_F(PicturesTest, Stream_FreesItsMemoryAtItsEnd) {
  const Long memory = mPictures.GlobalAlloc(kMovable, 5);
  Ref<Stream> stream;
  EXPECT_EQ(mPictures.CreateStreamOnHGlobal(memory, true, stream), 0);
  Ref<Stream> second = stream;
  stream = nullptr;
  EXPECT_EQ(mPictures.Memory().LiveBlocks(), 1);
  EXPECT_EQ(mPictures.GlobalFree(memory), memory);
  EXPECT_EQ(mMisuses->All().size(), 1u);
  second = nullptr;
  EXPECT_EQ(mPictures.Memory().LiveBlocks(), 0);
}

TEST_F(PicturesTest, Stream_ThatDoesntOwnLeavesTheMemory) {
  const Long memory = mPictures.GlobalAlloc(kMovable, 5);
  Ref<Stream> stream;
  EXPECT_EQ(mPictures.CreateStreamOnHGlobal(memory, false, stream), 0);
  stream = nullptr;
  EXPECT_EQ(mPictures.GlobalFree(memory), 0);
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(PicturesTest, Stream_OnDeadMemoryFails) {
  const Long memory = mPictures.GlobalAlloc(kMovable, 5);
  mPictures.GlobalFree(memory);
  Ref<Stream> stream;
  for (const bool owns : {false, true}) {
    EXPECT_NE(mPictures.CreateStreamOnHGlobal(memory, owns, stream), 0);
    EXPECT_FALSE(stream);
  }
}

TEST_F(PicturesTest, Stream_WhoseMemoryIsFreedMeanwhileGivesNoPicture) {
  const std::vector<Byte> file = MakeBmp(2, 2, 1, 2, 3);
  const Long memory = MakeMemory(file);
  Ref<Stream> stream;
  mPictures.CreateStreamOnHGlobal(memory, false, stream);
  mPictures.GlobalFree(memory);
  Picture picture;
  EXPECT_EQ(mPictures.OleLoadPicture(stream, 0, true, mInterface, picture), kInvalidPicture);
  EXPECT_EQ(mMisuses->All().size(), 1u);
}

TEST_F(PicturesTest, Stream_MayOutliveTheDesk) {
  auto pictures = std::make_unique<DeskPictures>(mGraphics.Objects(), mMisuses);
  Ref<Stream> stream;
  pictures->CreateStreamOnHGlobal(0, true, stream);
  ASSERT_TRUE(stream);
  pictures.reset();
  stream = nullptr;
}

TEST_F(PicturesTest, ClassIdentifier_FromText) {
  EXPECT_EQ(mInterface.Data1, 0x7BF80980);
  EXPECT_EQ(mInterface.Data2, static_cast<Integer>(0xBF32));
  EXPECT_EQ(mInterface.Data3, 0x101A);
  const Byte rest[8] = {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB};
  EXPECT_TRUE(std::equal(rest, rest + 8, mInterface.Data4));

  Guid id;
  EXPECT_EQ(mPictures.CLSIDFromString(u"{ffffFFFF-0000-ffff-0000-0123456789aB}", id), 0);
  EXPECT_EQ(id.Data1, -1);
  EXPECT_EQ(id.Data4[7], 0xAB);
}

TEST_F(PicturesTest, ClassIdentifier_FromOtherTextsFails) {
  for (const char16_t* text :
       {u"", u"{}", u"7BF80980-BF32-101A-8BBB-00AA00300CAB", u"{7BF80980-BF32-101A-8BBB-00AA00300CA}",
        u"{7BF80980-BF32-101A-8BBB-00AA00300CAB", u"{7BF80980-BF32-101A-8BBB-00AA00300CAG}",
        u"{7BF80980+BF32-101A-8BBB-00AA00300CAB}", u"{7BF80980-BF32-101A-8BBB-00AA00300CAB} "}) {
    Guid id;
    id.Data1 = 42;
    EXPECT_EQ(mPictures.CLSIDFromString(text, id), kInvalidClassText);
    EXPECT_EQ(id.Data1, 42);
  }
}

TEST_F(PicturesTest, LoadedPicture_HasPixelsAndExtents) {
  const Picture picture = Load(MakeBmp(20, 10, 0x11, 0x22, 0x33));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->Width(), 529);
  EXPECT_EQ(picture->Height(), 265);
  const Bitmap* bitmap = mGraphics.Objects()->Find<Bitmap>(picture->Handle());
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->surface.width, 20);
  EXPECT_EQ(bitmap->surface.height, 10);
  EXPECT_EQ(std::count(bitmap->surface.pixels.begin(), bitmap->surface.pixels.end(), 0x112233u), 200);
  EXPECT_EQ(mPictures.Memory().LiveBlocks(), 0);
}

TEST_F(PicturesTest, Extents_FollowTheResolution) {
  mPictures.SetDpi(120);
  EXPECT_EQ(Load(MakeBmp(20, 10, 0, 0, 0))->Width(), 423);
  mPictures.SetDpi(0);
  EXPECT_EQ(Load(MakeBmp(20, 10, 0, 0, 0))->Height(), 212);
}

TEST_F(PicturesTest, EveryOwnImageLoads) {
  for (const char* name : {"101.bmp", "102.gif", "118.gif"}) {
    std::ifstream file(std::string(STRANDLINE_SOURCE_DIR "/resources/images/") + name, std::ios::binary);
    const std::vector<Byte> bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(Load(bytes)) << name;
  }
}

TEST_F(PicturesTest, WhatIsNoPictureGivesNone) {
  const std::vector<Byte> file = MakeBmp(20, 10, 1, 2, 3);
  const Long size = static_cast<Long>(file.size());
  Picture picture = Load(file);
  EXPECT_EQ(mPictures.OleLoadPicture(MakeStream({1, 2, 3}), 3, true, mInterface, picture), kInvalidPicture);
  EXPECT_FALSE(picture);
  EXPECT_EQ(mPictures.OleLoadPicture(MakeStream({}), 0, true, mInterface, picture), kInvalidPicture);
  EXPECT_EQ(mPictures.OleLoadPicture(MakeStream(file), size / 2, true, mInterface, picture), kInvalidPicture);
  EXPECT_NE(mPictures.OleLoadPicture(nullptr, size, true, mInterface, picture), 0);
  EXPECT_EQ(mPictures.OleLoadPicture(MakeStream(file), size, true, Guid{1, 2, 3, {}}, picture), kNoInterface);
  EXPECT_EQ(Bitmaps(), 0);
}

TEST_F(PicturesTest, OleLoadPicture_ReadsOnFromWhereTheStreamStands) {
  std::vector<Byte> two = MakeBmp(4, 4, 1, 2, 3);
  const Long first = static_cast<Long>(two.size());
  const std::vector<Byte> second = MakeBmp(5, 5, 1, 2, 3);
  two.insert(two.end(), second.begin(), second.end());
  const Ref<Stream> stream = MakeStream(two);
  Picture picture;
  EXPECT_EQ(mPictures.OleLoadPicture(stream, first, true, mInterface, picture), 0);
  EXPECT_EQ(picture->Width(), 106);
  EXPECT_EQ(mPictures.OleLoadPicture(stream, 0, true, mInterface, picture), 0);
  EXPECT_EQ(picture->Width(), 132);
  EXPECT_EQ(mPictures.OleLoadPicture(stream, 0, true, mInterface, picture), kInvalidPicture);
}

TEST_F(PicturesTest, OwnedBitmap_GoesWithItsPicture) {
  Picture picture = Load(MakeBmp(2, 2, 0, 0, 0));
  Picture second = picture;
  picture = nullptr;
  EXPECT_EQ(Bitmaps(), 1);
  second = nullptr;
  EXPECT_EQ(Bitmaps(), 0);
}

TEST_F(PicturesTest, OwnedBitmap_MayBeDeletedBefore) {
  Picture picture = Load(MakeBmp(2, 2, 0, 0, 0));
  EXPECT_EQ(mGraphics.DeleteObject(picture->Handle()), 1);
  const Long other = mGraphics.CreateBitmap(2, 2, 1, 32);
  picture = nullptr;
  EXPECT_TRUE(mGraphics.Objects()->IsLive(other));
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(PicturesTest, OwnedBitmap_ThatIsSelectedAtTheEndIsLost) {
  Picture picture = Load(MakeBmp(2, 2, 0, 0, 0));
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  mGraphics.SelectObject(hdc, picture->Handle());
  picture = nullptr;
  EXPECT_EQ(Bitmaps(), 1);
  EXPECT_EQ(mPictures.LostBitmaps(), 1);
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(PicturesTest, PictureOfABitmap_OwnsItOnlyWhenTold) {
  const Long bitmap = mGraphics.CreateBitmap(20, 10, 1, 1);
  Picture picture = Wrap(bitmap, false);
  EXPECT_EQ(picture->Handle(), bitmap);
  EXPECT_EQ(picture->Width(), 529);
  picture = nullptr;
  EXPECT_TRUE(mGraphics.Objects()->IsLive(bitmap));
  picture = Wrap(bitmap, true);
  picture = nullptr;
  EXPECT_FALSE(mGraphics.Objects()->IsLive(bitmap));
}

TEST_F(PicturesTest, PictureOfNoBitmapFails) {
  const Long bitmap = mGraphics.CreateBitmap(2, 2, 1, 32);
  const Long dead = mGraphics.CreateBitmap(2, 2, 1, 32);
  mGraphics.DeleteObject(dead);
  Picture picture = Wrap(bitmap, false);
  EXPECT_NE(mPictures.OleCreatePictureIndirect({20, 1, dead, 0, 0}, mInterface, true, picture), 0);
  EXPECT_FALSE(picture);
  EXPECT_NE(mPictures.OleCreatePictureIndirect({20, 1, 0, 0, 0}, mInterface, true, picture), 0);
  EXPECT_NE(mPictures.OleCreatePictureIndirect({20, 3, bitmap, 0, 0}, mInterface, true, picture), 0);
  EXPECT_NE(mPictures.OleCreatePictureIndirect({20, 1, bitmap, 0, 0}, Guid{}, true, picture), 0);
  EXPECT_EQ(mMisuses->All().size(), 1u);
  EXPECT_TRUE(mGraphics.Objects()->IsLive(bitmap));
}

TEST(Pictures, APictureMayOutliveTheDesk) {
  Surface screen(4, 4);
  NoWindows windows;
  const auto misuses = std::make_shared<MisuseLog>();
  auto graphics = std::make_unique<SoftwareGraphics>(screen, windows, misuses);
  auto pictures = std::make_unique<DeskPictures>(graphics->Objects(), misuses);
  const std::shared_ptr<ObjectTable> objects = graphics->Objects();
  Guid id;
  pictures->CLSIDFromString(kPictureInterface, id);
  Picture picture;
  pictures->OleCreatePictureIndirect({20, 1, graphics->CreateBitmap(2, 2, 1, 32), 0, 0}, id, true, picture);
  pictures.reset();
  graphics.reset();
  EXPECT_EQ(objects->Count(ObjectKind::kBitmap), 1);
  picture = nullptr;
  EXPECT_EQ(objects->Count(ObjectKind::kBitmap), 0);
}

}  // namespace
}  // namespace strandline::desk
