#pragma once

// The simulated Word with the simulated product in it: the objects that the library is handed, the windows that it
// finds, and the operations by which a scene or a test plays user. All windows are made through the host interfaces, so
// the same world plays on the desk and on real windows.
//
// Operations that name a document answer False, and do nothing, when no such document is open; those that mean the
// active one, when none is. Nothing here calls into the library but through the hooks, listeners and messages.

#include <memory>
#include <string>
#include <vector>

#include "platform/host.h"
#include "platform/platform.h"
#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class ApplicationObject;
class CommandBar;
class Document;
class DocumentFrame;
class FrameServices;
class BarControl;
class PopupMenu;
class Product;
class TooltipWindow;

class WordWorld {
 public:
  WordWorld(const Platform& platform, HostWindows& hostWindows, HostCanvas& canvas, HostClock& clock,
            const Settings& settings);
  // Every object of the world that is still held raises "Object has been deleted" from now on.
  ~WordWorld();
  WordWorld(const WordWorld&) = delete;
  WordWorld& operator=(const WordWorld&) = delete;

  // What the library is handed.
  Object Application() const;
  Object Properties() const;
  Object ProductState() const;
  // Raises 429 for a component that is missing or that nobody knows.
  Object CreateComponent(const String& progId);

  // Who watches, and what fails.
  void SetUseObserver(UseObserver* observer);
  UseFaults& Faults();
  Hooks& TheHooks() { return mHooks; }
  Product& TheProduct() { return *mProduct; }

  // Documents. A document that is opened becomes active; one that is open already is only activated.
  Document& Open(const String& name, OpenFlags flags = {});
  bool Activate(const String& name);
  // Characters that the user types: the document has unsaved changes.
  bool Type(const String& name, Long characters = 1);
  // The document goes; the most recently active other one becomes active, the last one leaves its window empty.
  bool Close(const String& name);
  bool Minimise(const String& name);
  bool Restore(const String& name);
  bool SetBookmark(const String& name, bool on);                              // of the active document
  bool SetVariable(const String& name, const String& value);                  // of the active document
  bool SetEmail(bool on);                                                     // the active document is a mail
  Document* Find(const String& name) const;                                   // without case; null when it isn't open
  Document* Active() const;                                                   // null when none is open
  const std::vector<Ref<Document>>& Documents() const { return mDocuments; }  // the one opened last comes first
  void Cover(bool covered);  // another program's window covers everything, and goes again

  // The product's bar. Positions are pixels of the bar's window; control numbers count from 1.
  bool PlaceCell(Long control, const Rect& place);  // False when the bar has no such control
  bool DropCell(Long control, bool dropped);        // False when the bar has no such control
  // Of the active window; the messages that follow from it run. False when there is no bar window.
  bool ResizeBar(Long width, Long height);
  // Word makes a new window for the bar of the active document and passes the mouse capture to it. False when there is
  // no bar window to begin with.
  bool DockBar(BarPosition position);
  // The place of a control in the pixels of the bar's window of that document (null: of the active one); an empty
  // rectangle when there is none.
  Rect CellPlace(Long control, const Document* document = nullptr) const;
  // The product's menu drops below its control in the active window, until an entry is picked or the user goes
  // elsewhere. One that is open already opens anew. False when there is no such control in sight.
  bool OpenMenu();
  void CloseMenu();
  bool IsMenuOpen() const { return mMenu != nullptr; }
  // Where an entry of the open menu stands on the screen; empty when it doesn't show.
  Rect EntryPlace(const String& caption) const;
  // The user picks the entry of that caption from the product's menu. False when no entry that shows is called so.
  bool PickEntry(const String& caption);
  void Pick(BarControl& entry);
  // A control of the product's bar is executed: the one with the menu drops it, any other closes it, and its macro
  // runs.
  void Run(BarControl& control);
  // The user presses Word's own control, where nothing lies over it.
  void PressControl(Long control);
  // One of Word's dialogs is open as long as the hook runs; its controls can't be executed meanwhile.
  void ShowDialog(Long number);
  bool IsDialogOpen() const { return mOpenDialogs > 0; }
  CommandBar& ProductBar() const { return *mProductBar; }

  // Windows: "top 1" a document's window, "bar 1" a window of the product's bar, each numbered in the order of making.
  Long ActiveBarWindow() const;                      // 0 when there is none
  Long BarWindowOf(const String& document) const;    // 0 when there is none
  Long ActiveTopWindow() const;                      // 0 when there is none
  std::string WindowName(Long hwnd) const;           // empty for a window that isn't Word's
  Long WindowByName(const std::string& name) const;  // 0 when there is none
  // A raw message to the active document's bar window. 0 without one.
  Long SendToBar(Long message, Long wParam, Long lParam);

  // For the objects of the world.
  const Settings& TheSettings() const { return mSettings; }
  Long Version() const { return mVersion; }  // Word's whole number: 9 to 11 with command bars, from 12 on the ribbon
  const std::vector<Ref<CommandBar>>& Bars() const { return mBars; }
  void BarsChanged();                     // something that shows of the bars has changed
  void BarRepositioned(CommandBar& bar);  // Position was written
  void ControlsResized(CommandBar& bar);  // controls ask for another size; a size that a user gave the bar is void
  void ControlRemoved(CommandBar& bar, Long position);  // counted from 1
  void RepaintBars();
  DocumentFrame* ActiveFrame() const;
  const Platform& Services() const { return mPlatform; }

 private:
  void MakeBars();
  void Front(Document& document);
  std::shared_ptr<DocumentFrame> FrameFor(OpenFlags flags);
  void GoAway(const Ref<Document>& document);
  // Word takes what is changed of the bar for a change of the template that it came from.
  void MarkTemplate();

  Settings mSettings;
  Platform mPlatform;
  HostWindows& mHostWindows;
  Long mVersion;
  Hooks mHooks;
  Ref<ObjectUses> mUses;
  std::unique_ptr<FrameServices> mFrameServices;
  std::unique_ptr<Product> mProduct;
  Ref<ApplicationObject> mApplication;
  std::vector<Ref<CommandBar>> mBars;
  Ref<CommandBar> mProductBar;
  std::vector<Ref<Document>> mDocuments;
  std::vector<Document*> mRecent;  // the active one first
  std::vector<std::shared_ptr<DocumentFrame>> mFrames;
  std::unique_ptr<TooltipWindow> mTooltip;
  std::unique_ptr<PopupMenu> mMenu;
  int mOpenDialogs = 0;
  Long mLastDocumentIdentity = 0;
};

}  // namespace strandline::wordsim
