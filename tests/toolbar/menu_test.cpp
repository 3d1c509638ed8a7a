// Word's popup, kept in step with the product: captions, the product's icon, the manual's entry, the capture.

#include "toolbar/Menu.h"

#include "drawing/ToolbarUtilities.h"
#include "foundation/LanguageExtensions.h"
#include "platform/wrappers/recording.h"
#include "tests/addin/main2_fixture.h"
#include "tests/toolbar/input_fixture.h"

namespace strandline {

struct MenuAccess {
  static void ToggleManualUI(Menu& menu) { menu.ToggleManualUI(); }
  static void setMenuItemCaption(Menu& menu, const String& target, const String& old) {
    menu.setMenuItemCaption(target, old);
  }
  static void setIconForProduct(Menu& menu, const Object& button) { menu.setIconForProduct(button); }
};

namespace {

constexpr const char16_t* kManual = u"Quillmere user manual.doc";
constexpr const char* kOpenManual = "Open User &Manual";
constexpr const char* kFind = "&Find...";

class MenuTest : public Main2Test {
 protected:
  ~MenuTest() override { LanguageExtensions::variables.mInIDE = false; }

  void BeginWith(const char16_t* document, bool hasIcon = false, const char16_t* version = u"11.0") {
    WorldOptions options = ForWord(version);
    options.word.hasIcon = hasIcon;
    Begin(options);
    if (document) TheWorld().Open(document);
    menu = New<Menu>();
    Did().Clear();
  }
  wordsim::BarControl& Popup() { return *Word().ProductBar().Controls().Control(1); }
  wordsim::BarControl& Entry(Long position) { return *Popup().Popup()->Control(position); }
  std::string Caption(Long position) { return ToUtf8(Entry(position).Caption()); }
  // Of its face; empty without one.
  std::vector<std::uint32_t> PixelsOf(const wordsim::BarControl& control) {
    const auto& face = control.Face();
    const auto* bitmap = face ? TheWorld().desk.Objects().Find<desk::Bitmap>(face->Handle()) : nullptr;
    return bitmap ? bitmap->surface.pixels : std::vector<std::uint32_t>();
  }
  std::string PopupCaption() { return ToUtf8(Popup().Caption()); }
  // All of them, to see that nothing else has changed.
  TextLines Captions() {
    TextLines captions = {PopupCaption()};
    for (const auto& entry : Popup().Popup()->All()) captions.push_back(ToUtf8(entry->Caption()));
    return captions;
  }
  // To the popup and its entries; values are looked up in the store on the way.
  TextLines Writes() {
    TextLines writes;
    for (const std::string& line : Did().Of(Doings::kUse, "let ")) {
      if (line.starts_with("let menu ") || line.starts_with("let control ")) writes.push_back(line);
    }
    return writes;
  }
  // The last entries go, so that this many stay.
  void KeepEntries(Long count) {
    while (Popup().Popup()->Count() > count) {
      Object(Ref<wordsim::BarControl>(&Entry(Popup().Popup()->Count()))).Call("Delete");
    }
    Did().Clear();
  }
  void TearDown() override { menu = nullptr; }

