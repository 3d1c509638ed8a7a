// How a button of Word's gets its face: by its picture and mask, or through the clipboard, where the user's rich text
// has to survive.

#include "foundation/LanguageExtensions.h"
#include "foundation/cCustomClipboard.h"
#include "tests/drawing/drawing_fixture.h"
#include "tests/support/allocations.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"

namespace strandline {
namespace {

constexpr const char16_t* kRichText = u"{\\rtf1 A thesis}";

// The uses of one control and the calls of the clipboard, in their order.
class TransferLog final : public wordsim::UseObserver, public CallRecorder {
 public:
  void OnUse(const wordsim::ObjectUse& use) override {
    if (use.object != "control 5") return;
    lines.push_back((use.op == wordsim::UseOp::kLet ? "let " : "call ") + std::string(use.member) +
                    (use.error ? " ! " + std::to_string(use.error->number) : ""));
  }
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument&) override {
    std::string line(call);
    if (call == "OpenClipboard") line += " by " + nameOf(*arguments[0].If<Long>());
    lines.push_back(line);
  }
  std::function<std::string(Long)> nameOf;
  Lines lines;
};

class IconTransfer : public DrawingTest {
 protected:
  IconTransfer() { Begin(kWord2003); }
  ~IconTransfer() override { LanguageExtensions::variables.mInIDE = false; }
  void TearDown() override {
    icon = nullptr;
    DrawingTest::TearDown();
    floor.reset();
  }

  void Begin(const char16_t* version) {
    icon = nullptr;
    FloorOptions options;
    options.wordVersion = version;
    Load(options);
    floor->word.Open(u"Thesis.doc");
    ToolbarUtilities::variables.mProductName = options.productName;
    ToolbarUtilities::variables.converter = New<IPictureDispUtilities>();
    mFailing = std::make_unique<FailingClipboard>(floor->desk.Clipboard(), floor->faults);
    mRecording = std::make_unique<RecordingClipboard>(*mFailing, &mLog);
    platform::current.clipboard = mRecording.get();
    mLog.nameOf = [this](Long hwnd) { return floor->word.WindowName(hwnd); };
    floor->word.SetUseObserver(&mLog);
    icon = floor->MakePicture({"r..g", ".ww.", "#..#"});
    mLog.lines.clear();
  }
  desk::DeskClipboard& Clipboard() { return floor->desk.Clipboard(); }
  wordsim::BarControl& Control() { return *floor->word.ProductBar().Controls().Control(5); }
  Object Button() { return Ref<wordsim::BarControl>(&Control()); }
  void Transfer() { ToolbarUtilities::SetButtonIcon(Button(), icon); }
  std::string Steps() { return Listed(std::exchange(mLog.lines, {})); }
  // What shows on the button; '.' what it leaves open, or the colour of the key where it has no mask.
  Lines Face() { return Control().Face() ? floor->RowsOfBitmap(Control().Face()->Handle()) : Lines{}; }
  // "name: text" of what is on the clipboard.
  std::string OnClipboard() {
    std::string content;
    for (const auto& item : Clipboard().Content()) {
      content += ToUtf8(item.name) + (item.isPicture ? "\n" : ": " + ToUtf8(item.text) + "\n");
    }
    return content;
  }

  Picture icon;

