// The names under which procedures stand on the stack and in the dump, all of them, as the sources announce them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "foundation/LanguageExtensions.h"
#include "foundation/SleepReplacement.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {
namespace {

// Each module with its procedures in the order of the alphabet.
const char kNames[] =
    "Advertisement: Class_Terminate ClickOnAd CopyDC DeleteMyDC Duration[Get] InFilterToken InRepeatDaily "
    "InRepeatEveryOther InRepeatMonthly InRepeatTiming InRepeatWeekly InRepeatYearly InitBackBuffer Initialize "
    "InitializeBasedOnSettings NumberOfDaysInMonth addEmailParameterToWebsite convertDate getEmail hdc[Get] "
    "height[Get] listenKeys[Get] visible[Get] width[Get]\n"
    "Advertisements: Class_Terminate ClickOnAd CopyDC DeleteMyDC ImActiveDocument[Get] IncrementFade Initialize "
    "InitializeBackBuffer PrimeTimerCycle ReinitializeVisibleArray ReprimeTimerCycle SwitchListener TickEndFade "
    "TickStartFade TimerTick UpdateToNewAds ValueChanged currentAd[Get] getPictureStats isEmptyArrayBoolean\n"
    "AdvertisementsCallbackStub: DownloadedNewAds NewAdvertisementsEvent ValueChanged ValueChangedWithAds\n"
    "AdvertisementsFactory: AddListenKeys Advertisement[Get] AfterPaint AlphaBlend AskForNewAds CheckForNewAds "
    "Class_Terminate CopyDC Create DeleteMyDC Initialize InitializeDC InitializeDefaultAd LoadAds MAX "
    "NewAdvertisementsEvent ResetClientsNeedToUpdateList UpdateToNewAds ValueChanged getString "
    "isEmptyArrayAdvertisement mCallbackToMe_NewAdvertisementsChanged mCallbackToMe_ValueChanged "
    "mListenKeyStub_NewAdvertisementsChanged mListenKeyStub_ValueChanged needsUpdate removeUpdatedWindow\n"
    "AlphaBlender: AlphaBlend Class_Terminate Initialize cache[Get] cache[Let] hash\n"
    "BorderDrawingFunctions: DrawBorder\n"
    "Buttons: Class_Initialize Class_Terminate ClickOnAd HandleButtonDown HandleButtonUp HandleMenuDrop "
    "HandleMouseLeftToolbar HandleMouseMove HandlePaint HighlightedButtonIndex[Get] Initialize Min "
    "MouseLeftToolbar NeedToPaintBackground PaintAd PaintIcon PaintIcons PositionCursorOverNewButton Redraw "
    "ReprimeTimerCycle SwitchListener TimerTick ToggleBorder UpdateButtonRects UpdateLumivexIcon ValueChanged "
    "getWindowOffsets inCtrl inToolbarClientArea removeButtonHighlighting stickyButton\n"
    "CommonLogger: CloseLog Log OpenLog\n"
    "CommonPropertyFunctions: CommonAppPath[Get] Dictionary DocumentValue[Get] ExecuteQLMCommand "
    "InitializeDocumentValueMap InitializeMapWithPossibleValues InstallPath[Get] PropertyValue ReInitialize "
    "Terminate defaultOutputType docId formatMetaData formatType getFormatterClassNames "
    "initializeDisplayToClassNames outputType properties[Get] properties[Let] tooltip[Get]\n"
    "CommonWordInteractionFunctions: ActiveDocument[Get] Application[Get] Dialogs[Get] Documents[Get] Initialize "
    "Templates[Get] Terminate ViewingReadingLayout[Get] WordVersion[Get] activeWindow[Get] isWord2000[Get] "
    "isWord2002OrEarlier[Get] isWord2002OrLater[Get] isWord2003OrLater[Get] isWord2007OrLater[Get]\n"
    "CommonWordWindowFunctions: ActivateActiveDocumentWindow ActiveDocumentHandle ActiveDocumentHandleImpl "
    "CancelCloseDueToSave ForceForegroundWindow\n"
    "IPictureDispUtilities: Class_Initialize Class_Terminate CleanupIPictureDispToHdc CreateIPictureDispMask "
    "CreateMask HM2PixX HM2PixY IPictureDispToHdc MakeRegion hBmpToIPictureDisp initializeConversionStructs\n"
    "LanguageExtensions: InIDE QuickSortString RandomNumber isEmptyArrayByte\n"
    "LoadImageFromResource: LoadResDataFromModule LoadResGifJpgBmp\n"
    "Main2: ActivateQuillmereTab AddListener Class_Terminate ClickOnAd ClosePreview CloseReadingMode "
    "EnableGotoQuickBookmark EnsureAnotherToolbarIsAtTheBottom EnsureToolbarIsOnItsOwnRow Execute "
    "FilePrintPreview2 HandleCloseDocument HandleCreateDocument HandleDocumentChange HandleDocumentCreateImpl "
    "Initialize OpenUserManual PaintEliteToolbarIcon PreventQueryToSaveTemplate ProcessEliteButtons "
    "ProcessEliteToolbar ProductNameChanged ProductNameChangedForWord2003AndEarlier Quit ReadingMode "
    "ReadingModeLayout RemoveActiveToolbarEntry RemoveAllToolbars RemoveExtraneousToolbar RemoveLastToolbar "
    "RemoveToolbarImpl RibbonHandler[Get] ShrinkDropDownMenu ShrinkToolbar ToggleLumivex ToggleReadingMode "
    "ToggleToolbarForNoDocuments ToolbarExists ToolbarVisible[Let] Toolbars[Get] UpdateLumivexIcon UseQuillmere "
    "castToToolbar isOutlookDocument mCallbackToMe_DownloadedNewAds mCallbackToMe_ValueChangedWithAds "
    "mRibbonEvents_getToolbarIconBits mRibbonEvents_run\n"
    "Menu: Activate HackToKeepMenuDroppedWhenMousingOverToolbarButtons ProductNameChanged "
    "ToggleFootnoteEndnoteUI ToggleManualUI setIconForProduct setMenuCaption setMenuItemCaption\n"
    "MessageLoop: Class_Terminate EnterBlockingLoop ExitBlockingLoop\n"
    "Painter: BltBuffer Class_Terminate CopyDC GetDelta GetWindowExtents Initialize NeedRepaint "
    "PaintDCTransparently PaintIconImpl PaintIconTransparently PaintIconTransparentlyImpl PaintToolbarBackground "
    "UpdateToSmallestRegion backbuffer[Get] backbuffer[Let] background[Let] inUpdateRect "
    "optimizeDrawingRectangle\n"
    "RibbonEvents: getToolbarIconBits run\n"
    "SleepReplacement: TimerExpired Wait\n"
    "Toolbar: Class_Terminate ClickOnAd HandleMouseMove HiWord InSameDockingBar Initialize Redraw "
    "ReprimeTimerCycle SwitchListener Terminate UpdateLumivexIcon ValueChanged isDocument loWord "
    "mHook_BeforeMessage\n"
    "ToolbarUtilities: CommandBar CreateDesktopCompatibleBitmap EnableList FillDcWithColor HM2PixX HM2PixY "
    "Initialize ProductNameChanged ReplaceBackgroundWithMenuColor SetButtonIcon Terminate ToolbarWindowHandle "
    "TransparentBlt cachedBuffer[Get] cachedBuffer[Let] capitalize inUserManual insertCaption lumivexCaption "
    "pasteCaption pictureIndex tooltipText usePasteFaceWorkaround\n"
    "cCustomClipboard: AddFormat Class_Initialize Class_Terminate ClearClipboard ClipboardClose ClipboardOpen "
    "FormatCount FormatIDForName FormatName GetBinaryData GetClipboardMemoryHandle GetCurrentFormatID "
    "GetCurrentFormatName GetCurrentFormats GetFileList GetTextData HasCurrentFormat IsDataAvailableForFormat "
    "IsDataAvailableForFormatName SetBinaryData SetClipboardMemoryHandle SetFileList SetTextData pbNotReady "
    "setlFormatId\n"
    "vbwProtector: alwaysIgnore hash vbwCloseDumpFile vbwErrorHandler vbwExitThread vbwInitializeProtector "
    "vbwOpenDumpFile vbwReportObject vbwReportParameter vbwReportToFile vbwReportVariable\n";

std::string TextOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// A file names its module itself, or is of the module whose namespace it is in.
std::string ModuleOf(const std::string& source) {
  static const std::regex kOwn("ModuleInfo kModuleInfo\\{u\"(\\w+)\"");
  static const std::regex kNamespace("namespace strandline::(\\w+) \\{");
  std::smatch found;
  if (std::regex_search(source, found, kOwn) || std::regex_search(source, found, kNamespace)) return found[1];
  return "no module";
}

std::string NamesInTheSources() {
  static const std::regex kAnnounced("[\\n{] +(?:METHOD|PROCEDURE)\\([^\"]*?u\"([^\"]+)\"");
  std::map<std::string, std::set<std::string>> modules;
  for (const char* folder : {"foundation", "wordaccess", "drawing", "ads", "toolbar", "addin"}) {
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(STRANDLINE_SOURCE_DIR) / folder)) {
      const std::string source = TextOf(entry.path());
      for (std::sregex_iterator at(source.begin(), source.end(), kAnnounced), end; at != end; ++at) {
        modules[ModuleOf(source)].insert((*at)[1]);
      }
    }
  }
  std::string text;
  for (const auto& [module, procedures] : modules) {
    text += module + ":";
    for (const std::string& procedure : procedures) text += " " + procedure;
    text += "\n";
  }
  return text;
}

TEST(TraceNames, OfAllProcedures) { EXPECT_EQ(NamesInTheSources(), kNames); }

TEST(TraceNames, ModulesWithVariablesAreNamedLikeTheirNamespaces) {
  EXPECT_EQ(TextView(ToolbarUtilities::kModuleInfo.name), u"ToolbarUtilities");
  EXPECT_EQ(TextView(CommonLogger::kModuleInfo.name), u"CommonLogger");
  EXPECT_EQ(TextView(LanguageExtensions::kModuleInfo.name), u"LanguageExtensions");
  EXPECT_EQ(TextView(SleepReplacement::kModuleInfo.name), u"SleepReplacement");
  EXPECT_EQ(TextView(CommonPropertyFunctions::kModuleInfo.name), u"CommonPropertyFunctions");
  EXPECT_EQ(TextView(CommonWordInteractionFunctions::kModuleInfo.name), u"CommonWordInteractionFunctions");
}

}  // namespace
}  // namespace strandline
