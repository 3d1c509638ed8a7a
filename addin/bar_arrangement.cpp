// How the product's command bar, which is a real one of Word's, is kept on a row of its own, shown, hidden and renamed.

#include "addin/Main2.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "toolbar/Menu.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::Application;
using CommonWordInteractionFunctions::isWord2007OrLater;

namespace {

constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 3000};

const String kProduct = u"Quillmere";
constexpr Long kProductTooltipIcon = 401;
constexpr Long kOtherTooltipIcon = 402;

constexpr Long kTopOfWindow = 1;
constexpr Long kBottomOfWindow = 3;
constexpr Long kLastRow = -1;
constexpr Long kFarRight = 999;

// Either file name, whatever Word's version.
Boolean IsProductTemplate(const String& name) { return name == u"Quillmere.dot" || name == u"Quillmere.dotm"; }

}  // namespace

void Main2::ProductNameChanged() {
  METHOD(void, u"ProductNameChanged");
  String productName;
  REPORTS(productName);
  STEP(productName = ToolbarUtilities::variables.productState.Get("productName").ToText());
  if (productName == kProduct) {
    STEP(CommonPropertyFunctions::tooltip().Let("TooltipIconIndex", kProductTooltipIcon));
  } else {
    STEP(CommonPropertyFunctions::tooltip().Let("TooltipIconIndex", kOtherTooltipIcon));
  }
  if (isWord2007OrLater()) {
    // At the first call, from Initialize, the ribbon component doesn't exist yet.
    if (!mRibbonHandler.IsNothing()) STEP(mRibbonHandler.Call("ProductNameChanged", productName));
    UpdateLumivexIcon();
  } else {
    ProductNameChangedForWord2003AndEarlier(productName);
  }
}

void Main2::ProductNameChangedForWord2003AndEarlier(const String& productName) {
  METHOD(void, u"ProductNameChangedForWord2003AndEarlier", productName);
  ToolbarUtilities::ProductNameChanged(productName);
  std::vector<Variant> items;
  STEP(New<Menu>()->ProductNameChanged(productName));
  ProcessEliteToolbar(false);
  STEP(items = RegisteredItems());
  for (const Variant& item : items) {
    if (!item.IsEmpty()) STEP(Required(castToToolbar(item)).Redraw());
  }
}

void Main2::ShrinkToolbar() {
  METHOD(void, u"ShrinkToolbar");
  ProcessEliteToolbar(true);
}

// Word starts in the full toolbar, and only the user's command leaves it. What that does isn't built yet.
void Main2::ProcessEliteToolbar(Boolean force) {
  METHOD(void, u"ProcessEliteToolbar", force);
  Log(u"ProcessEliteToolbar");
  if (isWord2007OrLater()) return;
  if (!force && !mSmallToolbar) return;
}

// Word 2000 has no envelope to ask for; there a document that isn't a mail fails to tell its author, so that to get
// past the question is the answer.
Boolean Main2::isOutlookDocument() {
  METHOD(Boolean, u"isOutlookDocument");
  Object emailAuthor;
  REPORTS(emailAuthor);
  Log(u"isOutlookDocument");
  here.EndQuietly();
  if (CommonWordInteractionFunctions::isWord2000()) {
    STEP(emailAuthor = Application()
                           .Get("ActiveDocument")
                           .ToObject()
                           .Get("Email")
                           .ToObject()
                           .Get("CurrentEmailAuthor")
                           .ToObject());
    here.result = true;
  } else {
    STEP(here.result = Application().Get("ActiveWindow").ToObject().Get("EnvelopeVisible").ToBoolean());
  }
  STEP(Log(Joined(u"isOutlookDocument ", here.result, u" ",
                  Application().Get("ActiveDocument").ToObject().Get("name").ToText())));
  return here.Leave();
}

void Main2::RemoveAllToolbars() {
  METHOD(void, u"RemoveAllToolbars");
  Log(u"RemoveAllToolbars");
  std::vector<Long> keys;
  if (mToolbars && !mSmallToolbar) {
    STEP(keys = RegisteredWindows());
    for (const Long key : keys) RemoveToolbarImpl(key);
  }
}

void Main2::ToolbarVisible(Boolean value) {
  METHOD(void, u"ToolbarVisible[Let]", value);
  Object bar;
  REPORTS(bar);
  if (isWord2007OrLater()) return;
  bar = ToolbarUtilities::CommandBar();
  if (bar.IsNothing()) return;
  CONDITION(isSo, bar.Get("visible").ToBoolean() == value);
  if (isSo) return;
  Log(Joined(u"Setting ToolbarVisible = ", value));
  STEP(bar.Let("visible", value));
}

// The run-time changes to the bar mark the template as changed; without this Word would ask the user to save it.
void Main2::PreventQueryToSaveTemplate() {
  METHOD(void, u"PreventQueryToSaveTemplate");
  Object item;
  Walk walk;
  REPORTS(item);
  CONDITION(more, walk.First(CommonWordInteractionFunctions::Templates(), item));
  while (more) {
    CONDITION(isOurs, IsProductTemplate(item.Get("name").ToText()));
    if (isOurs) STEP(item.Let("Saved", true));
    more = false;
    STEP(more = walk.Next(item));
  }
}

void Main2::EnsureToolbarIsOnItsOwnRow() {
  METHOD(void, u"EnsureToolbarIsOnItsOwnRow");
  Object bar;
  REPORTS(bar);
  Log(u"EnsureToolbarIsOnItsOwnRow");
  bar = ToolbarUtilities::CommandBar();
  here.EndQuietly();
  CONDITION(isAtTheTop, bar.Get("Position").ToLong() == kTopOfWindow);
  if (isAtTheTop) {
    STEP(bar.Let("RowIndex", kLastRow));
    STEP(bar.Let("left", Long{0}));
    return;
  }
  CONDITION(isAtTheBottom, bar.Get("Position").ToLong() == kBottomOfWindow);
  if (isAtTheBottom) {
    EnsureAnotherToolbarIsAtTheBottom();
    STEP(bar.Let("RowIndex", Long{1}));
    STEP(bar.Let("left", kFarRight));
  }
}

// The product's bar then stands on the row of Word's drawing bar, pushed to the right, and never alone.
void Main2::EnsureAnotherToolbarIsAtTheBottom() {
  METHOD(void, u"EnsureAnotherToolbarIsAtTheBottom");
  Object bar;
  REPORTS(bar);
  STEP(bar = Application().Get("CommandBars").ToObject().Get("Item", u"Drawing").ToObject());
  STEP(bar.Let("Position", kBottomOfWindow));
  STEP(bar.Let("RowIndex", Long{1}));
  STEP(bar.Let("left", Long{0}));
  STEP(bar.Let("visible", true));
}

}  // namespace strandline
