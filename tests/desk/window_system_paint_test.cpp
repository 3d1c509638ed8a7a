#include <cstdlib>
#include <map>
#include <random>
#include <tuple>

#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

using Random = std::mt19937;

class WindowSystem_Paint : public WindowSystemTest {
 protected:
  static Region Of(const Clip& clip) { return Region(clip); }
  void ExpectInvalid(Long hwnd, const Region& expected) {
    EXPECT_EQ(system.UpdateRegion(hwnd).Rectangles(), expected.Rectangles()) << NameOf(hwnd);
  }
};

TEST_F(WindowSystem_Paint, AWindowShowsWhatNeitherSiblingsNorChildrenCover) {
  const Long lower = Open(u"lower", {0, 0, 100, 100});
  const Long child = Open(u"child", {10, 10, 50, 20}, lower);
  const Long upper = Open(u"upper", {40, 0, 60, 150});
  Region expected = Of({0, 0, 40, 100});
  expected.Union(Of({60, 0, 100, 100}));
  expected.Subtract(Of({10, 10, 40, 20}));
  EXPECT_TRUE(system.VisibleRegion(lower).Equals(expected));
  EXPECT_TRUE(system.VisibleRegion(child).Equals(Of({10, 10, 40, 20})));
  EXPECT_TRUE(system.VisibleRegion(upper).Equals(Of({40, 0, 60, 150})));
}

TEST_F(WindowSystem_Paint, AChildShowsInsideItsParentAndTheScreenOnly) {
  const Long parent = Open(u"parent", {150, 100, 300, 300});
  const Long child = Open(u"child", {100, 120, 180, 140}, parent);
  EXPECT_TRUE(system.VisibleRegion(child).Equals(Of({150, 120, 180, 140})));
  EXPECT_EQ(system.VisibleRegion(parent).Bounds(), (Clip{150, 100, 200, 150}));
}

TEST_F(WindowSystem_Paint, WhatIsRevealedIsInvalid) {
  const Long lower = Open(u"lower", {0, 0, 100, 100});
  const Long upper = Open(u"upper", {20, 30, 60, 70});
  Settle();
  system.MoveWindow(upper, {30, 30, 70, 70});
  ExpectInvalid(lower, Of({20, 30, 30, 70}));
  ExpectInvalid(upper, Of({0, 0, 40, 40}));
  Settle();
  system.ShowWindow(upper, 0);
  ExpectInvalid(lower, Of({30, 30, 70, 70}));
  ExpectInvalid(upper, Region());
  Settle();
  system.ShowWindow(upper, 8);
  Settle();
  system.BringWindowToTop(lower);
  ExpectInvalid(lower, Of({30, 30, 70, 70}));
  Settle();
  system.DestroyWindow(lower);
  ExpectInvalid(upper, Of({0, 0, 40, 40}));
}

TEST_F(WindowSystem_Paint, InvalidPixelsMoveAlongAndEndWhereAWindowCovers) {
  const Long child = Open(u"child", {10, 10, 50, 50}, Open(u"parent", {0, 0, 100, 100}));
  Settle();
  system.InvalidateWindow(child);
  const Long cover = Open(u"cover", {0, 0, 30, 150});
  ExpectInvalid(child, Of({20, 0, 40, 40}));
  system.ShowWindow(cover, 0);
  ExpectInvalid(child, Of({0, 0, 40, 40}));
}

TEST_F(WindowSystem_Paint, InvalidatingTakesWhatShowsWithoutTheChildren) {
  const Long parent = Open(u"parent", {0, 0, 100, 100});
  const Long child = Open(u"child", {0, 0, 100, 50}, parent);
  const Long hidden = Hidden(u"hidden");
  Settle();
  system.InvalidateWindow(parent);
  system.InvalidateWindow(hidden);
  ExpectInvalid(parent, Of({0, 50, 100, 100}));
  ExpectInvalid(child, Region());
  ExpectInvalid(hidden, Region());
  system.DoEvents();
  EXPECT_EQ(log, (Log{"parent 15 0 0"}));
}

TEST_F(WindowSystem_Paint, ParentsPaintBeforeChildren) {
  const Long lower = Open(u"lower", {0, 0, 50, 50});
  Open(u"inner", {0, 0, 10, 10}, Open(u"outer", {0, 0, 20, 20}, lower));
  Open(u"beside", {30, 30, 40, 40}, lower);
  Open(u"upper", {60, 0, 90, 50});
  system.DoEvents();
  EXPECT_EQ(log, (Log{"upper 15 0 0", "lower 15 0 0", "beside 15 0 0", "outer 15 0 0", "inner 15 0 0"}));
}

