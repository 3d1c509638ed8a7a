// What Word's buttons make of the pictures that they are given.

#include "wordsim/bar_faces.h"

#include "tests/wordsim/world_fixture.h"
#include "wordsim/paint_colours.h"

namespace strandline::wordsim {
namespace {

constexpr Long kRed = Colour(0xFF0000);

class FacesTest : public WorldTest {
 protected:
  WordWorld& BeginWithDocument(const char16_t* version = u"11.0") {
    Settings settings;
    settings.wordVersion = version;
    Begin(settings).Open(u"A.doc");
    Wait(0);
    return World();
  }
  // A picture of that colour whose left half is of another; owns its bitmap.
  Picture MakePicture(Long left, Long right, Long width = 8, Long height = 4) {
    desk::SoftwareGraphics& graphics = mDesk.Graphics();
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long bitmap = graphics.CreateBitmap(width, height, 1, 32);
    const Long former = graphics.SelectObject(hdc, bitmap);
    for (const auto& [area, colour] :
         {std::pair{Rect{0, 0, width / 2, height}, left}, std::pair{Rect{width / 2, 0, width, height}, right}}) {
      const Long brush = graphics.CreateSolidBrush(colour);
      graphics.FillRect(hdc, area, brush);
      graphics.DeleteObject(brush);
    }
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
    Guid id;
    Picture picture;
    mDesk.Pictures().CLSIDFromString(u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}", id);
    mDesk.Pictures().OleCreatePictureIndirect({20, 1, bitmap, 0, 0}, id, true, picture);
    return picture;
  }
  BarControl& TheControl(Long number) { return *World().ProductBar().Controls().Control(number); }
  // A pixel of the face's middle row, where the face is centred in the control; as it is on the screen.
  std::uint32_t OnScreen(Long control, Long x) {
    Wait(0);
    const Rect bar = RectOf(World().ActiveBarWindow());
    const Rect place = World().CellPlace(control);
    const Long left = place.left + (place.right - place.left - 8) / 2;
    return *mDesk.Screen().At(bar.left + left + x, bar.top + (place.top + place.bottom) / 2);
  }
  static std::uint32_t Pixel(Long colour) { return desk::PixelFromColorRef(static_cast<std::uint32_t>(colour)); }
};

TEST_F(FacesTest, Picture_IsKeptAsACopy) {
  BeginWithDocument();
  const Picture given = MakePicture(kRed, kBlack);
  Control(5).Let("Picture", given);
  mDesk.Graphics().DeleteObject(given->Handle());
  EXPECT_EQ(OnScreen(5, 1), Pixel(kRed));
  EXPECT_EQ(OnScreen(5, 6), Pixel(kBlack));
  EXPECT_EQ(Control(5).Get("Picture").ToPicture()->Width(), given->Width());
  EXPECT_TRUE(mDesk.Misuses().All().empty());
}

TEST_F(FacesTest, Picture_ShowsWhole_UntilAMaskOpensIt) {
  BeginWithDocument();
  const std::uint32_t ground = OnScreen(5, 1);
  Control(5).Let("Picture", MakePicture(kFaceKey, kRed));
  EXPECT_EQ(OnScreen(5, 1), Pixel(kFaceKey));
  EXPECT_EQ(OnScreen(5, 6), Pixel(kRed));
  Control(5).Let("Mask", MakePicture(kWhite, kBlack));
  EXPECT_EQ(OnScreen(5, 1), ground);
  EXPECT_EQ(OnScreen(5, 6), Pixel(kRed));
  Control(5).Let("Mask", MakePicture(kBlack, kWhite));
  EXPECT_NE(OnScreen(5, 6), Pixel(kRed));
  Control(5).Let("Picture", MakePicture(kRed, kRed));
  EXPECT_EQ(OnScreen(5, 6), Pixel(kRed)) << "the mask belonged to the former picture";
  EXPECT_FALSE(TheControl(5).HasMask());
}

TEST_F(FacesTest, PictureTakenAway_LeavesNoFace) {
  BeginWithDocument();
  const int bitmaps = mDesk.Objects().Count(desk::ObjectKind::kBitmap);
  Control(5).Let("Picture", MakePicture(kRed, kBlack));
  Control(5).Let("Mask", MakePicture(kWhite, kBlack));
  Control(5).Let("Picture", Object());
  EXPECT_FALSE(TheControl(5).Face());
  EXPECT_TRUE(Control(5).Get("Picture").ToObject().IsNothing());
  EXPECT_TRUE(Control(5).Get("Mask").ToObject().IsNothing());
  EXPECT_EQ(mDesk.Objects().Count(desk::ObjectKind::kBitmap), bitmaps);
}

TEST_F(FacesTest, WhatIsNoPicture_IsRefused_AndTheFaceStays) {
  BeginWithDocument();
  Control(5).Let("Picture", MakePicture(kRed, kBlack));
  EXPECT_EQ(NumberRaised([&] { Control(5).Let("Picture", u"text"); }), errors::kTypeMismatch);
  const Picture usedUp = MakePicture(kRed, kBlack);
  mDesk.Graphics().DeleteObject(usedUp->Handle());
  EXPECT_EQ(NumberRaised([&] { Control(5).Let("Picture", usedUp); }), errors::kInvalidPicture);
  EXPECT_TRUE(TheControl(5).Face());
}

TEST_F(FacesTest, ButtonsOfWord2000AndPopups_HaveNeitherPictureNorMask) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWithDocument(version);
    const bool isRefused = version == std::u16string_view(u"9.0");
    for (const char* member : {"Picture", "Mask"}) {
      const Name name = Name::FromText(member);
      const Picture picture = MakePicture(kRed, kBlack);
      const Long expected = isRefused ? errors::kNoSuchMember : 0;
      EXPECT_EQ(NumberRaised([&] { Control(5).Let(name, picture); }), expected);
      EXPECT_EQ(NumberRaised([&] { Control(5).Get(name); }), expected);
      EXPECT_EQ(NumberRaised([&] { Entry(18).Let(name, picture); }), expected);
      EXPECT_EQ(NumberRaised([&] { Control(1).Let(name, picture); }), errors::kNoSuchMember);
    }
    EXPECT_EQ(NumberRaised([&] { Control(1).Call("PasteFace"); }), errors::kNoSuchMember);
  }
}

