// How a window comes to the front.

#include "tests/wordaccess/word_access_fixture.h"

namespace strandline {
namespace {

using namespace CommonWordWindowFunctions;

constexpr Long kMinimisedAndActive = 2;

class Foreground : public WordAccessTest {
 protected:
  Foreground() {
    Word().Open(u"One.doc");
    Word().Open(u"Two.doc");
    Did().Clear();
  }
  Long Top(const char* name) { return Word().WindowByName(name); }
  desk::WindowSystem& Windows() { return TheWorld().desk.Windows(); }
  std::string Calls() { return Block(Did().Of(Doings::kService)); }
};

TEST_F(Foreground, WindowInFrontAlready_IsGrantedWithoutAnyCall) {
  EXPECT_TRUE(ForceForegroundWindow(Top("top 2")));
  EXPECT_EQ(Calls(), "GetForegroundWindow() = top 2\n");
}

TEST_F(Foreground, MinimisedWindowInFront_StaysMinimised) {
  Windows().ShowWindow(Top("top 2"), kMinimisedAndActive);
  ASSERT_EQ(Windows().GetForegroundWindow(), Top("top 2"));
  EXPECT_TRUE(ForceForegroundWindow(Top("top 2")));
  EXPECT_EQ(Calls(), "GetForegroundWindow() = top 2\n");
  EXPECT_NE(Windows().IsIconic(Top("top 2")), 0);
}

TEST_F(Foreground, WindowOfTheSameThread_NeedsNoAttaching) {
  const std::string thread = std::to_string(Windows().GetWindowThreadProcessId(Top("top 1")));
  EXPECT_TRUE(ForceForegroundWindow(Top("top 1")));
  EXPECT_EQ(Calls(),
            "GetForegroundWindow() = top 2\n"
            "GetForegroundWindow() = top 2\n"
            "GetWindowThreadProcessId(top 2) = " +
                thread +
                "\n"
                "GetWindowThreadProcessId(top 1) = " +
                thread +
                "\n"
                "SetForegroundWindow(top 1) = 1\n"
                "IsIconic(top 1) = 0\n"
                "ShowWindow(top 1, 5) = 1\n");
  EXPECT_EQ(Windows().GetForegroundWindow(), Top("top 1"));
}

// The attachment goes from the thread in front to the target's, and exists for the one call.
TEST_F(Foreground, WindowOfAnotherThread_IsAttachedForTheOneCall) {
  Word().Cover(true);
  const std::string other = std::to_string(Windows().GetForegroundWindow());
  const std::string from = std::to_string(Windows().GetWindowThreadProcessId(Windows().GetForegroundWindow()));
  const std::string to = std::to_string(Windows().GetWindowThreadProcessId(Top("top 1")));
  ASSERT_NE(from, to);
  EXPECT_TRUE(ForceForegroundWindow(Top("top 1")));
  EXPECT_EQ(Calls(), "GetForegroundWindow() = " + other +
                         "\n"
                         "GetForegroundWindow() = " +
                         other +
                         "\n"
                         "GetWindowThreadProcessId(" +
                         other + ") = " + from +
                         "\n"
                         "GetWindowThreadProcessId(top 1) = " +
                         to +
                         "\n"
                         "AttachThreadInput(" +
                         from + ", " + to +
                         ", -1) = 1\n"
                         "SetForegroundWindow(top 1) = 1\n"
                         "AttachThreadInput(" +
                         from + ", " + to +
                         ", 0) = 1\n"
                         "IsIconic(top 1) = 0\n"
                         "ShowWindow(top 1, 5) = 1\n");
  EXPECT_EQ(Windows().GetForegroundWindow(), Top("top 1"));
}

TEST_F(Foreground, Refusal_IsToldByTheResultAlone) {
  for (const bool covered : {false, true}) {
    Word().Activate(u"Two.doc");
    Word().Cover(covered);
    TheWorld().services.ArmFailure("SetForegroundWindow", 1);
    Did().Clear();
    EXPECT_FALSE(ForceForegroundWindow(Top("top 1")));
    EXPECT_EQ(Did().Count(Doings::kService, "ShowWindow(top 1, 5)"), 1u) << "shown all the same";
    EXPECT_EQ(Did().Count(Doings::kService, "AttachThreadInput"), covered ? 2u : 0u) << "detached all the same";
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Foreground, MinimisedWindow_IsRestored) {
  Word().Minimise(u"One.doc");
  ASSERT_NE(Windows().IsIconic(Top("top 1")), 0);
  // In the world of the desk a change of the foreground leaves the icon.
  EXPECT_TRUE(ForceForegroundWindow(Top("top 1")));
  EXPECT_EQ(Did().Count(Doings::kService, "ShowWindow(top 1, 9)"), 1u);
  EXPECT_EQ(Did().Count(Doings::kService, "ShowWindow"), 1u);
  EXPECT_EQ(Windows().IsIconic(Top("top 1")), 0);
}

TEST_F(Foreground, NoWindow_IsRefused) {
  EXPECT_FALSE(ForceForegroundWindow(0));
  EXPECT_EQ(Windows().GetForegroundWindow(), Top("top 2"));
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Foreground, ActivatingTheDocumentsWindow_BringsItBeforeAnotherProgram) {
  Word().Cover(true);
  ActivateActiveDocumentWindow();
  EXPECT_EQ(Windows().GetForegroundWindow(), Top("top 2"));
  Did().Clear();
  ActivateActiveDocumentWindow();
  EXPECT_EQ(Did().Count(Doings::kService, "ShowWindow"), 0u) << "it is in front already";
}

TEST_F(Foreground, ActivatingAMailOfAnOldWord_BringsOutlooksWindow) {
  Begin(u"9.0");
  wordsim::OpenFlags mail;
  mail.mail = true;
  Word().Open(u"Letter", mail);
  Word().Cover(true);
  ActivateActiveDocumentWindow();
  EXPECT_EQ(Windows().GetForegroundWindow(), Top("top 1"));
}

}  // namespace
}  // namespace strandline
