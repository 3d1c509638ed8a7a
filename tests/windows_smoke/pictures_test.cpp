// Pictures from resources, through the system's own decoder.

#include "check.h"
#include "drawing/IPictureDispUtilities.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "drawing/color_key.h"
#include "stage.h"

namespace strandline::smoke {

namespace {

struct Image {
  Integer number;
  Long width;
  Long height;
};
constexpr Image kImages[] = {{102, 32, 32}, {103, 25, 30}, {201, 1, 1}, {202, 16, 16}};

void CheckImage(const Image& image, Long module) {
  const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(image.number, module);
  CHECK(static_cast<bool>(picture));
  if (!picture) return;
  CHECK_EQUAL(ToolbarUtilities::HM2PixX(picture->Width()), image.width);
  CHECK_EQUAL(ToolbarUtilities::HM2PixY(picture->Height()), image.height);
  CHECK(picture->Handle() != 0);
}

}  // namespace

SMOKE_TEST(Pictures_OfTheProgramsOwnResources) {
  Stage stage;
  for (const Image& image : kImages) CheckImage(image, 0);
}

SMOKE_TEST(Pictures_OfAModuleMappedAsData) {
  Stage stage;
  const Long module = platform::Modules().LoadLibraryA(u"images.dll");
  CHECK(module != 0);
  for (const Image& image : kImages) CheckImage(image, module);
  CHECK_EQUAL(platform::Modules().LoadStringA(module, 7, 512), String(u"seventh"));
  CHECK_EQUAL(platform::Modules().LoadStringA(module, 7, 4), String(u"sev"));
  CHECK(platform::Modules().LoadStringA(module, 8, 512).IsEmpty());
  CHECK(platform::Modules().FreeLibrary(module) != 0);
  CHECK_EQUAL(platform::Modules().FreeLibrary(module), 0);
}

SMOKE_TEST(Pictures_WhatIsntThereIsNothing) {
  Stage stage;
  CHECK(!LoadImageFromResource::LoadResGifJpgBmp(999, 0));
  CHECK(!LoadImageFromResource::LoadResGifJpgBmp(102, 4711));
  CHECK_EQUAL(platform::Modules().LoadLibraryA(u"absent.dll"), 0);
}

SMOKE_TEST(Pictures_AnIconsMaskIsWhereTheKeyIs) {
  Stage stage;
  Graphics& graphics = platform::Graphics();
  const Ref<IPictureDispUtilities> shown = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> masks = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> shownMask = New<IPictureDispUtilities>();
  const Picture mask = masks->CreateIPictureDispMask(LoadImageFromResource::LoadResGifJpgBmp(202, 0));
  CHECK(static_cast<bool>(mask));
  if (!mask) return;
  const Picture source = LoadImageFromResource::LoadResGifJpgBmp(202, 0);
  const Long icon = shown->IPictureDispToHdc(source);
  const Long maskHdc = shownMask->IPictureDispToHdc(mask);
  int keys = 0;
  int wrong = 0;
  for (Long y = 0; y < 16; ++y) {
    for (Long x = 0; x < 16; ++x) {
      const bool key = graphics.GetPixel(icon, x, y) == kColorKey;
      keys += key;
      wrong += graphics.GetPixel(maskHdc, x, y) != (key ? 0xFFFFFF : 0);
    }
  }
  CHECK_EQUAL(wrong, 0);
  CHECK(keys > 0 && keys < 256);
}

SMOKE_TEST(Pictures_OnTheColourOfMenus) {
  Stage stage;
  Graphics& graphics = platform::Graphics();
  constexpr Long kMenuColor = 4;
  const Picture plain =
      ToolbarUtilities::ReplaceBackgroundWithMenuColor(LoadImageFromResource::LoadResGifJpgBmp(202, 0));
  CHECK(static_cast<bool>(plain));
  if (!plain) return;
  CHECK_EQUAL(ToolbarUtilities::HM2PixX(plain->Width()), 16);
  const Ref<IPictureDispUtilities> shown = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> keyed = New<IPictureDispUtilities>();
  const Long hdc = shown->IPictureDispToHdc(plain);
  const Picture source = LoadImageFromResource::LoadResGifJpgBmp(202, 0);
  const Long icon = keyed->IPictureDispToHdc(source);
  int wrong = 0;
  for (Long y = 0; y < 16; ++y) {
    for (Long x = 0; x < 16; ++x) {
      const Long pixel = graphics.GetPixel(icon, x, y);
      wrong += graphics.GetPixel(hdc, x, y) != (pixel == kColorKey ? graphics.GetSysColor(kMenuColor) : pixel);
    }
  }
  CHECK_EQUAL(wrong, 0);
}

SMOKE_TEST(Pictures_GoThroughTheAutomationWorld) {
  Stage stage;
  const Object dictionary = platform::Components().CreateObject(u"Scripting.Dictionary");
  dictionary.Call("Add", u"face", LoadImageFromResource::LoadResGifJpgBmp(102, 0));
  const Picture back = dictionary.Get("Item", u"face").ToPicture();
  CHECK(static_cast<bool>(back));
  if (back) CHECK_EQUAL(ToolbarUtilities::HM2PixX(back->Width()), 32);
}

}  // namespace strandline::smoke
