// What the commands and the ribbon need of Main2: the bookmark's entry, the Lumivex button, the product's tab, and the
// relay's two events.

#include "addin/Main2.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 2000};

constexpr Integer kLumivexControl = 14;
constexpr Long kStateDown = -1;
constexpr Long kStateUp = 0;

}  // namespace

void Main2::EnableGotoQuickBookmark(Boolean& value) {
  METHOD(void, u"EnableGotoQuickBookmark", value);
  Log(Joined(u"EnableGotoQuickBookmark ", value));
  if (CommonWordInteractionFunctions::isWord2007OrLater()) {
    STEP(mRibbonHandler.Call("EnableGotoQuickBookmark", value));
    return;
  }
  // A template without the entry stays silent.
  here.IgnoreErrors();
  STEP(ToolbarUtilities::CommandBar()
           .Get("Controls")
           .ToObject()
           .Get("Item", ToolbarUtilities::variables.productState.Get("productName").ToText())
           .ToObject()
           .Get("Controls")
           .ToObject()
           .Get("Item", u"Go to quick bookmark")
           .ToObject()
           .Let("Enabled", value));
}

// The product hears of every update, not only of a toggle.
void Main2::UpdateLumivexIcon() {
  METHOD(void, u"UpdateLumivexIcon");
  Variant item;
  Object control;
  REPORTS(item, control);
  const Object& productState = ToolbarUtilities::variables.productState;
  Log(u"UpdateLumivexIcon");
  if (!mSmallToolbar) {
    std::vector<Variant> items;
    STEP(items = RegisteredItems());
    for (const Variant& each : items) {
      item = each;
      if (!item.IsEmpty()) STEP(Required(castToToolbar(item)).UpdateLumivexIcon());
    }
  } else if (CommonWordInteractionFunctions::isWord2007OrLater()) {
    STEP(mRibbonHandler.Call("UpdateLumivexIcon", productState.Get("lumivexEnabled").ToBoolean()));
  } else {
    STEP(control = ToolbarUtilities::CommandBar().Get("Controls").ToObject().Get("Item", kLumivexControl).ToObject());
    STEP(control.Let("tooltipText", ToolbarUtilities::lumivexCaption(false)));
    STEP(control.Let("state", productState.Get("lumivexEnabled").ToBoolean() ? kStateDown : kStateUp));
  }
  STEP(mRibbonEvents_run(u"LumivexToggled"));
}

void Main2::ActivateQuillmereTab() {
  METHOD(void, u"ActivateQuillmereTab");
  STEP(mRibbonHandler.Call(
      "ActivateQuillmereTab",
      CommonWordInteractionFunctions::Application().Get("CommandBars").ToObject().Get("Item", u"Ribbon").ToObject()));
}

Object Main2::RibbonHandler() {
  METHOD(Object, u"RibbonHandler[Get]");
  return here.result = mRibbonHandler;
}

// The image's file as it stands, not decoded.
void Main2::mRibbonEvents_getToolbarIconBits(Integer index, Array<Byte>& bits) {
  METHOD(void, u"mRibbonEvents_getToolbarIconBits", index, bits);
  STEP(if (!platform::Modules().LoadResData(index, u"CUSTOM", bits)) Raise(errors::kResourceNotFound));
}

void Main2::mRibbonEvents_run(const String& command) {
  METHOD(void, u"mRibbonEvents_run", command);
  CommonPropertyFunctions::ExecuteQLMCommand(command);
}

void Main2::getToolbarIconBits(Integer& index, Array<Byte>& bits) { mRibbonEvents_getToolbarIconBits(index, bits); }
void Main2::run(String& command) { mRibbonEvents_run(command); }

}  // namespace strandline
