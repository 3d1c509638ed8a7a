#pragma once

// How the windows of the simulated Word look: each function paints one window whole. All sizes are pixels.

#include <vector>

#include "platform/host.h"
#include "wordsim/bar_layout.h"

namespace strandline::wordsim {

class CommandBar;

inline constexpr Long kFrameBorder = 4;
inline constexpr Long kTitleHeight = 30;  // border included
inline constexpr Long kMenuHeight = 22;
inline constexpr Long kStatusHeight = 20;

// How a document stands on its paper.
enum class PaperView { kPage, kReading, kPreview };

// What the looks depend on.
struct FrameLooks {
  String title;
  bool isActive = false;
  Long version = 11;  // Word's whole number
};

void PaintTop(HostCanvas& canvas, Long hdc, Size size, const FrameLooks& looks);
void PaintDock(HostCanvas& canvas, Long hdc, Size size, Long version);
// The paper with a document on it; without one the empty workspace.
void PaintPaper(HostCanvas& canvas, Long hdc, Size size, const String& documentName, PaperView view);
// A command bar with its grip and the faces that Word itself has for its controls.
void PaintBar(HostCanvas& canvas, Long hdc, Size size, const CommandBar& bar, BarPosition position,
              const std::vector<CellPlace>& places, Long version);

}  // namespace strandline::wordsim
