#pragma once

// One play of a scene: a desk, Word and the product on it, and the library between them, with everything that it does
// told to the journal.

#include <memory>
#include <optional>
#include <string>

#include "addin/Main2.h"
#include "addin/library.h"
#include "desk/journal.h"
#include "desk/library_watch.h"
#include "desk/scene_settings.h"
#include "desk/watched_services.h"
#include "platform/desk/desk.h"
#include "wordsim/word_world.h"

namespace strandline::deskprogram {

class DeskSession {
 public:
  // `file`, which may be null, outlives the session; with keepLines the journal can be searched.
  DeskSession(const SceneSettings& settings, JournalFile* file, bool keepLines);
  ~DeskSession();
  DeskSession(const DeskSession&) = delete;
  DeskSession& operator=(const DeskSession&) = delete;

  Journal& TheJournal() { return mJournal; }
  const JournalNaming& Naming() const { return mNaming; }
  LibraryWatch& Watch() { return mWatch; }
  WatchedServices& Services() { return mServices; }
  desk::Desk& TheDesk() { return mDesk; }
  wordsim::WordWorld& World() { return mWorld; }

  // Loads the library, makes its object and initialises it.
  void Start();
  bool IsStarted() const { return static_cast<bool>(mMain2); }
  Main2& TheMain2() { return *mMain2; }
  // Initialises the object, as `Start` does, under that product name.
  void Initialize(const String& productName);
  // The library's object and the library go.
  void Unload();

  // The value of a `state` line.
  Json State();

 private:
  static desk::Desk::Options DeskOptions(const SceneSettings& settings);
  void RegisterComponents(const SceneSettings& settings);

  desk::Desk mDesk;
  Journal mJournal;
  JournalNaming mNaming;
  LibraryWatch mWatch;
  wordsim::WordWorld mWorld;
  WatchedServices mServices;
  std::optional<Library> mLibrary;
  Ref<Main2> mMain2;
};

}  // namespace strandline::deskprogram