TEST_F(FacesTest, PasteFace_TakesACopyOfThePictureOnTheClipboard) {
  for (const char16_t* version : {u"9.0", u"11.0"}) {
    BeginWithDocument(version);
    mDesk.Clipboard().SetPicture(MakePicture(kFaceKey, kRed));
    Control(5).Call("PasteFace");
    mDesk.Clipboard().SetText(u"gone", clipboardformat::kText);
    EXPECT_EQ(OnScreen(5, 1), Pixel(kFaceKey)) << "it keeps no transparency";
    EXPECT_EQ(OnScreen(5, 6), Pixel(kRed));
    EXPECT_FALSE(mDesk.Clipboard().IsOpen());
    EXPECT_TRUE(mDesk.Misuses().All().empty());
  }
}

TEST_F(FacesTest, PasteFaceOverAMaskedPicture_ForgetsTheMask) {
  BeginWithDocument();
  Control(5).Let("Picture", MakePicture(kRed, kBlack));
  Control(5).Let("Mask", MakePicture(kWhite, kBlack));
  mDesk.Clipboard().SetPicture(MakePicture(kRed, kBlack));
  Control(5).Call("PasteFace");
  EXPECT_FALSE(TheControl(5).HasMask());
  EXPECT_EQ(OnScreen(5, 1), Pixel(kRed));
}

TEST_F(FacesTest, PasteFaceWithoutAPicture_IsRefused_AndTheFaceStays) {
  BeginWithDocument();
  Control(5).Let("Picture", MakePicture(kRed, kBlack));
  mDesk.Clipboard().SetText(u"a text", clipboardformat::kText);
  EXPECT_EQ(NumberRaised([&] { Control(5).Call("PasteFace"); }), errors::kInvalidArgument);
  mDesk.Clipboard().SetPicture(MakePicture(kBlack, kBlack));
  mDesk.Clipboard().HoldByAnother(true);
  EXPECT_EQ(NumberRaised([&] { Control(5).Call("PasteFace"); }), errors::kInvalidArgument);
  EXPECT_EQ(OnScreen(5, 1), Pixel(kRed));
}

TEST_F(FacesTest, PasteFace_CanBeGivenAnotherSource) {
  BeginWithDocument();
  World().TheHooks().pasteFace = [&] { return MakePicture(kRed, kBlack); };
  Control(5).Call("PasteFace");
  EXPECT_EQ(OnScreen(5, 1), Pixel(kRed));
  World().TheHooks().pasteFace = [] { return Picture(); };
  EXPECT_EQ(NumberRaised([&] { Control(5).Call("PasteFace"); }), errors::kInvalidArgument);
}

TEST_F(FacesTest, Protection_IsTheProductsBarsFromTheStart) {
  BeginWithDocument();
  EXPECT_EQ(Bar().Get("Protection").ToLong(), 1);
  EXPECT_EQ(Bar(u"Drawing").Get("Protection").ToLong(), 0);
  Bar().Let("Protection", Long{0});
  EXPECT_EQ(Bar().Get("Protection").ToLong(), 0);
}

}  // namespace
}  // namespace strandline::wordsim
