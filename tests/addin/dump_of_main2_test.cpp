// The whole dumps of Main2's procedures: parameters, variables of the procedure, of the object, of the library.

#include "tests/addin/main2_fixture.h"
#include "tests/foundation/dump_text.h"

namespace strandline {
namespace {

class DumpOfMain2 : public Main2Test {
 protected:
  // From now on an error is dumped and then let go of.
  void DumpTheNext() {
    TheWorld().desk.Components().Register(u"QuillmereError.Main2", [this] { return script.Create(); });
    script.Answer({Long{8}, Long{0}});
  }
  std::string Dump() const { return DumpText(script.log); }
  static std::string Module(bool hasStrips, bool isSmall = false, bool hasShrunk = false, bool hasRibbon = false) {
    const auto object = [](bool is) { return std::string(is ? "object\n" : "Nothing\n"); };
    const auto flag = [](bool is) { return std::string(is ? "True\n" : "False\n"); };
    return "[MODULE]\nmToolbars = " + object(hasStrips) +
           "mOldHwnd = 0\nmMoveToolbarFlag = False\nmSmallToolbar = " + flag(isSmall) +
           "mRibbonHandler = " + object(hasRibbon) + "mHasShrunkToolbar = " + flag(hasShrunk) +
           "mRibbonEvents = " + object(hasRibbon) + "mCallbackToMe = object\n";
  }
  static std::string Globals(bool hasAds) {
    const std::string object = hasAds ? "object\n" : "Nothing\n";
    return "[GLOBAL]\nvbwProtector.vbwTraceProc = True\nvbwProtector.vbwTraceParameters = False\n"
           "ToolbarUtilities.adFactory = " +
           object + "ToolbarUtilities.productState = object\nToolbarUtilities.converter = " + object +
           "App\nErr\nScreen\n";
  }

  ErrorScript script;
};

TEST_F(DumpOfMain2, Creation) {
  Word().Open(u"One.doc");
  DumpTheNext();
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("get view One.doc ReadingLayout")) Word().Faults().Arm("Documents", "count");
  };
  TheWorld().Create(true);
  Did().during = nullptr;
  EXPECT_EQ(Dump(), "[LOCAL]\nstartedFromIcon = True\n" + Module(true) + Globals(true));
}

TEST_F(DumpOfMain2, ListenerThatCantBeMade) {
  TheWorld();
  DumpTheNext();
  script.Answer({Long{0}, Long{8}, Long{0}});
  Inside::AddListener(Main(), 77);
  EXPECT_EQ(script.Asked(), (LogLines{"4248 CommonWordInteractionFunctions.ActiveDocument[Get]", "91 Main2.AddListener",
                                      "-1 Main2.AddListener"}));
  EXPECT_EQ(Dump(), "[LOCAL]\nhwnd = 77\ntoolbar = Nothing\n" + Module(true) + Globals(true));
}

// The first entry has its document, the second that is looked at; the documents can't be gone through for the second.
TEST_F(DumpOfMain2, SearchForTheEntryWithoutADocument) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  DumpTheNext();
  int steps = 0;
  Did().during = [&](const Doings::Line& line) {
    if (!line.text.starts_with("each Documents") || ++steps < 2) return;
    Did().during = nullptr;
    Word().Faults().Arm("Documents", "each");
  };
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Main2.RemoveExtraneousToolbar", "-1 Main2.RemoveExtraneousToolbar"}));
  EXPECT_EQ(Dump(), "[LOCAL]\ni = 1\nlast = 1\nkey = " + std::to_string(Top("top 2")) +
                        "\ndoc = object\nfound = False\n" + Module(true) + Globals(true));
}

TEST_F(DumpOfMain2, ToggleOfTheSmallToolbar) {
  TheWorld();
  ShrinkForReal();
  DumpTheNext();
  Word().Faults().Arm("control 4", "Enabled");
  Inside::ToggleToolbarForNoDocuments(Main(), true);
  EXPECT_EQ(Dump(),
            "[LOCAL]\nenabled = True\nsEnabled = True\ncount = 15\ni = 4\n" + Module(true, true, true) + Globals(true));
}

TEST_F(DumpOfMain2, ToggleOfLumivex) {
  WorldOptions options;
  options.word.lumivexEnabled = true;
  Begin(options);
  DumpTheNext();
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "get productState lumivexEnabled() = True") Word().Faults().Arm("productState", "lumivexEnabled");
  };
  Main().ToggleLumivex();
  Did().during = nullptr;
  EXPECT_EQ(Dump(), "[LOCAL]\nisOn = True\n" + Module(true) + Globals(true));
}

TEST_F(DumpOfMain2, UpdateOfLumivexOnTheSmallToolbar) {
  TheWorld();
  ShrinkForReal();
  DumpTheNext();
  Word().Faults().Arm("control 14", "state");
  Inside::UpdateLumivexIcon(Main());
  EXPECT_EQ(Dump(), "[LOCAL]\nitem = Empty\ncontrol = object\n" + Module(true, true, true) + Globals(true));
}

TEST_F(DumpOfMain2, ButtonThatCantBeShrunk) {
  TheWorld();
  DumpTheNext();
  Word().Faults().Arm("control 5", "width");
  Main().ShrinkToolbar();
  EXPECT_EQ(Dump(), "[LOCAL]\nneedsShrinking = True\nlist = object\ncontrol = object\ncount = 15\ni = 5\n" +
                        Module(true, true, true) + Globals(true));
}

TEST_F(DumpOfMain2, BarThatCantBeShrunk) {
  TheWorld();
  DumpTheNext();
  Word().Faults().Arm("bar Quillmere", "Protection");
  Main().ShrinkToolbar();
  EXPECT_EQ(Dump(),
            "[LOCAL]\nforce = True\nbar = object\nneedsShrinking = True\n" + Module(true, true, true) + Globals(true));
}

TEST_F(DumpOfMain2, ImageThatDoesntExist) {
  Begin(u"12.0");
  DumpTheNext();
  Object(Inside::Events(Main())).Call("getToolbarIconBits", Integer{999});
  EXPECT_EQ(Dump(), "[LOCAL]\nindex = 999\nbits = [unsized]\n" + Module(false, true, false, true) + Globals(false));
}

}  // namespace
}  // namespace strandline
