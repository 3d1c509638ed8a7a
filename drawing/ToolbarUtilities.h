#pragma once

// What the strip shows and how it is drawn: the texts and pictures of its cells, the product's command bar and its
// window, and the raster services under all drawing. One module, in files by topic: content tables (texts, pictures,
// captions), the bar, raster, icons of Word's buttons.

#include "drawing/IPictureDispUtilities.h"
#include "drawing/advertisements_factory_interface.h"
#include "foundation/procedure.h"

namespace strandline::ToolbarUtilities {

inline constexpr Integer kCells = 16;

struct Variables {
  Ref<AdvertisementsFactoryInterface> adFactory;
  Object productState;
  Ref<IPictureDispUtilities> converter;
  FixedArray<Boolean, 0, kCells> mEnableList;
  FixedArray<String, 0, kCells> mTooltipText;
  String mProductName;  // the name of the command bar and of its window

  // The off-screen context that the painters share, with the size for which it was made and the bitmap that it
  // displaced; 0 when there is none.
  Long mWidth = 0;
  Long mHeight = 0;
  Long mCachedBuffer = 0;
  Long mCachedBufferHandle = 0;
};
inline Variables variables;

// How a factory comes about; set when the library is loaded, since the ads stand on a floor above.
inline Ref<AdvertisementsFactoryInterface> (*makeAdFactory)() = nullptr;

// --- content tables ---

// callbackToMain: who hears of changed values and new ads. From Word 2007 on only the state and the name are kept.
void Initialize(const Object& callbackToMain, const Object& productState, const String& productName);
void Terminate();
// The tooltip of cell 2. The name of the bar stays.
void ProductNameChanged(const String& productName);

// The number of a cell's image; elite: of the small set.
Integer pictureIndex(Integer index, Boolean elite);
// smallToolbar: the text as Word's own tooltip shows it; else as the product's tooltip does. Raises 9 above 16.
String tooltipText(Integer index, Boolean smallToolbar);
// Whether a cell is enabled without a document. Raises 9 above 16.
Boolean EnableList(Integer index);

// Captions follow the document's kind of reference and the Lumivex state; as a menu entry they bear an access key.
String insertCaption(Boolean isMenuItem);
String pasteCaption(Boolean isMenuItem);
String lumivexCaption(Boolean isMenuItem);
Variant capitalize(const String& text);
Boolean inUserManual();

// --- the bar ---

// The product's command bar; Nothing when it doesn't exist.
Object CommandBar();
// The bar's window: a visible one within the document's window, else a floating one; 0 when there is none.
Long ToolbarWindowHandle(Long ActiveDocumentHwnd);

// --- raster ---

// HIMETRIC to pixels.
Long HM2PixX(Long value);
Long HM2PixY(Long value);
// A colour bitmap of the display's format, the caller's.
Long CreateDesktopCompatibleBitmap(Integer width, Integer height);
void FillDcWithColor(Long hdc, Long color, Integer width, Integer height);
// A picture of src on the colour of menus; uses src up.
Picture ReplaceBackgroundWithMenuColor(const Picture& src);
// Copies a rectangle without the pixels of the colour key; the target is written once. Raises 6 when the rectangle
// leaves an Integer.
void TransparentBlt(Long dstDC, Integer dstx, Integer dsty, Integer width, Integer height, Long srcDC, Integer srcX,
                    Integer srcY);
// The shared context if it has this size, else 0.
Long cachedBuffer(Long width, Long height, Long handle);
// Takes `buffer` over and frees the one before it. handle: the bitmap that the buffer's own displaced.
void cachedBuffer(Long width, Long height, Long handle, Long buffer);

// --- icons of Word's own buttons ---

// Whether buttons take a picture only from the clipboard.
Boolean usePasteFaceWorkaround();
// Gives a button of Word's that face, and uses the picture up. A button that can't be given a picture gets it through
// the clipboard, where the user's rich text is kept and all else is lost. A failure there shows nowhere.
void SetButtonIcon(const Object& button, const Picture& icon);

void ReportModule(Reporter& to);
// What the global part of a dump lists of this module.
void ReportGlobals(Reporter& to);
inline constexpr ModuleInfo kModuleInfo{u"ToolbarUtilities", &ReportModule};

}  // namespace strandline::ToolbarUtilities
