#pragma once

// The colours of the simulated Word, as COLORREF.

#include "platform/values.h"

namespace strandline::wordsim {

constexpr Long Colour(Long rrggbb) { return ((rrggbb & 0xFF) << 16) | (rrggbb & 0xFF00) | ((rrggbb >> 16) & 0xFF); }

inline constexpr Long kBlack = Colour(0x000000);
inline constexpr Long kWhite = Colour(0xFFFFFF);
inline constexpr Long kTitleEdge = Colour(0x0047C8);
inline constexpr Long kTitleFace = Colour(0x1265F2);
inline constexpr Long kFaintTitleEdge = Colour(0x7A96DF);
inline constexpr Long kFaintTitleFace = Colour(0x9DB9EB);
inline constexpr Long kTitleButton = Colour(0x2E71E5);
inline constexpr Long kCloseButton = Colour(0xD54A2B);
inline constexpr Long kDockFace = Colour(0xC4DAFA);     // around the bars of Word 2003
inline constexpr Long kClassicFace = Colour(0xECE9D8);  // bars and docks before Word 2003
inline constexpr Long kClassicShadow = Colour(0xACA899);
inline constexpr Long kBarTop = Colour(0xE3EFFF);
inline constexpr Long kBarBottom = Colour(0x88AEE4);
inline constexpr Long kBarEdge = Colour(0x3B619C);
inline constexpr Long kGripDot = Colour(0x274176);
inline constexpr Long kDownFace = Colour(0xFEBA6A);
inline constexpr Long kRibbonTabs = Colour(0xBFDBFF);
inline constexpr Long kRibbonText = Colour(0x15428B);
inline constexpr Long kWorkspace = Colour(0x9CA0AE);
inline constexpr Long kPaperShadow = Colour(0x6A6D78);
inline constexpr Long kPaperText = Colour(0xC8C8C8);
inline constexpr Long kTooltipFace = Colour(0xFFFFE1);
inline constexpr Long kMenuFace = Colour(0xF6F6F6);
inline constexpr Long kMenuEdge = Colour(0x002D96);
inline constexpr Long kHoverFace = Colour(0xFFEEC2);
inline constexpr Long kFaceKey = Colour(0x0000FF);  // what a picture for a bar leaves open

}  // namespace strandline::wordsim
