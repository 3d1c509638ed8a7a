#include <cstdio>
#include <filesystem>
#include <optional>

#include "desk/scene_player.h"
#include "wordsim/document.h"

namespace strandline::deskprogram {

namespace {

Rect BarArea(DeskSession& session) {
  Rect area;
  session.TheDesk().Windows().GetWindowRect(session.World().ActiveBarWindow(), area);
  return area;
}

// Whether it is to be seen but for what may cover it.
bool IsBarShown(DeskSession& session) {
  desk::WindowSystem& windows = session.TheDesk().Windows();
  return windows.IsWindowVisible(session.World().ActiveBarWindow()) != 0 &&
         windows.IsIconic(session.World().ActiveTopWindow()) == 0;
}

bool IsOnScreen(const desk::Surface& screen, const Rect& area) {
  return area.left < area.right && area.top < area.bottom && area.right > 0 && area.bottom > 0 &&
         area.left < screen.width && area.top < screen.height;
}

std::string ColourText(std::uint32_t rgb) {
  char text[16];
  std::snprintf(text, sizeof text, "%06X", rgb & 0xFFFFFF);
  return text;
}

}  // namespace

void ScenePlayer::WritePicture(const std::string& fileName, const Rect& area) {
  const std::filesystem::path path = std::filesystem::path(mOptions.outFolder) / fileName;
  if (!IsOnScreen(mSession->TheDesk().Screen(), area)) {
    Fail("nothing of the window is on the screen; take the picture where something of it is");
  }
  std::error_code ignored;
  std::filesystem::create_directories(path.parent_path(), ignored);
  if (!mSession->TheDesk().WritePng(path.string(), area)) {
    Fail("can't write the picture " + path.string() + "; name a folder that can be written with --out");
  }
}

void ScenePlayer::Shot(const Command& command) {
  RequireBarWindow();
  if (!IsBarShown(*mSession)) Fail("the bar's window isn't shown; take the picture while it is");
  WritePicture(command.Text("FILE.png"), BarArea(*mSession));
}

void ScenePlayer::ShotDesk(const Command& command) {
  const desk::Surface& screen = mSession->TheDesk().Screen();
  WritePicture(command.Text("FILE.png"), {0, 0, screen.width, screen.height});
}

void ScenePlayer::State(const Command&) { mSession->TheJournal().Add("state", Json{{"value", mSession->State()}}); }

void ScenePlayer::Mark(const Command&) { mExpectations->Mark(); }

void ScenePlayer::NoteFailure(const std::string& expected) {
  if (!expected.empty()) mFailures.push_back(Where(mLine) + ": expected " + expected);
}

void ScenePlayer::Expect(const Command& command) {
  std::optional<std::size_t> exactly;
  if (command.Has("N")) exactly = static_cast<std::size_t>(command.Number("N"));
  NoteFailure(mExpectations->Expect(exactly, Expectation(command.Text("KIND"), command.rest)));
}

void ScenePlayer::Then(const Command& command) {
  if (!mExpectations->CanContinue()) Fail("then has nothing to come after; put an expect before it");
  NoteFailure(mExpectations->Then(Expectation(command.Text("KIND"), command.rest)));
}

void ScenePlayer::ExpectPixel(const Command& command) {
  const std::string wanted = ColourText(static_cast<std::uint32_t>(command.Number("RRGGBB")));
  const std::string what = "pixel " + command.Text("X") + " " + command.Text("Y") + " " + wanted;
  if (mSession->World().ActiveBarWindow() == 0) return NoteFailure(what + ", found no window of the bar");
  if (!IsBarShown(*mSession)) return NoteFailure(what + ", found the bar's window hidden");
  const Rect area = BarArea(*mSession);
  const auto x = static_cast<Long>(command.Number("X"));
  const auto y = static_cast<Long>(command.Number("Y"));
  const desk::Surface& screen = mSession->TheDesk().Screen();
  const Long screenX = area.left + x;
  const Long screenY = area.top + y;
  const bool inside = x >= 0 && y >= 0 && screenX >= 0 && screenY >= 0 && screenX < area.right &&
                      screenY < area.bottom && screenX < screen.width && screenY < screen.height;
  if (!inside) return NoteFailure(what + ", found no such pixel in the bar's window");
  const std::string found = ColourText(*screen.At(screenX, screenY));
  if (found != wanted) NoteFailure(what + ", found " + found);
}

}  // namespace strandline::deskprogram
