#include "wordsim/word_world.h"

#include <algorithm>

#include "wordsim/application.h"
#include "wordsim/bar_contents.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/document_frame.h"
#include "wordsim/popup_menu.h"
#include "wordsim/product.h"
#include "wordsim/product_objects.h"
#include "wordsim/tooltip_window.h"

namespace strandline::wordsim {

namespace {

constexpr Long kFirstVersionWithMailsOfItsOwn = 11;  // before it a mail stands in an Outlook window
constexpr Long kFirstRibbonVersion = 12;
constexpr Long kMostControls = 1000;
constexpr Long kHighestControl = 10'000;
constexpr Long kUsualVersion = 11;
constexpr Long kMostFramesInCascade = 3;
constexpr Long kCascadeStep = 4;
constexpr Long kMinimise = 6;
constexpr Long kRestore = 9;

// The whole number in front; a text without one is taken for Word 2003.
Long WholeVersion(TextView text) {
  Long version = 0;
  for (char16_t c : text) {
    if (c < u'0' || c > u'9' || version > 1000) break;
    version = version * 10 + (c - u'0');
  }
  return version == 0 ? kUsualVersion : version;
}

}  // namespace

WordWorld::WordWorld(const Platform& platform, HostWindows& hostWindows, HostCanvas& canvas, HostClock& clock,
                     const Settings& settings)
    : mSettings(settings),
      mPlatform(platform),
      mHostWindows(hostWindows),
      mVersion(WholeVersion(settings.wordVersion)),
      mUses(New<ObjectUses>()),
      mFrameServices(std::make_unique<FrameServices>(*this, mPlatform, hostWindows, canvas, clock)),
      mProduct(std::make_unique<Product>(mUses, mPlatform, canvas, mSettings, mHooks)) {
  mSettings.controlCount = std::clamp<Long>(mSettings.controlCount, 0, kMostControls);
  mSettings.controlHeight = std::clamp<Long>(mSettings.controlHeight, 0, kHighestControl);
  MakeBars();
  mApplication = New<ApplicationObject>(mUses, *this);
  if (!mSettings.showsTooltips) return;
  mTooltip = std::make_unique<TooltipWindow>(*mFrameServices);
  mProduct->Tooltip().ShowIn(mTooltip.get());
}

WordWorld::~WordWorld() {
  mUses->EndAll();
  mMenu.reset();
  mTooltip.reset();
  for (const auto& document : mDocuments) document->End();
  for (const auto& frame : mFrames) frame->Close();
}

void WordWorld::MakeBars() {
  const auto caption = [&](TextView pattern) { return CaptionFor(pattern, mSettings.productName); };
  mProductBar = New<CommandBar>(mUses, *this, mSettings.productName, BarKind::kProduct, mSettings.barPosition);
  BarControls& controls = mProductBar->Controls();
  const auto contents = ProductControls();
  for (Long i = 0; i < mSettings.controlCount; ++i) {
    const auto place = static_cast<std::size_t>(i);
    const ControlContent content = place < contents.size() ? contents[place] : ExtraControl();
    controls.Add(caption(content.caption), {content.width, mSettings.controlHeight});
  }
  if (BarControl* menu = controls.Control(1)) {
    BarControls& entries = menu->MakePopup();
    for (const char16_t* entry : MenuEntries()) entries.Add(caption(entry), {});
  }
  auto drawing = New<CommandBar>(mUses, *this, u"Drawing", BarKind::kDrawing, BarPosition::kBottom);
  for (const ControlContent& content : DrawingControls()) {
    drawing->Controls().Add(content.caption, {content.width, kDrawingControlHeight});
  }
  mBars = {mProductBar, drawing};
  if (mVersion >= kFirstRibbonVersion) {
    mBars.push_back(New<CommandBar>(mUses, *this, u"Ribbon", BarKind::kRibbon, BarPosition::kTop));
  }
  // Both at the bottom: each has a row of its own until somebody sets them on one.
  if (mSettings.barPosition == BarPosition::kBottom) mProductBar->SetRowIndex(2);
}

Object WordWorld::Application() const { return mApplication; }
Object WordWorld::Properties() const { return mProduct->Properties(); }
Object WordWorld::ProductState() const { return mProduct->ProductState(); }
Object WordWorld::CreateComponent(const String& progId) { return mProduct->CreateComponent(progId); }
void WordWorld::SetUseObserver(UseObserver* observer) { mUses->observer = observer; }
UseFaults& WordWorld::Faults() { return mUses->faults; }

Document* WordWorld::Find(const String& name) const {
  for (const auto& document : mDocuments) {
    if (SameText(document->Name(), name)) return document.get();
  }
  return nullptr;
}

Document* WordWorld::Active() const { return mRecent.empty() ? nullptr : mRecent.front(); }

// An empty window is taken for the next document of its kind, as Word does it.
std::shared_ptr<DocumentFrame> WordWorld::FrameFor(OpenFlags flags) {
  const bool inOutlook = flags.mail && mVersion < kFirstVersionWithMailsOfItsOwn;
  for (const auto& frame : mFrames) {
    const auto isHere = [&](const Ref<Document>& document) { return document->SharedFrame() == frame; };
    const bool isEmpty = std::none_of(mDocuments.begin(), mDocuments.end(), isHere);
    if (isEmpty && frame->IsOutlook() == inOutlook) return frame;
  }
  Rect screen{0, 0, 1024, 768};
  mPlatform.windows->GetWindowRect(mPlatform.windows->GetDesktopWindow(), screen);
  const Long step = kCascadeStep * (static_cast<Long>(mFrames.size()) % kMostFramesInCascade);
  const Long margin = kCascadeStep * kMostFramesInCascade;
  const Rect place{screen.left + step, screen.top + step, screen.right - margin + step, screen.bottom - margin + step};
  mFrames.push_back(std::make_shared<DocumentFrame>(*mFrameServices, inOutlook, place));
  return mFrames.back();
}

Document& WordWorld::Open(const String& name, OpenFlags flags) {
  if (Document* open = Find(name)) {
    Front(*open);
    return *open;
  }
  const auto frame = FrameFor(flags);
  auto document = New<Document>(mUses, *this, name, flags, ++mLastDocumentIdentity, frame);
  mDocuments.insert(mDocuments.begin(), document);
  frame->SetDocumentName(name);
  document->ShowView();
  Front(*document);
  return *document;
}

void WordWorld::Front(Document& document) {
  CloseMenu();
  mRecent.erase(std::remove(mRecent.begin(), mRecent.end(), &document), mRecent.end());
  mRecent.insert(mRecent.begin(), &document);
  const Long top = document.Frame().Top();
  if (mPlatform.windows->IsIconic(top)) mPlatform.windows->ShowWindow(top, kRestore);
  mHostWindows.ActivateWindow(top);
  for (const auto& frame : mFrames) frame->SetActive(frame->Top() == top);
}

bool WordWorld::Activate(const String& name) {
  Document* document = Find(name);
  if (document) Front(*document);
  return document != nullptr;
}

bool WordWorld::Type(const String& name, Long characters) {
  Document* document = Find(name);
  if (document) document->Type(characters);
  return document != nullptr;
}

bool WordWorld::Close(const String& name) {
  Document* document = Find(name);
  if (document) GoAway(Ref<Document>(document));
  return document != nullptr;
}

void WordWorld::GoAway(const Ref<Document>& document) {
  CloseMenu();
  const auto frame = document->SharedFrame();
  document->End();
  mRecent.erase(std::remove(mRecent.begin(), mRecent.end(), document.get()), mRecent.end());
  mDocuments.erase(std::remove(mDocuments.begin(), mDocuments.end(), document), mDocuments.end());
  if (mDocuments.empty()) {
    frame->SetDocumentName({});
    return;
  }
  mFrames.erase(std::remove(mFrames.begin(), mFrames.end(), frame), mFrames.end());
  frame->Close();
  Front(*mRecent.front());
}

bool WordWorld::Minimise(const String& name) {
  Document* document = Find(name);
  if (!document) return false;
  const bool wasActive = document == Active();
  CloseMenu();
  mPlatform.windows->ShowWindow(document->Frame().Top(), kMinimise);
  document->Frame().Arrange();
  // The next one that isn't minimised comes to the front.
  if (wasActive) {
    for (Document* other : mRecent) {
      if (other->Frame().State() == FrameState::kMinimised) continue;
      Front(*other);
      break;
    }
  }
  return true;
}

bool WordWorld::Restore(const String& name) {
  Document* document = Find(name);
  if (!document) return false;
  mPlatform.windows->ShowWindow(document->Frame().Top(), kRestore);
  document->Frame().Arrange();
  Front(*document);
  return true;
}

bool WordWorld::SetBookmark(const String& name, bool on) {
  if (Document* active = Active()) active->SetBookmark(name, on);
  return Active() != nullptr;
}

bool WordWorld::SetVariable(const String& name, const String& value) {
  if (Document* active = Active()) active->SetVariable(name, value);
  return Active() != nullptr;
}

bool WordWorld::SetEmail(bool on) {
  if (Document* active = Active()) active->SetMail(on);
  return Active() != nullptr;
}

void WordWorld::Cover(bool covered) {
  CloseMenu();
  mHostWindows.CoverScreen(covered);
}

void WordWorld::ShowDialog(Long number) {
  struct Open {
    explicit Open(int& count) : mCount(count) { ++mCount; }
    ~Open() { --mCount; }
    int& mCount;
  };
  const Open open(mOpenDialogs);
  CloseMenu();
  if (mHooks.showDialog) mHooks.showDialog(number);
}

}  // namespace strandline::wordsim
