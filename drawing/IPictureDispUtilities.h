#pragma once

// Conversions between picture objects and raw bitmaps. An object holds at most one open conversion, and ends it when it
// goes. A picture that went through a conversion is used up: its bitmap is deleted at the clean-up, so callers hold a
// source picture for the one conversion only.

#include "foundation/procedure.h"
#include "platform/pictures.h"

namespace strandline {

class IPictureDispUtilities final : public ClassObject {
 public:
  IPictureDispUtilities();

  // The picture's mask: white where it is transparent, black where not. Uses the picture up. Raises 6 for a picture
  // whose extent leaves an Integer.
  Picture CreateIPictureDispMask(const Picture& picture);
  // A picture that owns the bitmap; Nothing for 0.
  Picture hBmpToIPictureDisp(Long hBmp);
  // A context that shows the picture, good until the clean-up.
  Long IPictureDispToHdc(const Picture& picture);
  void CleanupIPictureDispToHdc();
  // A region, the caller's, of the runs whose colour differs from transparentColor. A run that reaches the right edge
  // closes at the next transparent pixel of a later row, from where it began to there, on that row.
  Long MakeRegion(const Picture& picture, Long transparentColor);

  void ReportVariables(Reporter& to) const override;

 private:
  void Terminated() override;
  void Class_Initialize();
  void initializeConversionStructs();
  void CreateMask(Long dstDC, Integer width, Integer height, Long srcDC);
  Long HM2PixX(Long value);
  Long HM2PixY(Long value);

  Long mOldBmpHandle = 0;
  Long mIPictureDispHdc = 0;
  Boolean mCalledAlready = false;
  PictDesc tPicConv;
  Guid IGuid;
};

}  // namespace strandline
