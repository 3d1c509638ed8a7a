#pragma once

// The windows of the desk as a tree under the desktop, each list of siblings in z-order, and which pixels of the screen
// each of them shows.

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/desk/raster/region.h"
#include "platform/host.h"

namespace strandline::desk {

inline constexpr Long kLibraryThread = 1;
inline constexpr Long kOtherThread = 2;   // another program's
inline constexpr Long kSystemThread = 3;  // the desktop's

struct Window {
  bool IsOurs() const { return thread == kLibraryThread; }
  Point Origin() const { return {bounds.left, bounds.top}; }

  Handle handle = 0;
  String className;
  String title;
  Long thread = kLibraryThread;
  WindowProcedure* procedure = nullptr;
  Window* parent = nullptr;                       // null for the desktop only
  std::vector<std::unique_ptr<Window>> children;  // the topmost first
  Rect bounds;                                    // on the screen
  bool visible = false;
  bool iconic = false;
  bool dying = false;  // has had its WM_DESTROY

  Region shown;    // on the screen: what neither windows above nor its own children cover
  Point shownAt;   // its origin when `shown` was found
  Region invalid;  // in the window's pixels, always part of what shows

  std::int64_t paintInstant = -1;  // when it last was asked to paint
  int paintsUnanswered = 0;        // at that instant, without having validated
};

class WindowTree {
 public:
  // Fills pixels that belong to the desktop or to another program; nobody else would.
  using BackdropPainter = std::function<void(Long hwnd, const Region& onScreen)>;

  WindowTree(int screenWidth, int screenHeight);

  Window& Desktop() { return mDesktop; }
  // Null when there is none; 0 is none.
  Window* Find(Long hwnd) const;
  // As Find, but 0 means the desktop.
  Window* FindParent(Long hwnd) { return hwnd == 0 ? &mDesktop : Find(hwnd); }
  Window& Add(Window& parent, const Rect& bounds);
  // With all under it.
  void Remove(Window& window);
  // To the top of its siblings, or just behind `above`.
  void Raise(Window& window, const Window* above = nullptr);
  // All under it move along.
  void Place(Window& window, const Rect& bounds);

  // The window's ancestor directly under the desktop.
  Window& TopLevelOf(Window& window) const;
  bool IsVisible(const Window& window) const;
  // The window, then all under it, parents before children, the topmost first. The order in which they stand when
  // asked.
  std::vector<Window*> InOrder(Window& window) const;
  // The window of ours that shows at this pixel; 0 when none does.
  Long At(Point screen) const;
  // The first window in that order that has to paint; null when all is well.
  Window* FirstInvalid() { return FirstInvalidUnder(mDesktop); }

  // Finds anew what every window shows. Pixels that a window didn't show before, and all of those of a window that has
  // moved, are invalid then. To be called after each change that can matter.
  void Refresh();
  void Invalidate(Window& window);
  // Paints at once what shows of the backdrop.
  void SetBackdropPainter(BackdropPainter painter);
  // Goes up whenever some window's `shown` has changed.
  std::uint64_t Generation() const { return mGeneration; }

 private:
  struct Reveal {
    Long hwnd;
    Region onScreen;
  };

  Window* FirstInvalidUnder(Window& window);
  void FindShown(Window& window, Region& available);
  void Settle(Window& window, Region shown);

  Window mDesktop;
  std::unordered_map<Long, Window*> mByHandle;
  Long mNextHandle;
  BackdropPainter mPainter;
  std::vector<Reveal> mReveals;
  std::uint64_t mGeneration = 0;
};

}  // namespace strandline::desk
