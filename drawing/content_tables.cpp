// What each cell of the strip shows: its tooltip, its picture, whether it starts enabled, and the captions that follow
// the document.

#include "drawing/ToolbarUtilities.h"
#include "platform/convert.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline::ToolbarUtilities {

namespace {

constexpr ModuleFile kModule{&kModuleInfo};

struct CellText {
  Integer index;
  const char16_t* tooltip;
};

// Cell 2 bears the product's name and is filled by ProductNameChanged.
constexpr CellText kCellTexts[] = {
    {1, u"Click for menu options..."},
    {3, u"Insert Reference entry... (Ctrl+Shift+F)"},
    {4, u"Paste Reference entry... (Alt+P)"},
    {5, u"Hunt for a Reference... (Ctrl+Shift+F)"},
    {6, u"Start a New Chapter (Alt+C)"},
    {7, u"Set as Heading Level 1 (Ctrl+1)"},
    {8, u"Set as Heading Level 2 (Ctrl+2)"},
    {9, u"Set as Heading Level 3 (Ctrl+3)"},
    {10, u"Set as Heading Level 4 (Ctrl+4)"},
    {11, u"Update Pages, Figures, and Tables (Ctrl+Shift+U)"},
    {12, u"Set as Paragraph (Ctrl+Shift+P)"},
    {13, u"Set as Quotation (Ctrl+Q)"},
    {14, u"Turn on Lumivex to show synonyms and dictionary definitions of any word in your document (Ctrl+Shift+X)"},
    {15, u"Open User Manual"},
    {16, u"Go to Website Offer"},
};

const String kSecondProduct = u"Halcyra";
const String kUserManual = u"Quillmere user manual.doc";

constexpr Integer kProductCell = 2;
constexpr Integer kInsertCell = 3;
constexpr Integer kPasteCell = 4;
constexpr Integer kLumivexCell = 14;
constexpr Integer kManualCell = 15;
constexpr Integer kAdCell = 16;
constexpr Integer kSecondProductPicture = 18;
constexpr Integer kFindPicture = 17;
constexpr Integer kLargeSet = 100;
constexpr Integer kSmallSet = 200;

}  // namespace

void Initialize(const Object& callbackToMain, const Object& productState, const String& productName) {
  PROCEDURE(void, u"Initialize", callbackToMain, productState, productName);
  variables.productState = productState;
  variables.mProductName = productName;
  if (CommonWordInteractionFunctions::isWord2007OrLater()) return;
  STEP(variables.adFactory = makeAdFactory());
  STEP(Required(variables.adFactory).Initialize(callbackToMain));
  STEP(variables.converter = New<IPictureDispUtilities>());
  STEP(variables.mEnableList(kManualCell) = true);
  STEP(variables.mEnableList(kAdCell) = true);
  for (const CellText& cell : kCellTexts) STEP(variables.mTooltipText(cell.index) = cell.tooltip);
}

void Terminate() {
  PROCEDURE(void, u"Terminate");
  variables.adFactory = nullptr;
  variables.productState = nullptr;
  variables.converter = nullptr;
  cachedBuffer(0, 0, 0, 0);
}

void ProductNameChanged(const String& productName) {
  PROCEDURE(void, u"ProductNameChanged", productName);
  STEP(variables.mTooltipText(kProductCell) = Concat({u"Apply ", productName, u" to this document..."}));
}

Integer pictureIndex(Integer index, Boolean elite) {
  PROCEDURE(Integer, u"pictureIndex", index, elite);
  if (index == kProductCell) {
    CONDITION(isSecond, variables.productState.Get("productName").ToText() == kSecondProduct);
    if (isSecond) index = kSecondProductPicture;
  }
  if (index == kManualCell && inUserManual()) index = kFindPicture;
  STEP(here.result = ToInteger(index + (elite ? kSmallSet : kLargeSet)));
  return here.Leave();
}