TEST_F(WindowSystem_Paint, AnIconicWindowShowsNothingUntilItIsRestored) {
  const Long parent = Open(u"parent", {0, 0, 100, 100});
  const Long child = Open(u"child", {10, 10, 20, 20}, parent);
  system.ShowWindow(parent, 6);
  Settle();
  system.InvalidateWindow(child);
  system.DoEvents();
  EXPECT_EQ(log, Log());
  EXPECT_TRUE(system.IsWindowVisible(child));
  EXPECT_TRUE(system.VisibleRegion(child).IsEmpty());
  system.ShowWindow(parent, 9);
  system.DoEvents();
  EXPECT_EQ(log, (Log{"parent 15 0 0", "child 15 0 0"}));
}

TEST_F(WindowSystem_Paint, TheBackdropIsFilledAtOnce) {
  std::vector<std::pair<Long, Clip>> filled;
  system.SetBackdropPainter([&](Long hwnd, const Region& region) { filled.emplace_back(hwnd, region.Bounds()); });
  const Long desktop = system.GetDesktopWindow();
  using Fills = std::vector<std::pair<Long, Clip>>;
  EXPECT_EQ(filled, (Fills{{desktop, {0, 0, 200, 150}}}));
  filled.clear();
  const Long hwnd = Open(u"w", {10, 10, 50, 50});
  EXPECT_EQ(filled, Fills());
  system.MoveWindow(hwnd, {15, 10, 55, 50});
  EXPECT_EQ(filled, (Fills{{desktop, {10, 10, 15, 50}}}));
  filled.clear();
  system.CoverScreen(true);
  EXPECT_EQ(filled, (Fills{{system.GetForegroundWindow(), {0, 0, 200, 150}}}));
  filled.clear();
  system.CoverScreen(false);
  EXPECT_EQ(filled.size(), 1u);
  EXPECT_EQ(filled[0].first, desktop);
}

TEST_F(WindowSystem_Paint, TheGenerationTellsOfChangesThatShow) {
  const Long hwnd = Open(u"w", {10, 10, 50, 50});
  auto before = system.Generation();
  Hidden(u"hidden");
  system.InvalidateWindow(hwnd);
  system.BringWindowToTop(hwnd);
  EXPECT_EQ(system.Generation(), before);
  system.MoveWindow(hwnd, {11, 10, 51, 50});
  EXPECT_NE(system.Generation(), before);
}

// A screen of which every pixel remembers who painted it and which pixel of that window it was. What random moves do to
// it, with windows painting nothing but their invalid pixels, is compared with a screen painted in full, back to front.
class PaintedWorld : public WindowProcedure {
 public:
  explicit PaintedWorld(unsigned seed) : mRandom(seed) {
    mSystem.SetBackdropPainter([this](Long hwnd, const Region& region) { Paint(hwnd, region, {}); });
  }
  virtual ~PaintedWorld() = default;

  void Step() {
    const Long hwnd = Any();
    switch (Below(9)) {
      case 0:
      case 1:
        if (mWindows.size() < 14) Create(Below(3) == 0 ? 0 : hwnd);
        break;
      case 2:
        mSystem.MoveWindow(hwnd, AnyRect());
        break;
      case 3: {
        Rect rectangle;
        if (mSystem.GetWindowRect(hwnd, rectangle) == 0) break;
        const Long dx = Below(9) - 4;
        mSystem.MoveWindow(hwnd, {rectangle.left + dx, rectangle.top, rectangle.right + dx, rectangle.bottom});
        break;
      }
      case 4:
        mSystem.ShowWindow(hwnd, Below(12));
        break;
      case 5:
        mSystem.BringWindowToTop(hwnd);
        break;
      case 6:
        mSystem.CoverScreen(Below(4) == 0);
        break;
      case 7:
        if (Below(3) == 0) mSystem.DestroyWindow(hwnd);
        break;
      case 8:
        mSystem.InvalidateWindow(hwnd);
        break;
    }
    if (Below(3) == 0) mSystem.DoEvents();
  }

