#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "play/expectation.h"
#include "play/journal.h"
#include "tests/deskprogram/desk_runner.h"

namespace strandline::deskprogram {
namespace {

using play::Json;
using play::MatchesPattern;

std::vector<Json> LinesOf(const std::string& journal) {
  std::vector<Json> lines;
  std::istringstream stream(journal);
  for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
  return lines;
}

std::string KindsOf(const std::string& journal) {
  std::string kinds;
  for (const Json& line : LinesOf(journal)) kinds += line["kind"].get<std::string>() + " ";
  return kinds;
}

std::size_t CountLines(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(DeskProgram_AWrongScene, GivesOneLineAndExitCode2) {
  const struct {
    const char* scene;
    const char* error;  // a pattern
  } kCases[] = {
      {"juggle 3\n", "a.scene:1: unknown command \"juggle\"; known commands are: *"},
      {"open A.doc\n", "a.scene:1: \"open NAME [icon] *\" needs start before it"},
      {"start\nstart\n", "a.scene:2: a second start; one is right"},
      {"start\ndpi 96\n", "a.scene:2: \"dpi N\" comes too late; it must stand before start"},
      {"start\nquit\nquit now\n", "a.scene:3: \"now\" is too much; usage: quit"},
      {"call Quit\n", "a.scene:1: \"call OPERATION [ARG...]\" needs start before it"},
      {"start\ncall Leave\n", "a.scene:2: Main2 has no operation \"Leave\"; it has: Initialize PRODUCTNAME, *"},
      {"start\ncall quit 1\n", "a.scene:2: \"1\" is too much; usage: call Quit"},
      {"start\ncall HandleCreateDocument\n",
       "a.scene:2: an argument is missing; usage: call HandleCreateDocument true|false"},
      {"start\ncall HandleCreateDocument maybe\n",
       "a.scene:2: \"maybe\" is neither true, false nor a number; usage: call HandleCreateDocument true|false"},
      {"start\ncall HandleCloseDocument X.doc\n",
       "a.scene:2: no document \"X.doc\" is open; usage: call HandleCloseDocument NAME"},
      {"execute Quit\n", "a.scene:1: \"execute COMMAND\" needs start before it"},
      {"start\nribbon run Quit\n", "a.scene:2: no ribbon component lives; it does from start to quit in *"},
      {"start\nribbon icon 40000\n", "a.scene:2: INDEX must be a whole number from -32768 to 32767, *"},
      {"start\nactivate B.doc\n", "a.scene:2: no document \"B.doc\" is open; none is"},
      {"start\nopen A.doc\nopen B.doc\nclose C.doc\n",
       "a.scene:4: no document \"C.doc\" is open; open are: B.doc, A.doc"},
      {"start\nopen A.doc\nopen a.doc\n", "a.scene:3: \"a.doc\" is open already; activate it, or open another one"},
      {"bookmark X on\n", "a.scene:1: no document is open; open one first"},
      {"value document K T\n", "a.scene:1: no document is open; open one first"},
      {"start\nresize 10 10\n", "a.scene:2: the active document has no window of the bar; *"},
      {"word 12.0\nstart\nopen A.docx\nshot a.png\n", "a.scene:4: the active document has no window of the bar; *"},
      {"controls 3\ndrop 4 on\n", "a.scene:2: the bar has no control 4; set their number with controls N"},
      {"cell 17 0 0 1 1\n", "a.scene:1: the bar has no control 17; set their number with controls N"},
      {"fail window Beep\n", "a.scene:1: \"Beep\" is no service that can fail; those are: *GetDC*SetTimer*"},
      {"fail window CreateObject\n", "a.scene:1: \"CreateObject\" is no service that can fail; those are: *"},
      {"hover 3\n", "a.scene:1: the active document has no window of the bar; *"},
      {"mouse move 3 4\n", "a.scene:1: the active document has no window of the bar; *"},
      {"mouse over A.doc\n", "a.scene:1: no document \"A.doc\" is open; none is"},
      {"start\nopen A.doc\nopen B.doc\nmouse over A.doc\nvanish A.doc\nclick 3\n",
       "a.scene:6: the document \"A.doc\" is gone; say where the mouse is with mouse over"},
      {"start\nopen A.doc\nclick 17\n", "a.scene:3: the bar has no control 17; set their number with controls N"},
      {"cell 3 9 9 0 0\nstart\nopen A.doc\nhover 3\n",
       "a.scene:4: control 3 has no place on the bar; give it one with cell"},
      {"pick Nothing\n", "a.scene:1: no entry of the menu that can be picked is called \"Nothing\"; those are: *"},
      {"controls 0\npick Nothing\n", "a.scene:2: the bar has no menu; give it controls with controls N"},
      {"start\nopen A.doc\nmacro 3 vanish B.doc\nwait 100\nclick 3\n",
       "a.scene:3: no document \"B.doc\" is open; open are: A.doc"},
      {"start\nexecute ShrinkToolbar\nopen A.doc\nwait 50\nmacro 3 click 3\nclick 3\n",
       "a.scene:5: macros run inside each other without end; *"},
      {"start\nclipboard text late\n",
       "a.scene:2: \"clipboard rtf|text TEXT\" comes too late; it must stand before start"},
      {"then log\n", "a.scene:1: then has nothing to come after; put an expect before it"},
      {"start\nopen A.doc\nafter 10 close B.doc\nwait 20\n",
       "a.scene:3: no document \"B.doc\" is open; open are: A.doc"},
      {"start\nopen A.doc\nminimise A.doc\nshot a.png\n", "a.scene:4: the bar's window isn't shown; *"},
      {"start\nfoo\x1b[31m\n", "a.scene:2: unknown command \"foo?[31m\"; known commands are: *"},
      {"start\nopen A.doc\nshot nowhere\n", "a.scene:3: FILE.png must be a file name that ends with .png, *"},
      {"expect log\nthen box\njuggle 1\n", "a.scene:3: unknown command*"},
  };
  DeskRunner runner;
  for (const auto& each : kCases) {
    const DeskRun run = runner.Play(each.scene);
    EXPECT_EQ(run.exitCode, 2) << each.scene;
    EXPECT_EQ(CountLines(run.errors), 1u) << run.errors;
    EXPECT_TRUE(MatchesPattern(std::string(each.error) + "\n", run.errors)) << run.errors << each.error;
  }
}

TEST(DeskProgram_AWrongCommandLine, GivesOneLineAndExitCode2) {
  const struct {
    const char* words;
    const char* error;  // a pattern
  } kCases[] = {
      {"", "strandline-desk: no command is given; usage: strandline-desk play SCENE [*"},
      {"play", "strandline-desk: no scene is given; usage: *"},
      {"play a.scene --quick", "strandline-desk: unknown option \"--quick\"; usage: *"},
      {"play missing.scene", "missing.scene:0: can't read the scene (No such file or directory); *"},
      {"play .", ".:0: can't read the scene (Is a directory); *"},
      {"play a.scene --journal missing/j.jsonl",
       "strandline-desk: can't write the journal missing/j.jsonl (No such file or directory); *"},
      {"play a.scene --calls missing/c.jsonl",
       "strandline-desk: can't write the list of calls missing/c.jsonl (No such file or directory); *"},
      {"play a.scene --journal /dev/full", "strandline-desk: the journal /dev/full couldn't be written whole; *"},
  };
  DeskRunner runner;
  runner.Play("start\n");
  for (const auto& each : kCases) {
    const DeskRun run = runner.Run(each.words);
    EXPECT_EQ(run.exitCode, 2) << each.words;
    EXPECT_TRUE(MatchesPattern(std::string(each.error) + "\n", run.errors)) << run.errors;
    EXPECT_EQ(CountLines(run.errors), 1u) << run.errors;
  }
}

TEST(DeskProgram_NothingBehindAWrongCommand, IsPlayed) {
  DeskRunner runner;
  const DeskRun run = runner.Play("mark\nstate\nactivate B.doc\nstate\n");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(KindsOf(run.journal), "state ");
}

TEST(DeskProgram_FailedExpectations, AreAllNamedAndGiveExitCode1) {
  DeskRunner runner;
  const DeskRun run = runner.Play(
      "expect 0 object\n"
      "expect log text=never\n"
      "start\n"
      "expect object object=application member=version\n"
      "then object member=nowhere\n"
      "expect 0 object member=Version\n"
      "expect pixel 0 0 000000\n");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(MatchesPattern(
      "a.scene:2: expected log text=never, found 0 lines (0 of that kind)\n"
      "a.scene:5: expected object member=nowhere behind the line found before, found none (* of that kind); the "
      "nearest: {*\n"
      "a.scene:6: expected 0 object member=Version, found * lines (* of that kind)*\n"
      "a.scene:7: expected pixel 0 0 000000, found no window of the bar\n",
      run.errors))
      << run.errors;
  EXPECT_EQ(CountLines(run.errors), 4u);
}

TEST(DeskProgram_AWaitForNothing, IsStuckAndSaysWhere) {
  DeskRunner runner;
  const DeskRun run = runner.Play("fail window SetTimer 1000\nbar late 5000\nexpect box\nstart\nopen A.doc\nstate\n");
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_TRUE(MatchesPattern("a.scene:3: expected box*\na.scene:5: stuck: GetMessageA waits*\n", run.errors))
      << run.errors;
  EXPECT_EQ(CountLines(run.errors), 2u);
  EXPECT_NE(run.journal.find("SetTimer"), std::string::npos);
  EXPECT_EQ(KindsOf(run.journal).find("state"), std::string::npos);
}

TEST(DeskProgram_ASceneThatHolds, GivesTheSameBytesEachTime) {
  const std::string scene =
      "word 10.0\nlumivex on\nstart\nopen A.doc\nwait 300\nopen B.doc mail\nwait 300\nactivate A.doc\nresize 400 40\n"
      "wait 100\nstate\nshot a.png\nshot desk pictures/b.png\nclose A.doc\nclose B.doc\n";
  DeskRunner runner;
  const DeskRun first = runner.Play(scene, "--journal one/../j1.jsonl --out out1");
  EXPECT_EQ(first.exitCode, 2);  // there is no folder "one"
  ASSERT_EQ(runner.Play(scene, "--journal j1.jsonl --out out1").exitCode, 0);
  const DeskRun again = runner.Play(scene, "--out out2");
  ASSERT_EQ(again.exitCode, 0);
  EXPECT_EQ(again.errors, "");
  EXPECT_EQ(runner.ReadFile("j1.jsonl"), again.journal);
  for (const char* picture : {"a.png", "pictures/b.png"}) {
    const std::string bytes = runner.ReadFile(std::string("out1/") + picture);
    EXPECT_GT(bytes.size(), 100u);
    EXPECT_TRUE(bytes == runner.ReadFile(std::string("out2/") + picture));
  }
}

TEST(DeskProgram_Pictures, GoBesideTheJournal) {
  DeskRunner runner;
  runner.Play("start\nopen A.doc\nshot a.png\n", "--out made");
  ASSERT_TRUE(runner.HasFile("made/a.png"));
  EXPECT_EQ(runner.Play("start\nopen A.doc\nshot b.png\n", "--journal made/j.jsonl").exitCode, 0);
  EXPECT_TRUE(runner.HasFile("made/b.png"));
  EXPECT_EQ(runner.Play("start\nopen A.doc\nshot c.png\n").exitCode, 0);
  EXPECT_TRUE(runner.HasFile("c.png"));
}

TEST(DeskProgram_ASceneWithoutQuit, QuitsByItself) {
  DeskRunner runner;
  const DeskRun without = runner.Play("start\nopen A.doc\n");
  const DeskRun with = runner.Play("start\nopen A.doc\nquit\n");
  EXPECT_EQ(without.exitCode, 0);
  EXPECT_EQ(without.journal, with.journal);
  EXPECT_NE(with.journal.find("\"text\":\"Quit\""), std::string::npos);
}

TEST(DeskProgram_AfterQuit, TheObjectStillAnswers) {
  DeskRunner runner;
  const DeskRun run = runner.Play("start\nopen A.doc\nquit\nmark\nclose A.doc\nexpect 1 result of=close\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
}

TEST(DeskProgram_AnEmptyScene, Holds) {
  DeskRunner runner;
  const DeskRun run = runner.Play("");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.journal + run.errors, "");
}

TEST(DeskProgram_EveryLine, BeginsWithTimeAndKind) {
  DeskRunner runner;
  const DeskRun run = runner.Play("start\nopen A.doc\nwait 250\nstate\ncall HandleCloseDocument A.doc\nclose A.doc\n");
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  std::int64_t last = 0;
  for (const Json& line : LinesOf(run.journal)) {
    ASSERT_GE(line.size(), 3u);
    EXPECT_EQ(line.begin().key(), "at");
    EXPECT_EQ((++line.begin()).key(), "kind");
    EXPECT_GE(line["at"].get<std::int64_t>(), last);
    last = line["at"].get<std::int64_t>();
  }
  EXPECT_EQ(last, 250);
}

TEST(DeskProgram_AState, TellsModulesToolbarsAndHandles) {
  DeskRunner runner;
  const DeskRun run = runner.Play(
      "state\nexpect state value.toolbars=[] value.handles.hooks=0\nmark\n"
      "start\nopen A.doc\nstate\n"
      "expect state value.Main2.mSmallToolbar=false value.handles.hooks=1 \"value.toolbars.0.Toolbar.mHwnd=bar 1\" "
      "\"value.toolbars.0.Toolbar.mParentHwnd=top 1\" value.toolbars.0.Buttons.mHwnd=bar* value.toolbars.1=*\n");
  EXPECT_EQ(run.exitCode, 1);  // there is one toolbar
  EXPECT_EQ(CountLines(run.errors), 1u) << run.errors;
  const DeskRun right = runner.Play(
      "start\nopen A.doc\nstate\n"
      "expect state value.Main2.mSmallToolbar=false value.handles.hooks=1 \"value.toolbars.0.Toolbar.mHwnd=bar 1\" "
      "\"value.toolbars.0.Toolbar.mParentHwnd=top 1\" \"value.toolbars.0.Buttons.mHwnd=bar 1\"\n"
      "expect 0 state value.toolbars.1=*\n");
  EXPECT_EQ(right.exitCode, 0) << right.errors;
}

std::string ResultsOf(const std::string& journal) {
  std::string results;
  for (const Json& line : LinesOf(journal)) {
    if (line["kind"] != "result") continue;
    results += line["of"].get<std::string>() + " " + play::CompactJson(line["value"]) + "\n";
  }
  return results;
}

TEST(DeskProgram_Results, AreToldOfCommandsAndOfOperationsThatHaveOne) {
  const struct {
    const char* scene;
    const char* results;  // a pattern
  } kCases[] = {
      {"start\nopen A.doc\nexecute OpenUserManual\n", "execute \"*.doc\"\n"},
      {"start\nopen A.doc\nexecute ToggleLumivex\n", "execute \"\"\n"},
      {"start\nopen A.doc\ncall Execute openusermanual\n", "call \"*.doc\"\n"},
      {"start\nopen A.doc\ncall OpenUserManual\n", "call \"*.doc\"\n"},
      {"start\nopen A.doc\ncall togglelumivex\n", ""},
      {"start\ncall HandleCloseDocument \"\"\n", "call *\n"},
      {"start\ncall RibbonHandler\n", "call null\n"},
      {"word 12.0\nstart\ncall RibbonHandler\n", "call \"RibbonHandler.Main2\"\n"},
      {"word 12.0\nstart\nribbon icon 1\n", "ribbon icon {\"bytes\":*,\"crc32\":\"*\"}\n"},
      {"word 12.0\nstart\nopen A.doc\nribbon run ToggleLumivex\n", ""},
  };
  DeskRunner runner;
  for (const auto& each : kCases) {
    const DeskRun run = runner.Play(each.scene);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_TRUE(MatchesPattern(each.results, ResultsOf(run.journal))) << each.scene << ResultsOf(run.journal);
  }
}

TEST(DeskProgram_TheListOfCalls, LeavesOutTimesAndWhatPaintsAndTimersBringIn) {
  DeskRunner runner;
  const std::string scene = "start\nopen A.doc\nwait 400\nclose A.doc\n";
  const DeskRun run = runner.Play(scene, "--calls calls.jsonl");
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.journal, runner.Play(scene).journal);
  std::size_t objects = 0;
  for (const Json& line : LinesOf(run.journal)) objects += line["kind"] == "object";
  std::size_t calls = 0;
  for (const Json& line : LinesOf(runner.ReadFile("calls.jsonl"))) {
    EXPECT_FALSE(line.contains("at"));
    calls += line["kind"] == "object";
  }
  EXPECT_GT(calls, 100u);
  EXPECT_LT(calls, objects);
}

TEST(DeskProgram_EachOperationOfTheInterface, CanBeCalled) {
  DeskRunner runner;
  for (const char* call :
       {"Initialize Inkwell", "Execute OpenUserManual", "EnableGotoQuickBookmark true", "RibbonHandler", "ReadingMode",
        "ReadingModeLayout", "CloseReadingMode", "ToggleLumivex", "FilePrintPreview2", "ClosePreview", "ShrinkToolbar",
        "ProductNameChanged", "OpenUserManual", "UseQuillmere", "HandleCreateDocument 1", "HandleDocumentChange",
        "HandleCloseDocument A.doc", "ClickOnAd", "Quit"}) {
    const DeskRun run = runner.Play(std::string("start\nopen A.doc\ncall ") + call + "\n");
    EXPECT_EQ(run.exitCode, 0) << call << run.errors;
  }
}

}  // namespace
}  // namespace strandline::deskprogram