 private:
  TransferLog mLog;
  std::unique_ptr<FailingClipboard> mFailing;
  std::unique_ptr<RecordingClipboard> mRecording;
};

// The class learns its two formats, opens by force for the active document's window, and looks for rich text.
const Lines kOpening = {"RegisterClipboardFormatA", "RegisterClipboardFormatA", "CloseClipboard",
                        "OpenClipboard by top 1", "IsClipboardFormatAvailable"};
const Lines kRichTextKept = {"GetClipboardData"};
const Lines kPasting = {"CloseClipboard", "SetPicture", "call PasteFace"};
const Lines kRichTextPutBack = {"CloseClipboard", "OpenClipboard by top 1", "EmptyClipboard", "SetClipboardData",
                                "CloseClipboard"};

std::string InTurn(std::initializer_list<Lines> parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return Listed(all);
}

TEST_F(IconTransfer, Workaround_IsForWord2000AndTheDevelopmentEnvironment) {
  const struct {
    const char16_t* version;
    bool inIDE;
    bool wanted;
  } cases[] = {{kWord2000, false, true}, {kWord2000, true, true},   {kWord2002, false, false},
               {kWord2002, true, true},  {kWord2003, false, false}, {kWord2003, true, true}};
  for (const auto& row : cases) {
    Begin(row.version);
    LanguageExtensions::variables.mInIDE = row.inIDE;
    EXPECT_EQ(ToolbarUtilities::usePasteFaceWorkaround(), row.wanted) << ToUtf8(row.version) << row.inIDE;
    Transfer();
    const std::string steps = Steps();
    EXPECT_EQ(steps.find("PasteFace") != std::string::npos, row.wanted) << steps;
    EXPECT_EQ(steps.find("let Picture") == std::string::npos, row.wanted) << steps;
  }
}

TEST_F(IconTransfer, DirectRoute_GivesPictureAndMask_AndUsesTheIconUp) {
  Clipboard().SetTextFromOutside(u"left alone");
  const Long bitmap = icon->Handle();
  Transfer();
  EXPECT_EQ(Steps(), "let Picture\nlet Mask\n");
  EXPECT_EQ(Face(), (Lines{"r..g", ".ww.", "#..#"}));
  EXPECT_TRUE(Control().HasMask());
  EXPECT_FALSE(floor->desk.Objects().IsLive(bitmap));
  EXPECT_EQ(OnClipboard(), "Text: left alone\n");
}

TEST_F(IconTransfer, ClipboardRoute_WithoutRichText_LeavesThePictureThere) {
  Begin(kWord2000);
  Clipboard().SetTextFromOutside(u"lost");
  Transfer();
  EXPECT_EQ(Steps(), InTurn({kOpening, kPasting}));
  EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  EXPECT_FALSE(Clipboard().IsOpen());
}

TEST_F(IconTransfer, ClipboardRoute_KeepsRichTextAndNothingElse) {
  Begin(kWord2000);
  Clipboard().SetTextFromOutside(u"lost");
  Clipboard().SetRichTextFromOutside(kRichText);
  Transfer();
  EXPECT_EQ(Steps(), InTurn({kOpening, kRichTextKept, kPasting, kRichTextPutBack}));
  ASSERT_EQ(Clipboard().Content().size(), 1u) << OnClipboard();
  EXPECT_EQ(Clipboard().Content()[0].name, u"Rich Text Format");
  EXPECT_EQ(Clipboard().Content()[0].text, kRichText);
  EXPECT_FALSE(Clipboard().IsOpen());
}

TEST_F(IconTransfer, PastedFace_HasTheColourOfMenusWhereTheIconIsOpen) {
  Begin(kWord2000);
  const Long bitmap = icon->Handle();
  Transfer();
  ASSERT_TRUE(Control().Face());
  const desk::Surface& face = floor->BitmapSurface(Control().Face()->Handle());
  const std::uint32_t menu = desk::PixelFromColorRef(static_cast<std::uint32_t>(floor->desk.Graphics().GetSysColor(4)));
  const Lines rows = {"r..g", ".ww.", "#..#"};
  ASSERT_EQ(face.width, 4);
  ASSERT_EQ(face.height, 3);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 4; ++x) {
      const char pixel = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
      const auto colour = static_cast<std::uint32_t>(DrawingFloor::ColorOf(pixel));
      EXPECT_EQ(*face.At(x, y), pixel == '.' ? menu : desk::PixelFromColorRef(colour)) << x << ' ' << y;
    }
  }
  EXPECT_FALSE(Control().HasMask());
  EXPECT_FALSE(floor->desk.Objects().IsLive(bitmap)) << "used up";
}

// Whatever Word refuses on the direct route, the clipboard comes next and nobody hears of it.
TEST_F(IconTransfer, WordThatRefusesThePicture_GetsTheFaceFromTheClipboard) {
  for (const char16_t* version : {kWord2002, kWord2003}) {
    Begin(version);
    floor->word.Faults().Arm("control 5", "Picture", 1, 438);
    Transfer();
    EXPECT_EQ(Steps(), "let Picture ! 438\n" + InTurn({kOpening, kPasting}));
    EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
    EXPECT_EQ(Face().size(), 3u);
  }
}

// By then the icon is used up, and all that can be pasted is an empty face.
TEST_F(IconTransfer, WordThatRefusesTheMask_GetsTheFaceFromTheClipboard) {
  floor->word.Faults().Arm("control 5", "Mask", 1, 438);
  Transfer();
  EXPECT_EQ(Steps(), "let Picture\nlet Mask ! 438\n" + InTurn({kOpening, kPasting}));
  EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  EXPECT_FALSE(floor->Misused().empty());
  floor->desk.Misuses().Clear();
}

TEST_F(IconTransfer, MissingConverter_LeadsToTheClipboardToo) {
  ToolbarUtilities::variables.converter = nullptr;
  Transfer();
  EXPECT_EQ(Steps(), "let Picture\n" + InTurn({kOpening, kPasting}));
  EXPECT_EQ(Face().size(), 3u);
}

