// The day's part in the ads: their library, the values that they depend on, the components that they need.

#include <fstream>
#include <iterator>

#include "tests/day/random_day.h"

namespace strandline::day {

namespace {

constexpr const char16_t* kComponents[] = {u"AlphaBlender.Main2", u"HTTP.Main2", u"StrandlineDownload.Main2"};
constexpr Long kHighestIndex = 3;  // of the library

const std::vector<Byte>& LibraryFile() {
  static const std::vector<Byte> kBytes = [] {
    std::ifstream file(STRANDLINE_SOURCE_DIR "/scenes/ads/three.dll", std::ios::binary);
    return std::vector<Byte>{std::istreambuf_iterator<char>(file), {}};
  }();
  return kBytes;
}

}  // namespace

// A library that is there, one that isn't, and one that never passes its test.
void RandomDay::ServeAds() {
  wordsim::Product& product = mWorld->word.TheProduct();
  if (Chance(6)) {
    mWorld->desk.Modules().RemoveModule(product.AdLibraryPath());
  } else {
    mWorld->desk.Modules().SetModuleFile(product.AdLibraryPath(), LibraryFile());
  }
  const String signature = Concat({u"signature ", DecimalText(Below(4))});
  product.LayDownVerdict(Below(kHighestIndex + 3) - 1, signature);
}

void RandomDay::WaitForAds() { mWorld->desk.Clock().Wait(500 + Below(9000)); }

void RandomDay::ChangeValue() {
  static constexpr const char16_t* kKeys[] = {u"FormatType", u"Lumivex", u"Colour"};
  static constexpr const char16_t* kTexts[] = {u"APA", u"Turabian", u"off", u"on", u""};
  const String key = kKeys[Below(3)];
  const String text = kTexts[Below(5)];
  Say("  " + ToUtf8(key) + " " + ToUtf8(text));
  wordsim::Product& product = mWorld->word.TheProduct();
  wordsim::Document* const active = mWorld->word.Active();
  switch (Below(active ? 3 : 2)) {
    case 0:
      product.ChangeValue(wordsim::ValueLevel::kUser, key, text);
      break;
    case 1:
      product.ChangeValue(wordsim::ValueLevel::kGlobal, key, text);
      break;
    default:
      product.ChangeValue(wordsim::ValueLevel::kDocument, key, text, active->IdentityText());
  }
}

void RandomDay::ExchangeLibrary() {
  ServeAds();
  const Object callback = Library::AdCallback();
  if (!callback.IsNothing()) callback.Call("NewAdvertisementsEvent", Chance(2));
}

void RandomDay::LoseComponent() { mWorld->desk.Components().SetMissing(kComponents[Below(3)], Chance(2)); }

}  // namespace strandline::day
