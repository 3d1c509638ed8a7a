#include "wordsim/product.h"

#include <algorithm>

#include "wordsim/ad_components.h"
#include "wordsim/components.h"
#include "wordsim/product_objects.h"
#include "wordsim/store.h"

namespace strandline::wordsim {

namespace {

constexpr const char16_t* kErrorComponent = u"QuillmereError.Main2";
constexpr const char16_t* kRibbonComponent = u"RibbonHandler.Main2";

constexpr FormatterContent kFormatters[] = {
    {u"StylanthAMA.Main2", u"AMA", u"numbered reference"},
    {u"StylanthAPA.Main2", u"APA", u"citation"},
    {u"StylanthMLA.Main2", u"MLA", u"citation"},
    {u"StylanthTurabian.Main2", u"Turabian", u"footnote"},
};

constexpr TextView kComponentNames[] = {
    u"StylanthAMA.Main2", u"StylanthAPA.Main2", u"StylanthMLA.Main2", u"StylanthTurabian.Main2", kErrorComponent,
    kRibbonComponent,     kBlenderComponent,    kBrowserComponent,    kDownloadComponent,
};

}  // namespace

Product::Product(Ref<ObjectUses> uses, const Platform& platform, HostCanvas& canvas, const Settings& settings,
                 Hooks& hooks)
    : mPlatform(platform),
      mSettings(settings),
      mHooks(hooks),
      mUses(uses),
      mTooltip(New<TooltipObject>(uses)),
      mStore(New<StoreObject>(uses, platform, hooks, mTooltip, settings.commonAppPath)),
      mState(New<ProductStateObject>(uses, platform, settings)),
      mCanvas(canvas) {}

Product::~Product() = default;

Object Product::Properties() const { return mStore; }
Object Product::ProductState() const { return mState; }

std::span<const TextView> Product::ComponentNames() { return kComponentNames; }

Object Product::CreateComponent(const String& progId) {
  const auto isAsked = [&](TextView name) { return SameText(name, progId); };
  if (std::any_of(mSettings.missingComponents.begin(), mSettings.missingComponents.end(), isAsked)) {
    Raise(errors::kCannotCreateComponent);
  }
  for (const FormatterContent& formatter : kFormatters) {
    if (isAsked(formatter.progId)) return New<FormatterObject>(mUses, mPlatform, formatter);
  }
  if (isAsked(kErrorComponent)) return New<ErrorObject>(mUses, kErrorComponent, *this);
  if (isAsked(kRibbonComponent)) return New<RibbonHandlerObject>(mUses, kRibbonComponent, *this);
  if (isAsked(kBlenderComponent)) return New<BlenderObject>(mUses, mCanvas);
  if (isAsked(kBrowserComponent)) return New<BrowserObject>(mUses, *this);
  if (isAsked(kDownloadComponent)) return New<DownloadObject>(mUses, *this);
  Raise(errors::kCannotCreateComponent);
}

void Product::ChangeValue(ValueLevel level, const String& key, const String& text, const String& docId) {
  switch (level) {
    case ValueLevel::kUser:
      mStore->SetUserValue(key, text);
      break;
    case ValueLevel::kGlobal:
      mStore->SetGlobalValue(key, text);
      break;
    case ValueLevel::kDocument:
      mStore->SetDocumentValue(docId, key, text);
      break;
  }
  mStore->TellListeners(key, text);
}

Long Product::Verify(const String& path, String& signature) {
  if (mVerdict) {
    signature = mVerdict->signature;
    return mVerdict->highestIndex;
  }
  if (!mLibraryCheck) Raise(errors::kCannotCreateComponent);
  return mLibraryCheck->Verify(path, signature);
}

String Product::AdLibraryPath() const { return Concat({mSettings.commonAppPath, u"Vistrel.dll"}); }
Object Product::AdListener() const { return mStore->LatestListener(); }

void Product::Rename(const String& name) { mState->Rename(name); }
void Product::SetLumivex(bool enabled) { mState->SetLumivex(enabled); }
bool Product::IsLumivexEnabled() const { return mState->IsLumivexEnabled(); }

void Product::AnswerErrors(std::span<const Long> answers) {
  mAnswers.insert(mAnswers.end(), answers.begin(), answers.end());
}

Long Product::NextErrorAnswer() {
  if (mAnswers.empty()) return 0;
  const Long answer = mAnswers.front();
  mAnswers.pop_front();
  return answer;
}

}  // namespace strandline::wordsim
