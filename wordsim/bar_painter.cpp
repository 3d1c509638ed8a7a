// How a command bar looks: background and grip, and the faces that Word has for controls. The controls of the product's
// own bar have none until somebody gives them pictures; what the strip paints is not Word's.

#include <algorithm>

#include "wordsim/command_bars.h"
#include "wordsim/frame_painter.h"
#include "wordsim/paint_colours.h"

namespace strandline::wordsim {

namespace {

constexpr Long kNoKey = -1;

void PaintGradientAcross(HostCanvas& canvas, Long hdc, Size size) {
  const auto mixed = [&](Long shift, Long x) {
    const Long from = (kBarTop >> shift) & 0xFF;
    const Long to = (kBarBottom >> shift) & 0xFF;
    return (from + (to - from) * x / std::max<Long>(1, size.width - 1)) << shift;
  };
  for (Long x = 0; x < size.width; ++x) {
    canvas.FillRectangle(hdc, {x, 0, x + 1, size.height}, mixed(0, x) | mixed(8, x) | mixed(16, x));
  }
}

// Four corner pixels show the dock; that makes the bar look round.
void PaintCorners(HostCanvas& canvas, Long hdc, Size size) {
  for (const Point corner :
       {Point{0, 0}, Point{size.width - 1, 0}, Point{0, size.height - 1}, Point{size.width - 1, size.height - 1}}) {
    canvas.FillRectangle(hdc, {corner.x, corner.y, corner.x + 1, corner.y + 1}, kDockFace);
  }
}

void PaintGrip(HostCanvas& canvas, Long hdc, Size size, bool vertical, bool classic) {
  const Long length = vertical ? size.width : size.height;
  const auto fill = [&](Long along, Long across, Long alongEnd, Long acrossEnd, Long colour) {
    canvas.FillRectangle(
        hdc, vertical ? Rect{along, across, alongEnd, acrossEnd} : Rect{across, along, acrossEnd, alongEnd}, colour);
  };
  if (classic) {
    fill(3, 3, length - 3, 4, kWhite);
    fill(3, 4, length - 3, 5, kClassicShadow);
    return;
  }
  for (Long at = 6; at + 5 < length; at += 4) {
    fill(at + 1, 4, at + 3, 6, kWhite);
    fill(at, 3, at + 2, 5, kGripDot);
  }
}

void PaintBackground(HostCanvas& canvas, Long hdc, Size size, const CommandBar& bar, BarPosition position,
                     bool classic) {
  const Rect all{0, 0, size.width, size.height};
  const bool vertical = IsVertical(position);
  if (classic) {
    canvas.FillRectangle(hdc, all, kClassicFace);
  } else if (vertical) {
    PaintGradientAcross(canvas, hdc, size);
  } else {
    canvas.FillGradient(hdc, all, kBarTop, kBarBottom);
  }
  if (position == BarPosition::kFloating) {
    canvas.FillRectangle(hdc, {0, 0, size.width, kFloatingTitle}, classic ? kClassicShadow : kBarEdge);
    canvas.DrawTextLine(hdc, 4, (kFloatingTitle - canvas.TextHeight()) / 2, bar.Name(), kWhite);
    return;
  }
  if (!classic) {
    canvas.FillRectangle(hdc, {1, size.height - 1, size.width - 1, size.height}, kBarEdge);
    PaintCorners(canvas, hdc, size);
  }
  PaintGrip(canvas, hdc, size, vertical, classic);
}

void PaintOutline(HostCanvas& canvas, Long hdc, const Rect& box, Long colour) {
  canvas.FillRectangle(hdc, {box.left, box.top, box.right, box.top + 1}, colour);
  canvas.FillRectangle(hdc, {box.left, box.bottom - 1, box.right, box.bottom}, colour);
  canvas.FillRectangle(hdc, {box.left, box.top, box.left + 1, box.bottom}, colour);
  canvas.FillRectangle(hdc, {box.right - 1, box.top, box.right, box.bottom}, colour);
}

// A popup on the bar: its caption, as much of it as there is room for, and the arrow that tells what it is.
void PaintPopup(HostCanvas& canvas, Long hdc, const Rect& place, const String& caption) {
  constexpr Long kMargin = 5;
  constexpr Long kArrow = 5;
  const Long middle = (place.top + place.bottom) / 2;
  const Long arrowLeft = place.right - kMargin - kArrow;
  for (Long row = 0; row < 3; ++row) {
    canvas.FillRectangle(hdc, {arrowLeft + row, middle - 1 + row, arrowLeft + kArrow - row, middle + row}, kBlack);
  }
  String text = caption;
  while (!text.IsEmpty() && place.left + kMargin + canvas.TextWidth(text) > arrowLeft - 2) {
    text = text.View().substr(0, text.View().size() - 1);
  }
  canvas.DrawTextLine(hdc, place.left + kMargin, middle - canvas.TextHeight() / 2, text, kBlack);
}

// The tools of the "Drawing" bar, by their place on it.
void PaintTool(HostCanvas& canvas, Long hdc, const Rect& place, Long tool) {
  const Long x = place.left + (place.right - place.left - 14) / 2;
  const Long y = place.top + (place.bottom - place.top - 14) / 2;
  const Rect box{x, y + 2, x + 14, y + 12};
  switch (tool) {
    case 2:
    case 3:
      for (Long i = 0; i < 13; ++i) canvas.FillRectangle(hdc, {x + i, y + 13 - i, x + i + 1, y + 14 - i}, kBlack);
      if (tool == 3) {
        canvas.FillRectangle(hdc, {x + 8, y + 1, x + 14, y + 2}, kBlack);
        canvas.FillRectangle(hdc, {x + 13, y + 1, x + 14, y + 7}, kBlack);
      }
      break;
    case 4:
      PaintOutline(canvas, hdc, box, kBlack);
      break;
    case 5:
      canvas.FillRectangle(hdc, {x + 4, y + 2, x + 10, y + 3}, kBlack);
      canvas.FillRectangle(hdc, {x + 4, y + 11, x + 10, y + 12}, kBlack);
      canvas.FillRectangle(hdc, {x, y + 5, x + 1, y + 9}, kBlack);
      canvas.FillRectangle(hdc, {x + 13, y + 5, x + 14, y + 9}, kBlack);
      for (Long i = 0; i < 3; ++i) {
        canvas.FillRectangle(hdc, {x + 1 + i, y + 4 - i, x + 2 + i, y + 5 - i}, kBlack);
        canvas.FillRectangle(hdc, {x + 12 - i, y + 4 - i, x + 13 - i, y + 5 - i}, kBlack);
        canvas.FillRectangle(hdc, {x + 1 + i, y + 9 + i, x + 2 + i, y + 10 + i}, kBlack);
        canvas.FillRectangle(hdc, {x + 12 - i, y + 9 + i, x + 13 - i, y + 10 + i}, kBlack);
      }
      break;
    case 6:
      PaintOutline(canvas, hdc, box, kGripDot);
      canvas.FillRectangle(hdc, {x + 3, y + 5, x + 11, y + 6}, kBlack);
      canvas.FillRectangle(hdc, {x + 3, y + 8, x + 9, y + 9}, kBlack);
      break;
    default:
      canvas.FillRectangle(hdc, {x, y + 11, x + 14, y + 14}, Colour(0xFFD800));
      PaintOutline(canvas, hdc, {x + 3, y, x + 10, y + 8}, kBlack);
  }
}

void PaintControl(HostCanvas& canvas, Long hdc, const CommandBar& bar, const BarControl& control, const Rect& place) {
  if (control.IsDown()) {
    canvas.FillRectangle(hdc, place, kDownFace);
    PaintOutline(canvas, hdc, place, kGripDot);
  }
  if (const Picture& face = control.Face()) {
    canvas.DrawBitmap(hdc, place, face->Handle(), control.HasMask() ? kFaceKey : kNoKey);
    return;
  }
  const Long position = control.PositionInOwner();
  if (bar.Kind() == BarKind::kProduct && position == 1) return PaintPopup(canvas, hdc, place, control.Caption());
  if (bar.Kind() != BarKind::kDrawing) return;
  if (position > 1) return PaintTool(canvas, hdc, place, position);
  canvas.DrawTextLine(hdc, place.left + 4, place.top + (place.bottom - place.top - canvas.TextHeight()) / 2, u"Draw",
                      kBlack);
}

}  // namespace

void PaintBar(HostCanvas& canvas, Long hdc, Size size, const CommandBar& bar, BarPosition position,
              const std::vector<CellPlace>& places, Long version) {
  PaintBackground(canvas, hdc, size, bar, position, version < 11);
  const auto& controls = bar.Controls().All();
  for (std::size_t i = 0; i < controls.size() && i < places.size(); ++i) {
    if (controls[i]->IsVisible() && !places[i].isDropped) PaintControl(canvas, hdc, bar, *controls[i], places[i].place);
  }
}

}  // namespace strandline::wordsim
