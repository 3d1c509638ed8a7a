#pragma once

// The public class of the library, through which the product drives everything. The product calls Initialize once,
// first; then forwards Word's document events and the user's commands; Quit last, which the object's end calls too.
//
// Owns the registry: one Toolbar for each top-level Word window that shows a document, on Word before 2007. A toolbar
// enters it only when it is fully up, so that a call which arrives while Word still makes the bar's window doesn't see
// it. All calls come on Word's user-interface thread.

#include "addin/RibbonEvents.h"
#include "ads/AdvertisementsCallbackStub.h"
#include "platform/dictionary.h"
#include "toolbar/Toolbar.h"

namespace strandline {

class Main2 final : public ClassObject, private AdvertisementsCallbackStub::Sink, private RibbonEvents::Sink {
 public:
  Main2();

  // --- for the product ---

  // A second call isn't expected. Raises 12345 inside for a word that is Nothing, and goes on as far as it comes.
  void Initialize(Object& word, Object& properties, Object& productState, String& productName);
  // Runs the public operation of that name, letters without case, that takes no argument; its result as text.
  String Execute(String& command);
  // startedFromIcon: the product was started by its own icon, and comes to the front.
  void HandleCreateDocument(Boolean& startedFromIcon);
  void HandleDocumentChange();
  // Called before Word closes doc. True when the close may go on.
  Boolean HandleCloseDocument(Object& doc);
  void EnableGotoQuickBookmark(Boolean& value);
  // The ribbon component; Nothing before Word 2007 and after Quit.
  Object RibbonHandler();
  // Both change between the reading layout and the ordinary view.
  void ReadingMode();
  void ReadingModeLayout();
  void CloseReadingMode();
  void ToggleLumivex();
  void FilePrintPreview2();
  void ClosePreview();
  // To Word's own bar with small icons; there is no way back while Word runs.
  void ShrinkToolbar();
  void ProductNameChanged();
  // The manual's path, for the caller to open. Empty when the user is in the manual already: Find shows instead.
  String OpenUserManual();
  void UseQuillmere();
  void ClickOnAd();
  void Quit();

  // The operations above by name (addin/operations.h), with positional and named arguments; what an operation writes to
  // an argument comes back through a reference. Raises 438 for a name that isn't there and for a let, and what
  // Main2Operation::Invoke raises; an error inside an operation ends there.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;

  void ReportVariables(Reporter& to) const override;
  // The toolbars, in the order of the registry.
  void ReportToolbars(StateVisitor& to) const;

 private:
  friend struct Main2Access;  // the tests' way to the operations below

  // --- document lifecycle ---
  void HandleDocumentCreateImpl();
  Ref<Toolbar> castToToolbar(const Variant& item);
  void AddListener(Long hwnd);
  Boolean ToolbarExists(Long& out_ParentHwnd);
  void RemoveExtraneousToolbar();
  void RemoveToolbarImpl(Long hwnd);
  void ToggleToolbarForNoDocuments(Boolean enabled);
  void RemoveLastToolbar();
  void RemoveActiveToolbarEntry(Boolean keepLastDocument);
  Ref<Toolbar> Toolbars(Long hwnd);
  void mCallbackToMe_ValueChangedWithAds(const Array<Boolean>& ads, const String& value);
  void mCallbackToMe_DownloadedNewAds();
  std::vector<Long> RegisteredWindows() const;
  std::vector<Variant> RegisteredItems() const;

  // --- commands ---
  void ToggleReadingMode(Boolean enable);
  void UpdateLumivexIcon();
  void ActivateQuillmereTab();

  // --- the command bar ---
  void ProcessEliteToolbar(Boolean force);
  void ProcessEliteButtons(Boolean needsShrinking);
  void PaintEliteToolbarIcon(Integer index);
  void ShrinkDropDownMenu(const Object& menuItem);
  Boolean isOutlookDocument();
  void ProductNameChangedForWord2003AndEarlier(const String& productName);
  void RemoveAllToolbars();
  void ToolbarVisible(Boolean value);
  void PreventQueryToSaveTemplate();
  void EnsureToolbarIsOnItsOwnRow();
  void EnsureAnotherToolbarIsAtTheBottom();

  // --- the ribbon ---
  void mRibbonEvents_getToolbarIconBits(Integer index, Array<Byte>& bits);
  void mRibbonEvents_run(const String& command);

  void ValueChangedWithAds(Array<Boolean>& ads, String& value) override;
  void DownloadedNewAds() override;
  void getToolbarIconBits(Integer& index, Array<Byte>& bits) override;
  void run(String& command) override;
  void Terminated() override;
  void ReleaseRibbonEvents();
  void ReleaseCallback();

  Ref<Dictionary> mToolbars;  // by window; Nothing on Word 2007 and later
  Long mOldHwnd = 0;          // the window of the last document, whose entry stands until the next creation
  Boolean mMoveToolbarFlag = false;
  Boolean mSmallToolbar = false;
  Object mRibbonHandler;
  Boolean mHasShrunkToolbar = false;
  Ref<RibbonEvents> mRibbonEvents;
  Ref<AdvertisementsCallbackStub> mCallbackToMe;

  Boolean sEnabled = false;
  Boolean sQuitting = false;
};

}  // namespace strandline
