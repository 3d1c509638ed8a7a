// The scene's user: a hand on the mouse, the menu, and the macros that the product has set on its controls.

#include "play/scene_player.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"

namespace strandline::play {

namespace {

constexpr Long kMenuControl = 1;
constexpr int kDeepestMacro = 40;

// What the product's template has on its controls. The other macros do nothing that the library could notice.
const char16_t* CommandOfControl(Long control) {
  switch (control) {
    case 14:
      return u"ToggleLumivex";
    case 15:
      return u"OpenUserManual";
    case 16:
      return u"ClickOnAd";
    default:
      return nullptr;
  }
}

Point Middle(const Rect& area) {
  return {area.left + (area.right - area.left) / 2, area.top + (area.bottom - area.top) / 2};
}

std::string ShownCaptions(const wordsim::BarControls& entries) {
  std::string list;
  for (const auto& entry : entries.All()) {
    if (entry->IsVisible() && entry->IsEnabled()) {
      list.append(list.empty() ? "" : ", ").append(ToUtf8(entry->Caption().View()));
    }
  }
  return list.empty() ? "it has none" : "those are: " + list;
}

}  // namespace

// Word runs the macros from here on. A dialog of Word's lets messages through.
void ScenePlayer::PlayUser() {
  wordsim::Hooks& hooks = mSession->World().TheHooks();
  hooks.executeControl = [this](Long control) { RunMacroOf(control); };
  hooks.executeEntry = [this](Long entry) { RunMacroOfEntry(entry); };
  hooks.showDialog = [this](Long) { Respond(); };
}

// What the hand has done comes to those whom it means, with what waited before it.
void ScenePlayer::Respond() { mSession->World().Services().windows->DoEvents(); }

Long ScenePlayer::HandsBar() const {
  wordsim::WordWorld& world = mSession->World();
  if (mHandsDocument.IsEmpty()) {
    RequireBarWindow();
    return world.ActiveBarWindow();
  }
  const std::string name = ToUtf8(mHandsDocument.View());
  if (!world.Find(mHandsDocument))
    Fail("the document \"" + name + "\" is gone; say where the mouse is with mouse over");
  const Long bar = world.BarWindowOf(mHandsDocument);
  if (bar == 0) Fail("the document \"" + name + "\" has no window of the bar; open it in a Word before 2007");
  return bar;
}

// The windows of documents lie one over the other: a bar that isn't the active one's is reached all the same.
void ScenePlayer::MoveHand(Point screen, bool left, bool shift) {
  HostMouse& mouse = mSession->Mouse();
  const Long bar = mHandsDocument.IsEmpty() ? 0 : mSession->World().BarWindowOf(mHandsDocument);
  mouse.AimAt(bar == mSession->World().ActiveBarWindow() ? 0 : bar);
  mouse.Hold(left, shift);
  mouse.MoveTo(screen);
  Respond();
}

void ScenePlayer::MouseMove(const Command& command) {
  Point place{static_cast<Long>(command.Number("X")), static_cast<Long>(command.Number("Y"))};
  mSession->World().Services().windows->ClientToScreen(HandsBar(), place);
  MoveHand(place, command.Has("left") || mIsLeftDown, command.Has("shift"));
}

void ScenePlayer::MouseDown(const Command&) {
  mIsLeftDown = true;
  mSession->Mouse().Press(MouseButton::kLeft);
  Respond();
}

void ScenePlayer::MouseUp(const Command&) {
  mIsLeftDown = false;
  mSession->Mouse().Release(MouseButton::kLeft);
  Respond();
}

void ScenePlayer::MouseDouble(const Command&) {
  mIsLeftDown = true;
  mSession->Mouse().PressAgain();
  Respond();
}

void ScenePlayer::MouseRight(const Command&) {
  mSession->Mouse().Press(MouseButton::kRight);
  mSession->Mouse().Release(MouseButton::kRight);
  Respond();
}

// The last pixel of the screen, to which no window of Word's reaches.
void ScenePlayer::MouseLeave(const Command&) {
  Windows& windows = *mSession->World().Services().windows;
  Rect screen;
  windows.GetWindowRect(windows.GetDesktopWindow(), screen);
  mSession->Mouse().AimAt(0);
  mSession->Mouse().Hold(mIsLeftDown, false);
  mSession->Mouse().MoveTo({screen.right - 1, screen.bottom - 1});
  Respond();
}

void ScenePlayer::MouseOver(const Command& command) {
  const String name = FromUtf8(command.Text("NAME"));
  RequireDocument(mSession->World().Find(name) != nullptr, command);
  mHandsDocument = name;
}

void ScenePlayer::HoverOver(Long control) {
  const Long bar = HandsBar();
  const wordsim::WordWorld& world = mSession->World();
  const std::string number = std::to_string(control);
  if (!world.ProductBar().Controls().Control(control)) {
    Fail("the bar has no control " + number + "; set their number with controls N");
  }
  const Rect place = world.CellPlace(control, mHandsDocument.IsEmpty() ? nullptr : world.Find(mHandsDocument));
  if (place.right <= place.left || place.bottom <= place.top) {
    Fail("control " + number + " has no place on the bar; give it one with cell");
  }
  Point middle = Middle(place);
  world.Services().windows->ClientToScreen(bar, middle);
  MoveHand(middle, mIsLeftDown, false);
}

void ScenePlayer::ClickThere() {
  MouseDown({});
  MouseUp({});
}

void ScenePlayer::Hover(const Command& command) { HoverOver(static_cast<Long>(command.Number("CELL"))); }

void ScenePlayer::Click(const Command& command) {
  HoverOver(static_cast<Long>(command.Number("CELL")));
  ClickThere();
}

// From the open menu by hand, from a closed one as from the keyboard.
void ScenePlayer::Pick(const Command& command) {
  wordsim::WordWorld& world = mSession->World();
  const String caption = FromUtf8(command.Text("CAPTION"));
  const wordsim::BarControl* menu = world.ProductBar().Controls().Control(kMenuControl);
  const wordsim::BarControls* entries = menu ? menu->Popup() : nullptr;
  if (!entries) Fail("the bar has no menu; give it controls with controls N");
  const wordsim::BarControl* entry = entries->Find(caption);
  if (!entry || !entry->IsVisible() || !entry->IsEnabled()) {
    Fail("no entry of the menu that can be picked is called \"" + command.Text("CAPTION") + "\"; " +
         ShownCaptions(*entries));
  }
  const Rect place = world.EntryPlace(caption);
  if (place.right <= place.left) {
    world.PickEntry(caption);
    return;
  }
  mSession->Mouse().AimAt(0);
  mSession->Mouse().Hold(false, false);
  mSession->Mouse().MoveTo(Middle(place));
  ClickThere();
}

void ScenePlayer::Macro(const Command& command) { mMacros[static_cast<Long>(command.Number("CELL"))] = command.inner; }

void ScenePlayer::RunMacroOf(Long control) {
  const auto own = mMacros.find(control);
  const std::shared_ptr<const Command> macro = own == mMacros.end() ? nullptr : own->second;
  if (macro) {
    RunMacro([&] { PlayOne(*macro); });
  } else if (const char16_t* command = CommandOfControl(control)) {
    RunMacro([&] { ExecuteCommand(command); });
  }
}

void ScenePlayer::RunMacroOfEntry(Long entry) {
  const wordsim::BarControl* menu = mSession->World().ProductBar().Controls().Control(kMenuControl);
  const wordsim::BarControl* picked = menu && menu->Popup() ? menu->Popup()->Control(entry) : nullptr;
  if (picked && picked->Caption() == u"&Shrink Toolbar") RunMacro([&] { ExecuteCommand(u"ShrinkToolbar"); });
}

void ScenePlayer::RunMacro(const std::function<void()>& macro) {
  if (!mSession->IsStarted()) return;
  mSession->InsideWord([&] {
    if (mDepth > kDeepestMacro) Fail("macros run inside each other without end; let one of them do something else");
    macro();
  });
}

}  // namespace strandline::play