String tooltipText(Integer index, Boolean smallToolbar) {
  PROCEDURE(String, u"tooltipText", index, smallToolbar);
  String text;
  REPORTS(text);
  if (!smallToolbar && index == kManualCell && inUserManual()) {
    STEP(here.result = CommonPropertyFunctions::tooltip().Call("TooltipBackground", u"Find... (Ctrl+F)").ToText());
    return here.Leave();
  }
  if (smallToolbar) {
    STEP(here.result = variables.mTooltipText(index));
    return here.Leave();
  }
  switch (index) {
    case kInsertCell:
      text = insertCaption(false);
      break;
    case kPasteCell:
      text = pasteCaption(false);
      break;
    case kLumivexCell:
      text = lumivexCaption(false);
      break;
    default:
      STEP(text = variables.mTooltipText(index));
  }
  STEP(here.result = CommonPropertyFunctions::tooltip().Call("TooltipBackground", text).ToText());
  return here.Leave();
}

Boolean EnableList(Integer index) {
  PROCEDURE(Boolean, u"EnableList", index);
  STEP(here.result = variables.mEnableList(index));
  return here.Leave();
}

String insertCaption(Boolean isMenuItem) {
  PROCEDURE(String, u"insertCaption", isMenuItem);
  String kind;
  REPORTS(kind);
  STEP(kind = capitalize(CommonPropertyFunctions::outputType()).ToText());
  if (isMenuItem) {
    STEP(here.result = Concat({u"Start Tomehaven or &Insert ", kind, u" / Reference entry..."}));
  } else {
    STEP(here.result = Concat({u"Start Tomehaven or Insert ", kind, u" / Reference entry... (Ctrl+Shift+F)"}));
  }
  return here.Leave();
}

String pasteCaption(Boolean isMenuItem) {
  PROCEDURE(String, u"pasteCaption", isMenuItem);
  String kind;
  REPORTS(kind);
  STEP(kind = capitalize(CommonPropertyFunctions::outputType()).ToText());
  if (isMenuItem) {
    STEP(here.result = Concat({u"&Paste ", kind, u" / Reference entry..."}));
  } else {
    STEP(here.result = Concat({u"Paste ", kind, u" / Reference entry... (Alt+P)"}));
  }
  return here.Leave();
}

// The caption names the action, not the state.
String lumivexCaption(Boolean isMenuItem) {
  PROCEDURE(String, u"lumivexCaption", isMenuItem);
  String action;
  REPORTS(action);
  CONDITION(isOn, variables.productState.Get("lumivexEnabled").ToBoolean());
  if (isOn) {
    STEP(action = u"off");
  } else {
    STEP(action = u"on");
  }
  if (isMenuItem) {
    STEP(here.result = Concat({u"&Turn ", action, u" Lumivex"}));
  } else {
    STEP(here.result = Concat({u"Turn ", action,
                               u" Lumivex (Ctrl+Shift+X) It shows synonyms and dictionary definitions of any word in "
                               u"your document"}));
  }
  return here.Leave();
}

Variant capitalize(const String& text) {
  PROCEDURE(Variant, u"capitalize", text);
  if (text.IsEmpty()) return here.result = text;
  const char16_t first = UpperCase(text.View().front());
  STEP(here.result = Concat({TextView(&first, 1), text.View().substr(1)}));
  return here.Leave();
}

Boolean inUserManual() {
  PROCEDURE(Boolean, u"inUserManual");
  CONDITION(hasDocuments, CommonWordInteractionFunctions::Documents().Get("Count").ToLong() > 0);
  if (!hasDocuments) return here.Leave();
  STEP(here.result = CommonWordInteractionFunctions::ActiveDocument().Get("name").ToText() == kUserManual);
  return here.Leave();
}

void ReportModule(Reporter& to) {
  const Variables& v = variables;
  to.Tell(u"adFactory", Variant(v.adFactory));
  to.Tell(u"productState", v.productState);
  to.Tell(u"converter", Variant(v.converter));
  to.Tell(u"mEnableList", v.mEnableList);
  to.Tell(u"mTooltipText", v.mTooltipText);
  to.Tell(u"mProductName", v.mProductName);
  to.Tell(u"mWidth", v.mWidth);
  to.Tell(u"mHeight", v.mHeight);
  to.Tell(u"mCachedBuffer", v.mCachedBuffer);
  to.Tell(u"mCachedBufferHandle", v.mCachedBufferHandle);
}

void ReportGlobals(Reporter& to) {
  to.Tell(u"ToolbarUtilities.adFactory", Variant(variables.adFactory));
  to.Tell(u"ToolbarUtilities.productState", variables.productState);
  to.Tell(u"ToolbarUtilities.converter", Variant(variables.converter));
}

}  // namespace strandline::ToolbarUtilities
