#pragma once

// A simulated Word on a desk, and a recorder of what is asked of its objects.

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desk/desk.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/product.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

inline std::string Shown(const Variant& given) {
  const Variant value = given.Resolved();
  if (const Object* object = value.If<Object>()) {
    if (object->IsNothing()) return "Nothing";
    const std::string name = JournalNameOf(*object);
    return name.empty() ? "object" : name;
  }
  if (value.If<Picture>()) return "picture";
  if (value.IsEmpty()) return "Empty";
  if (value.IsMissing()) return "Missing";
  return ToUtf8(value.ToText());
}

// Each use as one line: "get Application Version() = 11.0", "let bar Quillmere Visible(True)", "... ! 438".
class UseRecorder final : public UseObserver {
 public:
  void OnUse(const ObjectUse& use) override {
    static constexpr const char* kOps[] = {"get", "let", "call", "each"};
    std::string line = std::string(kOps[static_cast<int>(use.op)]) + " " + use.object;
    if (!use.member.empty()) line += " " + std::string(use.member);
    line += "(";
    const char* comma = "";
    for (const Variant& argument : use.arguments) {
      line += comma + Shown(argument);
      comma = ", ";
    }
    for (const Named& named : use.named) {
      line += comma + std::string(named.name.Text()) + ":=" + Shown(named.value);
      comma = ", ";
    }
    line += ")";
    if (use.error) {
      line += " ! " + std::to_string(use.error->number);
    } else if (use.value) {
      line += " = " + Shown(*use.value);
    }
    lines.push_back(line);
  }

  std::vector<std::string> lines;
};

// The number that the work raises; 0 when it raises nothing.
template <class Work>
Long NumberRaised(Work&& work) {
  try {
    work();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

class WorldTest : public testing::Test {
 protected:
  // Begins another world; what was open is gone.
  WordWorld& Begin(const Settings& settings = {}) {
    mWorld.reset();
    mWorld = std::make_unique<WordWorld>(mDesk.Services(), mDesk.Host(), mDesk.Canvas(), mDesk.Clock(), settings);
    return *mWorld;
  }
  WordWorld& BeginVersion(const char16_t* version) {
    Settings settings;
    settings.wordVersion = version;
    return Begin(settings);
  }
  WordWorld& World() { return mWorld ? *mWorld : Begin(); }
  Object Application() { return World().Application(); }
  Object ActiveDocument() { return Application().Get("ActiveDocument").ToObject(); }
  Object Bar(const char16_t* name = u"Quillmere") {
    return Application().Get("CommandBars").ToObject().Get("Item", name).ToObject();
  }
  Object Controls() { return Bar().Get("Controls").ToObject(); }
  Object Control(Long number) { return Controls().Get("Item", number).ToObject(); }
  Object Entry(Long number) { return Control(1).Get("Controls").ToObject().Get("Item", number).ToObject(); }

  desk::WindowSystem& Windows() { return mDesk.Windows(); }
  Rect RectOf(Long hwnd) {
    Rect rectangle;
    Windows().GetWindowRect(hwnd, rectangle);
    return rectangle;
  }
  std::string TitleOf(Long hwnd) { return ToUtf8(Windows().GetWindowTextA(hwnd, 255)); }
  std::string ClassOf(Long hwnd) { return ToUtf8(Windows().ClassName(hwnd)); }
  // The window of the product's bar as somebody finds it who knows its title and the active document's window.
  Long FindBar() {
    const String title = World().TheSettings().productName;
    const Long top = World().ActiveTopWindow();
    for (Long child = Windows().FindWindowExA(top, 0, nullptr, nullptr); child;
         child = Windows().FindWindowExA(top, child, nullptr, nullptr)) {
      const Long bar = Windows().FindWindowExA(child, 0, nullptr, &title);
      if (bar && IsShown(bar)) return bar;
    }
    return Windows().FindWindowA(nullptr, &title);
  }
  bool IsShown(Long hwnd) { return Windows().IsWindowVisible(hwnd) != 0; }
  void Wait(Long milliseconds) { mDesk.Clock().Wait(milliseconds); }

  desk::Desk mDesk;
  std::unique_ptr<WordWorld> mWorld;
};

}  // namespace strandline::wordsim
