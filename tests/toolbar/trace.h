#pragma once

// Everything that the library does and meets, a line each, in the order in which things are complete:
//
//   get productState lumivexEnabled = True       let bar Quillmere visible = True       each Documents = document A.doc
//   GetDC(bar 1) = dc 1                          BitBlt(dc 1, 0, 0, 581, 40, frame, 0, 0, SRCCOPY)
//   hook subclass(bar 1)                         hook message(bar 1, 15, 0, 0) cancelled
//   log PaintIcons                               log(1) Quit
//   picture 102                                  box 'text'
//   Buttons.HandlePaint(top 1, True)             a procedure, as it is entered
//
// A test chooses which kinds it hears. Windows bear the names of Word's world; contexts and bitmaps are numbered in the
// order in which they show up, unless a test has named them.

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "drawing/LoadImageFromResource.h"
#include "foundation/CommonLogger.h"
#include "platform/wrappers/call_recorder.h"
#include "wordsim/use_observer.h"

namespace strandline {

class Trace final : public wordsim::UseObserver,
                    public CallRecorder,
                    public LogObserver,
                    public PictureObserver,
                    public vbwProtector::ProcedureObserver {
 public:
  using Lines = std::vector<std::string>;

  enum Kind : unsigned {
    kUses = 1,         // members of Word's, the product's and the components' objects
    kWindows = 2,      // windows, pointer, sent messages
    kTimers = 4,       // SetTimer, KillTimer
    kContexts = 8,     // GetDC, BeginPaint and their ends
    kObjects = 16,     // memory contexts, bitmaps
    kDrawing = 32,     // blits, edges
    kHooks = 64,       // subclass, unsubclass, previous, and each message when it is over
    kLogs = 128,       //
    kPictures = 256,   // loads of numbered images
    kProcedures = 512  // procedures with their parameters
  };

  // From now on these kinds are kept; what was kept is forgotten.
  void Listen(unsigned kinds);
  // Of them only lines that begin so; none: all lines.
  void Only(std::set<std::string> beginnings) { mBeginnings = std::move(beginnings); }
  // What was kept since the last taking. New handles are numbered from 1 again.
  Lines Take();
  std::string TakeText();
  void Note(const std::string& line) { Add(line); }

  void NameWindows(std::function<std::string(Long hwnd)> names) { mWindowNames = std::move(names); }
  void NameObjects(std::function<std::string(const Object&)> names) { mObjectNames = std::move(names); }
  void Name(Long handle, const std::string& name) { mNames[handle] = name; }
  // Called with each line of the kinds that are heard, whatever it begins with; for a test that steps in.
  std::function<void(const std::string& line)> during;

  void OnUse(const wordsim::ObjectUse& use) override;
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) override;
  void OnLog(TextView message, Long level) override;
  void OnPicture(Integer index, Long hModule, Boolean ok) override;
  void OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                   const void* parameters) override;

 private:
  void Add(const std::string& line);
  std::string Text(const Variant& value) const;
  std::string Text(const CallArgument& argument);
  std::string HandleName(Long handle, const char* kind);

  unsigned mKinds = 0;
  std::set<std::string> mBeginnings;
  Lines mLines;
  std::function<std::string(Long)> mWindowNames;
  std::function<std::string(const Object&)> mObjectNames;
  std::map<Long, std::string> mNames;     // told by a test
  std::map<Long, std::string> mNumbered;  // given here
  std::map<std::string, int> mCounts;
};

// One line for each entry, so that a mismatch shows both columns whole.
std::string AsText(const Trace::Lines& lines);
// The lines that begin so.
Trace::Lines Beginning(const Trace::Lines& lines, const std::string& beginning);

}  // namespace strandline
