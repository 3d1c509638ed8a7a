#pragma once

// The content tables, initialised with a factory that writes down what becomes of it, and an ear on what is asked of
// Word and the product.

#include "ads/AdPanel.h"
#include "tests/drawing/drawing_fixture.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordsim/product.h"
#include "wordsim/use_observer.h"

namespace strandline {

inline constexpr const char16_t* kManual = u"Quillmere user manual.doc";

// "object member arguments", a line for each use.
class UseLines final : public wordsim::UseObserver {
 public:
  void OnUse(const wordsim::ObjectUse& use) override {
    std::string line = use.object + " " + std::string(use.member);
    for (const Variant& argument : use.arguments) line += " " + Shown(argument);
    lines.push_back(line);
  }
  Lines Of(const std::string& object) const {
    Lines found;
    for (const std::string& line : lines) {
      if (line.starts_with(object + " ")) found.push_back(line);
    }
    return found;
  }
  Lines lines;
};

class ContentTest : public DrawingTest {
 protected:
  class Factory final : public AdvertisementsFactoryInterface {
   public:
    Factory() { factoryCalls.push_back("made"); }
    void Initialize(const Object& callbackToMain) override {
      factoryCalls.push_back(callbackToMain == sCallback ? "initialized with the callback"
                                                         : "initialized with another");
    }
    Ref<AdPanel> Create(Long, Long, Long, Long, Long) override { return nullptr; }
    void AfterPaint(Long, Long, Long, Long, Long) override {}
    void ReportVariables(Reporter&) const override {}

   private:
    void Terminated() override { factoryCalls.push_back("gone"); }
  };

  ContentTest() { LoadContent(); }
  ~ContentTest() override { sCallback = nullptr; }

  void LoadContent(const char16_t* wordVersion = kWord2003, const String& productName = u"Quillmere") {
    sCallback = nullptr;
    FloorOptions options;
    options.wordVersion = wordVersion;
    options.productName = productName;
    Load(options);
    factoryCalls.clear();
    ToolbarUtilities::makeAdFactory = [] { return Ref<AdvertisementsFactoryInterface>(New<Factory>()); };
    sCallback = floor->word.Properties();  // any object will do
    ToolbarUtilities::Initialize(sCallback, floor->word.ProductState(), productName);
    floor->word.SetUseObserver(&uses);
    uses.lines.clear();
    floor->calls.Clear();
  }
  void TearDown() override {
    floor->word.SetUseObserver(nullptr);
    DrawingTest::TearDown();
  }

  static inline Lines factoryCalls;
  static inline Object sCallback;
  UseLines uses;
};

}  // namespace strandline
