#include "platform/win32/win32_pictures.h"

#include <cstring>
#include <vector>

#include "platform/win32/own_variant.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

class ComStream final : public Stream {
 public:
  explicit ComStream(ComRef<IStream> stream) : mStream(std::move(stream)) {}
  IStream* Com() const { return mStream.get(); }

 private:
  ComRef<IStream> mStream;
};

// A picture object of the system, or of a foreign program.
class ForeignPicture : public PictureObject {
 public:
  virtual IUnknown* Com() const = 0;
};

class ComPicture final : public ForeignPicture {
 public:
  explicit ComPicture(ComRef<IPicture> picture) : mPicture(std::move(picture)) {}
  IPicture* Com() const override { return mPicture.get(); }

  Long Handle() const override {
    OLE_HANDLE handle = 0;
    RaiseIfFailed(mPicture->get_Handle(&handle));
    return static_cast<Long>(handle);
  }
  Long Width() const override {
    OLE_XSIZE_HIMETRIC width = 0;
    RaiseIfFailed(mPicture->get_Width(&width));
    return static_cast<Long>(width);
  }
  Long Height() const override {
    OLE_YSIZE_HIMETRIC height = 0;
    RaiseIfFailed(mPicture->get_Height(&height));
    return static_cast<Long>(height);
  }

 private:
  ComRef<IPicture> mPicture;
};

// One that answers to nothing but its members' numbers.
class DispatchedPicture final : public ForeignPicture {
 public:
  explicit DispatchedPicture(ComRef<IDispatch> picture) : mPicture(std::move(picture)) {}
  IDispatch* Com() const override { return mPicture.get(); }

  Long Handle() const override { return Get(kHandleId); }
  Long Width() const override { return Get(kWidthId); }
  Long Height() const override { return Get(kHeightId); }

 private:
  Long Get(Long member) const {
    DISPPARAMS none{};
    OwnVariant value;
    EXCEPINFO exception{};
    ForgetErrorInformation();
    const HRESULT called = mPicture->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                            value.get(), &exception, nullptr);
    if (FAILED(called)) throw TakeError(called, exception, mPicture.get());
    // A handle's highest bit is no sign.
    if (value->vt == VT_UI4 || value->vt == VT_UINT) return static_cast<Long>(value->ulVal);
    return FromVARIANT(*value).ToLong();
  }

  ComRef<IDispatch> mPicture;
};

GUID ToGUID(const Guid& id) {
  static_assert(sizeof(GUID) == sizeof(Guid));
  GUID result;
  std::memcpy(&result, &id, sizeof result);
  return result;
}

// Whatever interface was asked for, a picture can also be asked for another. A foreign one may have no more than the
// one of automation.
Picture Wrapped(IUnknown* object) {
  ComRef<IPicture> picture;
  ComRef<IDispatch> dispatched;
  if (!object) return nullptr;
  if (SUCCEEDED(object->QueryInterface(IID_IPicture, picture.PutVoid()))) return New<ComPicture>(picture);
  if (FAILED(object->QueryInterface(IID_IPictureDisp, dispatched.PutVoid()))) return nullptr;
  return New<DispatchedPicture>(dispatched);
}

// A decoder may leave each pixel's fourth byte set. It shows nowhere, but a copy to one bit may compare all four with
// the background colour (Wine's does), and then the colour key is found nowhere.
void ClearFourthBytes(IPicture& picture) {
  OLE_HANDLE handle = 0;
  SHORT type = 0;
  if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture.get_Handle(&handle))) return;
  const HBITMAP bitmap = ToHandle<HBITMAP>(static_cast<Long>(handle));
  BITMAP about{};
  if (::GetObjectW(bitmap, sizeof about, &about) == 0 || about.bmBitsPixel != 32) return;
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, about.bmWidth, about.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(about.bmWidth) * static_cast<std::size_t>(about.bmHeight));
  const HDC hdc = ::CreateCompatibleDC(nullptr);
  const UINT rows = static_cast<UINT>(about.bmHeight);
  if (::GetDIBits(hdc, bitmap, 0, rows, pixels.data(), &format, DIB_RGB_COLORS)) {
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    ::SetDIBits(hdc, bitmap, 0, rows, pixels.data(), &format, DIB_RGB_COLORS);
  }
  ::DeleteDC(hdc);
}

}  // namespace

Long Win32Pictures::GlobalAlloc(Long flags, Long size) { return mMemory.Alloc(flags, size); }
Byte* Win32Pictures::GlobalLock(Long memory) { return mMemory.Lock(memory); }
Long Win32Pictures::GlobalUnlock(Long memory) { return mMemory.Unlock(memory); }
Long Win32Pictures::GlobalSize(Long memory) { return mMemory.Size(memory); }
Long Win32Pictures::GlobalFree(Long memory) { return mMemory.Free(memory); }

Long Win32Pictures::CreateStreamOnHGlobal(Long memory, Boolean deleteOnRelease, Ref<Stream>& stream) {
  void* const block = deleteOnRelease ? mMemory.FindOwn(memory) : mMemory.Find(memory);
  if (!block) return E_INVALIDARG;
  ComRef<IStream> made;
  const HRESULT result = ::CreateStreamOnHGlobal(block, deleteOnRelease, made.Put());
  if (FAILED(result)) return result;
  if (deleteOnRelease) mMemory.Forget(memory);
  stream = New<ComStream>(made);
  return 0;
}

Long Win32Pictures::CLSIDFromString(const String& text, Guid& id) {
  GUID found{};
  const HRESULT result = ::CLSIDFromString(Wide(text), &found);
  if (SUCCEEDED(result)) std::memcpy(static_cast<void*>(&id), &found, sizeof id);
  return result;
}

Long Win32Pictures::OleLoadPicture(const Ref<Stream>& stream, Long size, Boolean runMode, const Guid& id,
                                   Picture& picture) {
  if (!stream) return E_POINTER;
  ComRef<IUnknown> loaded;
  const HRESULT result =
      ::OleLoadPicture(static_cast<ComStream&>(*stream).Com(), size, runMode, ToGUID(id), loaded.PutVoid());
  if (FAILED(result)) return result;
  picture = Wrapped(loaded.get());
  if (!picture) return E_NOINTERFACE;
  if (const auto* own = dynamic_cast<const ComPicture*>(picture.get())) ClearFourthBytes(*own->Com());
  return 0;
}

// The record's own size is that of the 32-bit world, so it isn't passed on.
Long Win32Pictures::OleCreatePictureIndirect(const PictDesc& description, const Guid& id, Boolean own,
                                             Picture& picture) {
  PICTDESC record{};
  record.cbSizeofstruct = sizeof record;
  record.picType = static_cast<UINT>(description.picType);
  record.bmp.hbitmap = ToHandle<HBITMAP>(description.hImage);
  record.bmp.hpal = ToHandle<HPALETTE>(description.xExt);
  const GUID wanted = ToGUID(id);
  ComRef<IUnknown> made;
  const HRESULT result = ::OleCreatePictureIndirect(&record, wanted, own, made.PutVoid());
  if (FAILED(result)) return result;
  picture = Wrapped(made.get());
  return picture ? 0 : E_NOINTERFACE;
}

Picture PictureOf(IDispatch* object) { return Wrapped(object); }

IDispatch* DispatchOf(const PictureObject& picture) {
  const auto* known = dynamic_cast<const ForeignPicture*>(&picture);
  IDispatch* object = nullptr;
  if (known) known->Com()->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object));
  return object;
}

}  // namespace strandline::win32
