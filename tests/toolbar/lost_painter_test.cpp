// A strip that lacks its painter: an error of each procedure that wants it, and nothing worse.

#include "tests/toolbar/buttons_access.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class LostPainter : public ToolbarTest {
 protected:
  void BeginWithout(bool lumivex) {
    wordsim::Settings settings;
    settings.lumivexEnabled = lumivex;
    BeginWithoutAds(settings);
    ButtonsAccess::LosePainter(Strip());
  }
};

TEST_F(LostPainter, IsAnErrorOfEachProcedureThatWantsIt) {
  BeginWithout(false);
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"91 Buttons.PaintIcons\n", [this] { Strip().PaintIcons(world->Top(), false, false); }},
      {"91 Buttons.PaintIcons\n", [this] { Strip().PaintIcons(world->Top(), false, true); }},
      {"91 Buttons.NeedToPaintBackground\n",
       [this] { EXPECT_TRUE(Strip().NeedToPaintBackground(world->Top()).IsEmpty()); }},
      {"91 Buttons.UpdateLumivexIcon\n", [this] { Strip().UpdateLumivexIcon(); }},
      {"91 Buttons.PaintIcon\n", [this] { Strip().PaintAd(false); }},
      {"91 Buttons.PaintIcon\n", [this] { Strip().ToggleBorder(0, 3, 2); }},
      {"91 Buttons.PaintIcons\n", [this] { world->Send(wm::kPaint); }},
  };
  for (const auto& [told, run] : cases) {
    run();
    EXPECT_EQ(TakeErrors(), told);
  }
}

TEST_F(LostPainter, WhereExecutionGoesOn_CostsItsStatementsAlone) {
  for (const bool lumivex : {false, true}) {
    BeginWithout(lumivex);
    world->errors.Answer(std::vector<Variant>(100, Variant(vbwProtector::kIgnore)));
    trace().Listen(Trace::kContexts | Trace::kLogs);
    trace().Only({"GetDC(bar", "ReleaseDC(bar", "log UpdateLumivexIcon"});
    toolbar->Redraw();
    std::string told = "91 Buttons.PaintIcons\n";
    for (int i = 1; i <= 16; ++i) told += "91 Buttons.PaintIcon\n";
    told += "91 Buttons.UpdateLumivexIcon\n";
    // The clean cell is painted anew, the sunken edge is drawn without a painter.
    if (!lumivex) told += "91 Buttons.PaintIcon\n";
    EXPECT_EQ(TakeErrors(), told + "91 Buttons.PaintIcons\n");
    EXPECT_EQ(trace().TakeText(), std::string("GetDC(bar 1) = dc 1\nlog UpdateLumivexIcon enabled = ") +
                                      (lumivex ? "true" : "false") +
                                      "\nGetDC(bar 1) = dc 2\nReleaseDC(bar 1, dc 2)\nReleaseDC(bar 1, dc 1)\n");
  }
}

TEST_F(LostPainter, IsLeftOutOfWhatTheToolbarHolds) {
  BeginWithout(false);
  class Modules final : public StateVisitor {
   public:
    void BeginModule(const char16_t* name) override { list += ToUtf8(name) + "\n"; }
    void EndModule() override {}
    void BeginToolbar() override {}
    void EndToolbar() override {}
    void Variable(TextView, const Variant&) override {}
    std::string list;
  };
  Modules modules;
  toolbar->ReportState(modules);
  EXPECT_EQ(modules.list, "Toolbar\nButtons\n");
}

}  // namespace
}  // namespace strandline
