#include "platform/desk/window_tree.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace strandline::desk {
namespace {

constexpr Long kDesktopHandle = 0x10010;
constexpr Long kFirstHandle = 0x20100;
constexpr Long kHandleStep = 2;

Clip ClipOf(const Rect& rectangle) { return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}; }

Long Moved(Long edge, std::int64_t distance) {
  return static_cast<Long>(
      std::clamp<std::int64_t>(edge + distance, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()));
}

// An inverted rectangle becomes one without pixels at its left top corner.
Rect Upright(Rect rectangle) {
  rectangle.right = std::max(rectangle.left, rectangle.right);
  rectangle.bottom = std::max(rectangle.top, rectangle.bottom);
  return rectangle;
}

void Shift(Window& window, std::int64_t dx, std::int64_t dy) {
  for (const auto& child : window.children) {
    Rect& bounds = child->bounds;
    bounds = {Moved(bounds.left, dx), Moved(bounds.top, dy), Moved(bounds.right, dx), Moved(bounds.bottom, dy)};
    Shift(*child, dx, dy);
  }
}

void Append(Window& window, std::vector<Window*>& list) {
  list.push_back(&window);
  for (const auto& child : window.children) Append(*child, list);
}

auto PlaceOf(std::vector<std::unique_ptr<Window>>& siblings, const Window* window) {
  return std::find_if(siblings.begin(), siblings.end(), [window](const auto& each) { return each.get() == window; });
}

// Invalid pixels are kept in the window's own coordinates, so that they move along with it.
Region ToScreen(const Window& window, Region region) {
  region.Offset(window.bounds.left, window.bounds.top);
  return region;
}

Region ToWindow(const Window& window, Region region) {
  region.Offset(Moved(0, -std::int64_t{window.bounds.left}), Moved(0, -std::int64_t{window.bounds.top}));
  return region;
}

}  // namespace

WindowTree::WindowTree(int screenWidth, int screenHeight) : mNextHandle(kFirstHandle) {
  mDesktop.handle = kDesktopHandle;
  mDesktop.className = u"#32769";
  mDesktop.thread = kSystemThread;
  mDesktop.bounds = {0, 0, std::max(screenWidth, 1), std::max(screenHeight, 1)};
  mDesktop.visible = true;
  mByHandle[kDesktopHandle] = &mDesktop;
  Refresh();
}

Window* WindowTree::Find(Long hwnd) const {
  const auto found = mByHandle.find(hwnd);
  return found == mByHandle.end() ? nullptr : found->second;
}

Window& WindowTree::Add(Window& parent, const Rect& bounds) {
  auto window = std::make_unique<Window>();
  window->handle = mNextHandle;
  mNextHandle += kHandleStep;
  window->parent = &parent;
  window->bounds = Upright(bounds);
  window->shownAt = window->Origin();
  Window& added = *window;
  mByHandle[added.handle] = &added;
  parent.children.insert(parent.children.begin(), std::move(window));
  return added;
}

void WindowTree::Remove(Window& window) {
  if (window.parent == nullptr) return;
  for (const Window* each : InOrder(window)) mByHandle.erase(each->handle);
  auto& siblings = window.parent->children;
  siblings.erase(PlaceOf(siblings, &window));
}

void WindowTree::Raise(Window& window, const Window* above) {
  if (window.parent == nullptr || above == &window) return;
  auto& siblings = window.parent->children;
  const auto from = PlaceOf(siblings, &window);
  auto moving = std::move(*from);
  siblings.erase(from);
  auto to = siblings.begin();
  if (above != nullptr && above->parent == window.parent) to = PlaceOf(siblings, above) + 1;
  siblings.insert(to, std::move(moving));
}

void WindowTree::Place(Window& window, const Rect& bounds) {
  const Point from = window.Origin();
  window.bounds = Upright(bounds);
  Shift(window, std::int64_t{window.bounds.left} - from.x, std::int64_t{window.bounds.top} - from.y);
}

Window& WindowTree::TopLevelOf(Window& window) const {
  Window* at = &window;
  while (at->parent != nullptr && at->parent->parent != nullptr) at = at->parent;
  return *at;
}

bool WindowTree::IsVisible(const Window& window) const {
  for (const Window* at = &window; at != nullptr; at = at->parent) {
    if (!at->visible) return false;
  }
  return true;
}

std::vector<Window*> WindowTree::InOrder(Window& window) const {
  std::vector<Window*> list;
  Append(window, list);
  return list;
}

Long WindowTree::At(Point screen) const {
  const Window* at = &mDesktop;
  for (bool deeper = true; deeper;) {
    const auto child = std::find_if(at->children.begin(), at->children.end(), [&screen](const auto& each) {
      return each->visible && !each->iconic && Contains(ClipOf(each->bounds), screen.x, screen.y);
    });
    deeper = child != at->children.end();
    if (deeper) at = child->get();
  }
  return at->IsOurs() ? at->handle : 0;
}

Window* WindowTree::FirstInvalidUnder(Window& window) {
  if (!window.invalid.IsEmpty()) return &window;
  for (const auto& child : window.children) {
    if (Window* found = FirstInvalidUnder(*child)) return found;
  }
  return nullptr;
}

void WindowTree::Refresh() {
  Region screen(ClipOf(mDesktop.bounds));
  FindShown(mDesktop, screen);
  const std::vector<Reveal> reveals = std::exchange(mReveals, {});
  if (!mPainter) return;
  for (const Reveal& reveal : reveals) mPainter(reveal.hwnd, reveal.onScreen);
}

// `available` is what the windows above have left of the parent; what this window covers is taken from it.
void WindowTree::FindShown(Window& window, Region& available) {
  Region shown;
  const Clip bounds = ClipOf(window.bounds);
  if (window.visible && !window.iconic && available.Touches(bounds)) {
    shown = available;
    shown.Intersect(Region(bounds));
    available.Subtract(shown);
  }
  for (const auto& child : window.children) FindShown(*child, shown);
  Settle(window, std::move(shown));
}

void WindowTree::Settle(Window& window, Region shown) {
  const bool moved = window.shownAt != window.Origin();
  if (!moved && shown.Equals(window.shown)) return;
  ++mGeneration;
  Region revealed = shown;
  if (!moved) revealed.Subtract(window.shown);
  window.shown = std::move(shown);
  window.shownAt = window.Origin();
  if (!window.IsOurs()) {
    if (!revealed.IsEmpty()) mReveals.push_back({window.handle, std::move(revealed)});
    return;
  }
  Region invalid = ToScreen(window, std::move(window.invalid));
  invalid.Intersect(window.shown);
  invalid.Union(revealed);
  window.invalid = ToWindow(window, std::move(invalid));
}

void WindowTree::Invalidate(Window& window) {
  if (window.IsOurs()) {
    window.invalid = ToWindow(window, window.shown);
  } else if (mPainter && !window.shown.IsEmpty()) {
    mPainter(window.handle, window.shown);
  }
}

void WindowTree::SetBackdropPainter(BackdropPainter painter) {
  mPainter = std::move(painter);
  for (Window* window : InOrder(mDesktop)) {
    if (!window->IsOurs()) Invalidate(*window);
  }
}

}  // namespace strandline::desk
