#include "tests/wordsim/world_fixture.h"

namespace strandline::wordsim {
namespace {

using SimObjectTest = WorldTest;

TEST_F(SimObjectTest, Observer_HearsEachUse_WithItsOutcome) {
  UseRecorder recorder;
  World().Open(u"Essay.doc");
  World().SetUseObserver(&recorder);

  const Object document = ActiveDocument();
  document.Get("saved");
  document.Let("Saved", false);
  document.Call("Save");
  NumberRaised([&] { document.Get("Colour"); });

  EXPECT_EQ(recorder.lines, (std::vector<std::string>{
                                "get Application ActiveDocument() = document Essay.doc",
                                "get document Essay.doc saved() = True",
                                "let document Essay.doc Saved() = False",
                                "call document Essay.doc Save() = Empty",
                                "get document Essay.doc Colour() ! 438",
                            }));
}

TEST_F(SimObjectTest, Observer_HearsOfAnElement_AsGetOfItemFromTheCollection) {
  UseRecorder recorder;
  World().Open(u"Essay.doc");
  World().SetUseObserver(&recorder);

  Entry(18).Get("Enabled");

  EXPECT_EQ(recorder.lines, (std::vector<std::string>{
                                "get Application CommandBars() = CommandBars",
                                "get CommandBars Item(Quillmere) = bar Quillmere",
                                "get bar Quillmere Controls() = controls of bar Quillmere",
                                "get controls of bar Quillmere Item(1) = control 1",
                                "get control 1 Controls() = controls of control 1",
                                "get controls of control 1 Item(18) = menu 18",
                                "get menu 18 Enabled() = True",
                            }));
}

TEST_F(SimObjectTest, Observer_HearsAWalk_ElementByElement) {
  UseRecorder recorder;
  World();
  const Object templates = Application().Get("Templates").ToObject();
  World().SetUseObserver(&recorder);

  Walk walk;
  Object one;
  for (bool going = walk.First(templates, one); going; going = walk.Next(one)) {
  }

  EXPECT_EQ(recorder.lines, (std::vector<std::string>{"each Templates() = template Normal.dot",
                                                      "each Templates() = template Quillmere.dot"}));
}

TEST_F(SimObjectTest, Observer_HearsWhatTheCallLeftInAReference) {
  UseRecorder recorder;
  const Object formatter = World().CreateComponent(u"StylanthAPA.Main2");
  World().SetUseObserver(&recorder);

  Object data;
  EXPECT_EQ(formatter.Call("getMetaData", Variant::ByRef(data)).ToText(), u"APA");

  ASSERT_FALSE(data.IsNothing());
  EXPECT_EQ(data.Get("Item", u"defaultOutputType").ToText(), u"citation");
  EXPECT_EQ(recorder.lines, std::vector<std::string>{"call StylanthAPA.Main2 getMetaData(object) = APA"});
}

TEST_F(SimObjectTest, Observer_HearsNamedArguments) {
  UseRecorder recorder;
  const Object tooltip = World().Properties().Get("tooltip").ToObject();
  World().SetUseObserver(&recorder);

  tooltip.Call("Show", Long{7}, u"Text", Named{"forceRedraw", true}, Named{"addBackground", false});
  tooltip.Call("Hide", Named{"forceHide", true});

  EXPECT_EQ(recorder.lines,
            (std::vector<std::string>{"call tooltip Show(7, Text, forceRedraw:=True, addBackground:=False) = Empty",
                                      "call tooltip Hide(forceHide:=True) = Empty"}));
}

TEST_F(SimObjectTest, Observer_IsTold_AfterWhatAroseInside) {
  UseRecorder recorder;
  World().Open(u"Essay.doc");
  const Object control = Control(14);
  World().TheHooks().executeControl = [&](Long) { Application().Get("Version"); };
  World().SetUseObserver(&recorder);

  control.Call("Execute");

  EXPECT_EQ(recorder.lines,
            (std::vector<std::string>{"get Application Version() = 11.0", "call control 14 Execute() = Empty"}));
}

struct BadUse {
  const char* what;
  void (*use)(const Object& application, const Object& properties);
  Long number;
};

TEST_F(SimObjectTest, BadUses_RaiseTheirNumbers) {
  const BadUse kUses[] = {
      {"no such member", [](const Object& a, const Object&) { a.Get("Colour"); }, 438},
      {"too many arguments", [](const Object& a, const Object&) { a.Get("CommandBars", u"Quillmere"); }, 450},
      {"too few arguments", [](const Object&, const Object& p) { p.Get("DocumentValue", u"Key"); }, 450},
      {"missing arguments don't count",
       [](const Object&, const Object& p) { p.Get("DocumentValue", u"Key", Variant(Missing{})); }, 450},
      {"write to what is only read", [](const Object& a, const Object&) { a.Let("Version", u"1"); }, 450},
      {"a name where none is taken",
       [](const Object& a, const Object&) {
         a.Get("Version", Named{"long", true});
       },
       448},
      {"a value of the wrong kind", [](const Object&, const Object& p) { p.Call("AddListener", u"Key", u"text"); }, 13},
      {"going through what is no collection",
       [](const Object& a, const Object&) {
         Walk walk;
         Object one;
         walk.First(a, one);
       },
       438},
  };
  for (const BadUse& use : kUses) {
    EXPECT_EQ(NumberRaised([&] { use.use(World().Application(), World().Properties()); }), use.number) << use.what;
  }
}

TEST_F(SimObjectTest, Faults_FailSoManyUses_ReadsWritesAndCallsAlike) {
  World().Open(u"Essay.doc");
  const Object document = ActiveDocument();
  World().Faults().Arm("DOCUMENT essay.doc", "saved", 2);
  World().Faults().Arm("document Essay.doc", "Save", 1, 5155);

  EXPECT_EQ(NumberRaised([&] { document.Get("Saved"); }), kDefaultFaultNumber);
  EXPECT_EQ(NumberRaised([&] { document.Let("Saved", false); }), kDefaultFaultNumber);
  EXPECT_TRUE(document.Get("Saved").ToBoolean());
  EXPECT_EQ(NumberRaised([&] { document.Call("Save"); }), 5155);
  EXPECT_EQ(NumberRaised([&] { document.Call("Save"); }), 0);
  EXPECT_FALSE(World().Faults().IsArmed());
}

TEST_F(SimObjectTest, Faults_WithAnArgument_SparesTheOthers) {
  World().Open(u"Essay.doc");
  World().Faults().Arm("controls of control 1", "Item(19)");
  World().Faults().Arm("CommandBars", "Item(drawing)");

  EXPECT_EQ(NumberRaised([&] { Entry(18); }), 0);
  EXPECT_EQ(NumberRaised([&] { Entry(19); }), kDefaultFaultNumber);
  EXPECT_EQ(NumberRaised([&] { Entry(19); }), 0);
  EXPECT_EQ(NumberRaised([&] { Bar(u"Drawing"); }), kDefaultFaultNumber);
  EXPECT_FALSE(World().Faults().IsArmed());
}

TEST_F(SimObjectTest, Faults_OnAWalk_EndIt) {
  const Object templates = Application().Get("Templates").ToObject();
  World().Faults().Arm("Templates", "each");
  Walk walk;
  Object one;
  EXPECT_EQ(NumberRaised([&] { walk.First(templates, one); }), kDefaultFaultNumber);
  EXPECT_FALSE(walk.Next(one));
}

TEST_F(SimObjectTest, ObserverHearsOfAFault) {
  UseRecorder recorder;
  World().SetUseObserver(&recorder);
  World().Faults().Arm("Application", "Version", 1, 6);
  NumberRaised([&] { Application().Get("Version"); });
  EXPECT_EQ(recorder.lines, std::vector<std::string>{"get Application Version() ! 6"});
}

TEST_F(SimObjectTest, ObjectsHeldBeyondTheWorld_AreGone) {
  World().Open(u"Essay.doc");
  const Object held[] = {Application(), ActiveDocument(), Controls(), Control(3), Entry(3), World().Properties()};
  mWorld.reset();
  for (const Object& object : held) EXPECT_EQ(NumberRaised([&] { object.Get("Name"); }), word_errors::kObjectDeleted);
  EXPECT_EQ(JournalNameOf(held[3]), "control 3");
}

TEST_F(SimObjectTest, Identities_AreStable_AndEachObjectsOwn) {
  World().Open(u"A.doc");
  const Object a = ActiveDocument();
  World().Open(u"B.doc");
  const Object b = ActiveDocument();
  EXPECT_EQ(a.Identity(), a.Identity());
  EXPECT_NE(a.Identity(), b.Identity());
  EXPECT_NE(Control(1).Identity(), Control(2).Identity());
  World().Close(u"B.doc");
  World().Open(u"B.doc");
  EXPECT_NE(ActiveDocument().Identity(), b.Identity());
}

}  // namespace
}  // namespace strandline::wordsim
