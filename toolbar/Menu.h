#pragma once

// Keeps Word's own popup, the first control of the product's bar, in step with the product: the captions that follow
// the product's name, the document's kind of reference and the Lumivex state, the product's icon on one entry, and the
// entry that offers a search while the user manual is the active document. Nothing of the menu is drawn here; the
// entries exist on the bar already and stand at fixed positions. Holds no state: everything lives in Word's controls.

#include "foundation/class_object.h"

namespace strandline {

class Menu final : public ClassObject {
 public:
  // Just before the menu opens: the captions of the entries 1, 2 and 20. Any error ends it quietly.
  void ToggleFootnoteEndnoteUI();
  // The captions that bear the product's name, and the product's icon. Any error of its own ends it quietly, and what
  // was written until then stays.
  void ProductNameChanged(const String& productName);
  // Right after Word has dropped the popup.
  void Activate();

  void ReportVariables(Reporter&) const override {}

 private:
  friend struct MenuAccess;  // the tests' way to the operations below

  void setMenuCaption(const Object& control, const String& newCaption);
  void setIconForProduct(const Object& button);
  void HackToKeepMenuDroppedWhenMousingOverToolbarButtons();
  void ToggleManualUI();
  // The first entry whose caption is oldStr becomes targetStr.
  void setMenuItemCaption(const String& targetStr, const String& oldStr);
};

}  // namespace strandline
