// The order in which the content tables come and go, and what the product's tooltip makes of a text.

#include "tests/drawing/content_fixture.h"
#include "tests/support/scripted_object.h"

namespace strandline {
namespace {

using namespace ToolbarUtilities;

// What the module holds at a moment.
std::string Held() {
  std::string held;
  if (variables.adFactory) held += " factory";
  if (!variables.productState.IsNothing()) held += " state";
  if (variables.converter) held += " converter";
  if (variables.mEnableList(16)) held += " cells";
  if (!variables.mTooltipText(16).IsEmpty()) held += " texts";
  if (!variables.mProductName.IsEmpty()) held += " name";
  if (variables.mCachedBuffer != 0) held += " buffer";
  return held;
}

class ContentOrder : public ContentTest {
 protected:
  class WatchedFactory final : public AdvertisementsFactoryInterface {
   public:
    WatchedFactory() { moments.push_back("factory made, held:" + Held()); }
    void Initialize(const Object&) override { moments.push_back("factory initialized, held:" + Held()); }
    Ref<AdPanel> Create(Long, Long, Long, Long, Long) override { return nullptr; }
    void AfterPaint(Long, Long, Long, Long, Long) override {}
    void ReportVariables(Reporter&) const override {}

   private:
    void Terminated() override { moments.push_back("factory gone, held:" + Held()); }
  };

  ContentOrder() {
    Load(FloorOptions{});
    moments.clear();
    makeAdFactory = [] { return Ref<AdvertisementsFactoryInterface>(New<WatchedFactory>()); };
    Initialize(floor->word.Properties(),
               New<ScriptedObject>([](Use, Name, const Arguments&) { return Variant(); },
                                   [] { moments.push_back("state gone, held:" + Held()); }),
               u"Quillmere");
  }

  static inline Lines moments;
};

TEST_F(ContentOrder, Initialize_MakesAndInitializesTheFactoryBeforeTheConverterAndTheTables) {
  EXPECT_EQ(Listed(moments),
            Listed({"factory made, held: state name", "factory initialized, held: factory state name"}));
  EXPECT_EQ(Held(), " factory state converter cells texts name");
}

TEST_F(ContentOrder, Terminate_LetsGoOfFactoryStateConverterAndBufferInThisOrder) {
  const Picture picture = floor->MakePicture(4, 4, kRed);
  const Long conversion = variables.converter->IPictureDispToHdc(picture);
  const Long buffer = floor->desk.Graphics().CreateCompatibleDC(0);
  const Long displaced = floor->desk.Graphics().SelectObject(buffer, floor->MakeBitmap(40, 20, kRed));
  cachedBuffer(40, 20, displaced, buffer);
  floor->calls.Name(conversion, "conversion");
  floor->calls.Name(buffer, "buffer");
  floor->calls.Clear();
  moments.clear();
  Terminate();
  EXPECT_EQ(Listed(moments), Listed({"factory gone, held: state converter cells texts name buffer",
                                     "state gone, held: converter cells texts name buffer"}));
  EXPECT_EQ(Listed(floor->calls.CallsOf("DeleteDC")), Listed({"DeleteDC(conversion)", "DeleteDC(buffer)"}));
  EXPECT_EQ(Held(), " cells texts name");
}

class DecoratedTooltip : public ContentTest {
 protected:
  // The product's values, but for a tooltip that puts brackets around each text.
  DecoratedTooltip() {
    const Object decorating = New<ScriptedObject>([](Use, Name, const Arguments& arguments) {
      return Variant(Concat({u"[", arguments.positional[0].ToText(), u"]"}));
    });
    const Object real = floor->word.Properties();
    CommonPropertyFunctions::properties(
        New<ScriptedObject>([real, decorating](Use use, Name member, const Arguments& arguments) {
          return member == Name("tooltip") ? Variant(decorating) : real.Target()->Invoke(use, member, arguments);
        }));
  }
};

TEST_F(DecoratedTooltip, TooltipText_InFull_IsWhatTheProductMakesOfTheText) {
  EXPECT_EQ(tooltipText(1, false), u"[Click for menu options...]");
  EXPECT_EQ(tooltipText(4, false), u"[Paste Citation / Reference entry... (Alt+P)]");
  EXPECT_EQ(tooltipText(15, false), u"[Open User Manual]");
  floor->word.Open(kManual);
  EXPECT_EQ(tooltipText(15, false), u"[Find... (Ctrl+F)]");
}

TEST_F(DecoratedTooltip, TooltipText_InTheReducedForm_IsTheModulesOwn) {
  EXPECT_EQ(tooltipText(1, true), u"Click for menu options...");
  EXPECT_EQ(tooltipText(15, true), u"Open User Manual");
  floor->word.Open(kManual);
  EXPECT_EQ(tooltipText(15, true), u"Open User Manual");
}

}  // namespace
}  // namespace strandline
