// The side of the world that plays the user of the product's controls and of its menu.

#include "wordsim/command_bars.h"
#include "wordsim/document_frame.h"
#include "wordsim/popup_menu.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

bool WordWorld::OpenMenu() {
  CloseMenu();
  const BarControl* menu = mProductBar->Controls().Control(1);
  const Long hwnd = ActiveBarWindow();
  if (!menu || !menu->Popup() || !mPlatform.windows->IsWindowVisible(hwnd)) return false;
  Rect bar;
  mPlatform.windows->GetWindowRect(hwnd, bar);
  const Rect cell = CellPlace(1);
  const Rect control{bar.left + cell.left, bar.top + cell.top, bar.left + cell.right, bar.top + cell.bottom};
  mMenu = std::make_unique<PopupMenu>(*mFrameServices, *menu->Popup(), control, bar);
  return true;
}

void WordWorld::CloseMenu() { mMenu.reset(); }

Rect WordWorld::EntryPlace(const String& caption) const {
  const BarControl* menu = mProductBar->Controls().Control(1);
  const BarControl* entry = mMenu && menu && menu->Popup() ? menu->Popup()->Find(caption) : nullptr;
  return entry ? mMenu->PlaceOf(*entry) : Rect{};
}

bool WordWorld::PickEntry(const String& caption) {
  const BarControl* menu = mProductBar->Controls().Control(1);
  BarControl* entry = menu && menu->Popup() ? menu->Popup()->Find(caption) : nullptr;
  if (!entry || !entry->IsVisible() || !entry->IsEnabled()) return false;
  Pick(*entry);
  return true;
}

// The menu goes before the macro runs, as with Word.
void WordWorld::Pick(BarControl& entry) {
  const Ref<BarControl> alive(&entry);
  CloseMenu();
  if (mHooks.executeEntry) mHooks.executeEntry(entry.PositionInOwner());
}

// The menu is down before the macro runs.
void WordWorld::Run(BarControl& control) {
  const Ref<BarControl> alive(&control);
  if (control.Popup()) {
    OpenMenu();
  } else {
    CloseMenu();
  }
  if (mHooks.executeControl) mHooks.executeControl(control.PositionInOwner());
}

void WordWorld::PressControl(Long control) {
  BarControl* pressed = mProductBar->Controls().Control(control);
  if (pressed && pressed->IsEnabled() && !IsDialogOpen()) Run(*pressed);
}

}  // namespace strandline::wordsim
