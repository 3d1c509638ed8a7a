#pragma once

// The strip that the user sees on one command bar: sixteen cells, painted over Word's real controls. Word lays the
// controls out; the strip reads their places, composes a frame off-screen and puts it on the bar's window in one blit.
// One object belongs to each Toolbar, on Word's user-interface thread. Pixels are those of the bar's window.
//
// A paint can come in while a frame is being composed, since the painter sends the window a message for its background.

#include "ads/AdPanel.h"
#include "drawing/Painter.h"
#include "toolbar/Menu.h"

namespace strandline {

// A variable for a value that goes by reference where nobody reads what is written to it.
template <class T>
T& Unread(T&& value) {
  return static_cast<T&>(value);
}

// One cell. A dropped cell, for which Word found no room, keeps its rectangle but is no part of the strip.
struct ButtonRect {
  Boolean isPriorityDropped = false;
  Long left = 0;
  Long top = 0;
  Long right = 0;
  Long bottom = 0;
};

class Buttons final : public ClassObject, public AdStrip {
 public:
  Buttons();

  // --- painting ---

  void Initialize(Long parentHwnd, Long hWnd, Boolean needAdvert);
  // The one frame routine: a new background where asked or needed, fresh cells where asked, and always the whole frame.
  void PaintIcons(Long activeDocHwnd, Boolean updateRects, Boolean forceRepaint);
  // A WM_PAINT of the bar.
  void HandlePaint(Long parentHwnd, Boolean updateRects);
  Variant NeedToPaintBackground(Long parentHwnd);
  void Redraw(Long parentHwnd);
  void PaintAd(Boolean forceEraseBackground) override;
  // One cell's picture; destHdc 0: into the frame. Sets forceEraseBackground for a Lumivex cell that is off.
  void PaintIcon(Integer index, Long destHdc, Boolean& forceEraseBackground);
  // state 0: raised edge, 2: the cell without an edge, any other: sunken edge.
  void ToggleBorder(Long hdc, Integer index, Long state);
  void UpdateLumivexIcon();
  // Reads the cells from Word; any error ends it quietly with False, and the cells read so far stay.
  Boolean UpdateButtonRects();
  void getWindowOffsets(Integer& left, Integer& top);
  Integer Min(Integer left, Integer right);

  // --- input ---

  // True: the mouse is on the strip, and its leaving has to be watched for.
  Boolean HandleMouseMove(Boolean lbuttonDown, Long x, Long y, Boolean hasChangedParentWindows);
  // True: the message is the strip's.
  Boolean HandleButtonDown(Long x, Long y);
  // True: the message is the strip's. Runs the command under the cell, which can run messages: a second click inside
  // the first is swallowed.
  Boolean HandleButtonUp();
  // hdc 0: a context of the window is taken and let go; the caller's variable is written.
  void removeButtonHighlighting(Long& hdc);
  // isMsgAdvert: a tick of the ad panel; else one that asks whether the mouse has left.
  void TimerTick(Boolean isMsgAdvert);
  Boolean MouseLeftToolbar();
  void HandleMouseLeftToolbar();
  void HandleMenuDrop();
  // To the middle of cell 2.
  void PositionCursorOverNewButton();

  // --- where a point lies ---

  // True, else empty. useMargins: within the union of the cells less a band of 7 pixels.
  Variant inToolbarClientArea(Long x, Long y, Boolean useMargins);
  // 0: on no cell.
  Integer HighlightedButtonIndex(Integer x, Integer y);
  Boolean inCtrl(Integer index, Integer x, Integer y);
  // The Lumivex cell while the feature is on.
  Boolean stickyButton(Integer index);

  // --- the ad panel; without one nothing happens ---

  // The bar has a new window.
  void SwitchListener(Long hWnd);
  void ClickOnAd();
  void ValueChanged(const Array<Boolean>& ads);
  void ReprimeTimerCycle();

  const Painter* painter() const { return mPainter.get(); }
  const AdPanel* advert() const { return mAdvert.get(); }
  void ReportVariables(Reporter& to) const override;

 private:
  friend struct ButtonsAccess;  // the tests' way to a strip that lacks its painter

  void Class_Initialize();
  void Terminated() override;

  FixedArray<ButtonRect, 0, 15> mButtons;  // cell `index` is element index - 1
  Ref<Painter> mPainter;
  Integer mHighlightedButton = 0;  // the cell under the mouse, 0 for none
  Long mButtonState = 0;           // look of that cell: 0 raised, 1 sunken
  Ref<Menu> mMenu;
  Ref<AdPanel> mAdvert;         // Nothing when the strip has no ad panel
  Long mHwnd = 0;               // the bar's window
  Integer mLastUpIndex = 0;     // the cell of the last click, which shows no tooltip until the mouse has been elsewhere
  Rect mBoundingRect;           // the union of the cells that aren't dropped
  Boolean mIsHandling = false;  // a click is being handled
  Long mLumivexButtonState = 0;  // 0 until first set, 1 on, 2 off
};

}  // namespace strandline
