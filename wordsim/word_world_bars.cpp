// The side of the world that has to do with the product's bar and with windows.

#include <algorithm>

#include "wordsim/application.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/document_frame.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kFarthestPixel = 1'000'000;  // beyond what a coordinate of 16 bits can hold, and safe to add to
constexpr Long kLargestExtent = 32767;      // of a window, pixels

}  // namespace

bool WordWorld::PlaceCell(Long control, const Rect& place) {
  BarControl* cell = mProductBar->Controls().Control(control);
  if (!cell) return false;
  const auto within = [](Long value) { return std::clamp(value, -kFarthestPixel, kFarthestPixel); };
  cell->Fix({within(place.left), within(place.top), within(place.right), within(place.bottom)});
  BarsChanged();
  return true;
}

bool WordWorld::DropCell(Long control, bool dropped) {
  BarControl* cell = mProductBar->Controls().Control(control);
  if (!cell) return false;
  cell->Drop(dropped);
  BarsChanged();
  return true;
}

bool WordWorld::ResizeBar(Long width, Long height) {
  DocumentFrame* frame = ActiveFrame();
  const Size size{std::clamp<Long>(width, 0, kLargestExtent), std::clamp<Long>(height, 0, kLargestExtent)};
  if (!frame || !frame->ResizeBar(*mProductBar, size)) return false;
  mPlatform.windows->DoEvents();
  return true;
}

bool WordWorld::DockBar(BarPosition position) {
  DocumentFrame* frame = ActiveFrame();
  if (!frame || frame->BarWindow(*mProductBar) == 0) return false;
  CloseMenu();
  mProductBar->SetPosition(position);
  return frame->DragBar(*mProductBar, position);
}

Rect WordWorld::CellPlace(Long control, const Document* document) const {
  const DocumentFrame* frame = document ? &document->Frame() : ActiveFrame();
  return frame ? frame->PlaceOf(*mProductBar, control).place : Rect{};
}

void WordWorld::MarkTemplate() {
  if (mApplication) mApplication->ProductTemplate().MarkChanged();
}

void WordWorld::BarsChanged() {
  MarkTemplate();
  if (!mProductBar->IsVisible()) CloseMenu();
  for (const auto& frame : mFrames) frame->Arrange();
}

void WordWorld::BarRepositioned(CommandBar& bar) {
  MarkTemplate();
  for (const auto& frame : mFrames) frame->Reposition(bar, bar.Position());
}

void WordWorld::ControlsResized(CommandBar& bar) {
  for (const auto& frame : mFrames) frame->ForgetBarSize(bar);
  BarsChanged();
}

void WordWorld::ControlRemoved(CommandBar& bar, Long position) {
  for (const auto& frame : mFrames) frame->ForgetCell(bar, position);
  ControlsResized(bar);
}

void WordWorld::RepaintBars() {
  MarkTemplate();
  for (const auto& frame : mFrames) frame->RepaintBars();
}

DocumentFrame* WordWorld::ActiveFrame() const {
  if (const Document* active = Active()) return &active->Frame();
  return mFrames.empty() ? nullptr : mFrames.back().get();
}

Long WordWorld::ActiveBarWindow() const {
  const DocumentFrame* frame = ActiveFrame();
  return frame ? frame->BarWindow(*mProductBar) : 0;
}

Long WordWorld::BarWindowOf(const String& document) const {
  const Document* found = Find(document);
  return found ? found->Frame().BarWindow(*mProductBar) : 0;
}

Long WordWorld::ActiveTopWindow() const {
  const DocumentFrame* frame = ActiveFrame();
  return frame ? frame->Top() : 0;
}

std::string WordWorld::WindowName(Long hwnd) const { return mFrameServices->names.NameOf(hwnd); }
Long WordWorld::WindowByName(const std::string& name) const { return mFrameServices->names.WindowOf(name); }

Long WordWorld::SendToBar(Long message, Long wParam, Long lParam) {
  const Long hwnd = ActiveBarWindow();
  return hwnd ? mPlatform.windows->SendMessageA(hwnd, message, wParam, lParam) : 0;
}

}  // namespace strandline::wordsim
