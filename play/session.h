#pragma once

// The world in which a scene plays, with the library loaded into it: Word and the product from wordsim/, on the desk or
// on real windows. What the library does there is told to the journal.
//
// A world may lack something that scenes can ask for; it says so beforehand (Unsupported, Hears), and what it lacks is
// never called.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/host.h"
#include "play/ad_library_file.h"
#include "play/journal.h"
#include "play/journal_naming.h"
#include "play/library_watch.h"
#include "play/scene_command.h"
#include "wordsim/word_world.h"

namespace strandline::play {

class Session {
 public:
  virtual ~Session() = default;

  virtual Journal& TheJournal() = 0;
  virtual const JournalNaming& Naming() const = 0;
  virtual LibraryWatch& Watch() = 0;
  virtual wordsim::WordWorld& World() = 0;
  virtual HostClock& Clock() = 0;
  virtual HostMouse& Mouse() = 0;

  // Loads the library, makes its object and initialises it. What is wrong where that can't be done; empty otherwise.
  virtual std::string Start() = 0;
  virtual bool IsStarted() const = 0;
  // The library's object, once started.
  virtual Object Main2() const = 0;
  // The library's object and the library go.
  virtual void Unload() = 0;

  // The file that lies as the ad library in the product's folder from now on; null: none does. What is wrong where it
  // can't be put there; empty otherwise.
  virtual std::string ServeAdLibrary(const AdLibraryFile* file) = 0;
  // The library's own object that hears of new ads; Nothing where there is none.
  virtual Object AdCallback() = 0;

  // A command of the scene at a later time. It may find the scene wrong (SceneError), wherever it then runs.
  virtual void Schedule(std::int64_t milliseconds, std::function<void()> work) = 0;
  // A command of the scene that runs inside a use of Word's by the library. It too may find the scene wrong.
  virtual void InsideWord(const std::function<void()>& work) { work(); }
  // Inside a handler: where the exception at hand says that the library waits for ever; empty for any other one.
  virtual std::string WhereStuck() const = 0;

  // Why such a command can't be played here; empty when it can.
  virtual std::string Unsupported(Verb verb) const = 0;
  // Whether lines of that kind come into the journal.
  virtual bool Hears(std::string_view kind) const = 0;

  // The value of a `state` line.
  virtual Json State() = 0;
  // The next `count` calls of that service fail. What is wrong with its name; empty when nothing is.
  virtual std::string ArmFailure(const std::string& call, int count) = 0;

  // A document has just been opened; the library hasn't seen it yet.
  virtual void Opened(wordsim::Document&) {}
  // The identity of a document as the library sees it, as text.
  virtual String IdentityOf(wordsim::Document& document) = 0;
  // Whether the active bar window is to be seen but for what may cover it.
  bool IsBarShown();
  // 0xRRGGBB of the active bar window's pixel; nothing outside the window and the screen.
  virtual std::optional<std::uint32_t> BarPixel(Long x, Long y) = 0;
  // Both write a PNG. What is wrong, with what would be right; empty when nothing is.
  virtual std::string WriteBarPicture(const std::string& path) = 0;
  virtual std::string WriteDeskPicture(const std::string& path) = 0;
};

}  // namespace strandline::play
