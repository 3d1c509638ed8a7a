// "Ignore always" silences the statement that it was given for, and no other statement of its class.

#include "tests/toolbar/input_fixture.h"

namespace strandline {
namespace {

class IgnoredErrors : public InputTest {
 protected:
  // Runs it; the error component answers so, once, where it is asked.
  std::string Answering(Long answer, const std::function<void()>& statement) {
    world->errors.Answer({Variant(answer)});
    statement();
    world->errors.Answer({});
    return TakeErrors();
  }
  void FailTooltip() { world->word.Faults().Arm("tooltip", "Show"); }
  // The button goes up on the Lumivex cell, and the tooltip for that fails.
  void ReleaseOnLumivex() {
    MoveTo(14);
    PressOn(14);
    FailTooltip();
    ReleaseOn(14);
  }
};

TEST_F(IgnoredErrors, TheTooltipOfAHover_IgnoredAlways_LeavesThatOfAClickToBeTold) {
  BeginWithCells(Lumivex(true));
  const auto hover = [this] {
    Move(Outside());
    FailTooltip();
    MoveTo(3);
  };
  EXPECT_EQ(Answering(vbwProtector::kIgnoreAlways, hover), "1000 Buttons.HandleMouseMove\n");
  EXPECT_EQ(Answering(0, hover), "");
  EXPECT_EQ(Held().highlighted, 3);  // gone on behind the tooltip
  EXPECT_EQ(Answering(0, [this] { ReleaseOnLumivex(); }), "1000 Buttons.HandleButtonUp\n");
}

TEST_F(IgnoredErrors, TheTooltipOfAClick_IgnoredAlways_LeavesThatOfAHoverToBeTold) {
  BeginWithCells(Lumivex(true));
  EXPECT_EQ(Answering(vbwProtector::kIgnoreAlways, [this] { ReleaseOnLumivex(); }), "1000 Buttons.HandleButtonUp\n");
  EXPECT_EQ(Answering(0, [this] { ReleaseOnLumivex(); }), "");
  EXPECT_FALSE(IsHandling());
  Move(Outside());
  FailTooltip();
  EXPECT_EQ(Answering(0, [this] { MoveTo(3); }), "1000 Buttons.HandleMouseMove\n");
}

struct Statement {
  const char* told;
  std::function<void()> run;
};

// Each statement is told once, whichever were silenced before it, and never again.
TEST_F(IgnoredErrors, OfEachStatementOfAClass_AreItsOwn) {
  Begin();
  toolbar = New<Toolbar>();  // without a strip, so that the same error is everywhere
  const auto message = [this](Long number, Long wParam) {
    return [this, number, wParam] {
      Long answer = 0;
      Boolean isKept = false;
      toolbar->mHook_BeforeMessage(number, wParam, 0, answer, isKept);
    };
  };
  const char* const hook = "91 Toolbar.mHook_BeforeMessage\n";
  const Statement statements[] = {
      {"91 Toolbar.ClickOnAd\n", [this] { toolbar->ClickOnAd(); }},
      {"91 Toolbar.Redraw\n", [this] { toolbar->Redraw(); }},
      {"91 Toolbar.UpdateLumivexIcon\n", [this] { toolbar->UpdateLumivexIcon(); }},
      {"91 Toolbar.ValueChanged\n", [this] { toolbar->ValueChanged({}, u""); }},
      {"91 Toolbar.ReprimeTimerCycle\n", [this] { toolbar->ReprimeTimerCycle(); }},
      {"91 Toolbar.HandleMouseMove\n", [this] { toolbar->HandleMouseMove(false, 0, 0); }},
      {hook, message(wm::kPaint, 0)},
      {hook, message(wm::kNcMouseMove, 0)},
      {hook, message(wm::kTimer, 4096)},
      {hook, message(wm::kTimer, 7)},
      {hook, message(wm::kLButtonDown, 0)},
      {hook, message(wm::kLButtonUp, 0)},
      {hook, message(wm::kRButtonDown, 0)},
  };
  for (const Statement& each : statements) {
    SCOPED_TRACE(each.told);
    EXPECT_EQ(Answering(vbwProtector::kIgnoreAlways, each.run), each.told);
    EXPECT_EQ(Answering(0, each.run), "");
  }
}

// A maximised window and another one are forced to change by statements of their own.
TEST_F(IgnoredErrors, OfAWindowThatIsForcedToChange_AreThoseOfItsState) {
  for (const Long first : {0, 1}) {
    SCOPED_TRACE(first);
    wordsim::Settings settings;
    settings.barLate = 3400;  // each document's bar comes so late that the window is forced
    Begin(settings);
    // Both writes fail, and both failures are answered so.
    const auto start = [&](Long state, Long answer) {
      Object(world->word.Active()->WindowObject()).Let("WindowState", state);
      trace().Listen(Trace::kUses);
      const std::string window = "window " + ToUtf8(world->word.Active()->Name());
      trace().during = [&](const std::string& line) {
        if (line.starts_with("get " + window)) world->word.Faults().Arm(window, "WindowState", 2);
      };
      world->errors.Answer({Variant(answer), Variant(answer)});
      toolbar = New<Toolbar>();
      toolbar->Initialize(world->Top());
      trace().Listen(0);
      trace().during = nullptr;
      EXPECT_FALSE(world->word.Faults().IsArmed());
      toolbar = nullptr;
      return TakeErrors();
    };
    const std::string told = "1000 Toolbar.Initialize\n1000 Toolbar.Initialize\n";
    EXPECT_EQ(start(first, vbwProtector::kIgnoreAlways), told);
    world->OpenInWord(u"Second.doc");
    EXPECT_EQ(start(first, vbwProtector::kIgnore), "");
    world->OpenInWord(u"Third.doc");
    EXPECT_EQ(start(1 - first, vbwProtector::kIgnore), told);
  }
}

}  // namespace
}  // namespace strandline
