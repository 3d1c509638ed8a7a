// To whom an ad shows.

#include "tests/ads/ad_fixture.h"
#include "wordsim/document.h"
#include "wordsim/use_observer.h"

namespace strandline {
namespace {

using AdFilterTest = AdTest;

TEST_F(AdFilterTest, AValue_IsMetByAnyOfTheTokens) {
  const struct {
    TextView value, tokens;
    bool isMet;
  } cases[] = {
      // an ordinary text
      {u"APA", u"APA", true},
      {u"APA", u"apa", false},
      {u"APA", u"APA ", false},
      {u"MLA", u"APA|MLA", true},
      {u"AMA", u"APA|MLA", false},
      {u"", u"APA", false},
      {u"", u"APA||MLA", true},
      {u"", u"|", true},
      {u"a", u"|", false},
      // an empty list
      {u"", u"", true},
      {u"APA", u"", false},
      // anything but
      {u"APA", u"!MLA", true},
      {u"APA", u"!APA", false},
      {u"APA", u"!apa", true},
      {u"", u"!APA", true},
      {u"", u"!", false},
      {u"APA", u"!", true},
      {u"a", u"!a|!b", true},
      {u"b", u"!a|!b", true},
      {u"c", u"!a|!b", true},
      {u"a", u"!a|a", true},
      // contains, in any case
      {u"my thesis", u"has_THESIS", true},
      {u"my thesis", u"has_thesis", true},
      {u"MY THESIS", u"has_thesis", true},
      {u"my these", u"has_thesis", false},
      {u"", u"has_thesis", false},
      {u"anything", u"has_", true},
      {u"", u"has_", true},
      {u"my thesis", u"HAS_thesis", false},
      {u"my thesis", u"has", false},
      // the text itself first
      {u"!a", u"!a", true},
      {u"a", u"!a", false},
      {u"!!a", u"!!a", true},
      {u"!a", u"!!a", false},
      {u"has_x", u"has_x", true},
      {u"has_x", u"!has_y", true},
      {u"x", u"!has_x", true},
      // more signs
      {u"a=b", u"a=b", true},
  };
  for (const auto& [value, tokens, isMet] : cases) {
    EXPECT_EQ(Inside::InFilterToken(*ad, value, tokens), isMet) << ToUtf8(value) << " in " << ToUtf8(tokens);
  }
}

TEST_F(AdFilterTest, AnAd_ShowsWhereAllClausesHold) {
  SetValue(u"style", u"APA");
  SetValue(u"stage", u"My thesis");
  SetValue(u"sum", u"a=b");
  SetValue(u"", u"nameless");
  const struct {
    TextView filter;
    bool shows;
  } cases[] = {{u"", true},
               {u"style=APA", true},
               {u"style=MLA", false},
               {u"style=APA|MLA~stage=has_thesis", true},
               {u"style=MLA~stage=has_thesis", false},
               {u"style=APA~stage=x", false},
               {u"~~style=APA~", true},
               {u"~", true},
               {u"style=", false},
               {u"sum=a=b", true},
               {u"sum=a", false},
               {u"nobody=", true},
               {u"nobody=!x", true},
               {u"nobody=x", false},
               {u"nobody=has_", true},
               {u"Style=APA", false},
               {u"=nameless", true}};
  for (const auto& [filter, shows] : cases) {
    Inside::SetFilter(*ad, filter);
    EXPECT_EQ(ad->visible(), shows) << ToUtf8(filter);
  }
}

// Each value is looked for on all its levels, the document's first.
TEST_F(AdFilterTest, AValue_IsTheDocumentsWhereItHasOne) {
  SetValue(u"style", u"APA");
  Inside::SetFilter(*ad, u"style=APA");
  EXPECT_TRUE(ad->visible());
  floor->word.TheProduct().Store().SetUserValue(u"style", u"MLA");
  EXPECT_FALSE(ad->visible());
  floor->word.Open(u"One.doc");
  floor->word.SetVariable(u"style", u"APA");
  EXPECT_TRUE(ad->visible());
  floor->word.Open(u"Two.doc");
  EXPECT_FALSE(ad->visible());
}

class Reads final : public wordsim::UseObserver {
 public:
  void OnUse(const wordsim::ObjectUse& use) override {
    if (use.member == "GlobalValue") names.push_back(Shown(use.arguments[0]));
  }
  Lines names;
};

TEST_F(AdFilterTest, BehindAClauseThatFails_NoValueIsRead) {
  const struct {
    TextView filter;
    Lines reads;
  } cases[] = {
      {u"", {}}, {u"a=!x~b=~c=!x", {"'a'", "'b'", "'c'"}}, {u"a=!x~b=x~c=!x", {"'a'", "'b'"}}, {u"~~a=x", {"'a'"}}};
  for (const auto& [filter, reads] : cases) {
    Reads heard;
    Inside::SetFilter(*ad, filter);
    floor->word.SetUseObserver(&heard);
    ad->visible();
    floor->word.SetUseObserver(nullptr);
    EXPECT_EQ(heard.names, reads) << ToUtf8(filter);
  }
}

TEST_F(AdFilterTest, AClauseWithoutTokens_IsAnErrorAndHidesTheAd) {
  SetValue(u"a", u"x");
  for (const TextView filter : {TextView(u"a"), TextView(u"a=x~b"), TextView(u"b~a=x")}) {
    Inside::SetFilter(*ad, filter);
    EXPECT_FALSE(ad->visible());
    EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.visible[Get]"}) << ToUtf8(filter);
    // Where execution goes on, it does so behind the test.
    floor->errors.Answer({vbwProtector::kIgnore});
    EXPECT_FALSE(ad->visible());
    EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.visible[Get]"}) << ToUtf8(filter);
  }
}

// A value that can't be read is empty, and that error is another procedure's.
TEST_F(AdFilterTest, WithoutAStore_ValuesAreEmpty) {
  CommonPropertyFunctions::properties(nullptr);
  Inside::SetFilter(*ad, u"a=!x~b=");
  EXPECT_TRUE(ad->visible());
  EXPECT_EQ(TakeErrors(),
            (Lines{"91 CommonPropertyFunctions.PropertyValue", "91 CommonPropertyFunctions.PropertyValue"}));
}

// Reading a value lets the product act; it may let go of the ad.
TEST_F(AdFilterTest, AnAdThatGoesWhileItIsAsked_AnswersStill) {
  SetValue(u"b", u"x");
  Inside::SetFilter(*ad, u"a=~b=x");
  class Dropper final : public wordsim::UseObserver {
   public:
    explicit Dropper(Ref<Advertisement>& ad) : mAd(ad) {}
    void OnUse(const wordsim::ObjectUse&) override { mAd = nullptr; }

   private:
    Ref<Advertisement>& mAd;
  } dropper(ad);
  floor->word.SetUseObserver(&dropper);
  EXPECT_TRUE(ad->visible());
  floor->word.SetUseObserver(nullptr);
  EXPECT_FALSE(ad);
}

}  // namespace
}  // namespace strandline
