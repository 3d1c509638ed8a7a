#pragma once

// What the library does and meets, as lines of text in the order in which things are complete. It listens wherever that
// can be heard: the simulated objects, the watched services, log and pictures.
//
//   use      get Application Version() = 11.0 | let bar Quillmere visible(True) | each Templates() | ... ! 1000
//   create   create RibbonHandler.Main2 | create RibbonHandler.Main2 failed
//   service  FindWindowExA(0, top 1, OpusApp, null) = top 2
//   hook     subclass bar 1 | unsubclass bar 1
//   message  bar 1 15(0, 0) = 0 | bar 1 15(0, 0) = 0 kept          (after it was handled)
//   log      log 1 Quit
//   box      box 51 [Microsoft Word] Do you want ... = 6
//   picture  picture 102 own | picture 102 own failed
//   paint    paint bar 1 (0, 0, 16, 16) BitBlt
//   error    91 Main2.AddListener                                   (as the error component is asked)

#include <functional>
#include <string>
#include <vector>

#include "drawing/LoadImageFromResource.h"
#include "foundation/CommonLogger.h"
#include "platform/wrappers/call_recorder.h"
#include "wordsim/use_observer.h"

namespace strandline {

using TextLines = std::vector<std::string>;

// One line for each, so that a mismatch can be read.
std::string Block(const TextLines& lines);

class Doings final : public wordsim::UseObserver, public CallRecorder, public LogObserver, public PictureObserver {
 public:
  enum Kind : unsigned {
    kUse = 1,
    kCreate = 2,
    kService = 4,
    kHook = 8,
    kMessage = 16,
    kLog = 32,
    kBox = 64,
    kPicture = 128,
    kPaint = 256,
    kError = 512,
    kAll = 1023,
  };
  struct Line {
    Kind kind;
    std::string text;
  };
  // A question to the error component.
  struct Question {
    Long number = 0;
    std::string description;
    std::string project;
  };
  // The names of windows and of graphics objects; empty for what isn't known.
  struct Names {
    std::function<std::string(Long)> window;
    std::function<std::string(Long)> graphics;
  };

  explicit Doings(Names names) : mNames(std::move(names)) {}

  void Clear() {
    mLines.clear();
    mQuestions.clear();
  }
  const std::vector<Line>& All() const { return mLines; }
  // Those of the kinds, an OR of them, whose text begins so.
  TextLines Of(unsigned kinds, const std::string& beginning = {}) const;
  TextLines Logs() const { return Of(kLog); }
  TextLines Errors() const { return Of(kError); }
  TextLines Boxes() const { return Of(kBox); }
  std::size_t Count(unsigned kinds, const std::string& beginning = {}) const { return Of(kinds, beginning).size(); }
  bool Has(const std::string& text) const;
  const std::vector<Question>& Questions() const { return mQuestions; }

  // Called with each line as it is added; may act, and in a line of the log or of a use raise.
  std::function<void(const Line& line)> during;

  void Add(Kind kind, std::string text);
  std::string Shown(const Variant& value) const;

  void OnUse(const wordsim::ObjectUse& use) override;
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) override;
  void OnLog(TextView message, Long level) override;
  void OnPicture(Integer index, Long hModule, Boolean ok) override;
  void OnCreate(const String& progId, bool ok);
  void OnPaint(Long hwnd, const Rect& pixels, const char* operation);
  void OnBox(const String& text, Long style, const String* title, Long answer);

 private:
  std::string Shown(const CallArgument& argument) const;
  std::string Window(Long hwnd) const;

  Names mNames;
  std::vector<Line> mLines;
  std::vector<Question> mQuestions;
};

}  // namespace strandline
