#pragma once

// One play of a scene on the desk: a desk, Word and the product on it, and the library between them, with everything
// that it does told to the journal.

#include <memory>
#include <optional>
#include <string>

#include "addin/Main2.h"
#include "addin/library.h"
#include "desk/library_verifier.h"
#include "desk/systems_turns.h"
#include "desk/watched_services.h"
#include "platform/desk/desk.h"
#include "play/scene_settings.h"
#include "play/session.h"

namespace strandline::deskprogram {

class DeskSession final : public play::Session {
 public:
  // `file` and `calls`, which may be null, outlive the session; with keepLines the journal can be searched.
  DeskSession(const play::SceneSettings& settings, play::JournalFile* file, bool keepLines,
              play::CallList* calls = nullptr);
  ~DeskSession() override;
  DeskSession(const DeskSession&) = delete;
  DeskSession& operator=(const DeskSession&) = delete;

  play::Journal& TheJournal() override { return mJournal; }
  const play::JournalNaming& Naming() const override { return mNaming; }
  play::LibraryWatch& Watch() override { return mWatch; }
  wordsim::WordWorld& World() override { return mWorld; }
  HostClock& Clock() override { return mDesk.Clock(); }
  HostMouse& Mouse() override { return mDesk.Mouse(); }
  desk::Desk& TheDesk() { return mDesk; }

  std::string Start() override;
  bool IsStarted() const override { return static_cast<bool>(mMain2); }
  Object Main2() const override { return mMain2; }
  strandline::Main2& TheMain2() { return *mMain2; }
  void Unload() override;

  std::string ServeAdLibrary(const play::AdLibraryFile* file) override;
  Object AdCallback() override { return mLibrary ? Library::AdCallback() : Object(); }

  void Schedule(std::int64_t milliseconds, std::function<void()> work) override;
  std::string WhereStuck() const override;
  std::string Unsupported(play::Verb) const override { return ""; }
  bool Hears(std::string_view) const override { return true; }
  play::Json State() override;
  std::string ArmFailure(const std::string& call, int count) override;
  String IdentityOf(wordsim::Document& document) override;
  std::optional<std::uint32_t> BarPixel(Long x, Long y) override;
  std::string WriteBarPicture(const std::string& path) override;
  std::string WriteDeskPicture(const std::string& path) override;

 private:
  static desk::Desk::Options DeskOptions(const play::SceneSettings& settings);
  void RegisterComponents(const play::SceneSettings& settings);
  void FillClipboard(const play::SceneSettings& settings);
  Rect BarArea();

  desk::Desk mDesk;
  play::Journal mJournal;
  play::JournalNaming mNaming;
  play::LibraryWatch mWatch;
  LibraryVerifier mVerifier;
  wordsim::WordWorld mWorld;
  WatchedServices mServices;
  std::optional<SystemsTurns> mSystemsTurns;  // where calls are listed
  std::optional<Library> mLibrary;
  Ref<strandline::Main2> mMain2;
};

}  // namespace strandline::deskprogram
