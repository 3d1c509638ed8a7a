// How the product's command bar, which is a real one of Word's, is kept on a row of its own, shown, hidden, renamed and
// turned into the small toolbar.

#include "addin/Main2.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/platform.h"
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

constexpr Long kNoProtection = 0;
constexpr Long kNoCustomizing = 1;
constexpr Long kSmallControl = 22;  // pixels, across and down

constexpr Integer kMenuControl = 1;
constexpr Integer kProductControl = 2;
constexpr Integer kOfferControl = 16;
constexpr const char16_t* kShrinkEntry = u"&Shrink Toolbar";

Object ControlOf(const Object& bar, Integer position) {
  return bar.Get("Controls").ToObject().Get("Item", position).ToObject();
}

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
  Variant item;
  std::vector<Variant> items;
  REPORTS(item);
  ToolbarUtilities::ProductNameChanged(productName);
  STEP(New<Menu>()->ProductNameChanged(productName));
  ProcessEliteToolbar(false);
  STEP(items = RegisteredItems());
  for (const Variant& each : items) {
    item = each;
    if (!item.IsEmpty()) STEP(Required(castToToolbar(item)).Redraw());
  }
}

void Main2::ShrinkToolbar() {
  METHOD(void, u"ShrinkToolbar");
  ProcessEliteToolbar(true);
}

// Word starts in the full toolbar, and only the user's command leaves it. On a bar that is small already this changes
// neither sizes nor the number of controls: it renews what can have changed.
void Main2::ProcessEliteToolbar(Boolean force) {
  METHOD(void, u"ProcessEliteToolbar", force);
  Object bar;
  Boolean needsShrinking = false;
  REPORTS(bar, needsShrinking);
  Log(u"ProcessEliteToolbar");
  if (isWord2007OrLater()) return;
  if (!force && !mSmallToolbar) return;
  RemoveAllToolbars();  // which leaves them alone once the toolbar is the small one
  mSmallToolbar = true;
  bar = ToolbarUtilities::CommandBar();
  if (isOutlookDocument()) {
    // The next document that comes to the front finds the work undone and comes back here.
    STEP(bar.Let("visible", false));
    return;
  }
  mHasShrunkToolbar = true;
  STEP(bar.Let("visible", true));
  CONDITION(isTall, ControlOf(bar, kMenuControl).Get("height").ToLong() > kSmallControl);
  if (isTall) needsShrinking = true;
  STEP(bar.Let("Protection", kNoProtection));
  if (needsShrinking) STEP(ControlOf(bar, kOfferControl).Call("Delete"));
  ProcessEliteButtons(needsShrinking);
  STEP(bar.Let("Protection", kNoCustomizing));
  UpdateLumivexIcon();
}

// A button whose icon can't be set keeps its old face.
void Main2::ProcessEliteButtons(Boolean needsShrinking) {
  METHOD(void, u"ProcessEliteButtons", needsShrinking);
  Object list;
  Object control;
  Integer count = 0;
  Integer i = 0;
  REPORTS(list, control, count, i);
  Log(Joined(u"ProcessEliteButtons ", needsShrinking));
  STEP(list = ToolbarUtilities::CommandBar().Get("Controls").ToObject());
  if (needsShrinking) STEP(ShrinkDropDownMenu(list.Get("Item", kMenuControl).ToObject()));
  STEP(count = list.Get("count").ToInteger());
  // The counter is wider than the positions, so that it gets past the last of them whatever the count.
  for (Long number = kProductControl; number <= count; ++number) {
    i = static_cast<Integer>(number);
    STEP(control = list.Get("Item", i).ToObject());
    if (needsShrinking) {
      STEP(control.Let("height", kSmallControl));
      STEP(control.Let("width", kSmallControl));
    }
    STEP(control.Let("tooltipText", ToolbarUtilities::tooltipText(i, true)));
  }
  here.IgnoreErrors();
  if (needsShrinking) {
    STEP(count = list.Get("count").ToInteger());
    for (Long number = kProductControl; number <= count; ++number) {
      i = static_cast<Integer>(number);
      PaintEliteToolbarIcon(i);
    }
  } else {
    PaintEliteToolbarIcon(kProductControl);  // no other icon can have changed
  }
  STEP(platform::Windows().DoEvents());
}

// A control for which Word found no room can't be painted.
void Main2::PaintEliteToolbarIcon(Integer index) {
  METHOD(void, u"PaintEliteToolbarIcon", index);
  Object control;
  REPORTS(control);
  STEP(control = ControlOf(ToolbarUtilities::CommandBar(), index));
  CONDITION(isDropped, control.Get("isPriorityDropped").ToBoolean());
  if (isDropped) return;
  ToolbarUtilities::SetButtonIcon(
      control, LoadImageFromResource::LoadResGifJpgBmp(ToolbarUtilities::pictureIndex(index, true), 0));
}

// The entry that brought the user here hides, so that nobody shrinks twice. Where there is none, the user sees the box
// too, without a text.
void Main2::ShrinkDropDownMenu(const Object& menuItem) {
  METHOD(void, u"ShrinkDropDownMenu", menuItem);
  Object entry;
  REPORTS(entry);
  STEP(menuItem.Let("height", kSmallControl));
  here.ClearError();
  {
    Walk walk;
    Boolean more = false;
    Boolean isIt = false;
    ATTEMPT(tell, more = walk.First(ControlOf(ToolbarUtilities::CommandBar(), kMenuControl).Get("Controls").ToObject(),
                                    entry));
    while (more) {
      ATTEMPT(tell, isIt = entry.Get("caption").ToText() == kShrinkEntry);
      if (isIt) {
        ATTEMPT(tell, entry.Let("visible", false));
        return;
      }
      ATTEMPT(tell, more = walk.Next(entry));
    }
  }
tell:
  entry = nullptr;
  STEP(platform::RunTime().MsgBox(here.LastError().description, msgbox::kOk, nullptr));
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
  Long key = 0;
  std::vector<Long> keys;
  REPORTS(key);
  Log(u"RemoveAllToolbars");
  if (mToolbars && !mSmallToolbar) {
    STEP(keys = RegisteredWindows());
    for (const Long each : keys) {
      key = each;
      RemoveToolbarImpl(key);
    }
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
