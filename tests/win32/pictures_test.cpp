// Pictures beyond the seam: in the automation world, and out of a module that a linker has made.

#include <gtest/gtest.h>

#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "tests/win32/stage.h"

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

}  // namespace strandline::win32test
