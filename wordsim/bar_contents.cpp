#include "wordsim/bar_contents.h"

#include <string>

namespace strandline::wordsim {

namespace {

// Each button is as wide as the picture that comes on it and three pixels to either side.
constexpr ControlContent kProductControls[] = {
    {u"%", 72},
    {u"Apply % to this document", 38},
    {u"Insert Reference", 31},
    {u"Paste Reference", 31},
    {u"Hunt for a Reference", 38},
    {u"Start a New Chapter", 36},
    {u"Heading Level 1", 36},
    {u"Heading Level 2", 36},
    {u"Heading Level 3", 36},
    {u"Heading Level 4", 36},
    {u"Update Pages, Figures, and Tables", 34},
    {u"Paragraph", 36},
    {u"Quotation", 36},
    {u"Lumivex", 38},
    {u"Open User Manual", 40},
    {u"Go to Website Offer", 229},
};

constexpr const char16_t* kMenuEntries[] = {
    u"Start Tomehaven or &Insert Reference entry...",
    u"&Paste Reference entry...",
    u"&Hunt for a Reference...",
    u"Start a Ne&w Chapter",
    u"Heading Level &1",
    u"Heading Level &2",
    u"Heading Level &3",
    u"Heading Level &4",
    u"P&aragraph",
    u"&Quotation",
    u"Title Pa&ge...",
    u"Ta&ble of Contents...",
    u"&Figure...",
    u"Ta&ble...",
    u"Update Pages, Figures, and &Tables",
    u"Set Quic&k Bookmark",
    u"Go to quick bookmark",
    u"&Apply % to this document...",
    u"C&onfigure %...",
    u"&Turn on Lumivex",
    u"Open User &Manual",
    u"&Shrink Toolbar",
    u"Chec&k for Updates...",
    u"Visit the &Website",
    u"About % / Login to %...",
    u"Contact S&upport...",
};

constexpr ControlContent kDrawingControls[] = {
    {u"D&raw", 40}, {u"Line", 23},     {u"Arrow", 23},       {u"Rectangle", 23},
    {u"Oval", 23},  {u"Text Box", 23}, {u"Fill Colour", 23},
};

}  // namespace

std::span<const ControlContent> ProductControls() { return kProductControls; }
ControlContent ExtraControl() { return {u"Custom Button", 23}; }
std::span<const char16_t* const> MenuEntries() { return kMenuEntries; }
std::span<const ControlContent> DrawingControls() { return kDrawingControls; }

String CaptionFor(TextView pattern, TextView productName) {
  std::u16string caption;
  for (char16_t c : pattern) {
    if (c == u'%') {
      caption += productName;
    } else {
      caption += c;
    }
  }
  return caption;
}

}  // namespace strandline::wordsim
