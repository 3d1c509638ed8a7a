#include "toolbar/Menu.h"

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "foundation/LanguageExtensions.h"
#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::Documents;
using ToolbarUtilities::CommandBar;

namespace {

constexpr ModuleInfo kModuleInfo{u"Menu", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Integer kPopup = 1;  // on the bar

constexpr Integer kInsertEntry = 1;
constexpr Integer kPasteEntry = 2;
constexpr Integer kApplyEntry = 18;
constexpr Integer kConfigureEntry = 19;
constexpr Integer kLumivexEntry = 20;
constexpr Integer kAboutEntry = 25;

constexpr const char16_t* kOpenManual = u"Open User &Manual";
constexpr const char16_t* kFind = u"&Find...";

Object Item(const Object& collection, Integer position) { return collection.Get("Item", position).ToObject(); }
Object ControlsOf(const Object& barOrPopup) { return barOrPopup.Get("Controls").ToObject(); }
Object Popup() { return Item(ControlsOf(CommandBar()), kPopup); }

}  // namespace

void Menu::ToggleFootnoteEndnoteUI() {
  METHOD(void, u"ToggleFootnoteEndnoteUI");
  Object entries;
  REPORTS(entries);
  here.EndQuietly();
  CONDITION(hasNone, Documents().Get("count").ToLong() == 0);
  if (hasNone) return;
  STEP(entries = ControlsOf(Popup()));
  STEP(Item(entries, kInsertEntry).Let("caption", ToolbarUtilities::insertCaption(true)));
  STEP(Item(entries, kPasteEntry).Let("caption", ToolbarUtilities::pasteCaption(true)));
  STEP(Item(entries, kLumivexEntry).Let("caption", ToolbarUtilities::lumivexCaption(true)));
}

void Menu::ProductNameChanged(const String& productName) {
  METHOD(void, u"ProductNameChanged", productName);
  Object popup;
  Object entries;
  REPORTS(popup, entries);
  here.EndQuietly();
  CONDITION(hasNone, Documents().Get("count").ToLong() == 0);
  if (hasNone) return;
  STEP(popup = Popup());
  // The control that the strip's first cell lies on; its caption is wanted in lower case.
  STEP(popup.Let("caption", platform::RunTime().LowerCase(productName)));
  STEP(entries = ControlsOf(popup));
  STEP(setMenuCaption(Item(entries, kApplyEntry), Concat({u"&Apply ", productName, u" to this document..."})));
  STEP(setIconForProduct(Item(entries, kApplyEntry)));
  STEP(setMenuCaption(Item(entries, kConfigureEntry), Concat({u"C&onfigure ", productName, u"..."})));
  STEP(setMenuCaption(Item(entries, kAboutEntry),
                      Concat({u"About ", productName, u" / Login to ", productName, u"..."})));
}

void Menu::setMenuCaption(const Object& control, const String& newCaption) {
  METHOD(void, u"setMenuCaption", control, newCaption);
  STEP(control.Let("caption", newCaption));
}

// The product hands out its icon anew each time, since a picture is used up by its transfer.
void Menu::setIconForProduct(const Object& button) {
  METHOD(void, u"setIconForProduct", button);
  const Object& productState = ToolbarUtilities::variables.productState;
  here.IgnoreErrors();
  if (LanguageExtensions::InIDE()) return;
  CONDITION(hasNone, !productState.Get("icon").ToPicture());
  if (hasNone) return;
  STEP(ToolbarUtilities::SetButtonIcon(button, productState.Get("icon").ToPicture()));
}

void Menu::Activate() {
  METHOD(void, u"Activate");
  Log(u"Menu Activate");
  HackToKeepMenuDroppedWhenMousingOverToolbarButtons();
  ToggleManualUI();
}

// Without the capture, a mouse that moves over the strip while the menu is down doesn't close the menu. Always releases
// the capture, even if no window holds it.
// odd: capture-released
void Menu::HackToKeepMenuDroppedWhenMousingOverToolbarButtons() {
  METHOD(void, u"HackToKeepMenuDroppedWhenMousingOverToolbarButtons");
  platform::Windows().GetCapture();
  platform::Windows().ReleaseCapture();
}

// In the manual the entry searches it, elsewhere it opens it.
void Menu::ToggleManualUI() {
  METHOD(void, u"ToggleManualUI");
  if (ToolbarUtilities::inUserManual()) {
    STEP(setMenuItemCaption(kFind, kOpenManual));
  } else {
    STEP(setMenuItemCaption(kOpenManual, kFind));
  }
}

void Menu::setMenuItemCaption(const String& targetStr, const String& oldStr) {
  METHOD(void, u"setMenuItemCaption", targetStr, oldStr);
  Object control;
  Walk walk;
  REPORTS(control);
  CONDITION(more, walk.First(ControlsOf(Popup()), control));
  while (more) {
    CONDITION(isIt, control.Get("caption").ToText() == oldStr);
    if (isIt) {
      STEP(control.Let("caption", targetStr));
      return;
    }
    more = false;
    STEP(more = walk.Next(control));
  }
}

}  // namespace strandline