  Ref<Menu> menu;
};

// ---- Before the menu opens.

TEST_F(MenuTest, Opening_BringsThreeCaptionsUpToDate_InTheirOrder) {
  for (const bool isOn : {false, true}) {
    BeginWith(u"One.doc");
    Word().TheProduct().SetLumivex(isOn);
    menu->ToggleFootnoteEndnoteUI();
    const String insert = ToolbarUtilities::insertCaption(true);
    const String paste = ToolbarUtilities::pasteCaption(true);
    EXPECT_EQ(Block(Writes()), "let menu 1 caption(" + ToUtf8(insert) + ")\nlet menu 2 caption(" + ToUtf8(paste) +
                                   ")\nlet menu 20 caption(&Turn " + (isOn ? "off" : "on") + " Lumivex)\n");
    EXPECT_NE(ToUtf8(insert).find("&Insert"), std::string::npos) << "with its access key";
    EXPECT_NE(ToUtf8(paste).find("&Paste"), std::string::npos) << "with its access key";
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(MenuTest, WithoutADocument_NothingChanges) {
  BeginWith(nullptr, true);
  const TextLines before = Captions();
  menu->ToggleFootnoteEndnoteUI();
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Captions(), before);
  EXPECT_TRUE(Writes().empty());
  EXPECT_EQ(Did().Count(Doings::kUse, "get Application CommandBars"), 0u);
  EXPECT_FALSE(Entry(18).Face());
}

TEST_F(MenuTest, FailureWhileOpening_EndsQuietly_AndWhatIsWrittenStays) {
  const struct {
    const char* object;
    const char* member;
    std::size_t written;
  } cases[] = {{"Documents", "count", 0},
               {"bar Quillmere", "Controls", 0},
               {"control 1", "Controls", 0},
               {"controls of control 1", "Item(1)", 0},
               {"controls of control 1", "Item(2)", 1},
               {"controls of control 1", "Item(20)", 2}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.member);
    BeginWith(u"One.doc");
    Word().Faults().Arm(row.object, row.member);
    menu->ToggleFootnoteEndnoteUI();
    EXPECT_EQ(Writes().size(), row.written);
    EXPECT_TRUE(Did().Errors().empty());
  }
  BeginWith(u"One.doc");
  Word().Faults().Arm("menu 2", "caption");
  menu->ToggleFootnoteEndnoteUI();
  EXPECT_EQ(Did().Count(Doings::kUse, "let menu 1 caption"), 1u);
  EXPECT_EQ(Did().Count(Doings::kUse, "let menu 20 caption"), 0u);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(MenuTest, MenuThatIsTooShort_EndsQuietly) {
  BeginWith(u"One.doc");
  KeepEntries(19);
  menu->ToggleFootnoteEndnoteUI();
  EXPECT_EQ(Writes().size(), 2u);
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Caption(18), "&Apply Tomehaven to this document...");
  EXPECT_EQ(Caption(19), "C&onfigure Tomehaven...");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(MenuTest, BarThatHasGone_EndsQuietly) {
  BeginWith(u"One.doc");
  ToolbarUtilities::variables.mProductName = u"Elsewhere";
  menu->ToggleFootnoteEndnoteUI();
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_TRUE(Writes().empty());
  EXPECT_TRUE(Did().Errors().empty());
}

// ---- The product's name.

TEST_F(MenuTest, NewName_StandsInLowerCaseOnThePopup_AndUnchangedInThreeEntries) {
  BeginWith(u"One.doc");
  const TextLines before = Captions();
  menu->ProductNameChanged(u"McTomeHaven");
  EXPECT_EQ(Block(Writes()),
            "let control 1 caption(mctomehaven)\n"
            "let menu 18 caption(&Apply McTomeHaven to this document...)\n"
            "let menu 19 caption(C&onfigure McTomeHaven...)\n"
            "let menu 25 caption(About McTomeHaven / Login to McTomeHaven...)\n");
  const TextLines after = Captions();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    const bool bearsTheName = i == 0 || i == 18 || i == 19 || i == 25;
    EXPECT_EQ(after[i] != before[i], bearsTheName) << i;
  }
}

TEST_F(MenuTest, NameOfAnyAlphabet_StandsInLowerCaseOnThePopup) {
  BeginWith(u"One.doc");
  menu->ProductNameChanged(u"VI\u1EC6T-\u0386\u0388-\u0178");
  EXPECT_EQ(PopupCaption(), ToUtf8(u"vi\u1EC7t-\u03AC\u03AD-\u00FF"));
}

TEST_F(MenuTest, FailureOnTheWay_LeavesWhatIsWritten_AndTheRestAsItWas) {
  const struct {
    const char* item;
    std::size_t written;
  } cases[] = {{"Item(18)", 1}, {"Item(19)", 2}, {"Item(25)", 3}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.item);
    BeginWith(u"One.doc");
    const TextLines before = Captions();
    Word().Faults().Arm("controls of control 1", row.item);
    menu->ProductNameChanged(u"Tomehaven");
    EXPECT_EQ(PopupCaption(), "tomehaven");
    EXPECT_EQ(Writes().size(), row.written);
    EXPECT_EQ(Captions()[25], before[25]);
    EXPECT_TRUE(Did().Errors().empty());
  }
  BeginWith(u"One.doc");
  Word().Faults().Arm("control 1", "caption");
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Did().Count(Doings::kUse, "let menu"), 0u);
  EXPECT_TRUE(Did().Errors().empty());
}

