#include "tests/toolbar/input_fixture.h"

#include "drawing/ToolbarUtilities.h"

namespace strandline {

namespace {

constexpr Long kFirstLeft = 10;
constexpr Long kWidth = 36;
constexpr Long kWidthOfAd = 240;  // its picture is wide
constexpr Long kTop = 3;
constexpr Long kBottom = 37;
constexpr Long kGap = 20;
constexpr Long kBarWidth = 860;
constexpr Long kBarHeight = 40;

Long PointParameter(Point at) { return at.y * 65536 + (at.x & 0xFFFF); }

}  // namespace

void InputTest::BeginWithCells(const wordsim::Settings& settings, const std::set<Long>& gapsBefore) {
  BeginWithToolbar(settings);
  ASSERT_TRUE(world->word.ResizeBar(kBarWidth, kBarHeight));
  Long left = kFirstLeft;
  for (Long cell = 1; cell <= 16; ++cell) {
    if (gapsBefore.contains(cell)) left += kGap;
    const Long right = left + (cell == 16 ? kWidthOfAd : kWidth);
    world->word.PlaceCell(cell, {left, kTop, right, kBottom});
    left = right;
  }
  toolbar->Redraw();
  world->Settle();
  Place(Outside());
  TakeMisuses();
}

Point InputTest::MiddleOf(Long cell) {
  const Rect place = world->word.CellPlace(cell);
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void InputTest::Place(Point at) {
  const Rect bar = world->RectOf(world->Bar());
  world->desk.Host().PlacePointer({bar.left + at.x, bar.top + at.y});
}

bool InputTest::Say(Long message, Long wParam, Point at) {
  Long answer = 0;
  Boolean isKept = false;
  toolbar->mHook_BeforeMessage(message, wParam, PointParameter(at), answer, isKept);
  return isKept;
}

InputTest::Input InputTest::Held() {
  const VariableSnapshot variables = VariableSnapshot::Of(Strip());
  return {variables.Number(u"mHighlightedButton"), variables.Number(u"mButtonState"),
          variables.Number(u"mLastUpIndex")};
}

void InputTest::ExpectLook(Long highlighted, Long state) {
  Graphics& graphics = world->desk.Graphics();
  const Rect bar = world->RectOf(world->Bar());
  const Long width = bar.right - bar.left;
  const Long height = bar.bottom - bar.top;
  const Long copy = graphics.CreateCompatibleDC(Frame());
  const Long stock = graphics.SelectObject(copy, graphics.CreateCompatibleBitmap(Frame(), width, height));
  graphics.BitBlt(copy, 0, 0, width, height, Frame(), 0, 0, rop::kSrcCopy);
  if (highlighted != 0) graphics.DrawEdge(copy, world->word.CellPlace(highlighted), state == 0 ? 5 : 10, 15);
  EXPECT_TRUE(world->SurfaceOf(copy) == world->Pixels(world->Bar()))
      << "cell " << highlighted << (state == 0 ? " raised" : " sunken");
  graphics.DeleteObject(graphics.SelectObject(copy, stock));
  graphics.DeleteDC(copy);
}

void InputTest::HearInput() {
  trace().Listen(Trace::kUses | Trace::kLogs | Trace::kProcedures);
  trace().Only({"log ToggleBorder", "log HandleMouseLeft", "log HandleButtonUp", "log hasChanged", "log not in",
                "call tooltip Show", "call tooltip Hide", "call control", "Menu.ToggleFootnoteEndnoteUI",
                "Menu.Activate"});
}

std::string InputTest::ShowLine(Integer cell) {
  return "call tooltip Show(" + world->word.WindowName(world->Top()) + ", " +
         ToUtf8(ToolbarUtilities::tooltipText(cell, false)) + ", forceRedraw:=True, addBackground:=False)\n";
}

}  // namespace strandline