// The conversion reports its own failure and gives no mask, which the button takes.
TEST_F(IconTransfer, FailingMask_StaysOnTheDirectRoute) {
  icon = floor->MakePicture(1300, 1, kRed);
  Transfer();
  EXPECT_EQ(Steps(), "let Picture\nlet Mask\n");
  EXPECT_FALSE(Control().HasMask());
  EXPECT_EQ(Listed(TakeErrors()), "6 IPictureDispUtilities.CreateIPictureDispMask\n");
}

// The clipboard's object is made before errors are passed over.
TEST_F(IconTransfer, NoMemoryForTheClipboardsObject_IsReportedAndEndsTheRoute) {
  Begin(kWord2000);
  FailNextAllocationOf(sizeof(cCustomClipboard));
  Transfer();
  FailNextAllocationOf(0);
  EXPECT_EQ(Steps(), "");
  EXPECT_EQ(Listed(TakeErrors()), "7 ToolbarUtilities.SetButtonIcon\n");
}

// From its opening on they are, whatever is missing.
TEST_F(IconTransfer, NoMemoryForTheClipboardsObject_Ignored_IsTheOnlyErrorAndTheFaceIsPasted) {
  Begin(kWord2000);
  floor->errors.Answer({vbwProtector::kIgnore});
  FailNextAllocationOf(sizeof(cCustomClipboard));
  Transfer();
  FailNextAllocationOf(0);
  EXPECT_EQ(Steps(), "SetPicture\ncall PasteFace\n");
  EXPECT_EQ(Listed(TakeErrors()), "7 ToolbarUtilities.SetButtonIcon\n");
  EXPECT_EQ(Face().size(), 3u);
}

TEST_F(IconTransfer, ClipboardThatDoesntOpenAtFirst_DoesntStopTheRoute) {
  Begin(kWord2000);
  floor->faults.Arm("OpenClipboard", 1);
  Transfer();
  EXPECT_EQ(Steps(), InTurn({kOpening, kPasting}));
  EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  EXPECT_EQ(Face().size(), 3u);
}

// It is seen, but can't be read: that alone is told, and the text is lost.
TEST_F(IconTransfer, RichTextOnAClipboardThatDoesntOpen_IsLost) {
  Begin(kWord2000);
  Clipboard().SetRichTextFromOutside(kRichText);
  floor->faults.Arm("OpenClipboard", 1);
  Transfer();
  EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  EXPECT_EQ(Face().size(), 3u);
  for (const std::string& line : TakeErrors()) EXPECT_NE(line.find("cCustomClipboard"), std::string::npos) << line;
}

TEST_F(IconTransfer, RichTextThatCantBePutBack_LeavesThePicture) {
  class SecondOpeningFails final : public ForwardingClipboard {
   public:
    using ForwardingClipboard::ForwardingClipboard;
    Long OpenClipboard(Long hwnd) override { return ++mOpenings == 2 ? 0 : mTarget.OpenClipboard(hwnd); }

   private:
    int mOpenings = 0;
  };
  Begin(kWord2000);
  Clipboard().SetRichTextFromOutside(kRichText);
  strandline::Clipboard* const former = platform::current.clipboard;
  SecondOpeningFails failing(*former);
  platform::current.clipboard = &failing;
  Transfer();
  platform::current.clipboard = former;
  EXPECT_EQ(Steps(), InTurn({kOpening, kRichTextKept, kPasting, {"CloseClipboard"}}));
  EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  EXPECT_FALSE(Clipboard().IsOpen());
}

TEST_F(IconTransfer, ClipboardOfAnotherProgram_IsLeftAlone_AndTheFaceStays) {
  Begin(kWord2000);
  Clipboard().SetTextFromOutside(u"the other's");
  Clipboard().HoldByAnother(true);
  Transfer();
  EXPECT_EQ(Steps(), InTurn({kOpening, {"CloseClipboard", "call PasteFace ! 5"}}));
  EXPECT_EQ(OnClipboard(), "Text: the other's\n");
  EXPECT_TRUE(Face().empty());
}

// The conversion reports that it has no picture; the route itself passes over what follows from that.
TEST_F(IconTransfer, NoIcon_PastesNothing) {
  Begin(kWord2000);
  icon = nullptr;
  Transfer();
  EXPECT_EQ(Steps(), InTurn({kOpening, {"CloseClipboard", "call PasteFace ! 5"}}));
  for (const std::string& line : TakeErrors()) EXPECT_EQ(line.find("SetButtonIcon"), std::string::npos) << line;
  EXPECT_TRUE(Face().empty());
}

TEST_F(IconTransfer, NoButton_IsNoError) {
  for (const char16_t* version : {kWord2000, kWord2003}) {
    Begin(version);
    ToolbarUtilities::SetButtonIcon(nullptr, icon);
    EXPECT_EQ(OnClipboard(), "Bitmap Picture\n");
  }
}

}  // namespace
}  // namespace strandline