// Writing a caption is a procedure of its own, with the usual tail.
TEST_F(MenuTest, CaptionThatCantBeWritten_IsReported_AndTheNextOnesAreWritten) {
  BeginWith(u"One.doc");
  Word().Faults().Arm("menu 19", "caption");
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Block(Did().Errors()), "1000 Menu.setMenuCaption\n");
  EXPECT_EQ(Caption(19), "C&onfigure Quillmere...");
  EXPECT_EQ(Caption(25), "About Tomehaven / Login to Tomehaven...");
}

// ---- The product's icon.

TEST_F(MenuTest, Icon_GoesOnTheApplyEntry_BetweenTwoCaptions) {
  BeginWith(u"One.doc", true);
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "let menu")),
            "let menu 18 caption(&Apply Tomehaven to this document...)\n"
            "let menu 18 Picture(picture)\n"
            "let menu 18 Mask(picture)\n"
            "let menu 19 caption(C&onfigure Tomehaven...)\n"
            "let menu 25 caption(About Tomehaven / Login to Tomehaven...)\n");
  EXPECT_TRUE(Entry(18).Face());
  EXPECT_TRUE(Entry(18).HasMask());
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(MenuTest, IconOnWord2000_IsPasted) {
  BeginWith(u"One.doc", true, u"9.0");
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call menu")), "call menu 18 PasteFace()\n");
  EXPECT_TRUE(Entry(18).Face());
}

TEST_F(MenuTest, Icon_IsWholeAtEachNewName) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWith(u"One.doc", true, version);
    menu->ProductNameChanged(u"Tomehaven");
    const auto first = PixelsOf(Entry(18));
    EXPECT_FALSE(first.empty());
    menu->ProductNameChanged(u"Quillmere");
    EXPECT_EQ(PixelsOf(Entry(18)), first);
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_EQ(TheWorld().desk.Misuses().All().size(), 0u);
  }
}

TEST_F(MenuTest, NoIcon_LeavesTheFaceThatTheEntryHas) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWith(u"One.doc", false, version);
    TheWorld().desk.Clipboard().SetTextFromOutside(u"left alone");
    Word().TheHooks().pasteFace = [] { return LoadImageFromResource::LoadResGifJpgBmp(102, 0); };
    Object(Ref<wordsim::BarControl>(&Entry(18))).Call("PasteFace");
    const Long face = Entry(18).Face()->Handle();
    Did().Clear();
    menu->ProductNameChanged(u"Tomehaven");
    EXPECT_EQ(Did().Count(Doings::kUse, "get productState icon() = Nothing"), 1u);
    ASSERT_TRUE(Entry(18).Face());
    EXPECT_EQ(Entry(18).Face()->Handle(), face);
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let menu 18")),
              "let menu 18 caption(&Apply Tomehaven to this document...)\n");
    EXPECT_EQ(Did().Count(Doings::kUse, "call menu 18"), 0u);
    EXPECT_EQ(TheWorld().desk.Clipboard().Content().size(), 1u);
  }
}

