#include <cstdio>
#include <filesystem>
#include <optional>

#include "play/scene_player.h"

namespace strandline::play {

namespace {

std::string ColourText(std::uint32_t rgb) {
  char text[16];
  std::snprintf(text, sizeof text, "%06X", rgb & 0xFFFFFF);
  return text;
}

}  // namespace

std::string ScenePlayer::PicturePath(const std::string& fileName) const {
  const std::filesystem::path path = std::filesystem::path(mOptions.outFolder) / fileName;
  std::error_code ignored;
  std::filesystem::create_directories(path.parent_path(), ignored);
  return path.string();
}

void ScenePlayer::Shot(const Command& command) {
  RequireBarWindow();
  if (!mSession->IsBarShown()) Fail("the bar's window isn't shown; take the picture while it is");
  const std::string wrong = mSession->WriteBarPicture(PicturePath(command.Text("FILE.png")));
  if (!wrong.empty()) Fail(wrong);
}

void ScenePlayer::ShotDesk(const Command& command) {
  const std::string wrong = mSession->WriteDeskPicture(PicturePath(command.Text("FILE.png")));
  if (!wrong.empty()) Fail(wrong);
}

void ScenePlayer::State(const Command&) { mSession->TheJournal().Add("state", Json{{"value", mSession->State()}}); }

void ScenePlayer::Mark(const Command&) { mExpectations->Mark(); }

void ScenePlayer::NoteFailure(const std::string& expected) {
  if (!expected.empty()) mFailures.push_back(Where(mLine) + ": expected " + expected);
}

void ScenePlayer::Expect(const Command& command) {
  mIsFindUnknown = !mSession->Hears(command.Text("KIND"));
  if (mIsFindUnknown) {
    ++mUnchecked;
    return;
  }
  std::optional<std::size_t> exactly;
  if (command.Has("N")) exactly = static_cast<std::size_t>(command.Number("N"));
  NoteFailure(mExpectations->Expect(exactly, Expectation(command.Text("KIND"), command.rest)));
}

void ScenePlayer::Then(const Command& command) {
  if (mIsFindUnknown || !mSession->Hears(command.Text("KIND"))) {
    ++mUnchecked;
    return;
  }
  if (!mExpectations->CanContinue()) Fail("then has nothing to come after; put an expect before it");
  NoteFailure(mExpectations->Then(Expectation(command.Text("KIND"), command.rest)));
}

void ScenePlayer::ExpectPixel(const Command& command) {
  const std::string wanted = ColourText(static_cast<std::uint32_t>(command.Number("RRGGBB")));
  const std::string what = "pixel " + command.Text("X") + " " + command.Text("Y") + " " + wanted;
  if (mSession->World().ActiveBarWindow() == 0) return NoteFailure(what + ", found no window of the bar");
  if (!mSession->IsBarShown()) return NoteFailure(what + ", found the bar's window hidden");
  const auto pixel = mSession->BarPixel(static_cast<Long>(command.Number("X")), static_cast<Long>(command.Number("Y")));
  if (!pixel) return NoteFailure(what + ", found no such pixel in the bar's window");
  const std::string found = ColourText(*pixel);
  if (found != wanted) NoteFailure(what + ", found " + found);
}

}  // namespace strandline::play
