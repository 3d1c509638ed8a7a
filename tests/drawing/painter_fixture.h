#pragma once

// A window of Word's with a strip in it, whose looks a test knows, and painters for it.

#include "tests/drawing/drawing_fixture.h"
#include "tests/support/variables.h"

namespace strandline {

// A strip asked to paint shows red, one asked to print green, each under black lines that tell where a pixel is from.
class StripWindow final : public WindowProcedure {
 public:
  StripWindow(DrawingFloor& floor, const String& title, const Rect& bounds) : mFloor(floor) {
    top = floor.desk.Host().CreateWindowOf(u"OpusApp", title, 0, {0, 0, 600, 400}, nullptr);
    floor.desk.Windows().ShowWindow(top, kShow);
    strip = floor.desk.Host().CreateWindowOf(u"MsoCommandBar", u"Quillmere", top, bounds, this);
    floor.desk.Windows().ShowWindow(strip, kShow);
    floor.desk.Host().ActivateWindow(top);
    floor.desk.Windows().DoEvents();
    hdc = floor.desk.Graphics().GetDC(strip);
    floor.calls.Name(top, "top");
    floor.calls.Name(strip, "strip");
    floor.calls.Name(hdc, "strip dc");
    messages.clear();
  }
  ~StripWindow() {
    mFloor.desk.Graphics().ReleaseDC(strip, hdc);
    mFloor.desk.Host().DestroyWindow(top);
  }
  StripWindow(const StripWindow&) = delete;
  StripWindow& operator=(const StripWindow&) = delete;

  void Resize(Long width, Long height) {
    Rect bounds;
    mFloor.desk.Windows().GetWindowRect(strip, bounds);
    mFloor.desk.Host().MoveWindow(strip, {bounds.left, bounds.top, bounds.left + width, bounds.top + height});
    mFloor.desk.Windows().DoEvents();
    messages.clear();
  }
  // What the strip looks like, as a surface of its own.
  desk::Surface Face(Long color, Long width, Long height) {
    const Long memory = mFloor.MakeContext(width, height, kWhite);
    DrawFace(memory, color, width, height);
    const desk::Surface face = mFloor.SurfaceOf(memory);
    mFloor.DeleteContext(memory);
    return face;
  }
  // What of it the screen shows.
  desk::Surface OnScreen() {
    Rect bounds;
    mFloor.desk.Windows().GetWindowRect(strip, bounds);
    return CutOut(mFloor.desk.Screen(), {bounds.left, bounds.top, bounds.right, bounds.bottom});
  }

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    messages.push_back(message);
    if (during) during(message);
    if (message != wm::kPaint && message != wm::kPrint)
      return mFloor.desk.Host().DefaultProcedure(hwnd, message, wParam, lParam);
    Rect bounds;
    mFloor.desk.Windows().GetWindowRect(hwnd, bounds);
    const Long width = bounds.right - bounds.left;
    const Long height = bounds.bottom - bounds.top;
    if (message == wm::kPrint) {
      DrawFace(wParam, kGreen, width, height);
      return 0;
    }
    PaintStruct paint;
    mFloor.desk.Graphics().BeginPaint(hwnd, paint);
    const Long whole = mFloor.desk.Graphics().GetDC(hwnd);
    DrawFace(whole, kRed, width, height);
    mFloor.desk.Graphics().ReleaseDC(hwnd, whole);
    mFloor.desk.Graphics().EndPaint(hwnd, paint);
    return 0;
  }

  Long top = 0;
  Long strip = 0;
  Long hdc = 0;  // of the strip
  std::vector<Long> messages;
  std::function<void(Long message)> during;  // called before a message is handled

 private:
  static constexpr Long kShow = 8;

  void DrawFace(Long target, Long color, Long width, Long height) {
    mFloor.Fill(target, {0, 0, width, height}, color);
    for (Long x = 0; x < width; x += 7) mFloor.Fill(target, {x, 0, x + 1, height}, kBlack);
    for (Long y = 0; y < height; y += 5) mFloor.Fill(target, {0, y, width, y + 1}, kBlack);
  }

  DrawingFloor& mFloor;
};

class PainterTest : public DrawingTest {
 protected:
  static constexpr Long kWidth = 60;
  static constexpr Long kHeight = 24;

  PainterTest() { Open(kWord2003); }
  ~PainterTest() override { Close(); }

  void Open(const char16_t* wordVersion) {
    Close();
    FloorOptions options;
    options.wordVersion = wordVersion;
    Load(options);
    window = std::make_unique<StripWindow>(*floor, u"Thesis.doc", Rect{100, 50, 100 + kWidth, 50 + kHeight});
    painter = New<Painter>();
    floor->calls.Clear();
  }
  void Close() {
    painter = nullptr;
    window.reset();
  }
  void Initialize() { Initialize(*painter, *window); }
  void Initialize(Painter& target, StripWindow& of) { target.Initialize(of.top, of.strip, of.hdc); }
  Long Number(TextView name) { return VariableSnapshot::Of(*painter).Number(name); }
  Rect UpdateRect() {
    return {Number(u"mUpdateRect.left"), Number(u"mUpdateRect.top"), Number(u"mUpdateRect.right"),
            Number(u"mUpdateRect.bottom")};
  }
  Long Frame() { return Number(u"mBackbuffer"); }
  Long Background() { return Number(u"mBackground"); }

  std::unique_ptr<StripWindow> window;
  Ref<Painter> painter;
};

}  // namespace strandline
