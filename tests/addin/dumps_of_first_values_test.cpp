// The dumps of errors that come before a procedure has computed its locals: each shows its first value.

#include "tests/addin/main2_fixture.h"
#include "tests/foundation/dump_text.h"

namespace strandline {
namespace {

class FirstValuesOfMain2 : public Main2Test {
 protected:
  // Runs it; of the dump of the first error in it: the parameters and the locals.
  std::string Dumped(const std::function<void()>& run) {
    TheWorld().desk.Components().Register(u"QuillmereError.Main2", [this] { return script.Create(); });
    script.log.clear();
    script.Answer({Long{8}, Long{0}});
    run();
    Did().during = nullptr;
    const std::string text = DumpText(script.log);
    const std::string local = "[LOCAL]\n";
    const std::size_t end = text.find("[MODULE]");
    EXPECT_TRUE(text.starts_with(local) && end != std::string::npos) << text;
    return text.substr(local.size(), end - local.size());
  }
  // A key that is no window.
  void AddWrongKey() { Inside::Registry(Main())->Add(u"nobody", Object()); }
  void RemoveWrongKey() { Inside::Registry(Main())->Remove(u"nobody"); }

  ErrorScript script;
};

// The log's line fails, which is the first statement.
TEST_F(FirstValuesOfMain2, OfACreation) {
  TheWorld();
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 HandleDocumentCreateImpl") Raise(1000, u"No room");
  };
  EXPECT_EQ(Dumped([&] { Inside::HandleDocumentCreateImpl(Main()); }), "hwnd = 0\n");
}

TEST_F(FirstValuesOfMain2, OfTheSmallToolbar) {
  TheWorld();
  Word().Faults().Arm("bar Quillmere", "visible");
  EXPECT_EQ(Dumped([&] { Main().ShrinkToolbar(); }), "force = True\nbar = object\nneedsShrinking = False\n");
}

TEST_F(FirstValuesOfMain2, OfTheSmallToolbarsButtons) {
  Begin(WithSmallBar());
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("let bar Quillmere Protection")) Word().Faults().Arm("bar Quillmere", "Controls");
  };
  EXPECT_EQ(Dumped([&] { Main().ShrinkToolbar(); }),
            "needsShrinking = False\nlist = Nothing\ncontrol = Nothing\ncount = 0\ni = 0\n");
}

TEST_F(FirstValuesOfMain2, OfTheRemovalOfAllToolbars) {
  TheWorld();
  AddWrongKey();
  EXPECT_EQ(Dumped([&] { Inside::RemoveAllToolbars(Main()); }), "key = 0\n");
  RemoveWrongKey();
}

TEST_F(FirstValuesOfMain2, OfTheRemovalOfTheLastToolbar) {
  TheWorld();
  AddWrongKey();
  Inside::MoveToolbarFlag(Main()) = true;
  EXPECT_EQ(Dumped([&] { Inside::RemoveLastToolbar(Main()); }), "key = 0\n");
  RemoveWrongKey();
}

TEST_F(FirstValuesOfMain2, OfAChangedValue) {
  TheWorld();
  AddWrongKey();
  Array<Boolean> ads(0, 0);
  String value = u"London";
  EXPECT_EQ(Dumped([&] { Inside::Callback(Main())->ValueChangedWithAds(ads, value); }),
            "ads = [0 0]\nvalue = 'London'\nkey = 0\n");
  RemoveWrongKey();
}

TEST_F(FirstValuesOfMain2, OfTheSearchForTheEntryWithoutADocument) {
  TheWorld();
  const Ref<Dictionary> registry = Inside::Registry(Main());
  Inside::Registry(Main()) = nullptr;
  EXPECT_EQ(Dumped([&] { Inside::RemoveExtraneousToolbar(Main()); }),
            "i = 0\nlast = 0\nkey = 0\ndoc = Nothing\nfound = False\n");
  Inside::Registry(Main()) = registry;
}

TEST_F(FirstValuesOfMain2, OfTheToggle) {
  TheWorld();
  Word().Faults().Arm("Documents", "count");
  EXPECT_EQ(Dumped([&] { Inside::ToggleToolbarForNoDocuments(Main(), true); }),
            "enabled = True\nsEnabled = False\ncount = 0\ni = 0\n");
}

TEST_F(FirstValuesOfMain2, OfTheRemovalOfTheActiveEntry) {
  TheWorld();
  Word().Faults().Arm("Documents", "count");
  EXPECT_EQ(Dumped([&] { Inside::RemoveActiveToolbarEntry(Main(), true); }),
            "keepLastDocument = True\ncount = 0\nhwnd = 0\n");
}

TEST_F(FirstValuesOfMain2, OfLumivexsToggle) {
  TheWorld();
  Word().Faults().Arm("productState", "lumivexEnabled");
  EXPECT_EQ(Dumped([&] { Main().ToggleLumivex(); }), "isOn = False\n");
}

}  // namespace
}  // namespace strandline
