// Start and stop of the library, and the documents' events.

#include "addin/Main2.h"

#include "addin/library.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::Documents;
using CommonWordInteractionFunctions::isWord2007OrLater;

namespace {

constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

}  // namespace

Main2::Main2() { Library::Enter(this); }

void Main2::Initialize(Object& word, Object& properties, Object& productState, String& productName) {
  METHOD(void, u"Initialize", word, properties, productState, productName);
  STEP(CommonLogger::OpenLog(CommonLogger::kOrdinary, productName, u"strandline", u"Morvane"));
  CommonWordInteractionFunctions::Initialize(word);
  CommonPropertyFunctions::properties(properties);
  ReleaseCallback();
  STEP(mCallbackToMe = New<AdvertisementsCallbackStub>());
  STEP(Required(mCallbackToMe).Advise(this));
  ToolbarUtilities::Initialize(mCallbackToMe, productState, productName);
  ProductNameChanged();
  if (!isWord2007OrLater()) {
    mToolbars = CommonPropertyFunctions::Dictionary();
    EnsureToolbarIsOnItsOwnRow();
    return;
  }
  STEP(ToolbarUtilities::CommandBar().Let("visible", false));
  ReleaseRibbonEvents();
  STEP(mRibbonEvents = New<RibbonEvents>());
  STEP(Required(mRibbonEvents).Advise(this));
  STEP(mRibbonHandler = platform::Components().CreateObject(u"RibbonHandler.Main2"));
  STEP(mRibbonHandler.Call("Initialize", Object(mRibbonEvents),
                           ToolbarUtilities::variables.productState.Get("productName").ToText()));
  mSmallToolbar = true;
  CONDITION(lumivexIsOn, ToolbarUtilities::variables.productState.Get("lumivexEnabled").ToBoolean());
  if (lumivexIsOn) UpdateLumivexIcon();
}

// The holders of the store and of Word go last, because ending a toolbar still needs them.
void Main2::Quit() {
  METHOD(void, u"Quit");
  REPORTS(sQuitting);
  if (sQuitting) return;
  sQuitting = true;
  Log(u"Quit", CommonLogger::kNoteworthy);
  RemoveAllToolbars();
  // The component goes while its relay is still alive, so that it can't call a dead one.
  mRibbonHandler = nullptr;
  ReleaseRibbonEvents();
  ReleaseCallback();
  ToolbarUtilities::Terminate();
  CommonPropertyFunctions::Terminate();
  CommonWordInteractionFunctions::Terminate();
  CommonLogger::CloseLog(-1);
}

void Main2::ReleaseRibbonEvents() {
  if (mRibbonEvents) mRibbonEvents->Unadvise(this);
  mRibbonEvents = nullptr;
}

void Main2::ReleaseCallback() {
  if (mCallbackToMe) mCallbackToMe->Unadvise(this);
  mCallbackToMe = nullptr;
}

void Main2::Terminated() {
  {
    METHOD(void, u"Class_Terminate");
    Quit();
  }
  mToolbars = nullptr;
  mRibbonHandler = nullptr;
  ReleaseRibbonEvents();
  ReleaseCallback();
  Library::Leave(this);
}

void Main2::HandleCreateDocument(Boolean& startedFromIcon) {
  METHOD(void, u"HandleCreateDocument", startedFromIcon);
  if (isWord2007OrLater()) {
    STEP(mRibbonHandler.Call("EnableToolbar", true));
    if (startedFromIcon) ActivateQuillmereTab();
  } else if (startedFromIcon) {
    CommonWordWindowFunctions::ActivateActiveDocumentWindow();
  }
  if (!mSmallToolbar) {
    if (CommonWordInteractionFunctions::ViewingReadingLayout()) {
      Log(u"Cancel HandleDocumentCreate for reading layout");
      ToolbarVisible(false);
      return;
    }
    // Equal counts mean that one entry no longer has its document: the new one isn't in the registry yet.
    CONDITION(equalCounts, Required(mToolbars).Count() == Documents().Get("count").ToLong());
    if (equalCounts) {
      CONDITION(noDocument, Documents().Get("count").ToLong() == 0);
      if (noDocument) {
        Log(u"Skip creation event that happened too early", CommonLogger::kNoteworthy);
        return;
      }
      RemoveExtraneousToolbar();
    }
  }
  HandleDocumentCreateImpl();
}

// odd: box-of-the-creation
void Main2::HandleDocumentCreateImpl() {
  METHOD(void, u"HandleDocumentCreateImpl");
  Long hwnd = 0;
  REPORTS(hwnd);
  if (isWord2007OrLater()) return;
  STEP(Log(u"HandleDocumentCreateImpl"));
  {
    ATTEMPT(failed, RemoveLastToolbar());
    // A window that is in the registry at a creation holds a stale toolbar, whatever its age.
    Boolean isStale = false;
    ATTEMPT(failed, isStale = ToolbarExists(hwnd));
    if (isStale) {
      ATTEMPT(failed, Log(Joined(u"Removed stale hwnd = ", Hex{hwnd})));
      ATTEMPT(failed, RemoveToolbarImpl(hwnd));
    }
    ATTEMPT(failed, ToggleToolbarForNoDocuments(true));
    if (!mSmallToolbar) ATTEMPT(failed, AddListener(hwnd));
    ATTEMPT(failed, Log(Joined(u"HandleDocumentCreateImpl End for ", Hex{hwnd})));
    return;
  }
failed:
  STEP(platform::RunTime().MsgBox(
      Concat({here.LastError().description, u" in HandleDocumentCreateImpl of ", HexText(hwnd)}), msgbox::kOk,
      nullptr));
}

