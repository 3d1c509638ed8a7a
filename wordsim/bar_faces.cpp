#include "wordsim/bar_faces.h"

#include <cmath>

#include "wordsim/paint_colours.h"

namespace strandline::wordsim {

namespace {

constexpr Long kRecordSize = 20;
constexpr Long kPictureOfBitmap = 1;
constexpr Long kBitsPerPixel = 32;
constexpr Double kTwipsPerInch = 1440;
constexpr Double kHimetricPerInch = 2540;
constexpr const char16_t* kPictureInterface = u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}";

struct Extent {
  Long width = 0;   // pixels
  Long height = 0;  // pixels
};

Long PixelsOf(Long himetric, Double twipsPerPixel) {
  return static_cast<Long>(std::lround(himetric * kTwipsPerInch / kHimetricPerInch / twipsPerPixel));
}

Extent ExtentOf(const Platform& platform, const Picture& picture) {
  return {PixelsOf(picture->Width(), platform.runTime->TwipsPerPixelX()),
          PixelsOf(picture->Height(), platform.runTime->TwipsPerPixelY())};
}

Picture PictureOf(const Platform& platform, Long bitmap, bool own) {
  Guid id;
  Picture picture;
  PictDesc description{kRecordSize, kPictureOfBitmap, bitmap, 0, 0};
  if (platform.pictures->CLSIDFromString(kPictureInterface, id) != 0) return nullptr;
  if (platform.pictures->OleCreatePictureIndirect(description, id, own, picture) != 0) return nullptr;
  return picture;
}

// A memory context that shows a bitmap, a new one or one of somebody's, as long as this lives.
class Shown {
 public:
  Shown(const Platform& platform, Long bitmap) : mGraphics(*platform.graphics) {
    mHdc = mGraphics.CreateCompatibleDC(0);
    mFormer = mGraphics.SelectObject(mHdc, bitmap);
  }
  Shown(const Platform& platform, Extent extent)
      : Shown(platform, platform.graphics->CreateBitmap(extent.width, extent.height, 1, kBitsPerPixel)) {
    mIsNew = true;
  }
  ~Shown() {
    const Long bitmap = TakeOut();
    if (mIsNew && bitmap != 0) mGraphics.DeleteObject(bitmap);
    mGraphics.DeleteDC(mHdc);
  }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  bool IsShown() const { return mFormer != 0; }
  void Blit(Extent extent, const Shown& source, Long operation) {
    mGraphics.BitBlt(mHdc, 0, 0, extent.width, extent.height, source.mHdc, 0, 0, operation);
  }
  void Fill(Extent extent, Long color) {
    const Long brush = mGraphics.CreateSolidBrush(color);
    mGraphics.FillRect(mHdc, {0, 0, extent.width, extent.height}, brush);
    mGraphics.DeleteObject(brush);
  }
  // The new bitmap is the caller's from now on.
  Long Keep() {
    mIsNew = false;
    return TakeOut();
  }

 private:
  Long TakeOut() {
    const Long bitmap = mFormer != 0 ? mGraphics.SelectObject(mHdc, mFormer) : 0;
    mFormer = 0;
    return bitmap;
  }

  Graphics& mGraphics;
  Long mHdc = 0;
  Long mFormer = 0;
  bool mIsNew = false;
};

}  // namespace

Picture CopyOfPicture(const Platform& platform, const Picture& picture) {
  if (!picture) return nullptr;
  const Extent extent = ExtentOf(platform, picture);
  const Shown source(platform, picture->Handle());
  Shown copy(platform, extent);
  if (!source.IsShown() || !copy.IsShown()) RaiseInvalidPicture();
  copy.Blit(extent, source, rop::kSrcCopy);
  return PictureOf(platform, copy.Keep(), true);
}

Picture PictureOnClipboard(const Platform& platform) {
  Clipboard& clipboard = *platform.clipboard;
  if (clipboard.OpenClipboard(0) == 0) return nullptr;
  const Long bitmap = clipboard.GetClipboardData(clipboardformat::kBitmap);
  const Picture copy = bitmap != 0 ? CopyOfPicture(platform, PictureOf(platform, bitmap, false)) : nullptr;
  clipboard.CloseClipboard();
  return copy;
}

Picture FaceThroughMask(const Platform& platform, const Picture& picture, const Picture& mask) {
  const Extent extent = ExtentOf(platform, picture);
  const Shown source(platform, picture->Handle());
  const Shown open(platform, mask->Handle());
  Shown face(platform, extent);
  Shown part(platform, extent);
  face.Blit(extent, source, rop::kSrcCopy);
  part.Blit(extent, open, rop::kNotSrcCopy);
  face.Blit(extent, part, rop::kSrcAnd);
  part.Fill(extent, kFaceKey);
  part.Blit(extent, open, rop::kSrcAnd);
  face.Blit(extent, part, rop::kSrcInvert);
  return PictureOf(platform, face.Keep(), true);
}

}  // namespace strandline::wordsim
