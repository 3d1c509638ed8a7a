// The run time and the components.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desk/desk_components.h"
#include "platform/desk/desk_runtime.h"
#include "platform/desk/window_system.h"
#include "platform/property_bag.h"

namespace strandline::desk {
namespace {

class RunTimeTest : public testing::Test {
 protected:
  WindowSystem mWindows;
  DeskRunTime mRunTime{mWindows, mWindows};
};

Long ErrorOf(const std::function<void()>& use) {
  try {
    use();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

TEST(MakeDate, CountsDaysSinceItsBeginning) {
  const struct {
    Date date;
    Double days;
  } cases[] = {{MakeDate(1899, 12, 30), 0},          {MakeDate(1900, 1, 1), 2},        {MakeDate(2009, 3, 2), 39874},
               {MakeDate(2009, 3, 2, 18), 39874.75}, {MakeDate(2000, 2, 29), 36585},   {MakeDate(1899, 12, 29), -1},
               {MakeDate(1899, 12, 29, 6), -1.25},   {MakeDate(1899, 12, 30, 12), 0.5}};
  for (const auto& [date, days] : cases) EXPECT_EQ(date.days, days);
}

TEST_F(RunTimeTest, Now_GoesWithTheVirtualClockInWholeSeconds) {
  mRunTime.SetStart(MakeDate(2009, 3, 2, 23, 59, 58));
  EXPECT_EQ(mRunTime.Now(), MakeDate(2009, 3, 2, 23, 59, 58));
  mWindows.Wait(1999);
  EXPECT_EQ(mRunTime.Now(), MakeDate(2009, 3, 2, 23, 59, 59));
  mWindows.Wait(1);
  EXPECT_EQ(mRunTime.Now(), MakeDate(2009, 3, 3));
  mRunTime.SetStart(MakeDate(1899, 12, 29, 23, 59, 58));
  EXPECT_EQ(mRunTime.Now(), MakeDate(1899, 12, 30));
}

TEST_F(RunTimeTest, YearsOfTwoDigits_AreThoseAround2000) {
  EXPECT_EQ(mRunTime.DateFromText(u"1/1/29"), MakeDate(2029, 1, 1));
  EXPECT_EQ(mRunTime.DateFromText(u"1/1/30"), MakeDate(1930, 1, 1));
  EXPECT_EQ(mRunTime.DateFromText(u"1/1/0"), MakeDate(2000, 1, 1));
  EXPECT_EQ(mRunTime.DateFromText(u"1/1/100"), MakeDate(100, 1, 1));
}

TEST_F(RunTimeTest, DatesInOtherForms_ArentRead) {
  for (const char16_t* text : {u"3//2009",
                               u"3/1",
                               u"10:00",
                               u"3/1-2009",
                               u"2009-3",
                               u"3.1.2009",
                               u"31/12/2009",
                               u"0/1/2009",
                               u"1/0/2009",
                               u"1/1/12345",
                               u"March",
                               u"March 1",
                               u"March 32, 2009",
                               u"1 2009",
                               u"2009 March 1",
                               u"1,March 2009",
                               u"/1/2009",
                               u"3/1/",
                               u"-3/1/2009",
                               u"3/1/2009 24:00",
                               u"3/1/2009 12:60",
                               u"3/1/2009 9:9:60",
                               u"3/1/2009 6PM",
                               u"3/1/2009 0:30 PM",
                               u"3/1/2009 13:0 AM",
                               u"3/1/2009 6: PM",
                               u"3/1/2009 6:00 P",
                               u"3/1/2009 6:00 PM x",
                               u"\u0663/1/2009"}) {
    EXPECT_EQ(ErrorOf([&] { mRunTime.DateFromText(text); }), errors::kTypeMismatch) << ToUtf8(text);
  }
}

TEST_F(RunTimeTest, BlanksAndCaseInADate_DontMatter) {
  for (const char16_t* text :
       {u"3 / 1 / 2009 18:30:15", u"\t1  MARCH  2009   6:30:15pm", u"mArCh 1 , 2009 18:30:15 "}) {
    EXPECT_EQ(mRunTime.DateFromText(text), MakeDate(2009, 3, 1, 18, 30, 15)) << ToUtf8(text);
  }
}

TEST_F(RunTimeTest, Settings_AreFoundWithoutCase) {
  EXPECT_EQ(mRunTime.GetSetting(u"Init", u"Size", u"12"), u"12");
  mRunTime.SetSetting(u"Init", u"Size", u"");
  EXPECT_EQ(mRunTime.GetSetting(u"INIT", u"size", u"12"), u"");
  EXPECT_EQ(mRunTime.GetSetting(u"Other", u"Size", u"12"), u"12");
}

TEST_F(RunTimeTest, CommandLine_IsWhatWasSet) {
  EXPECT_EQ(mRunTime.CommandLine(), u"");
  mRunTime.SetCommandLine(u"winword.exe /a");
  EXPECT_EQ(mRunTime.CommandLine(), u"winword.exe /a");
}

TEST_F(RunTimeTest, TwipsPerPixel_FollowTheResolution) {
  EXPECT_EQ(mRunTime.TwipsPerPixelX(), 15);
  mRunTime.SetDpi(144);
  EXPECT_EQ(mRunTime.TwipsPerPixelX(), 10);
  EXPECT_EQ(mRunTime.TwipsPerPixelY(), 10);
  mRunTime.SetDpi(-1);
  EXPECT_EQ(mRunTime.TwipsPerPixelY(), 10);
  mRunTime.SetDpi(110);
  EXPECT_DOUBLE_EQ(mRunTime.TwipsPerPixelX(), 1440.0 / 110);
}

TEST_F(RunTimeTest, MsgBox_WithoutAHandlerIsAgreedTo) {
  EXPECT_EQ(mRunTime.MsgBox(u"text", msgbox::kOk | msgbox::kExclamation, nullptr), msgbox::kAnswerOk);
  EXPECT_EQ(mRunTime.MsgBox(u"text", msgbox::kYesNoCancel | msgbox::kExclamation, nullptr), msgbox::kAnswerYes);
}

TEST_F(RunTimeTest, MsgBox_LetsMessagesRunBeforeItsAnswer) {
  std::vector<std::string> order;
  mWindows.After(0, [&order] { order.push_back("work"); });
  mRunTime.SetBoxHandler([&order](const String& text, Long style, const String* title) {
    order.push_back(ToUtf8(text) + ' ' + std::to_string(style) + ' ' + (title ? ToUtf8(*title) : "none"));
    return msgbox::kAnswerCancel;
  });
  const String title = u"Title";
  EXPECT_EQ(mRunTime.MsgBox(u"Sure?", 3, &title), msgbox::kAnswerCancel);
  EXPECT_EQ(mRunTime.MsgBox(u"So?", 0, nullptr), msgbox::kAnswerCancel);
  EXPECT_EQ(order, (std::vector<std::string>{"work", "Sure? 3 Title", "So? 0 none"}));
}

TEST_F(RunTimeTest, ReportObjects_ShowTheRunTime) {
  mRunTime.SetScreen(800, 600);
  mRunTime.SetPath(u"C:\\Elsewhere");
  EXPECT_EQ(mRunTime.ApplicationObject().Get("Title").ToText(), u"Strandline");
  EXPECT_EQ(mRunTime.ApplicationObject().Get("exename").ToText(), u"strandline");
  EXPECT_EQ(mRunTime.ApplicationObject().Get("Path").ToText(), u"C:\\Elsewhere");
  EXPECT_EQ(mRunTime.ScreenObject().Get("Width").ToLong(), 12000);
  EXPECT_EQ(mRunTime.ScreenObject().Get("Height").ToLong(), 9000);
  EXPECT_EQ(mRunTime.ScreenObject().Get("TwipsPerPixelY").ToLong(), 15);
  const Object error = mRunTime.ErrorObject({91, u"Not set"});
  EXPECT_EQ(error.Get("Number").ToLong(), 91);
  EXPECT_EQ(error.Get("Description").ToText(), u"Not set");
  EXPECT_EQ(error.Get("Source").ToText(), u"Strandline");
  EXPECT_EQ(mRunTime.ErrorObject({91, u"Not set", u"Word"}).Get("Source").ToText(), u"Word");
  EXPECT_TRUE(mRunTime.PrinterObject().IsNothing());
}

TEST_F(RunTimeTest, ReportObjects_RefuseWhatTheyDontHave) {
  const Object application = mRunTime.ApplicationObject();
  EXPECT_EQ(ErrorOf([&] { application.Get("Colour"); }), errors::kNoSuchMember);
  EXPECT_EQ(ErrorOf([&] { application.Let("Title", u"x"); }), errors::kNoSuchMember);
  EXPECT_EQ(ErrorOf([&] { application.Get("Title", Long{1}); }), errors::kWrongNumberOfArguments);
}

class ComponentsTest : public testing::Test {
 protected:
  ComponentsTest() {
    mComponents.Register(u"Store.Main", [] { return New<PropertyBag>(1, std::vector<PropertyBag::Member>{}); });
    mComponents.Register(u"Broken.Main", []() -> Object { Raise(errors::kOutOfMemory); });
    mComponents.Register(u"Empty.Main", [] { return Object(); });
    mComponents.SetObserver([this](const String& progId, bool ok) { mHeard += ToUtf8(progId) + (ok ? " + " : " - "); });
  }

  DeskComponents mComponents;
  std::string mHeard;
};

TEST_F(ComponentsTest, Component_IsCreatedByNameWithoutCase) {
  const Object one = mComponents.CreateObject(u"store.MAIN");
  const Object other = mComponents.CreateObject(u"Store.Main");
  EXPECT_FALSE(one.IsNothing());
  EXPECT_FALSE(one == other);
  EXPECT_EQ(mHeard, "store.MAIN + Store.Main + ");
}

TEST_F(ComponentsTest, MissingComponent_Raises) {
  EXPECT_EQ(ErrorOf([&] { mComponents.CreateObject(u"Nobody.Main"); }), errors::kCannotCreateComponent);
  EXPECT_EQ(ErrorOf([&] { mComponents.CreateObject(u""); }), errors::kCannotCreateComponent);
  EXPECT_EQ(ErrorOf([&] { mComponents.CreateObject(u"Empty.Main"); }), errors::kCannotCreateComponent);
  EXPECT_EQ(ErrorOf([&] { mComponents.CreateObject(u"Broken.Main"); }), errors::kOutOfMemory);
  EXPECT_EQ(mHeard, "Nobody.Main -  - Empty.Main - Broken.Main - ");
}

TEST_F(ComponentsTest, Component_MayGoMissingAndComeBack) {
  mComponents.SetMissing(u"STORE.main", true);
  EXPECT_EQ(ErrorOf([&] { mComponents.CreateObject(u"Store.Main"); }), errors::kCannotCreateComponent);
  mComponents.SetMissing(u"Store.Main", false);
  EXPECT_FALSE(mComponents.CreateObject(u"Store.Main").IsNothing());
}

}  // namespace
}  // namespace strandline::desk
