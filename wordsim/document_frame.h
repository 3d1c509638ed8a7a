#pragma once

// DocumentFrame is the top-level window in which a document stands, with its four docks, the command bars in them and
// the paper. Each frame has windows of its own for the bars, though a bar is one object to Word; so each frame also has
// a layout of its own. A frame outlives its document when that was the last one: it is then empty.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/host.h"
#include "platform/platform.h"
#include "wordsim/bar_layout.h"
#include "wordsim/frame_painter.h"
#include "wordsim/window_names.h"

namespace strandline::wordsim {

class CommandBar;
class WordWorld;

// What all frames need of the world around them.
class FrameServices {
 public:
  FrameServices(WordWorld& theWorld, const Platform& thePlatform, HostWindows& theHost, HostCanvas& theCanvas,
                HostClock& theClock)
      : world(theWorld), platform(thePlatform), host(theHost), canvas(theCanvas), clock(theClock) {}

  WordWorld& world;
  const Platform& platform;
  HostWindows& host;
  HostCanvas& canvas;
  HostClock& clock;
  WindowNames names;
};

// Word's own numbers.
enum class FrameState : Long { kNormal = 0, kMaximised = 1, kMinimised = 2 };

class DocumentFrame final : public WindowProcedure, public std::enable_shared_from_this<DocumentFrame> {
 public:
  // `place` on the screen, pixels. The windows of the bars come with the first Arrange.
  DocumentFrame(FrameServices& services, bool isOutlook, const Rect& place);
  ~DocumentFrame();
  DocumentFrame(const DocumentFrame&) = delete;
  DocumentFrame& operator=(const DocumentFrame&) = delete;

  Long Top() const { return mTop; }
  bool IsOutlook() const { return mIsOutlook; }
  // Destroys the windows.
  void Close();
  // The document's name; empty for none.
  void SetDocumentName(const String& name);
  void SetView(PaperView view);
  FrameState State() const;
  void SetState(FrameState state);
  // Floating bars show above the active window only.
  void SetActive(bool isActive);

  // Brings all windows to where the bars' properties want them; a bar that is wanted for the first time gets a window.
  void Arrange();
  // The bar goes to another dock by way of a new window.
  void Reposition(CommandBar& bar, BarPosition position);
  // The same as a user does it: the old window has the mouse capture, the new one gets it. False without a window.
  bool DragBar(CommandBar& bar, BarPosition position);
  // A size of the user's choice, pixels; False without a window.
  bool ResizeBar(const CommandBar& bar, Size size);
  void ForgetBarSize(const CommandBar& bar);
  void ForgetCell(const CommandBar& bar, Long control);

  Long BarWindow(const CommandBar& bar) const;                   // 0 as long as there is none
  CellPlace PlaceOf(const CommandBar& bar, Long control) const;  // pixels of the bar's window; control from 1
  Point BarOriginOnScreen(const CommandBar& bar) const;
  void Repaint();
  void RepaintBars();

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override;

 private:
  // A bar as it stands in this frame.
  struct Slot {
    CommandBar* bar = nullptr;
    BarPosition position = BarPosition::kTop;
    Long hwnd = 0;
    bool wasWanted = false;
    bool isShown = false;
    bool hasFace = false;      // Word has drawn into the window
    std::optional<Size> size;  // of the user's choice
    std::vector<CellPlace> places;
  };
  struct Dock {
    BarPosition position;
    Long hwnd = 0;
  };

  Long MakeWindow(const String& className, const String& title, Long parent, const char* kind);
  void MakeDocks();
  Slot* SlotOf(const CommandBar& bar);
  const Slot* SlotOf(const CommandBar& bar) const;
  Long DockOf(BarPosition position) const;
  void WantBars();
  void MakeBarWindow(Slot& slot);
  void ShowBars();
  void DrawNewBars();
  void ArrangeDocks();
  Size SizeOf(const Slot& slot) const;
  std::vector<Slot*> ShownIn(BarPosition position);
  Long ThicknessOf(BarPosition position);
  void FillDock(const Dock& dock, const Rect& place);
  void FloatBars();
  void LayOutControls();
  void MoveTo(Long hwnd, const Rect& place);
  Rect Where(Long hwnd) const;
  void Paint(Long hwnd, Long hdc) const;
  void OnButton(Long hwnd, Long message, Point inside);
  Long ControlAt(const Slot& slot, Point inside) const;

  FrameServices& mServices;
  bool mIsOutlook;
  Rect mNormalPlace;
  bool mIsMaximised = false;
  bool mIsActive = false;
  Long mPressed = 0;  // Word's own control that the mouse was pressed on; 0: none
  String mDocumentName;
  PaperView mView = PaperView::kPage;
  Long mTop = 0;
  Long mPaper = 0;
  std::vector<Dock> mDocks;
  std::vector<Slot> mSlots;
};

}  // namespace strandline::wordsim
