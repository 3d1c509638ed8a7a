#pragma once

// The calls of a run: the lines of the journal that come about in the same way in every world, in a form that can be
// compared between worlds line by line. Those are uses of objects, creations, boxes and results, but for what arises
// while the system has a window of the bar painted or fires one of its timers: when that is, each world decides itself.
// Times are left out, names of members stand in small letters, and documents bear the identity that the simulated Word
// gives them, and device contexts none.

#include <functional>
#include <string>

#include "platform/values.h"
#include "play/journal.h"
#include "play/journal_file.h"

namespace strandline::play {

class CallList {
 public:
  // What went wrong, in the system's words; empty when nothing did.
  std::string Open(const std::string& path) { return mFile.Open(path); }
  // Changes values of this world's own into those that all worlds have.
  void SetNormaliser(std::function<void(Json& line)> normaliser) { mNormaliser = std::move(normaliser); }

  void Add(std::string_view kind, const Json& fields);

  // As long as one lives, the system is at work on a window of the bar.
  class SystemsTurn {
   public:
    explicit SystemsTurn(CallList& calls) : mCalls(calls) { ++mCalls.mSystemsTurns; }
    ~SystemsTurn() { --mCalls.mSystemsTurns; }
    SystemsTurn(const SystemsTurn&) = delete;
    SystemsTurn& operator=(const SystemsTurn&) = delete;

   private:
    CallList& mCalls;
  };
  // Whether a message to a window of the bar is the system's own: a paint or a timer.
  static bool IsSystems(Long message);

 private:
  JournalFile mFile;
  std::function<void(Json& line)> mNormaliser;
  int mSystemsTurns = 0;
};

}  // namespace strandline::play
