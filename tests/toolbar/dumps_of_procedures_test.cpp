// The dumps of the toolbar's procedures, whole: parameters, locals, and the variables of the object.

#include <algorithm>

#include "tests/toolbar/buttons_access.h"
#include "tests/toolbar/fake_ads.h"
#include "tests/toolbar/input_fixture.h"

namespace strandline {

namespace {

class DumpOfAProcedure : public InputTest {
 protected:
  static constexpr Long kDump = vbwProtector::kDump;

  // What the first dump tells up to the variables that all dumps end with: "name = value", and the banners.
  std::string Dump() {
    const auto& log = world->errors.log;
    std::string text;
    for (auto line = std::find(log.begin(), log.end(), "vbwOpenDumpFile()"); line != log.end(); ++line) {
      if (line->find("GLOBAL LEVEL") != std::string::npos) break;
      if (line->find("LOCAL LEVEL") != std::string::npos) text += "-- locals\n";
      if (line->find("MODULE LEVEL") != std::string::npos) text += "-- object\n";
      const std::string call = "vbwReportVariable('";
      if (!line->starts_with(call)) continue;
      const std::size_t quote = line->find("', ", call.size());
      const std::string end = ", 0)";
      EXPECT_TRUE(line->ends_with(end)) << *line;
      text += line->substr(call.size(), quote - call.size()) + " = " +
              line->substr(quote + 3, line->size() - quote - 3 - end.size()) + "\n";
    }
    return text;
  }
  static std::string Says(const char* name, Long value) {
    return std::string(name) + " = " + std::to_string(value) + "\n";
  }
  static std::string RectSays(const std::string& name, const Rect& r) {
    return Says((name + ".left").c_str(), r.left) + Says((name + ".top").c_str(), r.top) +
           Says((name + ".right").c_str(), r.right) + Says((name + ".bottom").c_str(), r.bottom);
  }
  // The strip's variables, from the places of Word's controls.
  std::string StripSays(const Input& input, Long lumivex, bool hasPainter, bool hasAdvert) {
    std::string text = "-- object\nmButtons = ' (User Defined Type Array)'\n";
    Rect all = world->word.CellPlace(1);
    for (Long i = 1; i <= 16; ++i) {
      const Rect place = world->word.CellPlace(i);
      const std::string name = "mButtons(" + std::to_string(i - 1) + ")";
      text += name + ".isPriorityDropped = False\n" + RectSays(name, place);
      all = {std::min(all.left, place.left), std::min(all.top, place.top), std::max(all.right, place.right),
             std::max(all.bottom, place.bottom)};
    }
    text += Says("mHighlightedButton", input.highlighted) + Says("mButtonState", input.state) +
            Says("mHwnd", world->Bar()) + Says("mLastUpIndex", input.lastUp) + RectSays("mBoundingRect", all) +
            "mIsHandling = False\n" + Says("mLumivexButtonState", lumivex);
    text += std::string("mPainter = ") + (hasPainter ? "object" : "Nothing") +
            "\nmMenu = object\nmAdvert = " + (hasAdvert ? "object" : "Nothing") + "\n";
    return text;
  }
  std::string ToolbarSays(bool isQuitting, Long docId, bool isAlive) {
    return "-- object\n" + Says("mParentHwnd", world->Top()) + Says("mHwnd", world->Bar()) +
           "mQuitting = " + (isQuitting ? "True" : "False") + "\n" + Says("mDocId", docId) +
           (isAlive ? "mHook = '(object)'\nmButtons = object\n" : "mHook = Nothing\nmButtons = Nothing\n");
  }
};

// The paint after a size change, while which the toolbar ends: its hook is gone, the strip that it found isn't.
TEST_F(DumpOfAProcedure, OfTheHooksEvent) {
  BeginWithToolbar(WordOf(u"10.0"));
  const Long docId = ToolbarNumber(u"mDocId");
  world->Send(wm::kSize);
  world->Send(wm::kPaint);
  trace().Listen(Trace::kUses);
  trace().during = [&](const std::string& line) {
    if (!line.starts_with("get Application Version")) return;
    trace().during = nullptr;
    trace().Listen(0);
    toolbar->Terminate();
  };
  world->errors.Answer({Variant(kDump)});
  Say(wm::kPaint, 0, {});
  EXPECT_EQ(Dump(),
            "-- locals\nuMsg = 15\nwParam = 0\nlParam = 0\nretValue = 0\nCancel = True\n"
            "processCount = 0\nforceUpdate = True\nnewHwnd = 0\nbuttons = object\n" +
                ToolbarSays(true, docId, false));
  EXPECT_EQ(TakeErrors(), "91 Toolbar.mHook_BeforeMessage\n-1 Toolbar.mHook_BeforeMessage\n");
}

TEST_F(DumpOfAProcedure, OfAMoveOnTheToolbar) {
  BeginWithToolbar();
  const Long docId = ToolbarNumber(u"mDocId");
  toolbar->Terminate();
  world->errors.Answer({Variant(kDump)});
  toolbar->HandleMouseMove(true, 7, -9);
  EXPECT_EQ(Dump(), "-- locals\nlbuttonDown = True\nx = 7\ny = -9\nhasChangedParentWindows = False\nepoch = 0\n" +
                        ToolbarSays(true, docId, false));
  TakeErrors();
}

TEST_F(DumpOfAProcedure, OfTheStart) {
  wordsim::Settings settings;
  settings.barLate = 3000;
  Begin(settings);
  trace().Listen(Trace::kUses);
  trace().during = [&](const std::string& line) {
    if (line.starts_with("get window")) world->word.Faults().Arm("window Thesis.doc", "WindowState");
  };
  world->errors.Answer({Variant(kDump)});
  toolbar = New<Toolbar>();
  toolbar->Initialize(world->Top());
  trace().during = nullptr;
  EXPECT_EQ(Dump(), "-- locals\n" + Says("parentHwnd", world->Top()) + "time = 3000\n" + ToolbarSays(false, 0, false));
  TakeErrors();
}

TEST_F(DumpOfAProcedure, OfAMoveOnTheStrip) {
  BeginWithCells();
  MoveTo(3);
  world->word.Faults().Arm("tooltip", "Show");
  world->errors.Answer({Variant(kDump)});
  const Point at = MiddleOf(4);
  Strip().HandleMouseMove(true, at.x, at.y, false);
  EXPECT_EQ(Dump(), "-- locals\nlbuttonDown = True\n" + Says("x", at.x) + Says("y", at.y) +
                        "hasChangedParentWindows = False\n"
                        "newHighlightedButton = 4\noldHighlightIndex = 0\nhdc = 0\n" +
                        StripSays({3, 0, 0}, 2, true, true));
  EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleMouseMove\n-1 Buttons.HandleMouseMove\n");
}

// A frame of a strip without its painter, gone on behind each failure up to the last statement.
TEST_F(DumpOfAProcedure, OfAFrame) {
  BeginWithoutAds(Lumivex(true));
  ButtonsAccess::LosePainter(Strip());
  std::vector<Variant> answers(1 + 16 + 1, Variant(vbwProtector::kIgnore));  // the background, the icons, the edge
  answers.push_back(Variant(kDump));
  world->errors.Answer(answers);
  trace().Listen(Trace::kContexts);
  Long hdc = 0;
  trace().during = [&](const std::string& line) {
    if (hdc != 0 || !line.starts_with("GetDC")) return;
    for (const desk::LiveObject& each : world->desk.Objects().Lost()) {
      if (each.kind == desk::ObjectKind::kContext) hdc = each.handle;  // the newest is the last
    }
  };
  Strip().PaintIcons(world->Top(), false, true);
  trace().during = nullptr;
  EXPECT_EQ(Dump(), "-- locals\n" + Says("activeDocHwnd", world->Top()) + "updateRects = False\nforceRepaint = True\n" +
                        Says("hdc", hdc) + "i = 17\n" + StripSays({0, 0, 0}, 1, false, false));
  TakeErrors();
}

// An ad's picture that is too wide for the painter.
TEST_F(DumpOfAProcedure, OfAnIcon) {
  Begin();
  const Ref<FakePanel> panel = New<FakePanel>(trace());
  ToolbarUtilities::variables.adFactory = New<FakeAdFactory>(trace(), panel);
  MakeToolbar();
  panel->picture = 77;
  panel->width = 40000;
  panel->height = 30;
  world->errors.Answer({Variant(kDump)});
  Boolean erase = true;
  Strip().PaintIcon(16, 5, erase);
  EXPECT_EQ(Dump(),
            "-- locals\nindex = 16\ndestHdc = 5\nforceEraseBackground = True\n"
            "pic = no picture\nhandle = 77\nwidth = 40000\nheight = 30\n" +
                StripSays({0, 0, 0}, 2, true, true));
  EXPECT_EQ(TakeErrors(), "6 Buttons.PaintIcon\n-1 Buttons.PaintIcon\n");
}

TEST_F(DumpOfAProcedure, OfAnEntryOfTheMenu) {
  BeginWithToolbar();
  world->word.Faults().Arm("menu 1", "caption");
  world->errors.Answer({Variant(kDump)});
  New<Menu>()->Activate();
  EXPECT_EQ(Dump(),
            "-- locals\ntargetStr = 'Open User &Manual'\noldStr = '&Find...'\ncontrol = object\n"
            "-- object\n");
  EXPECT_EQ(TakeErrors(), "1000 Menu.setMenuItemCaption\n-1 Menu.setMenuItemCaption\n");
}

}  // namespace
}  // namespace strandline
