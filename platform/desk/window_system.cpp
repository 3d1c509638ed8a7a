#include "platform/desk/window_system.h"

#include <algorithm>
#include <utility>

namespace strandline::desk {
namespace {

constexpr Long kWmDestroy = 2;

Long Sum(Long a, Long b) { return static_cast<Long>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b)); }
Long Difference(Long a, Long b) {
  return static_cast<Long>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

Long PackedSize(const Rect& bounds) {
  const auto width = static_cast<std::uint32_t>(Difference(bounds.right, bounds.left));
  const auto height = static_cast<std::uint32_t>(Difference(bounds.bottom, bounds.top));
  return static_cast<Long>((height & 0xFFFF) << 16 | (width & 0xFFFF));
}

bool SameSize(const Rect& a, const Rect& b) {
  return Difference(a.right, a.left) == Difference(b.right, b.left) &&
         Difference(a.bottom, a.top) == Difference(b.bottom, b.top);
}

bool Fits(const Window& window, const String* className, const String* title) {
  return (className == nullptr || SameText(window.className, *className)) &&
         (title == nullptr || SameText(window.title, *title));
}

const Region kNoRegion;

}  // namespace

WindowSystem::WindowSystem(int screenWidth, int screenHeight)
    : mTree(screenWidth, screenHeight),
      mHooks(std::make_shared<HookTable>([this](Long hwnd, Long message, Long wParam,
                                                Long lParam) { return CallProcedure(hwnd, message, wParam, lParam); },
                                         [this](Long hwnd) { return IsWindow(hwnd); })) {
  Window& foreign = mTree.Add(mTree.Desktop(), mTree.Desktop().bounds);
  foreign.className = u"OtherProgram";
  foreign.title = u"Another program";
  foreign.thread = kOtherThread;
  mForeign = foreign.handle;
}

WindowSystem::~WindowSystem() { mHooks->Close(); }

Long WindowSystem::FindWindowExA(Long parent, Long after, const String* className, const String* title) {
  const Window* const under = mTree.FindParent(parent);
  if (under == nullptr) return 0;
  auto at = under->children.begin();
  const auto end = under->children.end();
  if (after != 0) {
    at = std::find_if(at, end, [after](const auto& child) { return child->handle == after; });
    if (at == end) return 0;
    ++at;
  }
  at = std::find_if(at, end, [&](const auto& child) { return Fits(*child, className, title); });
  return at == end ? 0 : (*at)->handle;
}

Long WindowSystem::FindWindowA(const String* className, const String* title) {
  return FindWindowExA(0, 0, className, title);
}

String WindowSystem::GetWindowTextA(Long hwnd, Long limit) {
  const Window* const window = mTree.Find(hwnd);
  if (window == nullptr || limit <= 1) return {};
  if (window->title.Length() < limit) return window->title;
  return window->title.View().substr(0, static_cast<std::size_t>(limit) - 1);
}

Long WindowSystem::GetWindowThreadProcessId(Long hwnd) {
  const Window* const window = mTree.Find(hwnd);
  return window == nullptr ? 0 : window->thread;
}

Long WindowSystem::IsIconic(Long hwnd) {
  const Window* const window = mTree.Find(hwnd);
  return window != nullptr && window->iconic;
}

Long WindowSystem::IsWindowVisible(Long hwnd) {
  const Window* const window = mTree.Find(hwnd);
  return window != nullptr && mTree.IsVisible(*window);
}

Long WindowSystem::GetWindowRect(Long hwnd, Rect& rectangle) {
  const Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return 0;
  rectangle = window->bounds;
  return 1;
}

Long WindowSystem::ScreenToClient(Long hwnd, Point& point) {
  const Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return 0;
  point = {Difference(point.x, window->bounds.left), Difference(point.y, window->bounds.top)};
  return 1;
}

Long WindowSystem::ClientToScreen(Long hwnd, Point& point) {
  const Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return 0;
  point = {Sum(point.x, window->bounds.left), Sum(point.y, window->bounds.top)};
  return 1;
}

Long WindowSystem::CreateWindowOf(const String& className, const String& title, Long parent, const Rect& bounds,
                                  WindowProcedure* procedure) {
  Window* const under = mTree.FindParent(parent);
  if (under == nullptr || under->dying) return 0;
  Window& window = mTree.Add(*under, bounds);
  window.className = className;
  window.title = title;
  window.procedure = procedure;
  RaiseWithin(window);
  return window.handle;
}

void WindowSystem::DestroyWindow(Long hwnd) {
  Window* window = mTree.Find(hwnd);
  if (window == nullptr || window->dying || !window->IsOurs()) return;
  SendDestroy(*window);
  window = mTree.Find(hwnd);
  if (window == nullptr) return;
  const std::vector<Window*> going = mTree.InOrder(*window);
  const bool wasActive =
      std::any_of(going.begin(), going.end(), [this](const Window* each) { return each->handle == mActive; });
  for (const Window* each : going) LetGo(*each);
  mTree.Remove(*window);
  if (wasActive) ActivateNext();
  mTree.Refresh();
}

// To the window first, then to those under it, while all of them still exist. Handlers may destroy any of them.
void WindowSystem::SendDestroy(Window& window) {
  window.dying = true;
  const Long hwnd = window.handle;
  SendMessageA(hwnd, kWmDestroy, 0, 0);
  if (!IsWindow(hwnd)) return;
  std::vector<Long> children;
  for (const auto& child : window.children) children.push_back(child->handle);
  for (const Long handle : children) {
    Window* const child = mTree.Find(handle);
    if (child != nullptr && !child->dying) SendDestroy(*child);
  }
}

// What the rest of the system knows of a window that goes.
void WindowSystem::LetGo(const Window& window) {
  mTimers.KillAllOf(window.handle);
  mHooks->Forget(window.handle);
  for (Long* role : {&mCapture, &mActive, &mLastActive, &mForeground}) {
    if (*role == window.handle) *role = 0;
  }
}

void WindowSystem::SetTitle(Long hwnd, const String& title) {
  if (Window* const window = mTree.Find(hwnd)) window->title = title;
}

void WindowSystem::MoveWindow(Long hwnd, const Rect& bounds) {
  Window* const window = mTree.Find(hwnd);
  if (window == nullptr || window->parent == nullptr) return;
  const Rect before = window->bounds;
  mTree.Place(*window, bounds);
  mTree.Refresh();
  if (SameSize(before, window->bounds)) return;
  SendMessageA(hwnd, wm::kSize, 0, PackedSize(window->bounds));
  InvalidateWindow(hwnd);
}

void WindowSystem::BringWindowToTop(Long hwnd) {
  Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return;
  RaiseWithin(*window);
  mTree.Refresh();
}

void WindowSystem::InvalidateWindow(Long hwnd) {
  if (Window* const window = mTree.Find(hwnd)) mTree.Invalidate(*window);
}

Long WindowSystem::WindowAt(Point screen) const { return mTree.At(screen); }

String WindowSystem::ClassName(Long hwnd) const {
  const Window* const window = mTree.Find(hwnd);
  return window == nullptr ? String() : window->className;
}

const Region& WindowSystem::VisibleRegion(Long hwnd) const {
  const Window* const window = mTree.Find(hwnd);
  return window == nullptr ? kNoRegion : window->shown;
}

const Region& WindowSystem::UpdateRegion(Long hwnd) const {
  const Window* const window = mTree.Find(hwnd);
  return window == nullptr ? kNoRegion : window->invalid;
}

void WindowSystem::Validate(Long hwnd) {
  Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return;
  window->invalid = Region();
  window->paintsUnanswered = 0;
}

}  // namespace strandline::desk
