#pragma once

// One play of a scene on real windows: Word and the product on them, and the library, which is a DLL, between.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/host/classic_colours.h"
#include "platform/win32/host/win32_host_canvas.h"
#include "platform/win32/host/win32_host_clock.h"
#include "platform/win32/host/win32_host_mouse.h"
#include "platform/win32/host/win32_host_windows.h"
#include "platform/win32/win32_platform.h"
#include "play/scene_error.h"
#include "play/scene_settings.h"
#include "play/session.h"
#include "wordhost/ad_folder.h"
#include "wordhost/box_watcher.h"
#include "wordhost/clipboard_filler.h"
#include "wordhost/component_classes.h"
#include "wordhost/library_module.h"
#include "wordhost/system_turns.h"

namespace strandline::wordhost {

class HostSession final : public play::Session {
 public:
  struct Surroundings {
    RegistryEntries& registry;
    LibraryModule& library;
    play::JournalFile& journal;
    play::CallList* calls = nullptr;  // null: nobody asks for them
    // A command that `after` brought finds the scene wrong where nothing can be thrown on. Doesn't return.
    std::function<void(const play::SceneError& error)> leaveWrong;
  };
  // All of the surroundings outlive the session; with keepLines the journal can be searched.
  HostSession(const play::SceneSettings& settings, Surroundings surroundings, bool keepLines);
  ~HostSession() override;

  // What stands in the way of any play; empty when nothing does.
  const std::string& Problem() const { return mProblem; }

  play::Journal& TheJournal() override { return mJournal; }
  const play::JournalNaming& Naming() const override { return mNaming; }
  play::LibraryWatch& Watch() override { return mWatch; }
  wordsim::WordWorld& World() override { return mWorld; }
  HostClock& Clock() override { return mClock; }
  HostMouse& Mouse() override { return mMouse; }

  std::string Start() override;
  bool IsStarted() const override { return !mMain2.IsNothing(); }
  Object Main2() const override { return mMain2; }
  void Unload() override;

  std::string ServeAdLibrary(const play::AdLibraryFile* file) override { return mAdFolder.Serve(file); }
  Object AdCallback() override;

  void Schedule(std::int64_t milliseconds, std::function<void()> work) override;
  void InsideWord(const std::function<void()>& work) override;
  std::string WhereStuck() const override { return ""; }
  std::string Unsupported(play::Verb verb) const override;
  bool Hears(std::string_view kind) const override;
  play::Json State() override { return nullptr; }
  std::string ArmFailure(const std::string&, int) override { return Unsupported(play::Verb::kFailWindow); }

  void Opened(wordsim::Document& document) override;
  String IdentityOf(wordsim::Document& document) override;
  std::optional<std::uint32_t> BarPixel(Long x, Long y) override;
  std::string WriteBarPicture(const std::string& path) override;
  std::string WriteDeskPicture(const std::string& path) override;

 private:
  // A document's object in the automation world, held so that it stays the same one as long as the document is open.
  struct DocumentFace;

  std::string CreateComponents(const play::SceneSettings& settings);
  Object CreateComponent(const String& progId);
  static std::string NameOf(const Object& object);
  std::string TextInJournal(std::string text) const;
  void Normalise(play::Json& value) const;

  Surroundings mSurroundings;
  win32::ClassicColours mColours;
  win32::Win32Platform mPlatform;
  win32::Win32HostWindows mWindows;
  win32::Win32HostCanvas mCanvas;
  win32::Win32HostMouse mMouse;
  win32::Win32HostClock mClock;
  ClipboardFiller mClipboard;
  AdFolder mAdFolder;
  play::Journal mJournal;
  play::JournalNaming mNaming;
  play::LibraryWatch mWatch;
  wordsim::WordWorld mWorld;
  ComponentClasses mComponents;
  BoxWatcher mBoxes;
  std::optional<SystemTurns> mTurns;
  std::vector<std::unique_ptr<DocumentFace>> mFaces;
  std::string mProblem;
  Object mMain2;
};

}  // namespace strandline::wordhost
