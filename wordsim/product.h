#pragma once

// The simulated product: the store of its values, its state object, its tooltip and its components. It is made by the
// WordWorld and lives as long as that.

#include <deque>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "platform/platform.h"
#include "wordsim/library_check.h"
#include "wordsim/settings.h"
#include "wordsim/sim_object.h"

namespace strandline::wordsim {

class ProductStateObject;
class RibbonHandlerObject;
class StoreObject;
class TooltipObject;

enum class ValueLevel { kUser, kGlobal, kDocument };

class Product {
 public:
  Product(Ref<ObjectUses> uses, const Platform& platform, HostCanvas& canvas, const Settings& settings, Hooks& hooks);
  ~Product();

  Object Properties() const;
  Object ProductState() const;

  // The components that the product consists of, by ProgID.
  static std::span<const TextView> ComponentNames();
  // Raises 429 for one that is missing or isn't ours. ProgIDs are compared without case.
  Object CreateComponent(const String& progId);

  // A value of the store is changed; listeners for its key are told. `docId`, for kDocument, is the document's identity
  // as text; a document without a map gets one with this value alone.
  void ChangeValue(ValueLevel level, const String& key, const String& text, const String& docId = {});
  void Rename(const String& name);  // productState.productName
  void SetLumivex(bool enabled);
  bool IsLumivexEnabled() const;

  // The next answers of the error component; without one it answers 0.
  void AnswerErrors(std::span<const Long> answers);
  // What the error component was given for the report, a line each.
  const std::vector<String>& ReportedLines() const { return mReport; }

  // Ad libraries. Who verifies them for the product; null: nobody can. It outlives the world.
  void SetLibraryCheck(LibraryCheck* check) { mLibraryCheck = check; }
  // From now on the answer to every verification, whatever the file holds.
  void LayDownVerdict(Long highestIndex, const String& signature) { mVerdict = {highestIndex, signature}; }
  bool CanVerify() const { return mVerdict || mLibraryCheck; }
  // As LibraryCheck::Verify. Raises 429 where nobody can.
  Long Verify(const String& path, String& signature);
  // Where the library looks for its ads.
  String AdLibraryPath() const;
  // The library's own object that hears of new ads, as the store knows it; Nothing before the library gave it there.
  Object AdListener() const;
  // The addresses that were to be shown to the user, in their order.
  const std::vector<String>& BrowsedAddresses() const { return mBrowsed; }

  // The ribbon component that lives; null without one.
  RibbonHandlerObject* Ribbon() const { return mRibbon; }
  TooltipObject& Tooltip() const { return *mTooltip; }
  StoreObject& Store() const { return *mStore; }

  // For the product's objects.
  const Settings& TheSettings() const { return mSettings; }
  Hooks& TheHooks() { return mHooks; }
  Long NextErrorAnswer();
  void Report(const String& line) { mReport.push_back(line); }
  void Browse(const String& address) { mBrowsed.push_back(address); }
  void SetRibbon(RibbonHandlerObject* ribbon) { mRibbon = ribbon; }

 private:
  const Platform& mPlatform;
  const Settings& mSettings;
  Hooks& mHooks;
  Ref<ObjectUses> mUses;
  Ref<TooltipObject> mTooltip;
  Ref<StoreObject> mStore;
  Ref<ProductStateObject> mState;
  HostCanvas& mCanvas;
  RibbonHandlerObject* mRibbon = nullptr;
  struct Verdict {
    Long highestIndex = 0;
    String signature;
  };
  std::optional<Verdict> mVerdict;
  LibraryCheck* mLibraryCheck = nullptr;
  std::vector<String> mBrowsed;
  std::deque<Long> mAnswers;
  std::vector<String> mReport;
};

}  // namespace strandline::wordsim
