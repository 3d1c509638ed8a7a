#pragma once

// A desk with a simulated Word and product on it, and the library between them: its calls are written down, can be made
// to fail, and its errors arrive at a script. Time is virtual; nothing moves until a test lets it.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "addin/Main2.h"
#include "addin/library.h"
#include "platform/desk/desk.h"
#include "platform/wrappers/failing.h"
#include "platform/wrappers/recording.h"
#include "tests/foundation/error_component.h"
#include "tests/toolbar/trace.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/product.h"
#include "wordsim/word_world.h"

namespace strandline {

class ToolbarWorld {
 public:
  struct Box {
    std::string text;
    std::string title;  // "(none)" for the host's own
    Long style = 0;
  };

  explicit ToolbarWorld(const wordsim::Settings& settings = {}, Long dpi = 96);
  ~ToolbarWorld();

  // Loads the library, makes its object and initialises it.
  void Start();
  // The object and the library go.
  void Unload();
  Main2& TheMain2() { return *main; }

  // Word opens the document, and the product tells the library.
  void Open(const String& name, Boolean startedFromIcon = false, wordsim::OpenFlags flags = {});
  // Word opens it; the library hears nothing.
  void OpenInWord(const String& name, wordsim::OpenFlags flags = {});
  // Messages and paints that wait run.
  void Settle() { desk.Windows().DoEvents(); }
  void Wait(Long milliseconds) { desk.Clock().Wait(milliseconds); }

  Long Bar() { return word.ActiveBarWindow(); }
  Long Top() { return word.ActiveTopWindow(); }
  Rect RectOf(Long hwnd);
  // A message to the active bar's window, as Word or Windows send it; not written down.
  Long Send(Long message, Long wParam = 0, Long lParam = 0) { return word.SendToBar(message, wParam, lParam); }
  // What the screen shows of a window, and the bitmap that a context holds.
  desk::Surface Pixels(Long hwnd);
  const desk::Surface& SurfaceOf(Long hdc);

  int Contexts() { return desk.Objects().Count(desk::ObjectKind::kContext); }
  int Bitmaps() { return desk.Objects().Count(desk::ObjectKind::kBitmap); }
  // "call: what", of handles that were used wrongly.
  Trace::Lines Misused();

  ErrorScript errors;  // outlives the component that the library holds
  Trace trace;
  std::vector<Box> boxes;        // the message boxes so far
  std::vector<Long> boxAnswers;  // of the next ones; else OK, or Yes where the box asks
  desk::Desk desk;
  wordsim::WordWorld word;
  Faults faults;

 private:
  Platform Services();
  Long AnswerBox(const String& text, Long style, const String* title);

  FailingWindows mFailingWindows;
  FailingGraphics mFailingGraphics;
  FailingPictures mFailingPictures;
  FailingModules mFailingModules;
  FailingSubclassers mFailingSubclassers;
  RecordingWindows mWindows;
  RecordingGraphics mGraphics;
  RecordingSubclassers mSubclassers;

 public:
  std::optional<Library> library;
  Ref<Main2> main;
};

// The settings of a Word of that version.
wordsim::Settings WordOf(const char16_t* version);

}  // namespace strandline
