#include "platform/desk/desk_pictures.h"

#include <algorithm>
#include <span>
#include <utility>

#include "platform/desk/class_identifier.h"
#include "platform/desk/picture_decoder.h"

namespace strandline::desk {

namespace {

constexpr Long Failure(std::uint32_t number) { return static_cast<Long>(number); }

constexpr Long kOk = 0;
constexpr Long kInvalidArgument = Failure(0x80070057);
constexpr Long kOutOfMemory = Failure(0x8007000E);
constexpr Long kNullPointer = Failure(0x80004003);
constexpr Long kNoInterface = Failure(0x80004002);
constexpr Long kInvalidClassText = Failure(0x800401F3);
constexpr Long kInvalidPicture = Failure(0x800A01E1);

constexpr Long kPictureOfBitmap = 1;

// The interfaces that a picture object has.
constexpr Guid kInterfaces[] = {
    {0x7BF80980, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}},  // picture
    {0x7BF80981, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}},  // dispatch
    {0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},                        // automation
    {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},                        // any object
};

bool IsPictureInterface(const Guid& id) {
  return std::any_of(std::begin(kInterfaces), std::end(kInterfaces),
                     [&id](const Guid& known) { return SameGuid(known, id); });
}

// Hundredths of a millimetre, rounded to nearest.
Long HimetricOf(int pixels, Long dpi) { return static_cast<Long>((std::int64_t{pixels} * 2540 + dpi / 2) / dpi); }

class MemoryStream final : public Stream {
 public:
  MemoryStream(std::shared_ptr<GlobalMemory> memory, Long block, bool owns)
      : mMemory(std::move(memory)), mBlock(block), mOwns(owns) {}

  // The next `size` bytes, or as many as there are; all that are left for 0.
  std::span<const Byte> Read(Long size) {
    const std::vector<Byte>* bytes = mMemory->BytesOf(mBlock, "OleLoadPicture");
    if (!bytes) return {};
    const std::size_t left = bytes->size() - std::min(mPosition, bytes->size());
    const std::size_t count = size <= 0 ? left : std::min(left, static_cast<std::size_t>(size));
    const std::span<const Byte> read(bytes->data() + bytes->size() - left, count);
    mPosition = bytes->size() - left + count;
    return read;
  }

 protected:
  void Terminated() override {
    if (mOwns) mMemory->FreeOwned(mBlock);
  }

 private:
  std::shared_ptr<GlobalMemory> mMemory;
  Long mBlock;
  bool mOwns;
  std::size_t mPosition = 0;
};

class DeskPicture final : public PictureObject {
 public:
  struct Extents {
    Long width;   // HIMETRIC
    Long height;  // HIMETRIC
  };

  DeskPicture(std::shared_ptr<ObjectTable> objects, std::shared_ptr<int> lostBitmaps, Long bitmap, bool owns,
              Extents extents)
      : mObjects(std::move(objects)),
        mLostBitmaps(std::move(lostBitmaps)),
        mBitmap(bitmap),
        mOwns(owns),
        mExtents(extents) {}

  Long Handle() const override { return mBitmap; }
  Long Width() const override { return mExtents.width; }
  Long Height() const override { return mExtents.height; }

 protected:
  // Numbers aren't used twice, so a bitmap under this number is the picture's own.
  void Terminated() override {
    const Bitmap* bitmap = mOwns ? mObjects->Find<Bitmap>(mBitmap) : nullptr;
    if (!bitmap) return;
    if (bitmap->selectedInto != 0) {
      ++*mLostBitmaps;
    } else {
      mObjects->Remove(mBitmap);
    }
  }

 private:
  std::shared_ptr<ObjectTable> mObjects;
  std::shared_ptr<int> mLostBitmaps;
  Long mBitmap;
  bool mOwns;
  Extents mExtents;
};

}  // namespace

DeskPictures::DeskPictures(std::shared_ptr<ObjectTable> objects, std::shared_ptr<MisuseLog> misuses)
    : mObjects(std::move(objects)),
      mMemory(std::make_shared<GlobalMemory>(std::move(misuses))),
      mLostBitmaps(std::make_shared<int>(0)) {}

void DeskPictures::SetDpi(Long dpi) {
  if (dpi > 0) mDpi = dpi;
}

Long DeskPictures::GlobalAlloc(Long, Long size) { return mMemory->Alloc(size); }

Byte* DeskPictures::GlobalLock(Long memory) { return mMemory->Lock(memory); }

Long DeskPictures::GlobalUnlock(Long memory) { return mMemory->Unlock(memory); }

Long DeskPictures::GlobalSize(Long memory) { return mMemory->Size(memory); }

Long DeskPictures::GlobalFree(Long memory) { return mMemory->Free(memory); }

Long DeskPictures::CreateStreamOnHGlobal(Long memory, Boolean deleteOnRelease, Ref<Stream>& stream) {
  stream = nullptr;
  const Long block = memory != 0 ? memory : mMemory->Alloc(0);
  const bool usable = deleteOnRelease
                          ? mMemory->TakeOwnership(block, GlobalMemory::Owner::kStream, "CreateStreamOnHGlobal")
                          : mMemory->BytesOf(block, "CreateStreamOnHGlobal") != nullptr;
  if (!usable) return kInvalidArgument;
  stream = New<MemoryStream>(mMemory, block, deleteOnRelease);
  return kOk;
}

Long DeskPictures::CLSIDFromString(const String& text, Guid& id) {
  return ParseGuid(text, id) ? kOk : kInvalidClassText;
}

Picture DeskPictures::MakePicture(Long bitmap, bool own) const {
  const Bitmap* found = mObjects->Find<Bitmap>(bitmap);
  const Surface pixel(1, 1, 1);
  const Surface& surface = found ? found->surface : pixel;
  return New<DeskPicture>(mObjects, mLostBitmaps, bitmap, own,
                          DeskPicture::Extents{HimetricOf(surface.width, mDpi), HimetricOf(surface.height, mDpi)});
}

Long DeskPictures::OleLoadPicture(const Ref<Stream>& stream, Long size, Boolean, const Guid& id, Picture& picture) {
  picture = nullptr;
  auto* source = dynamic_cast<MemoryStream*>(stream.get());
  if (!source) return kNullPointer;
  if (!IsPictureInterface(id)) return kNoInterface;
  std::optional<DecodedImage> image = DecodePicture(source->Read(size));
  if (!image) return kInvalidPicture;
  Bitmap bitmap{Surface(image->width, image->height)};
  if (bitmap.surface.pixels.size() != image->pixels.size()) return kInvalidPicture;
  bitmap.surface.pixels = std::move(image->pixels);
  const Long handle = mObjects->Add(std::move(bitmap), "OleLoadPicture");
  if (handle == 0) return kOutOfMemory;
  picture = MakePicture(handle, true);
  return kOk;
}

Long DeskPictures::OleCreatePictureIndirect(const PictDesc& description, const Guid& id, Boolean own,
                                            Picture& picture) {
  picture = nullptr;
  if (!IsPictureInterface(id)) return kNoInterface;
  if (description.picType != kPictureOfBitmap) return kInvalidPicture;
  const bool stock = description.hImage == ObjectTable::kStockBitmap;
  if (!stock && !mObjects->Use<Bitmap>(description.hImage, "OleCreatePictureIndirect")) return kInvalidArgument;
  picture = MakePicture(description.hImage, own);
  return kOk;
}

}  // namespace strandline::desk
