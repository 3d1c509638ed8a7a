#pragma once

// An ad panel of a test's own, by way of the one factory that the library has.

#include <functional>

#include "ads/AdPanel.h"
#include "drawing/ToolbarUtilities.h"
#include "tests/toolbar/toolbar_world.h"

namespace strandline {

class FakePanel final : public AdPanel {
 public:
  explicit FakePanel(Trace& trace) : mTrace(trace) {}

  void Initialize(Long hWnd) override { Say("Initialize", hWnd); }
  void getPictureStats(Long& hdc, Long& theWidth, Long& theHeight) override {
    hdc = picture;
    theWidth = width;
    theHeight = height;
  }
  void TimerTick(Long hWnd, AdStrip& strip) override {
    Say("TimerTick", hWnd);
    if (onTick) onTick(strip);
  }
  void SwitchListener(Long hWnd) override { Say("SwitchListener", hWnd); }
  void ClickOnAd() override { mTrace.Note("ad ClickOnAd"); }
  void ValueChanged(const Array<Boolean>& ads) override {
    mTrace.Note("ad ValueChanged of " + std::to_string(ads.Elements().size()));
  }
  void ReprimeTimerCycle(Boolean restart) override {
    mTrace.Note(std::string("ad ReprimeTimerCycle ") + (restart ? "True" : "False"));
  }
  void ReportVariables(Reporter&) const override {}

  Long picture = 0;  // a context; 0: no picture
  Long width = 0;
  Long height = 0;
  std::function<void(AdStrip& strip)> onTick;

 private:
  void Say(const char* what, Long hWnd) { mTrace.Note(std::string("ad ") + what + " " + std::to_string(hWnd)); }

  Trace& mTrace;
};

// Gives no panel, and nobody hears of it.
class NoAds final : public AdvertisementsFactoryInterface {
 public:
  void Initialize(const Object&) override {}
  Ref<AdPanel> Create(Long, Long, Long, Long, Long) override { return nullptr; }
  void AfterPaint(Long, Long, Long, Long, Long) override {}
  void ReportVariables(Reporter&) const override {}
};

// Gives the one panel that it was made with, or Nothing.
class FakeAdFactory final : public AdvertisementsFactoryInterface {
 public:
  FakeAdFactory(Trace& trace, Ref<FakePanel> panel) : mTrace(trace), mPanel(std::move(panel)) {}

  void Initialize(const Object&) override {}
  Ref<AdPanel> Create(Long hWnd, Long left, Long top, Long width, Long height) override {
    Say("Create", hWnd, left, top, width, height);
    return Ref<AdPanel>(mPanel.get());
  }
  void AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) override {
    Say("AfterPaint", hWnd, left, top, width, height);
  }
  void ReportVariables(Reporter&) const override {}

 private:
  void Say(const char* what, Long hWnd, Long left, Long top, Long width, Long height) {
    mTrace.Note(std::string("factory ") + what + " " + std::to_string(hWnd) + ": " + std::to_string(left) + " " +
                std::to_string(top) + " " + std::to_string(width) + " by " + std::to_string(height));
  }

  Trace& mTrace;
  Ref<FakePanel> mPanel;
};

}  // namespace strandline