  void ExpectThePaintedScreen() {
    mSystem.DoEvents();
    Screen expected;
    PaintInFull(mSystem.GetDesktopWindow(), {0, 0, kWidth, kHeight}, expected);
    for (int i = 0; i < kWidth * kHeight; ++i) {
      const std::size_t at = static_cast<std::size_t>(i);
      ASSERT_EQ(mScreen[at], expected[at]) << "pixel " << i % kWidth << ", " << i / kWidth;
    }
  }

  Long OnMessage(Long hwnd, Long message, Long, Long) override {
    if (message != wm::kPaint) return 0;
    EXPECT_FALSE(mSystem.UpdateRegion(hwnd).IsEmpty());
    Rect bounds;
    mSystem.GetWindowRect(hwnd, bounds);
    Region region = mSystem.UpdateRegion(hwnd);
    region.Offset(bounds.left, bounds.top);
    Paint(hwnd, region, {bounds.left, bounds.top});
    mSystem.Validate(hwnd);
    return 0;
  }

 private:
  static constexpr int kWidth = 48;
  static constexpr int kHeight = 32;
  using Pixel = std::tuple<Long, Long, Long>;  // window, x and y inside
  using Screen = std::map<std::size_t, Pixel>;

  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(mRandom); }
  Long Any() {
    return mWindows.empty() ? 0 : mWindows[static_cast<std::size_t>(Below(static_cast<int>(mWindows.size())))];
  }
  Rect AnyRect() {
    const Long left = Below(kWidth + 10) - 5;
    const Long top = Below(kHeight + 10) - 5;
    return {left, top, left + Below(25) - 1, top + Below(20) - 1};
  }
  void Create(Long parent) {
    if (parent != 0 && !mSystem.IsWindow(parent)) parent = 0;
    mWindows.push_back(mSystem.CreateWindowOf(u"Test", u"w", parent, AnyRect(), this));
    mSystem.ShowWindow(mWindows.back(), Below(5) == 0 ? 0 : 5);
  }
  static void Set(Screen& screen, Long x, Long y, Long hwnd, Point origin) {
    screen[static_cast<std::size_t>(y * kWidth + x)] = {hwnd, x - origin.x, y - origin.y};
  }
  void Paint(Long hwnd, const Region& region, Point origin) {
    for (const Clip& clip : region.Rectangles()) {
      for (int y = clip.top; y < clip.bottom; ++y) {
        for (int x = clip.left; x < clip.right; ++x) Set(mScreen, x, y, hwnd, origin);
      }
    }
  }
  // The window in its parent's clip, then its children from the lowest to the topmost.
  void PaintInFull(Long hwnd, Clip clip, Screen& screen) {
    const bool isDesktop = hwnd == mSystem.GetDesktopWindow();
    if (mSystem.IsWindowVisible(hwnd) == 0 || mSystem.IsIconic(hwnd) != 0) return;
    Rect bounds;
    mSystem.GetWindowRect(hwnd, bounds);
    clip = Intersect(clip, {bounds.left, bounds.top, bounds.right, bounds.bottom});
    for (int y = clip.top; y < clip.bottom; ++y) {
      for (int x = clip.left; x < clip.right; ++x) Set(screen, x, y, hwnd, {bounds.left, bounds.top});
    }
    std::vector<Long> children;
    const Long parent = isDesktop ? 0 : hwnd;
    for (Long child = 0; (child = mSystem.FindWindowExA(parent, child, nullptr, nullptr)) != 0;) {
      children.insert(children.begin(), child);
    }
    if (IsEmpty(clip)) return;
    for (const Long child : children) PaintInFull(child, clip, screen);
  }

  Random mRandom;
  WindowSystem mSystem{kWidth, kHeight};
  Screen mScreen;
  std::vector<Long> mWindows;
};

TEST(WindowSystem_PaintWorld, PaintingOnlyInvalidPixelsGivesTheWholePicture) {
  const char* replay = std::getenv("STRANDLINE_WINDOWS_SEED");
  const unsigned base =
      replay != nullptr ? static_cast<unsigned>(std::strtoul(replay, nullptr, 10)) : std::random_device{}();
  for (unsigned i = 0; i < (replay != nullptr ? 1u : 40u); ++i) {
    SCOPED_TRACE("STRANDLINE_WINDOWS_SEED=" + std::to_string(base + i));
    PaintedWorld world(base + i);
    for (int step = 0; step < 60; ++step) {
      world.Step();
      if (step % 4 == 0) world.ExpectThePaintedScreen();
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace strandline::desk
