#pragma once

// The simulated product: the store of its values, its state object, its tooltip and its components. It is made by the
// WordWorld and lives as long as that.

#include <deque>
#include <span>
#include <string_view>
#include <vector>

#include "platform/platform.h"
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
  Product(Ref<ObjectUses> uses, const Platform& platform, const Settings& settings, Hooks& hooks);
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

  // The ribbon component that lives; null without one.
  RibbonHandlerObject* Ribbon() const { return mRibbon; }
  TooltipObject& Tooltip() const { return *mTooltip; }
  StoreObject& Store() const { return *mStore; }

  // For the product's objects.
  const Settings& TheSettings() const { return mSettings; }
  Hooks& TheHooks() { return mHooks; }
  Long NextErrorAnswer();
  void Report(const String& line) { mReport.push_back(line); }
  void SetRibbon(RibbonHandlerObject* ribbon) { mRibbon = ribbon; }

 private:
  const Settings& mSettings;
  Hooks& mHooks;
  Ref<ObjectUses> mUses;
  Ref<TooltipObject> mTooltip;
  Ref<StoreObject> mStore;
  Ref<ProductStateObject> mState;
  RibbonHandlerObject* mRibbon = nullptr;
  std::deque<Long> mAnswers;
  std::vector<String> mReport;
};

}  // namespace strandline::wordsim
