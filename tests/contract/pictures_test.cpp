// Memory blocks, streams and pictures.

#include <algorithm>

#include "tests/contract/surface.h"

namespace strandline::contract {
namespace {

constexpr Long kMovable = 2;
constexpr Guid kPictureInterface{
    0x7BF80980, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

class PictureContract : public Contract {
 protected:
  // A stream over a block with these bytes, which it owns.
  Ref<Stream> StreamOf(const std::vector<Byte>& bytes) {
    const Long memory = pictures.GlobalAlloc(kMovable, static_cast<Long>(bytes.size()));
    Byte* const at = pictures.GlobalLock(memory);
    if (at) std::copy(bytes.begin(), bytes.end(), at);
    pictures.GlobalUnlock(memory);
    Ref<Stream> stream;
    EXPECT_EQ(pictures.CreateStreamOnHGlobal(memory, true, stream), 0);
    return stream;
  }
  Long Load(const std::vector<Byte>& bytes, Picture& picture) {
    return pictures.OleLoadPicture(StreamOf(bytes), static_cast<Long>(bytes.size()), false, kPictureInterface, picture);
  }
  template <class Use>
  void WithPixels(const Picture& picture, Use use) {
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long former = graphics.SelectObject(hdc, picture->Handle());
    EXPECT_NE(former, 0);
    use(hdc);
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
  }
};

// The colours of the sample: quarters of 5 by 5 pixels, 20 by 10 in all.
Long Quarter(Long x, Long y) {
  constexpr Long kColors[] = {0x0000FF, 0x008000, 0xFF0000, 0xC0DCC0};
  return kColors[(x / 5 + y / 5) % 4];
}

bool IsNear(Long a, Long b, Long tolerance) {
  for (const Long shift : {0, 8, 16}) {
    if (std::abs((a >> shift & 0xFF) - (b >> shift & 0xFF)) > tolerance) return false;
  }
  return true;
}

TEST_F(PictureContract, EachFormat_HasItsSizeAndItsPixels) {
  struct Case {
    const char* file;
    Long tolerance;
  };
  constexpr Case kCases[] = {{"quarters.gif", 0}, {"quarters.bmp", 0}, {"quarters.jpg", 40}};
  for (const Case& entry : kCases) {
    Picture picture;
    const std::vector<Byte> bytes = BytesOfFile(std::string("tests/contract/pictures/") + entry.file);
    ASSERT_FALSE(bytes.empty()) << entry.file;
    ASSERT_EQ(Load(bytes, picture), 0) << entry.file;
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Width(), 529) << entry.file << ", HIMETRIC";
    EXPECT_EQ(picture->Height(), 265) << entry.file;
    WithPixels(picture, [&](Long hdc) {
      int wrong = 0;
      for (Long y = 0; y < 10; ++y) {
        for (Long x = 0; x < 20; ++x) wrong += !IsNear(graphics.GetPixel(hdc, x, y), Quarter(x, y), entry.tolerance);
      }
      EXPECT_EQ(wrong, 0) << entry.file;
      EXPECT_EQ(graphics.GetPixel(hdc, 20, 0), -1);
      EXPECT_EQ(graphics.GetPixel(hdc, 0, 10), -1);
    });
  }
}

TEST_F(PictureContract, ALoadedPicture_YieldsItsKeyInACopyToOneBit) {
  Picture picture;
  ASSERT_EQ(Load(BytesOfFile("tests/contract/pictures/quarters.gif"), picture), 0);
  WithPixels(picture, [&](Long hdc) {
    Surface mask(20, 10, true);
    graphics.SetBkColor(hdc, 0xC0DCC0);
    graphics.BitBlt(mask.Hdc(), 0, 0, 20, 10, hdc, 0, 0, rop::kSrcCopy);
    EXPECT_EQ(mask.Wrong([](Long x, Long y) { return Quarter(x, y) == 0xC0DCC0 ? kWhite : kBlack; }), 0);
  });
}

TEST_F(PictureContract, WhatIsNoPicture_IsRefused) {
  const std::vector<Byte> gif = BytesOfFile("tests/contract/pictures/quarters.gif");
  const std::vector<Byte> bmp = BytesOfFile("tests/contract/pictures/quarters.bmp");
  const std::vector<Byte> jpg = BytesOfFile("tests/contract/pictures/quarters.jpg");
  const auto cut = [](const std::vector<Byte>& bytes, std::ptrdiff_t length) {
    return std::vector<Byte>(bytes.begin(), bytes.begin() + length);
  };
  const std::vector<Byte> cases[] = {
      {}, {1, 2, 3, 4, 5, 6, 7, 8}, cut(gif, 6), cut(gif, 12), cut(bmp, 2), cut(jpg, 2), cut(jpg, 40)};
  for (const std::vector<Byte>& bytes : cases) {
    Picture picture;
    EXPECT_LT(Load(bytes, picture), 0) << &bytes - cases;
    EXPECT_FALSE(picture) << &bytes - cases;
  }
  Picture picture;
  EXPECT_LT(pictures.OleLoadPicture(nullptr, 10, false, kPictureInterface, picture), 0);
}

TEST_F(PictureContract, AskedForAnInterfaceThatPicturesLack_ThereIsNone) {
  Picture picture;
  Guid other = kPictureInterface;
  other.Data1 = 0x12345678;
  const std::vector<Byte> gif = BytesOfFile("tests/contract/pictures/quarters.gif");
  EXPECT_LT(pictures.OleLoadPicture(StreamOf(gif), static_cast<Long>(gif.size()), false, other, picture), 0);
  EXPECT_FALSE(picture);
}

TEST_F(PictureContract, MadeOfABitmap_APictureOwnsItWhereItShall) {
  for (const bool owns : {true, false}) {
    const Long bitmap = graphics.CreateBitmap(20, 10, 1, 32);
    PictDesc description;
    description.cbSizeofStruct = 20;
    description.picType = 1;
    description.hImage = bitmap;
    Picture picture;
    ASSERT_EQ(pictures.OleCreatePictureIndirect(description, kPictureInterface, owns, picture), 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Handle(), bitmap);
    EXPECT_EQ(picture->Width(), 529);
    EXPECT_EQ(picture->Height(), 265);
    picture = nullptr;
    EXPECT_EQ(graphics.DeleteObject(bitmap) != 0, !owns);
  }
}

TEST_F(PictureContract, ALoadedPicturesBitmap_GoesWithIt) {
  Picture picture;
  ASSERT_EQ(Load(BytesOfFile("tests/contract/pictures/quarters.bmp"), picture), 0);
  const Long bitmap = picture->Handle();
  EXPECT_NE(bitmap, 0);
  const Picture second = picture;
  picture = nullptr;
  EXPECT_EQ(second->Handle(), bitmap);
  const Long hdc = graphics.CreateCompatibleDC(0);
  const Long former = graphics.SelectObject(hdc, bitmap);
  EXPECT_NE(former, 0);
  graphics.SelectObject(hdc, former);
  graphics.DeleteDC(hdc);
}

TEST_F(PictureContract, Memory_IsLockedWrittenAndFreedOnce) {
  const Long memory = pictures.GlobalAlloc(kMovable, 100);
  ASSERT_NE(memory, 0);
  Byte* const bytes = pictures.GlobalLock(memory);
  ASSERT_NE(bytes, nullptr);
  std::fill(bytes, bytes + 100, Byte{7});
  EXPECT_EQ(pictures.GlobalUnlock(memory), 0);
  EXPECT_EQ(pictures.GlobalLock(memory)[99], 7);
  pictures.GlobalUnlock(memory);
  EXPECT_EQ(pictures.GlobalFree(memory), 0);
  EXPECT_NE(pictures.GlobalFree(memory), 0) << "it is gone";
  EXPECT_EQ(pictures.GlobalLock(memory), nullptr);
  EXPECT_EQ(pictures.GlobalAlloc(kMovable, -1), 0);
}

TEST_F(PictureContract, AStream_FreesItsMemoryWhereItShall) {
  for (const bool frees : {true, false}) {
    const Long memory = pictures.GlobalAlloc(kMovable, 10);
    Ref<Stream> stream;
    ASSERT_EQ(pictures.CreateStreamOnHGlobal(memory, frees, stream), 0);
    ASSERT_TRUE(stream);
    stream = nullptr;
    EXPECT_EQ(pictures.GlobalFree(memory) == 0, !frees);
  }
  Ref<Stream> stream;
  EXPECT_NE(pictures.CreateStreamOnHGlobal(0x7FFFFFF0, false, stream), 0);
  EXPECT_FALSE(stream);
}

TEST_F(PictureContract, ClassTexts_AreRead) {
  Guid id;
  EXPECT_EQ(pictures.CLSIDFromString(u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}", id), 0);
  EXPECT_EQ(id.Data1, kPictureInterface.Data1);
  EXPECT_EQ(id.Data2, kPictureInterface.Data2);
  EXPECT_EQ(id.Data3, kPictureInterface.Data3);
  EXPECT_TRUE(std::equal(std::begin(id.Data4), std::end(id.Data4), std::begin(kPictureInterface.Data4)));
  for (const char16_t* text : {u"{7BF80980-BF32-101A-8BBB-00AA00300CAB", u"{7BF80980}", u"Nonsense.Name"}) {
    EXPECT_LT(pictures.CLSIDFromString(text, id), 0);
  }
}

}  // namespace
}  // namespace strandline::contract
