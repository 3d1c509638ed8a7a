// The tooltip of a cell: how the strip asks for its text and shows it.

#include "drawing/ToolbarUtilities.h"
#include "tests/support/scripted_object.h"
#include "tests/toolbar/input_fixture.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {
namespace {

class CellTooltip : public InputTest {};

TEST_F(CellTooltip, IsAskedForWithTheObjectFirst_ThenTheWindow_ThenTheText) {
  BeginWithCells();
  trace().Listen(Trace::kUses | Trace::kWindows);
  trace().Only({"get properties tooltip", "get Application Documents", "GetActiveWindow", "call tooltip"});
  MoveTo(5);
  const Trace::Lines lines = trace().Take();
  // The first question for the window is the hook's own, whether the document's window is still in front.
  const std::string window = "get Application Documents = Documents\nGetActiveWindow() = top 1\n";
  EXPECT_EQ(AsText(lines), window + "get properties tooltip = tooltip\n" + window +
                               "get properties tooltip = tooltip\n" + lines[lines.size() - 2] + "\n" + ShowLine(5));
  EXPECT_TRUE(lines[lines.size() - 2].starts_with("call tooltip TooltipBackground("));
}

// The text is shown as the tooltip has decorated it, and nothing is added to it.
TEST_F(CellTooltip, ShowsItsTextDecoratedOnce) {
  BeginWithCells();
  std::string shown;
  const auto tooltip = New<ScriptedObject>([&](Use, Name member, const Arguments& arguments) -> Variant {
    if (member == Name("TooltipBackground")) return Concat({u"<", arguments.positional[0].ToText(), u">"});
    if (member == Name("Show")) shown += ToUtf8(arguments.positional[1].ToText()) + "\n";
    return {};
  });
  CommonPropertyFunctions::properties(Object(New<ScriptedObject>([tooltip](Use, Name member, const Arguments&) {
    return member == Name("tooltip") ? Variant(Object(tooltip)) : Variant();
  })));
  MoveTo(5);
  ClickOn(14);
  const std::string fifth = ToUtf8(ToolbarUtilities::tooltipText(5, false));
  const std::string lumivex = ToUtf8(ToolbarUtilities::tooltipText(14, false));
  EXPECT_TRUE(lumivex.starts_with("<") && !lumivex.starts_with("<<")) << lumivex;
  EXPECT_EQ(shown, fifth + "\n" + lumivex + "\n" + lumivex + "\n");
  CommonPropertyFunctions::properties(world->word.Properties());
}

}  // namespace
}  // namespace strandline
