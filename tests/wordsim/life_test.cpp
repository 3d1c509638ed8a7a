// What of Word and the product takes part in the strip's life beside its bar.

#include "tests/wordsim/world_fixture.h"
#include "wordsim/components.h"

namespace strandline::wordsim {
namespace {

class Life : public WorldTest {
 protected:
  Object ProductTemplate() {
    return Application().Get("Templates").ToObject().Get("Item", u"Quillmere.dot").ToObject();
  }
  // Of the middle of the paper.
  std::vector<std::uint32_t> Paper() {
    Wait(10);
    const desk::Surface& screen = mDesk.Screen();
    std::vector<std::uint32_t> row;
    for (int x = 0; x < screen.width; ++x) row.push_back(*screen.At(x, 400));
    return row;
  }
};

TEST_F(Life, AChangedBar_ChangesItsTemplate) {
  World().Open(u"A.doc");
  const std::function<void()> kChanges[] = {
      [&] { Bar().Let("Visible", false); },
      [&] { Bar().Let("Position", Long{3}); },
      [&] { Control(2).Let("Height", Long{22}); },
      [&] { Control(14).Let("State", Long{-1}); },
  };
  for (const auto& change : kChanges) {
    ProductTemplate().Let("Saved", true);
    EXPECT_TRUE(ProductTemplate().Get("Saved").ToBoolean());
    change();
    EXPECT_FALSE(ProductTemplate().Get("Saved").ToBoolean());
  }
  EXPECT_TRUE(Application().Get("Templates").ToObject().Get("Item", Long{1}).ToObject().Get("Saved").ToBoolean());
}

TEST_F(Life, ADialog_IsOpenWhileItShows) {
  World().Open(u"A.doc");
  std::vector<bool> open;
  World().TheHooks().showDialog = [&](Long) { open.push_back(World().IsDialogOpen()); };
  Application().Get("Dialogs").ToObject().Get("Item", Long{112}).ToObject().Call("Show");
  EXPECT_EQ(open, std::vector<bool>{true});
  EXPECT_FALSE(World().IsDialogOpen());
  World().TheHooks().showDialog = [](Long) { Raise(errors::kInvalidArgument); };
  EXPECT_NE(NumberRaised([&] { World().ShowDialog(112); }), 0);
  EXPECT_FALSE(World().IsDialogOpen());
}

TEST_F(Life, EachView_LooksDifferent) {
  World().Open(u"A.doc");
  const auto page = Paper();
  const Object view = Application().Get("ActiveWindow").ToObject().Get("View").ToObject();
  view.Let("ReadingLayout", true);
  const auto reading = Paper();
  ActiveDocument().Call("PrintPreview");
  const auto preview = Paper();
  EXPECT_NE(page, reading);
  EXPECT_NE(page, preview);
  EXPECT_NE(reading, preview);
  ActiveDocument().Call("ClosePrintPreview");
  EXPECT_EQ(Paper(), reading);
  view.Let("ReadingLayout", false);
  EXPECT_EQ(Paper(), page);
}

TEST_F(Life, TheNextDocumentInAWindow_StandsInItsOwnView) {
  World().Open(u"A.doc");
  const auto page = Paper();
  ActiveDocument().Call("PrintPreview");
  World().Close(u"A.doc");
  World().Open(u"B.doc");
  EXPECT_EQ(Paper(), page);
  OpenFlags flags;
  flags.reading = true;
  World().Close(u"B.doc");
  World().Open(u"A.doc", flags);
  EXPECT_NE(Paper(), page);
}

// What the ribbon component is given: it answers with so many bytes, or fails.
class Relay final : public Dispatch {
 public:
  explicit Relay(Long bytes) : mBytes(bytes) {}
  Variant Invoke(Use, Name member, const Arguments& arguments) override {
    asked = std::string(member.Text()) + " " + ToUtf8(arguments.positional[0].ToText());
    if (mBytes < 0) Raise(errors::kInvalidArgument);
    return Array<Byte>(1, mBytes);
  }
  Long Identity() const override { return 1; }
  std::string asked;

 private:
  Long mBytes;
};

TEST_F(Life, TheRibbon_AsksForTheIconWhileItIsInitialised) {
  BeginVersion(u"12.0");
  const Object ribbon = World().CreateComponent(u"RibbonHandler.Main2");
  const struct {
    Long bytes;
    Long size;
  } kCases[] = {{7, 7}, {0, 0}, {-1, 0}};
  for (const auto& each : kCases) {
    const auto relay = New<Relay>(each.bytes);
    ribbon.Call("Initialize", Object(relay), u"Quillmere");
    EXPECT_EQ(relay->asked, "getToolbarIconBits 102");
    EXPECT_EQ(World().TheProduct().Ribbon()->IconSize(), each.size);
  }
  ribbon.Call("Initialize", Object(), u"Quillmere");
  EXPECT_EQ(World().TheProduct().Ribbon()->IconSize(), 0);
}

}  // namespace
}  // namespace strandline::wordsim
