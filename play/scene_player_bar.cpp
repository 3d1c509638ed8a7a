#include <algorithm>

#include "platform/runtime.h"
#include "play/scene_player.h"
#include "wordsim/document.h"
#include "wordsim/product.h"

namespace strandline::play {

namespace {

// A message's numbers may be written as what they are on the wire: 0xFFFFFFFF is -1.
Long Word32(const Command& command, std::string_view slot) {
  return static_cast<Long>(static_cast<std::uint32_t>(command.Number(slot)));
}

Long Whole(const Command& command, std::string_view slot) { return static_cast<Long>(command.Number(slot)); }

}  // namespace

void ScenePlayer::RequireBarWindow() const {
  if (mSession->World().ActiveBarWindow() == 0) {
    Fail("the active document has no window of the bar; open a document in a Word before 2007 and show the bar");
  }
}

void ScenePlayer::Cell(const Command& command) {
  const Long left = Whole(command, "LEFT");
  const Long top = Whole(command, "TOP");
  const Rect place{left, top, left + Whole(command, "WIDTH"), top + Whole(command, "HEIGHT")};
  if (!mSession->World().PlaceCell(Whole(command, "N"), place)) {
    Fail("the bar has no control " + command.Text("N") + "; set their number with controls N");
  }
}

void ScenePlayer::Drop(const Command& command) {
  if (!mSession->World().DropCell(Whole(command, "CELL"), command.Text("SWITCH") == "on")) {
    Fail("the bar has no control " + command.Text("CELL") + "; set their number with controls N");
  }
}

void ScenePlayer::Send(const Command& command) {
  RequireBarWindow();
  mSession->World().SendToBar(Word32(command, "MSG"), Word32(command, "WPARAM"), Word32(command, "LPARAM"));
}

void ScenePlayer::Resize(const Command& command) {
  RequireBarWindow();
  mSession->World().ResizeBar(Whole(command, "W"), Whole(command, "H"));
}

void ScenePlayer::Dock(const Command& command) {
  RequireBarWindow();
  mSession->World().DockBar(BarPositionOf(command.Text("EDGE")));
}

void ScenePlayer::Cover(const Command&) { mSession->World().Cover(true); }

void ScenePlayer::Uncover(const Command&) { mSession->World().Cover(false); }

void ScenePlayer::AnswerBox(const Command& command) {
  const std::string& button = command.Text("BUTTON");
  mSession->Watch().AnswerNextBox(button == "yes"      ? msgbox::kAnswerYes
                                  : button == "no"     ? msgbox::kAnswerNo
                                  : button == "cancel" ? msgbox::kAnswerCancel
                                                       : msgbox::kAnswerOk);
}

void ScenePlayer::AnswerError(const Command& command) {
  std::vector<Long> answers;
  for (const std::string& text : command.rest) {
    std::int64_t number = 0;
    ParseNumber(text, number);
    answers.push_back(static_cast<Long>(number));
  }
  mSession->World().TheProduct().AnswerErrors(answers);
}

void ScenePlayer::FailUse(const Command& command) {
  mSession->World().Faults().Arm(command.Text("OBJECT"), command.Text("MEMBER"),
                                 static_cast<Long>(command.Number("COUNT", 1)),
                                 static_cast<Long>(command.Number("NUMBER", wordsim::kDefaultFaultNumber)));
}

void ScenePlayer::FailService(const Command& command) {
  const std::string wrong = mSession->ArmFailure(command.Text("CALL"), static_cast<int>(command.Number("COUNT", 1)));
  if (!wrong.empty()) Fail(wrong);
}

void ScenePlayer::Wait(const Command& command) { mSession->Clock().Wait(command.Number("MS")); }

}  // namespace strandline::play
