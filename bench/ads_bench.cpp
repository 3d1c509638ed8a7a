// What ads cost. The filters of 200 ads with five clauses each, all of which hold, beside the bare look-ups of the same
// values; both are run by turns, and "ratio" is what the filters take of the look-ups' time.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "ads/Advertisement.h"
#include "bench/loaded_word.h"
#include "drawing/LoadImageFromResource.h"
#include "platform/dates.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordsim/product.h"
#include "wordsim/store.h"

namespace strandline::bench {
namespace {

constexpr int kAds = 200;
constexpr int kClauses = 5;

String NameOfClause(int clause) { return Concat({u"value", DecimalText(clause)}); }

// Word with one document, in which some of the values stand; the others are the user's and the product's.
class FilteredAds : public LoadedWord {
 public:
  FilteredAds() : LoadedWord({}) {
    Open(u"Thesis.doc");
    Word().SetVariable(NameOfClause(0), u"APA");
    wordsim::StoreObject& store = Word().TheProduct().Store();
    store.SetUserValue(NameOfClause(1), u"my thesis");
    for (int clause = 2; clause < kClauses; ++clause) store.SetGlobalValue(NameOfClause(clause), u"MLA");
    std::u16string filter;
    const TextView tokens[kClauses] = {u"APA|MLA", u"has_THESIS", u"!AMA", u"APA|AMA|MLA", u"MLA"};
    for (int clause = 0; clause < kClauses; ++clause) {
      filter += filter.empty() ? u"" : u"~";
      filter += Concat({NameOfClause(clause), u"=", tokens[clause]}).View();
      names.push_back(NameOfClause(clause));
    }
    for (int i = 0; i < kAds; ++i) {
      String settings = Concat({u"1/1/2000$12/31/2100$D1$-$", filter, u"$5000$page", TextView(u"\0", 1)});
      ads.push_back(New<Advertisement>());
      ads.back()->Initialize(LoadImageFromResource::LoadResGifJpgBmp(116, 0), settings, dates::FromParts(2009, 3, 2));
    }
  }

  std::vector<Ref<Advertisement>> ads;
  std::vector<String> names;
};

template <class Doing>
double SecondsOf(Doing doing) {
  const auto start = std::chrono::steady_clock::now();
  doing();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void FiltersOf200Ads(benchmark::State& state) {
  FilteredAds loaded;
  int visible = 0;
  const auto filters = [&] {
    for (const Ref<Advertisement>& ad : loaded.ads) visible += ad->visible();
  };
  const auto lookUps = [&] {
    for (int i = 0; i < kAds; ++i) {
      for (const String& name : loaded.names) benchmark::DoNotOptimize(CommonPropertyFunctions::PropertyValue(name));
    }
  };
  filters();
  if (visible != kAds) state.SkipWithError("an ad is hidden, and its filter isn't read to the end");
  double own = 1;  // seconds; the fastest rounds count
  double bare = 1;
  for (auto _ : state) {
    own = std::min(own, SecondsOf(filters));
    bare = std::min(bare, SecondsOf(lookUps));
  }
  state.counters["us"] = own * 1e6;
  state.counters["look-ups' us"] = bare * 1e6;
  state.counters["ratio"] = own / bare;
}

BENCHMARK(FiltersOf200Ads)->MinTime(1);

}  // namespace
}  // namespace strandline::bench
