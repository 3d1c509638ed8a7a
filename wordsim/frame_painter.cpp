#include "wordsim/frame_painter.h"

#include <algorithm>

#include "wordsim/paint_colours.h"

namespace strandline::wordsim {

namespace {

constexpr const char16_t* kMenus[] = {u"File",  u"Edit",  u"View",   u"Insert", u"Format",
                                      u"Tools", u"Table", u"Window", u"Help"};
constexpr const char16_t* kTabs[] = {u"Home",     u"Insert", u"Page Layout", u"References",
                                     u"Mailings", u"Review", u"View"};
constexpr Long kFirstRibbonVersion = 12;
constexpr Long kRibbonTabHeight = 24;

Long MiddleOf(HostCanvas& canvas, Long top, Long bottom) { return top + (bottom - top - canvas.TextHeight()) / 2; }

void PaintTitle(HostCanvas& canvas, Long hdc, Size size, const FrameLooks& looks) {
  const Long middle = kTitleHeight / 2;
  const Long edge = looks.isActive ? kTitleEdge : kFaintTitleEdge;
  const Long face = looks.isActive ? kTitleFace : kFaintTitleFace;
  canvas.FillGradient(hdc, {0, 0, size.width, middle}, edge, face);
  canvas.FillGradient(hdc, {0, middle, size.width, kTitleHeight}, face, edge);
  canvas.DrawTextLine(hdc, 10, MiddleOf(canvas, 2, kTitleHeight), looks.title, kWhite);
  // The three buttons at the right, the last of them red.
  for (Long i = 0; i < 3; ++i) {
    const Long right = size.width - 7 - 23 * i;
    canvas.FillRectangle(hdc, {right - 21, 5, right, 26}, kWhite);
    canvas.FillRectangle(hdc, {right - 20, 6, right - 1, 25}, i == 0 ? kCloseButton : kTitleButton);
    if (i == 0) {
      for (Long d = 0; d < 9; ++d) {
        canvas.FillRectangle(hdc, {right - 15 + d, 11 + d, right - 13 + d, 12 + d}, kWhite);
        canvas.FillRectangle(hdc, {right - 15 + d, 19 - d, right - 13 + d, 20 - d}, kWhite);
      }
    } else if (i == 1) {
      canvas.FillRectangle(hdc, {right - 16, 10, right - 5, 20}, kWhite);
      canvas.FillRectangle(hdc, {right - 15, 12, right - 6, 19}, kTitleButton);
    } else {
      canvas.FillRectangle(hdc, {right - 16, 18, right - 8, 20}, kWhite);
    }
  }
}

void PaintMenuLine(HostCanvas& canvas, Long hdc, Size size, Long version) {
  const Rect line{kFrameBorder, kTitleHeight, size.width - kFrameBorder, kTitleHeight + kMenuHeight};
  canvas.FillRectangle(hdc, line, version >= 11 ? kDockFace : kClassicFace);
  Long x = line.left + 10;
  for (const char16_t* menu : kMenus) {
    canvas.DrawTextLine(hdc, x, MiddleOf(canvas, line.top, line.bottom), menu, kBlack);
    x += canvas.TextWidth(menu) + 14;
  }
}

void PaintRibbon(HostCanvas& canvas, Long hdc, Size size) {
  const Long tabs = kTitleHeight + kRibbonTabHeight;
  canvas.FillRectangle(hdc, {kFrameBorder, kTitleHeight, size.width - kFrameBorder, tabs}, kRibbonTabs);
  Long x = kFrameBorder + 12;
  for (const char16_t* tab : kTabs) {
    canvas.DrawTextLine(hdc, x, MiddleOf(canvas, kTitleHeight, tabs), tab, kRibbonText);
    x += canvas.TextWidth(tab) + 20;
  }
  canvas.FillGradient(hdc, {kFrameBorder, tabs, size.width - kFrameBorder, size.height}, kBarTop, kDockFace);
}

void PaintStatus(HostCanvas& canvas, Long hdc, Size size, const FrameLooks& looks) {
  const Rect line{kFrameBorder, size.height - kFrameBorder - kStatusHeight, size.width - kFrameBorder,
                  size.height - kFrameBorder};
  canvas.FillRectangle(hdc, line, looks.version >= 11 ? kDockFace : kClassicFace);
  canvas.FillRectangle(hdc, {line.left, line.top, line.right, line.top + 1}, kClassicShadow);
  const Long y = MiddleOf(canvas, line.top, line.bottom);
  canvas.DrawTextLine(hdc, line.left + 8, y, u"Page 1", kBlack);
  canvas.DrawTextLine(hdc, line.left + 80, y, u"Sec 1", kBlack);
  canvas.DrawTextLine(hdc, line.left + 140, y, u"At 1\"  Ln 1  Col 1", kBlack);
}

// The ruler of the paper's text: a line of words drawn as a grey bar; lengths follow a fixed, ragged pattern.
void PaintWords(HostCanvas& canvas, Long hdc, const Rect& column) {
  constexpr Long kLine = 14;
  constexpr Long kParagraph = 7;
  Long number = 0;
  for (Long y = column.top; y + 5 < column.bottom; y += kLine, ++number) {
    const Long inParagraph = number % kParagraph;
    if (inParagraph == kParagraph - 1) continue;
    const Long width = column.right - column.left;
    const bool isLast = inParagraph == kParagraph - 2;
    const Long length = isLast ? width / 2 + (number * 37) % 90 : width - (number * number * 17 + number * 31) % 40;
    canvas.FillRectangle(hdc, {column.left, y, column.left + std::min(length, width), y + 5}, kPaperText);
  }
}

// One page, with that much room to the sides of its text.
void PaintPage(HostCanvas& canvas, Long hdc, const Rect& page, Long textMargin, const String& documentName) {
  canvas.FillRectangle(hdc, {page.left + 4, page.top + 4, page.right + 4, page.bottom}, kPaperShadow);
  canvas.FillRectangle(hdc, page, kWhite);
  if (page.right - page.left <= 2 * textMargin) return;
  canvas.DrawTextLine(hdc, page.left + textMargin, page.top + 48, documentName, kBlack);
  const Long top = page.top + 48 + 2 * canvas.TextHeight();
  PaintWords(canvas, hdc, {page.left + textMargin, top, page.right - textMargin, page.bottom});
}

}  // namespace

void PaintTop(HostCanvas& canvas, Long hdc, Size size, const FrameLooks& looks) {
  const Long border = looks.isActive ? kTitleFace : kFaintTitleFace;
  canvas.FillRectangle(hdc, {0, kTitleHeight, size.width, size.height}, border);
  PaintTitle(canvas, hdc, size, looks);
  if (looks.version >= kFirstRibbonVersion) {
    PaintRibbon(canvas, hdc, size);
  } else {
    PaintMenuLine(canvas, hdc, size, looks.version);
  }
  PaintStatus(canvas, hdc, size, looks);
}

void PaintDock(HostCanvas& canvas, Long hdc, Size size, Long version) {
  canvas.FillRectangle(hdc, {0, 0, size.width, size.height}, version >= 11 ? kDockFace : kClassicFace);
}

void PaintPaper(HostCanvas& canvas, Long hdc, Size size, const String& documentName, PaperView view) {
  canvas.FillRectangle(hdc, {0, 0, size.width, size.height}, kWorkspace);
  if (documentName.IsEmpty()) return;
  constexpr Long kMargin = 12;
  constexpr Long kPageWidth = 640;
  const Long middle = size.width / 2;
  if (view == PaperView::kReading) {
    // Two screens of text side by side, without the margins of the paper.
    PaintPage(canvas, hdc, {kMargin, kMargin, middle - kMargin / 2, size.height - kMargin}, 24, documentName);
    PaintPage(canvas, hdc, {middle + kMargin / 2, kMargin, size.width - kMargin, size.height - kMargin}, 24, {});
  } else if (view == PaperView::kPreview) {
    // The whole page.
    const Long height = std::max<Long>(0, size.height - 2 * kMargin);
    const Long width = height * 7 / 10;
    PaintPage(canvas, hdc, {middle - width / 2, kMargin, middle + width / 2, kMargin + height}, 36, documentName);
  } else {
    const Long width = std::min(kPageWidth, std::max<Long>(0, size.width - 2 * kMargin));
    const Long left = (size.width - width) / 2;
    PaintPage(canvas, hdc, {left, kMargin, left + width, size.height}, 72, documentName);
  }
}

}  // namespace strandline::wordsim
