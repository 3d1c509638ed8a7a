// Pictures beyond the seam: in the automation world, and out of a module that a linker has made.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "drawing/IPictureDispUtilities.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "platform/win32/own_variant.h"
#include "platform/win32/win32_variant.h"
#include "tests/support/raised.h"
#include "tests/win32/stage.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::win32test {

TEST(Pictures, OfAModuleBesideTheProgram) {
  Stage stage;
  const Long module = platform::Modules().LoadLibraryA(u"images.dll");
  ASSERT_NE(module, 0);
  const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(103, module);
  ASSERT_TRUE(static_cast<bool>(picture));
  EXPECT_EQ(ToolbarUtilities::HM2PixX(picture->Width()), 25);
  EXPECT_EQ(ToolbarUtilities::HM2PixY(picture->Height()), 30);
  EXPECT_EQ(platform::Modules().LoadStringA(module, 7, 512), String(u"seventh"));
  EXPECT_NE(platform::Modules().FreeLibrary(module), 0);
}

TEST(Pictures, GoThroughTheAutomationWorld) {
  Stage stage;
  const Object dictionary = platform::Components().CreateObject(u"Scripting.Dictionary");
  dictionary.Call("Add", u"face", LoadImageFromResource::LoadResGifJpgBmp(102, 0));
  const Picture back = dictionary.Get("Item", u"face").ToPicture();
  ASSERT_TRUE(static_cast<bool>(back));
  EXPECT_EQ(ToolbarUtilities::HM2PixX(back->Width()), 32);
}

namespace {

// A foreign program's picture, which has nothing but the interface of automation.
class BarePicture final : public IPictureDisp {
 public:
  BarePicture(Picture shown, std::vector<DISPID>& asked) : mShown(std::move(shown)), mAsked(asked) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == IID_IPictureDisp ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mOwners; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --mOwners;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    mAsked.push_back(id);
    if (!(flags & DISPATCH_PROPERTYGET) || parameters->cArgs != 0) return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_I4;
    switch (id) {
      case 0:
        result->vt = VT_UI4;
        result->ulVal = static_cast<ULONG>(mShown->Handle());
        return S_OK;
      case 4:
        result->lVal = mShown->Width();
        return S_OK;
      case 5:
        result->lVal = mShown->Height();
        return S_OK;
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }

 private:
  const Picture mShown;
  std::vector<DISPID>& mAsked;
  ULONG mOwners = 0;
};

}  // namespace

TEST(Pictures, OfAForeignProgram_AreAskedByTheNumbersOfTheirMembers) {
  Stage stage;
  std::vector<DISPID> asked;
  const Picture whole = LoadImageFromResource::LoadResGifJpgBmp(102, 0);
  const win32::ComRef<IDispatch> bare(new BarePicture(whole, asked));
  const Picture picture = Variant(win32::Wrap(bare.get())).ToPicture();
  ASSERT_TRUE(static_cast<bool>(picture));
  EXPECT_EQ(picture->Handle(), whole->Handle());
  EXPECT_EQ(picture->Width(), whole->Width());
  EXPECT_EQ(picture->Height(), whole->Height());
  EXPECT_EQ(asked, (std::vector<DISPID>{0, 4, 5}));
  // It goes back into that world as what it is.
  win32::OwnVariant sent(win32::ToVARIANT(picture));
  EXPECT_EQ(sent->vt, VT_DISPATCH);
  EXPECT_EQ(sent->pdispVal, bare.get());
}

TEST(Pictures, OfAForeignProgram_BecomeMasks) {
  Stage stage;
  std::vector<DISPID> asked;
  const auto maskOf = [](const Picture& picture) {
    const Picture mask = New<IPictureDispUtilities>()->CreateIPictureDispMask(picture);
    EXPECT_TRUE(static_cast<bool>(mask));
    Graphics& graphics = platform::Graphics();
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long former = graphics.SelectObject(hdc, mask->Handle());
    std::vector<Long> pixels;
    for (Long at = 0; at < 32 * 32; ++at) pixels.push_back(graphics.GetPixel(hdc, at % 32, at / 32));
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
    return pixels;
  };
  const Picture whole = LoadImageFromResource::LoadResGifJpgBmp(102, 0);
  const win32::ComRef<IDispatch> bare(new BarePicture(whole, asked));
  const std::vector<Long> mask = maskOf(Variant(win32::Wrap(bare.get())).ToPicture());
  EXPECT_EQ(mask, maskOf(LoadImageFromResource::LoadResGifJpgBmp(102, 0)));
  EXPECT_NE(std::count(mask.begin(), mask.end(), 0), 0);
  EXPECT_NE(std::count(mask.begin(), mask.end(), 0xFFFFFF), 0);
}

TEST(Pictures, AnObjectWithNeitherInterface_IsNone) {
  Stage stage;
  const Object dictionary = platform::Components().CreateObject(u"Scripting.Dictionary");
  EXPECT_EQ(Raised([&] { Variant(dictionary).ToPicture(); }), errors::kTypeMismatch);
}

}  // namespace strandline::win32test