TEST_F(MenuTest, InTheDevelopmentEnvironment_TheIconStaysOff) {
  BeginWith(u"One.doc", true);
  LanguageExtensions::variables.mInIDE = true;
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_EQ(Did().Count(Doings::kUse, "get productState icon"), 0u);
  EXPECT_FALSE(Entry(18).Face());
}

// The condition that fails is passed over, and the statement behind it is the leaving.
TEST_F(MenuTest, IconThatCantBeRead_LeavesTheFace_AndNobodyHears) {
  BeginWith(u"One.doc", true);
  Word().Faults().Arm("productState", "icon");
  menu->ProductNameChanged(u"Tomehaven");
  EXPECT_FALSE(Entry(18).Face());
  EXPECT_EQ(Caption(25), "About Tomehaven / Login to Tomehaven...");
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Did().Count(Doings::kUse, "get productState icon"), 1u);
}

TEST_F(MenuTest, IconThatCantBeReadTheSecondTime_LeavesTheFace) {
  BeginWith(u"One.doc", true);
  int readings = 0;
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("get productState icon") && ++readings == 1) Word().Faults().Arm("productState", "icon");
  };
  menu->ProductNameChanged(u"Tomehaven");
  Did().during = nullptr;
  EXPECT_EQ(readings, 2);
  EXPECT_FALSE(Entry(18).Face());
  EXPECT_TRUE(Did().Errors().empty());
}

// ---- While the menu is down.

TEST_F(MenuTest, Activate_LetsTheCaptureGo_ThenTurnsToTheManualsEntry) {
  BeginWith(u"One.doc");
  menu->Activate();
  TextLines told;
  for (const std::string& line : Did().Of(Doings::kLog | Doings::kService | Doings::kUse)) {
    for (const char* start : {"log ", "GetCapture", "ReleaseCapture", "get document One.doc name", "get menu 1 "}) {
      if (line.starts_with(start)) told.push_back(line.substr(0, line.find('(')));
    }
  }
  EXPECT_EQ(Block(told),
            "log 0 Menu Activate\nGetCapture\nReleaseCapture\nget document One.doc name\nget menu 1 caption\n");
}

TEST_F(MenuTest, Capture_IsLetGo_WhoeverHasIt) {
  BeginWith(u"One.doc");
  const auto releases = [&] { return Did().Count(Doings::kService, "ReleaseCapture"); };
  ASSERT_EQ(TheWorld().desk.Windows().GetCapture(), 0);
  menu->Activate();
  EXPECT_EQ(releases(), 1u) << "nobody";
  TheWorld().desk.Windows().SetCapture(Word().ActiveBarWindow());
  menu->Activate();
  EXPECT_EQ(releases(), 2u);
  EXPECT_EQ(TheWorld().desk.Windows().GetCapture(), 0);
}

TEST_F(MenuTest, ManualsEntry_OffersASearchInTheManual_AndTheManualElsewhere) {
  BeginWith(u"One.doc");
  ASSERT_EQ(Caption(21), kOpenManual);
  menu->Activate();
  EXPECT_TRUE(Writes().empty()) << "it has its caption already";
  TheWorld().Open(kManual);
  Did().Clear();
  menu->Activate();
  EXPECT_EQ(Block(Writes()), std::string("let menu 21 caption(") + kFind + ")\n");
  Word().Activate(u"One.doc");
  Did().Clear();
  menu->Activate();
  EXPECT_EQ(Block(Writes()), std::string("let menu 21 caption(") + kOpenManual + ")\n");
}

