#pragma once

// A started library in a world, and a look at Main2's registry.

#include <gtest/gtest.h>

#include <memory>

#include "tests/foundation/told.h"
#include "tests/support/main2_access.h"
#include "tests/support/variables.h"
#include "tests/support/world.h"

namespace strandline {

// The procedures of Main2 with their parameters, "Main2.Execute(command='Quit')", while it lives and a world traces.
class MainCalls final : public vbwProtector::ProcedureObserver {
 public:
  MainCalls() { vbwProtector::procedureObserver = this; }
  ~MainCalls() { vbwProtector::procedureObserver = nullptr; }
  MainCalls(const MainCalls&) = delete;
  MainCalls& operator=(const MainCalls&) = delete;

  void OnProcedure(const ProcedureName& name, void (*report)(const void*, Reporter&), const void* parameters) override {
    const std::string procedure = ToUtf8(name.TraceName());
    if (!procedure.starts_with("Main2.")) return;
    ToldVariables told;
    report(parameters, told);
    calls.push_back(procedure + "(" + told.OneLine() + ")");
  }
  TextLines calls;
};

class Main2Test : public testing::Test {
 protected:
  using Inside = Main2Access;

  // A world in which the procedures are told with their parameters.
  World& BeginWithTrace(const char16_t* version = u"11.0") {
    WorldOptions options = ForWord(version);
    options.commandLine = u"winword.exe /trace";
    return Begin(options);
  }

  // Begins another world with this Word, and starts the library in it.
  World& Begin(const WorldOptions& options) {
    Prepare(options);
    mWorld->Start();
    mWorld->did.Clear();
    return *mWorld;
  }
  World& Begin(const char16_t* version) { return Begin(ForWord(version)); }
  // The same without the start.
  World& Prepare(const WorldOptions& options) {
    mWorld.reset();
    mWorld = std::make_unique<World>(options);
    return *mWorld;
  }
  World& TheWorld() { return mWorld ? *mWorld : Begin(u"11.0"); }
  Doings& Did() { return TheWorld().did; }
  // What was written and called, apart from the error component.
  std::string Acts() {
    std::string acts;
    for (const std::string& use : Did().Of(Doings::kUse)) {
      if (use.starts_with("let ") || (use.starts_with("call ") && !use.starts_with("call QuillmereError"))) {
        acts += use + "\n";
      }
    }
    return acts;
  }
  wordsim::WordWorld& Word() { return TheWorld().word; }
  Main2& Main() { return TheWorld().Main(); }
  Long Top(const char* name) { return Word().WindowByName(name); }
  static std::string HexOf(Long number) { return ToUtf8(HexText(number)); }

  // The user shrinks the toolbar, and the telling begins anew.
  void ShrinkForReal() {
    Main().ShrinkToolbar();
    ASSERT_TRUE(Inside::SmallToolbar(Main()));
    Did().Clear();
  }
  // A world in which the bar has been small since Word's last run: shrinking it deletes nothing.
  static WorldOptions WithSmallBar() {
    WorldOptions options;
    options.word.controlHeight = 22;
    return options;
  }
  // A strip that stands on the small toolbar: the user shrinks it while the strip waits for Word to make the bar.
  void OpenAndShrinkMeanwhile() {
    WorldOptions options;
    options.word.barLate = 400;
    Begin(options);
    TheWorld().desk.Clock().After(200, [this] { Main().ShrinkToolbar(); });
    TheWorld().Open(u"One.doc");
    ASSERT_TRUE(Inside::SmallToolbar(Main()));
    ASSERT_EQ(Registry(), "top 1");
    Did().Clear();
  }

  // The keys of the registry by the names of their windows, in their order; "none" without a registry.
  std::string Registry() {
    const auto& registry = Inside::Registry(Main());
    if (!registry) return "none";
    std::string keys;
    for (Long i = 0; i < registry->Count(); ++i) {
      const std::string name = Word().WindowName(registry->KeyAt(i).ToLong());
      keys += (keys.empty() ? "" : ", ") + (name.empty() ? ToUtf8(registry->KeyAt(i).ToText()) : name);
    }
    return keys;
  }
  // The toolbar under that window's key, without a use of the registry's own; null without one.
  Toolbar* ToolbarOf(Long hwnd) {
    const auto& registry = Inside::Registry(Main());
    if (!registry || !registry->Exists(hwnd)) return nullptr;
    const Variant item = registry->Item(hwnd);
    return item.If<Object>() ? dynamic_cast<Toolbar*>(item.If<Object>()->Target()) : nullptr;
  }
  Toolbar* ToolbarOf(const char* window) { return ToolbarOf(Top(window)); }
  // What Main2 itself logs; its toolbars log a lot of their own.
  TextLines MainLogs() {
    static constexpr const char* kOwn[] = {"Quit",
                                           "Cancel HandleDocumentCreate",
                                           "Skip creation",
                                           "HandleDocumentCreateImpl",
                                           "Removed stale",
                                           "Removed toolbar",
                                           "Remove Toolbar",
                                           "ERROR",
                                           "AddListener",
                                           "RemoveExtraneousToolbar",
                                           "ToggleToolbar",
                                           "RemoveLastToolbar",
                                           "RemoveActiveToolbarEntry",
                                           "HandleDocumentChange",
                                           "HandleCloseDocument",
                                           "RemoveAllToolbars",
                                           "Setting ToolbarVisible",
                                           "EnsureToolbarIsOnItsOwnRow",
                                           "ProcessEliteToolbar",
                                           "EnableGotoQuickBookmark"};
    TextLines lines;
    for (const std::string& line : Did().Logs()) {
      const std::string text = line.substr(6);
      for (const char* own : kOwn) {
        if (text.starts_with(own)) {
          lines.push_back(line);
          break;
        }
      }
    }
    return lines;
  }
  // Whether the command bar shows, without a use that is told.
  bool BarShows() { return Word().ProductBar().IsVisible(); }

 private:
  std::unique_ptr<World> mWorld;
};

}  // namespace strandline