Boolean Main2::ToolbarExists(Long& out_ParentHwnd) {
  METHOD(Boolean, u"ToolbarExists", out_ParentHwnd);
  out_ParentHwnd = CommonWordWindowFunctions::ActiveDocumentHandle();
  if (out_ParentHwnd == 0) return here.Leave();
  STEP(here.result = Required(mToolbars).Exists(out_ParentHwnd));
  if (!here.result) return here.Leave();
  CONDITION(isEmpty, Required(mToolbars).Item(out_ParentHwnd).IsEmpty());
  if (isEmpty) {
    Log(u"ERROR", CommonLogger::kFailure);
    RemoveToolbarImpl(out_ParentHwnd);
  }
  return here.Leave();
}

void Main2::AddListener(Long hwnd) {
  METHOD(void, u"AddListener", hwnd);
  Ref<Toolbar> toolbar;
  REPORTS(toolbar);
  STEP(Log(Joined(u"AddListener for ", CommonWordInteractionFunctions::ActiveDocument().Get("name").ToText(), u" (",
                  Hex{hwnd}, u")")));
  STEP(toolbar = New<Toolbar>());
  STEP(Required(toolbar).Initialize(hwnd));
  STEP(Required(mToolbars).Add(hwnd, Object(toolbar)));
}

void Main2::HandleDocumentChange() {
  METHOD(void, u"HandleDocumentChange");
  Boolean hasBookmark = false;
  REPORTS(hasBookmark);
  STEP(Log(u"HandleDocumentChange"));
  here.IgnoreErrors();
  STEP(hasBookmark = CommonWordInteractionFunctions::Application()
                         .Get("ActiveDocument")
                         .ToObject()
                         .Get("Bookmarks")
                         .ToObject()
                         .Call("Exists", u"quick")
                         .ToBoolean());
  EnableGotoQuickBookmark(hasBookmark);
  // A shrink that had to wait because the document was a mail.
  if (mSmallToolbar && !mHasShrunkToolbar) ProcessEliteToolbar(false);
}

// The count still includes the document that is closing. It is the active window that loses its entry, not necessarily
// the window of doc, which serves only the save question.
// odd: count-with-the-closing
Boolean Main2::HandleCloseDocument(Object& doc) {
  METHOD(Boolean, u"HandleCloseDocument", doc);
  Boolean cancel = false;
  Boolean hasRibbon = false;
  Long count = 0;
  REPORTS(cancel, hasRibbon, count);
  {
    ATTEMPT(markTemplate, Log(Joined(u"HandleCloseDocument for ", doc.Get("name").ToText())));
    ATTEMPT(markTemplate, cancel = CommonWordWindowFunctions::CancelCloseDueToSave(doc));
    if (cancel) return here.result = false;
    here.result = true;
    ATTEMPT(markTemplate, hasRibbon = isWord2007OrLater());
    ATTEMPT(markTemplate, count = Documents().Get("count").ToLong());
    if (hasRibbon) {
      if (count == 1 && !mRibbonHandler.IsNothing()) {
        ATTEMPT(markTemplate, mRibbonHandler.Call("EnableToolbar", false));
      }
    } else if (count > 0) {
      RemoveActiveToolbarEntry(true);
      ToggleToolbarForNoDocuments(false);
    } else {
      RemoveActiveToolbarEntry(false);
    }
  }
markTemplate:
  PreventQueryToSaveTemplate();
  return here.Leave();
}

void Main2::ReportVariables(Reporter& to) const {
  to.Tell(u"mToolbars", Object(mToolbars));
  to.List("mOldHwnd, mMoveToolbarFlag, mSmallToolbar, mRibbonHandler, mHasShrunkToolbar", mOldHwnd, mMoveToolbarFlag,
          mSmallToolbar, mRibbonHandler, mHasShrunkToolbar);
  to.Tell(u"mRibbonEvents", Variant(mRibbonEvents));
  to.Tell(u"mCallbackToMe", Variant(mCallbackToMe));
}

void Main2::ReportToolbars(StateVisitor& to) const {
  if (!mToolbars) return;
  const Array<Variant> items = mToolbars->Items();
  for (const Variant& item : items.Elements()) {
    const Object* const object = item.If<Object>();
    const auto* const toolbar = object ? dynamic_cast<const Toolbar*>(object->Target()) : nullptr;
    if (toolbar) toolbar->ReportState(to);
  }
}

}  // namespace strandline
