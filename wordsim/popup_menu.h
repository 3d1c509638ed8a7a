#pragma once

// The product's menu while it is dropped: a window beside the bar of the control that it belongs to, with the entries
// that show. It takes the mouse capture, as Word's menus do: with it, the pointer that leaves the menu, or a press
// elsewhere, closes the menu. Once somebody has let the capture go, only a press does.

#include <vector>

#include "platform/host.h"
#include "wordsim/bar_layout.h"

namespace strandline::wordsim {

class BarControl;
class BarControls;
class FrameServices;

// Where a menu of that size stands: below the bar, or above it where there is no room; at the side of a bar that is
// higher than wide. It never lies over the bar, whose pixels are the strip's. All in screen pixels.
Rect PlaceOfMenu(Size size, const Rect& control, const Rect& bar, const Rect& screen);

class PopupMenu final : public WindowProcedure {
 public:
  // The control and its bar on the screen, pixels. The entries outlive the menu.
  PopupMenu(FrameServices& services, const BarControls& entries, const Rect& control, const Rect& bar);
  ~PopupMenu();
  PopupMenu(const PopupMenu&) = delete;
  PopupMenu& operator=(const PopupMenu&) = delete;

  Long Hwnd() const { return mHwnd; }
  // On the screen; empty for an entry that doesn't show.
  Rect PlaceOf(const BarControl& entry) const;

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override;

 private:
  std::vector<BarControl*> Shown() const;
  BarControl* EntryAt(Point inside) const;
  Size FullSize() const;
  Long Released(Point inside);
  void Hover(Point inside);
  void Paint(Long hdc) const;
  void PaintEntry(Long hdc, const BarControl& entry, const Rect& row) const;

  FrameServices& mServices;
  const BarControls& mEntries;
  Long mHwnd = 0;
  const BarControl* mHovered = nullptr;  // only compared, never used
};

}  // namespace strandline::wordsim
