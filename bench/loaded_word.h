#pragma once

// What the measures of a started library begin with: a simulated Word on the plain services of a desk and the library
// in it.

#include <memory>
#include <optional>

#include "addin/library.h"
#include "platform/desk/desk.h"
#include "wordsim/word_world.h"

namespace strandline::bench {

class LoadedWord {
 public:
  struct Options {
    wordsim::Settings word;
    desk::Desk::Options desk;
    // What is to stand between the library and the desk's windows; empty: nothing.
    std::function<std::shared_ptr<Windows>(Windows& own)> windows;
  };

  explicit LoadedWord(const Options& options);
  ~LoadedWord();
  LoadedWord(const LoadedWord&) = delete;
  LoadedWord& operator=(const LoadedWord&) = delete;

  // A document, its toolbar painted.
  void Open(const String& name);
  desk::Desk& TheDesk() { return mDesk; }
  wordsim::WordWorld& Word() { return mWord; }
  Main2& Main() { return *mMain2; }
  Long Bar() const { return mWord.ActiveBarWindow(); }

 private:
  desk::Desk mDesk;
  std::shared_ptr<Windows> mWindows;
  wordsim::WordWorld mWord;
  std::optional<Library> mLibrary;
  Ref<Main2> mMain2;
};

}  // namespace strandline::bench