TEST_F(MenuTest, ManualsEntry_IsWrittenOnceInTheSameDocument) {
  BeginWith(kManual);
  MenuAccess::ToggleManualUI(*menu);
  MenuAccess::ToggleManualUI(*menu);
  EXPECT_EQ(Block(Writes()), std::string("let menu 21 caption(") + kFind + ")\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(MenuTest, ManualsEntry_IsTheFirstOfItsCaption_AmpersandAndCaseIncluded) {
  BeginWith(kManual);
  const auto caption = [&](Long entry, const char16_t* text) {
    Object(Ref<wordsim::BarControl>(&Entry(entry))).Let("Caption", text);
  };
  caption(5, u"Open User Manual");
  caption(6, u"open user &manual");
  caption(9, u"Open User &Manual");
  Did().Clear();
  MenuAccess::ToggleManualUI(*menu);
  EXPECT_EQ(Block(Writes()), std::string("let menu 9 caption(") + kFind + ")\n");
  EXPECT_EQ(Did().Count(Doings::kUse, "get menu 10 caption"), 0u) << "it stops there";
}

// The search for the entry has the usual tail: told to go on, a failing comparison counts as a match.
TEST_F(MenuTest, FailureInTheSearch_IsReported) {
  BeginWith(kManual);
  Word().Faults().Arm("menu 3", "caption");
  MenuAccess::ToggleManualUI(*menu);
  EXPECT_EQ(Block(Did().Errors()), "1000 Menu.setMenuItemCaption\n");
  EXPECT_EQ(Caption(21), kOpenManual);

  Word().Faults().Arm("menu 3", "caption");
  TheWorld().AnswerErrors({5});
  MenuAccess::ToggleManualUI(*menu);
  EXPECT_EQ(Caption(3), kFind);
  EXPECT_EQ(Caption(21), kOpenManual);
}

TEST_F(MenuTest, MissingBarWhileTheMenuIsDown_IsReported) {
  BeginWith(u"One.doc");
  ToolbarUtilities::variables.mProductName = u"Elsewhere";
  menu->Activate();
  EXPECT_EQ(Block(Did().Errors()), "91 Menu.setMenuItemCaption\n");
  EXPECT_EQ(Did().Count(Doings::kService, "ReleaseCapture"), 1u);
}

TEST_F(MenuTest, HasNoVariables) {
  BeginWith(nullptr);
  EXPECT_TRUE(VariableSnapshot::Of(*menu).Names().empty());
}

// ---- With the strip before it.

class MenuOnTheStrip : public InputTest {
 protected:
  wordsim::BarControl& Entry(Long position) {
    return *world->word.ProductBar().Controls().Control(1)->Popup()->Control(position);
  }
  // The captions are another document's.
  void BeginWithOldCaptions() {
    BeginWithCells();
    for (const Long entry : {1, 2, 20, 21}) Object(Ref<wordsim::BarControl>(&Entry(entry))).Let("Caption", u"&Find...");
    HearInput();
  }
  std::string Captions() {
    std::string captions;
    for (const Long entry : {1, 20, 21}) captions += ToUtf8(Entry(entry).Caption()) + "\n";
    return captions;
  }
};

TEST_F(MenuOnTheStrip, Press_BringsTheCaptionsUpToDate_AndTheDropTheManualsEntry) {
  BeginWithOldCaptions();
  const std::string upToDate = ToUtf8(ToolbarUtilities::insertCaption(true)) + "\n&Turn on Lumivex\n";
  MoveTo(1);
  EXPECT_EQ(Captions(), "&Find...\n&Find...\n&Find...\n");
  PressOn(1);
  EXPECT_EQ(Captions(), upToDate + "&Find...\n");
  ReleaseOn(1);
  EXPECT_EQ(Captions(), upToDate + "Open User &Manual\n");
}

TEST_F(MenuOnTheStrip, MenuThatDoesntDrop_LeavesTheManualsEntry) {
  BeginWithOldCaptions();
  world->word.Faults().Arm("control 1", "Execute");
  ClickOn(1);
  EXPECT_EQ(ToUtf8(Entry(20).Caption()), "&Turn on Lumivex") << "it was pressed all the same";
  EXPECT_EQ(ToUtf8(Entry(21).Caption()), "&Find...");
}

}  // namespace
}  // namespace strandline
