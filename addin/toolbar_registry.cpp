// The registry of toolbars by window: who is in it, who has to go, and what the ads' events reach through it.

#include "addin/Main2.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::Documents;

namespace {
constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

Ref<Toolbar> Cast(const Variant& item) {
  const Object object = item.ToObject();
  Toolbar* const toolbar = dynamic_cast<Toolbar*>(object.Target());
  if (!toolbar && !object.IsNothing()) Raise(errors::kTypeMismatch);
  return Ref<Toolbar>(toolbar);
}

}  // namespace

Ref<Toolbar> Main2::castToToolbar(const Variant& item) {
  METHOD(Ref<Toolbar>, u"castToToolbar", item);
  STEP(here.result = Cast(item));
  return here.Leave();
}

// A window that isn't in the registry comes in by being asked for, with Empty, which is no toolbar; ToolbarExists mends
// that.
Ref<Toolbar> Main2::Toolbars(Long hwnd) {
  METHOD(Ref<Toolbar>, u"Toolbars[Get]", hwnd);
  STEP(here.result = Cast(Required(mToolbars).Item(hwnd)));
  return here.Leave();
}

void Main2::RemoveToolbarImpl(Long hwnd) {
  METHOD(void, u"RemoveToolbarImpl", hwnd);
  Ref<Toolbar> toolbar;
  REPORTS(toolbar);
  Log(Joined(u"Remove Toolbar (", Hex{hwnd}, u")"), CommonLogger::kNoteworthy);
  CONDITION(exists, Required(mToolbars).Exists(hwnd));
  if (!exists) return;
  // An Empty item has been reported by then; it has nothing to end and goes all the same.
  toolbar = Toolbars(hwnd);
  if (toolbar) toolbar->Terminate();
  toolbar = nullptr;
  STEP(Required(mToolbars).Remove(hwnd));
  STEP(Log(Joined(u"Removed toolbar, the remaining count ", Required(mToolbars).Count())));
}

void Main2::RemoveExtraneousToolbar() {
  METHOD(void, u"RemoveExtraneousToolbar");
  Integer i = 0;
  Integer last = 0;
  Long key = 0;
  Object doc;
  Boolean found = false;
  REPORTS(i, last, key, doc, found);
  Log(u"RemoveExtraneousToolbar", CommonLogger::kFailure);
  if (mSmallToolbar) return;
  STEP(last = ToInteger(Required(mToolbars).Count() - 1));
  for (i = 0; i <= last; ++i) {
    STEP(key = Required(mToolbars).KeyAt(i).ToLong());
    found = false;
    Walk walk;
    CONDITION(more, walk.First(Documents(), doc));
    while (more && !found) {
      CONDITION(isItsDocument, Required(Toolbars(key)).isDocument(doc));
      if (isItsDocument) found = true;
      more = false;
      if (!found) STEP(more = walk.Next(doc));
    }
    if (found) continue;
    RemoveToolbarImpl(key);
    return;
  }
}

// Concerns the step between no document and one document only.
void Main2::ToggleToolbarForNoDocuments(Boolean enabled) {
  METHOD(void, u"ToggleToolbarForNoDocuments", enabled);
  Integer count = 0;
  Integer i = 0;
  REPORTS(sEnabled, count, i);
  CONDITION(several, Documents().Get("count").ToLong() > 1);
  if (several) return;
  if (enabled == sEnabled) return;
  sEnabled = enabled;
  Log(Joined(u"ToggleToolbar ", enabled));
  if (!mSmallToolbar) return ToolbarVisible(enabled);
  ToolbarVisible(true);
  STEP(count = ToolbarUtilities::CommandBar().Get("Controls").ToObject().Get("count").ToInteger());
  // The counter is wider than the positions, so that it gets past the last of them whatever the count.
  for (Long number = 1; number <= count; ++number) {
    i = static_cast<Integer>(number);
    STEP(const Object control = ToolbarUtilities::CommandBar().Get("Controls").ToObject().Get("Item", i).ToObject();
         control.Let("Enabled", enabled || ToolbarUtilities::EnableList(i)));
  }
}

// All keys go: at this moment the last document's toolbar is the only entry that should stand.
void Main2::RemoveLastToolbar() {
  METHOD(void, u"RemoveLastToolbar");
  Long key = 0;
  std::vector<Long> keys;
  REPORTS(key);
  if (!mMoveToolbarFlag) return;
  mMoveToolbarFlag = false;
  Log(u"RemoveLastToolbar");
  if (mToolbars) {
    STEP(keys = RegisteredWindows());
    for (const Long each : keys) {
      key = each;
      RemoveToolbarImpl(key);
    }
  }
}

// odd: waiting-entry
void Main2::RemoveActiveToolbarEntry(Boolean keepLastDocument) {
  METHOD(void, u"RemoveActiveToolbarEntry", keepLastDocument);
  Long count = 0;
  Long hwnd = 0;
  REPORTS(count, hwnd);
  if (mSmallToolbar) return;
  STEP(count = Documents().Get("count").ToLong());
  if (count == 0) return;
  hwnd = CommonWordWindowFunctions::ActiveDocumentHandle();
  if (keepLastDocument && count == 1) {
    Log(Joined(u"RemoveActiveToolbarEntry, calling AfterLastDocumentClose for ", Hex{hwnd}));
    mOldHwnd = hwnd;
    CONDITION(isRegistered, Required(mToolbars).Exists(mOldHwnd) && Toolbars(mOldHwnd));
    if (isRegistered) mMoveToolbarFlag = true;
  } else {
    Log(u"RemoveActiveToolbarEntry");
    RemoveToolbarImpl(hwnd);
  }
}

// odd: empty-entry
void Main2::mCallbackToMe_ValueChangedWithAds(const Array<Boolean>& ads, const String& value) {
  METHOD(void, u"mCallbackToMe_ValueChangedWithAds", ads, value);
  Long key = 0;
  std::vector<Long> keys;
  REPORTS(key);
  STEP(Required(mToolbars); keys = RegisteredWindows());
  for (const Long each : keys) {
    key = each;
    STEP(Required(Toolbars(key)).ValueChanged(ads, value));
  }
}

void Main2::mCallbackToMe_DownloadedNewAds() {
  METHOD(void, u"mCallbackToMe_DownloadedNewAds");
  Variant item;
  std::vector<Variant> items;
  REPORTS(item);
  STEP(Required(mToolbars); items = RegisteredItems());
  for (const Variant& each : items) {
    item = each;
    if (!item.IsEmpty()) STEP(Required(castToToolbar(item)).ReprimeTimerCycle());
  }
}

// As they are now; the registry may change while they are gone through.
std::vector<Long> Main2::RegisteredWindows() const {
  std::vector<Long> windows;
  if (!mToolbars) return windows;
  const Array<Variant> keys = mToolbars->Keys();
  for (const Variant& key : keys.Elements()) windows.push_back(key.ToLong());
  return windows;
}

std::vector<Variant> Main2::RegisteredItems() const {
  return mToolbars ? mToolbars->Items().Elements() : std::vector<Variant>();
}

void Main2::ValueChangedWithAds(Array<Boolean>& ads, String& value) { mCallbackToMe_ValueChangedWithAds(ads, value); }
void Main2::DownloadedNewAds() { mCallbackToMe_DownloadedNewAds(); }

}  // namespace strandline
