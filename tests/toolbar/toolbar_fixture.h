#pragma once

// One document in Word, with the product's bar on its window, and a toolbar on that bar, without Main2 in between.

#include <gtest/gtest.h>

#include "tests/support/variables.h"
#include "tests/toolbar/toolbar_world.h"
#include "toolbar/Toolbar.h"

namespace strandline {

// Another hook on the bar's window. Put on before the toolbar's it stands under that: what comes here, Word's own
// procedure gets. Put on behind it, it hears each message first.
class OtherHook final : public MessageSink {
 public:
  OtherHook(ToolbarWorld& world, Long hwnd) : mWorld(world), mHook(world.desk.Windows().Create()) {
    mHook->SetSink(this);
    mHook->Subclass(hwnd);
  }
  ~OtherHook() {
    mHook->SetSink(nullptr);
    mHook->Unsubclass();
  }
  OtherHook(const OtherHook&) = delete;
  OtherHook& operator=(const OtherHook&) = delete;

  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long&, Boolean& Cancel) override {
    Cancel = kept.contains(uMsg);
    mWorld.trace.Note("word gets " + std::to_string(uMsg) + "(" + std::to_string(wParam) + ", " +
                      std::to_string(lParam) + ")");
    if (during) during(uMsg);
  }

  std::set<Long> kept;  // messages that go no further
  std::function<void(Long message)> during;

 private:
  ToolbarWorld& mWorld;
  Ref<Subclasser> mHook;
};

class ToolbarTest : public testing::Test {
 protected:
  static constexpr const char16_t* kDocument = u"Thesis.doc";

  // A library that is started, and the document, of which it doesn't know; another world before that is gone.
  void Begin(const wordsim::Settings& settings = {}, Long dpi = 96);
  // A toolbar on the active document's window, with nothing left to be painted.
  void MakeToolbar();
  void BeginWithToolbar(const wordsim::Settings& settings = {}) {
    Begin(settings);
    MakeToolbar();
  }
  // Cell 16 shows its ordinary picture.
  void BeginWithoutAds(const wordsim::Settings& settings = {});
  void TearDown() override;
  // "number module.procedure" of the errors since the last taking, and "call: what" of the handles that were used
  // wrongly; what nobody took fails the test.
  std::string TakeErrors();
  std::string TakeMisuses();
  void CheckErrors();
  // Up to Word 2002 a second capture lets go of the former frame before it asks the window to paint; what that paint
  // blits is no longer there. Such blits are passed over, other misuses aren't.
  void PassOverFormerFrames();

  Buttons& Strip();
  // A variable that the toolbar or the strip reports.
  Long ToolbarNumber(TextView name) { return VariableSnapshot::Of(*toolbar).Number(name); }
  Long StripNumber(TextView name) { return VariableSnapshot::Of(Strip()).Number(name); }
  Rect BoundingRect();
  ButtonRect Cell(Long index);
  // The context of the strip's frame, and of its clean background.
  Long Frame() { return VariableSnapshot::Of(*Strip().painter()).Number(u"mBackbuffer"); }
  Long Background() { return VariableSnapshot::Of(*Strip().painter()).Number(u"mBackground"); }

  Trace& trace() { return world->trace; }
  std::string Hex(Long number) { return ToUtf8(HexText(number)); }

  std::unique_ptr<ToolbarWorld> world;
  Ref<Toolbar> toolbar;
};

}  // namespace strandline
