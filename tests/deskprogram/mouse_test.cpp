// The user of a scene: the mouse over the strip, the menu, macros, and what another program has put on the clipboard.

#include <gtest/gtest.h>

#include <sstream>

#include "desk/pointer_picture.h"
#include "play/expectation.h"
#include "play/journal.h"
#include "tests/deskprogram/desk_runner.h"

namespace strandline::deskprogram {
namespace {

using play::Json;

// The lines of that kind, each by the text that `shown` makes of it; an empty one is left out.
template <class Shown>
std::string Lines(const DeskRun& run, const char* kind, Shown shown) {
  std::string all;
  std::istringstream stream(run.journal);
  for (std::string text; std::getline(stream, text);) {
    const Json line = Json::parse(text);
    if (line["kind"] == kind) all += shown(line);
  }
  return all;
}

// The mouse's messages as "bar 1 512 0 (x,y)|".
std::string MouseOf(const DeskRun& run) {
  return Lines(run, "message", [](const Json& line) -> std::string {
    const int number = line["msg"];
    if (number < 512 || number > 517) return "";
    const int place = line["lParam"];
    return line["window"].get<std::string>() + " " + std::to_string(number) + " " + line["wParam"].dump() + " (" +
           std::to_string(place & 0xFFFF) + "," + std::to_string(place >> 16) + ")|";
  });
}

std::string ExecutedOf(const DeskRun& run) {
  return Lines(run, "object", [](const Json& line) -> std::string {
    if (line["member"] != "Execute") return "";
    return line["object"].get<std::string>() + (line.contains("error") ? " failed|" : "|");
  });
}

std::string ResultsOf(const DeskRun& run) {
  return Lines(run, "result", [](const Json& line) { return line["value"].dump() + "|"; });
}

DeskRun Play(const std::string& commands) {
  DeskRunner runner;
  const DeskRun run = runner.Play(commands);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  return run;
}

const std::string kOpened = "start\nopen A.doc\nwait 100\n";

TEST(DeskProgram_TheMouse, IsHeardByTheBarWithPlaceAndKeys) {
  EXPECT_EQ(
      MouseOf(Play(kOpened + "mouse move 100 20\nmouse down\nmouse up\nmouse double\nmouse up\nmouse right\n"
                             "mouse move 101 21 left\nmouse move 102 22 shift left\nmouse move 103 23\nmouse leave\n")),
      "bar 1 512 0 (100,20)|bar 1 513 1 (100,20)|bar 1 514 0 (100,20)|bar 1 515 1 (100,20)|"
      "bar 1 514 0 (100,20)|bar 1 516 2 (100,20)|bar 1 517 0 (100,20)|bar 1 512 1 (101,21)|"
      "bar 1 512 5 (102,22)|bar 1 512 0 (103,23)|");
}

TEST(DeskProgram_TheMouse, KeepsItsButtonOnTheWay) {
  EXPECT_EQ(MouseOf(Play(kOpened + "mouse move 100 20\nmouse down\nmouse move 140 20\nmouse up\n")),
            "bar 1 512 0 (100,20)|bar 1 513 1 (100,20)|bar 1 512 1 (140,20)|bar 1 514 0 (140,20)|");
}

TEST(DeskProgram_TheMouseOutsideTheBar, IsHeardBySomebodyElse) {
  EXPECT_EQ(MouseOf(Play(kOpened + "mouse move 100 2000\nmouse down\nmouse up\nmouse move -1 20\n")), "");
  EXPECT_EQ(MouseOf(Play(kOpened + "cover\nclick 3\nuncover\n")), "");
}

TEST(DeskProgram_AClick, IsInTheMiddleOfTheCell) {
  const DeskRun run = Play("cell 3 200 4 31 20\n" + kOpened + "click 3\n");
  EXPECT_EQ(MouseOf(run), "bar 1 512 0 (215,14)|bar 1 513 1 (215,14)|bar 1 514 0 (215,14)|");
  EXPECT_EQ(ExecutedOf(run), "control 3|");
}

TEST(DeskProgram_TheMouseOverAnotherDocument, ReachesItsBar) {
  const std::string commands =
      "start\nopen A.doc\nopen B.doc\nwait 100\nmouse move 100 20\nmouse over A.doc\n"
      "mouse move 101 20\nhover 3\nactivate A.doc\nactivate B.doc\nmouse move 102 20\n";
  EXPECT_EQ(MouseOf(Play(commands)),
            "bar 2 512 0 (100,20)|bar 1 512 0 (101,20)|bar 1 512 0 (133,20)|"
            "bar 2 512 0 (102,20)|");
}

TEST(DeskProgram_TheProductsMacros, RunCommandsOfTheLibrary) {
  EXPECT_EQ(ResultsOf(Play(kOpened + "click 14\nclick 15\nclick 16\nclick 5\n")),
            "\"\"|\"C:\\\\Program Files\\\\Quillmere\\\\Quillmere user manual.doc\"|\"\"|");
}

TEST(DeskProgram_AMacroOfTheScene, TakesThePlaceOfTheProducts) {
  EXPECT_EQ(ResultsOf(Play(kOpened + "macro 14 call RibbonHandler\nclick 14\n")), "null|");
}

TEST(DeskProgram_AMacro, CanPumpMessages) {
  const DeskRun run = Play(kOpened + "macro 3 wait 100\nafter 50 click 5\nclick 3\nclick 6\n");
  EXPECT_EQ(ExecutedOf(run), "control 3|control 6|") << "a click inside a click does nothing";
  EXPECT_NE(run.journal.find("HandleButtonUp IsHandling"), std::string::npos);
}

TEST(DeskProgram_AMacro, CanTakeTheDocumentAway) {
  EXPECT_EQ(ExecutedOf(Play(kOpened + "open B.doc\nwait 100\nmacro 3 close B.doc\nclick 3\nstate\n"
                                      "expect state value.handles.hooks=1\n")),
            "control 3|");
}

TEST(DeskProgram_AControl, CantBeExecutedWhileADialogIsOpen) {
  const DeskRun run = Play(
      "start\nopen \"Quillmere user manual.doc\"\nwait 100\nafter 0 click 1\nexecute OpenUserManual\nclick 1\nstate\n"
      "expect state value.toolbars.0.Buttons.mIsHandling=false\n");
  EXPECT_EQ(ExecutedOf(run), "control 1 failed|control 1|");
}

TEST(DeskProgram_TheMenu, StaysOpenWhileTheMouseGoesOverTheStrip) {
  DeskRunner runner;
  const DeskRun run =
      runner.Play(kOpened +
                  "click 1\nwait 50\nshot desk open.png\nhover 6\nwait 50\nhover 1\nwait 50\nmouse leave\n"
                  "wait 300\nhover 1\nmouse leave\nwait 300\npick \"Paragraph\"\nclick 6\nmouse leave\n"
                  "shot desk closed.png\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(ExecutedOf(run), "control 1|control 6|");
}

TEST(DeskProgram_TheMenusEntries, AreRewrittenWhenItOpens) {
  const DeskRun run = Play("lumivex on\n" + kOpened + "click 1\npick \"&Turn off Lumivex\"\nclick 1\n");
  EXPECT_EQ(ExecutedOf(run), "control 1|control 1|");
}

TEST(DeskProgram_ShrinkToolbarPicked, LeavesWordsOwnBar) {
  const DeskRun run = Play(kOpened +
                           "click 1\npick \"&Shrink Toolbar\"\nwait 50\nstate\nclick 14\n"
                           "expect state value.Main2.mSmallToolbar=true value.toolbars=[]\n");
  EXPECT_EQ(ResultsOf(run), "\"\"|\"\"|") << "Word's own button runs the same macro";
  EXPECT_EQ(ExecutedOf(run), "control 1|");
}

TEST(DeskProgram_TheClipboard, IsInTheState) {
  const auto clipboardOf = [](const std::string& settings) {
    return Lines(Play(settings + "state\n"), "state",
                 [](const Json& line) { return line["value"]["clipboard"].dump(); });
  };
  EXPECT_EQ(clipboardOf(""), "{}");
  EXPECT_EQ(clipboardOf("clipboard text \"two words\"\n"), R"({"Text":"two words"})");
  EXPECT_EQ(clipboardOf("clipboard rtf {\\rtf1}\nclipboard text plain\n"),
            R"({"Text":"plain","Rich Text Format":"{\\rtf1}"})");
}

TEST(DeskProgram_TheClipboardHeld, CantBeOpenedByTheLibrary) {
  const std::string shrink = "word 9.0\nclipboard rtf {\\rtf1}\n";
  const auto opened = [](const DeskRun& run) {
    return Lines(run, "window", [](const Json& line) -> std::string {
      return line["call"] == "OpenClipboard" ? line["value"].dump() + "|" : "";
    });
  };
  const std::string commands = kOpened + "execute ShrinkToolbar\n";
  EXPECT_NE(opened(Play(shrink + commands)).find("1|"), std::string::npos);
  const std::string held = opened(Play(shrink + "clipboard held\n" + commands));
  EXPECT_NE(held, "");
  EXPECT_EQ(held.find('1'), std::string::npos) << held;
  EXPECT_NE(opened(Play(shrink + kOpened + "fail window OpenClipboard\nexecute ShrinkToolbar\n")).find("0|"),
            std::string::npos);
}

TEST(DeskProgram_ThePointer, StandsInAPictureAsFarAsItFits) {
  desk::Surface picture(6, 4);
  for (auto& pixel : picture.pixels) pixel = 0x123456;
  DrawPointer(picture, {3, 2});
  EXPECT_EQ(*picture.At(3, 2), 0u);
  EXPECT_EQ(*picture.At(4, 3), 0u);
  EXPECT_EQ(*picture.At(4, 2), 0x123456u);
  EXPECT_EQ(*picture.At(2, 3), 0x123456u);
  DrawPointer(picture, {-1, 0});
  EXPECT_EQ(*picture.At(0, 1), 0u);
  EXPECT_EQ(*picture.At(0, 3), 0xFFFFFFu);
}

}  // namespace
}  // namespace strandline::deskprogram
