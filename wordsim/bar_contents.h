#pragma once

// What the product's template puts on its bar and into its menu, and what stands on Word's "Drawing" bar.

#include <span>
#include <string_view>

#include "platform/text.h"

namespace strandline::wordsim {

struct ControlContent {
  const char16_t* caption;  // "%" stands for the product's name
  Long width;               // pixels
};

// The sixteen controls of the product's bar, from the left; the first is the menu.
std::span<const ControlContent> ProductControls();
// What a control beyond the sixteenth is.
ControlContent ExtraControl();
// The entries of the product's menu, in their order.
std::span<const char16_t* const> MenuEntries();
std::span<const ControlContent> DrawingControls();

inline constexpr Long kDrawingControlHeight = 22;  // pixels
inline constexpr Long kOfferControl = 16;          // the control with the offer in it

// The caption with the product's name in it.
String CaptionFor(TextView pattern, TextView productName);

}  // namespace strandline::wordsim
