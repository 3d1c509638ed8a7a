#pragma once

// The ads in a simulated Word: a library file that a test writes, and components that verify it, blend and browse.

#include "tests/ads/ads_access.h"
#include "tests/support/main2_access.h"
#include "tests/support/scripted_object.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {

// A clause of a filter, milliseconds, a page. It shows on every day.
String AdSettings(const String& filter = {}, Long duration = 5000, const String& page = u"page");

struct LibraryAd {
  String settings = AdSettings();
  Long width = 40;  // pixels
  Long height = 10;
  std::uint32_t color = 0xFF0000;  // 0xRRGGBB
  bool hasPicture = true;
  bool hasString = true;
};

// A strip that only counts.
class FakeStrip final : public AdStrip {
 public:
  void PaintAd(Boolean forceEraseBackground) override { paints += forceEraseBackground ? "last " : "step "; }
  std::string paints;
};

class AdsTest : public ToolbarTest {
 protected:
  using Inside = AdsAccess;
  static constexpr const char16_t* kHeading = u"StartDate$EndDate$Repeat$$Filter$Duration$Website";
  // An ad that no day from now on sees.
  static constexpr const char16_t* kOver = u"1/1/2000$12/31/2000$W1111111$-$$5000$old";

  // A library that is started on the second of March 2009, and one document, of which it doesn't know.
  void Begin(const wordsim::Settings& settings = {});
  // The file with these ads behind the built-in one, which gets `first` as its settings; it passes its verification,
  // with a new signature.
  void SetLibrary(const std::vector<LibraryAd>& ads, const String& first = kHeading);
  void RemoveLibrary();
  // The library hears of the document that Begin has opened: a strip, the first load of the ads, a panel.
  void BeginWithStrip(const std::vector<LibraryAd>& ads);
  // The news of a new file, as the worker gives it.
  void ReportNews(Boolean aborted = false);
  void ChangeValue(const String& key, const String& value);
  // The first paint of a strip of those pixels, on the bar's window.
  void Paint(Long width = 223, Long height = 32);

  AdvertisementsFactory& Factory();
  VariableSnapshot FactoryVariables() { return VariableSnapshot::Of(Factory()); }
  // The panel of the n-th strip, in the order of the registry.
  Advertisements& Panel(Long n = 0);
  VariableSnapshot PanelVariables(Long n = 0) { return VariableSnapshot::Of(Panel(n)); }
  // "101": for each ad whether it may show in that window.
  std::string Visible(Long n = 0);
  std::string PanelState(Long n = 0);  // "current tick cycling"
  const desk::Surface& PanelPixels(Long n = 0);
  std::uint32_t PanelPixel(Long n = 0);  // in the middle of what the panel shows, 0xRRGGBB
  // For each key of the map: "key=01 ".
  std::string ListenMap();
  std::string Browsed() { return std::exchange(mBrowsed, {}); }
  Trace::Lines LinesOf(unsigned kinds, std::set<std::string> beginnings, const std::function<void()>& doing);

  // What the verifier answers.
  Long highest = 0;
  String signature;
  // Told before it answers; may raise.
  std::function<void()> verifying;
  // Told before a blend; may raise.
  std::function<void()> blending;
  // Told after a blend, with the context and the share as they were handed by reference.
  std::function<void(const Variant& target, const Variant& share)> written;
  std::vector<std::string> blends;  // "0.3" for each call of the component
  std::vector<std::string> worker;  // what became of StrandlineDownload.Main2
  std::vector<Variant> asked;       // what the worker was handed when it was asked for news

 private:
  void Blend(const Arguments& arguments);
  Variant Verify(const Arguments& arguments);
  std::vector<std::uint32_t>* PixelsOf(Long hdc);
  String LibraryPath() { return Concat({world->word.TheSettings().commonAppPath, u"Vistrel.dll"}); }

  std::string mBrowsed;
  int mLibraries = 0;
};

}  // namespace strandline
