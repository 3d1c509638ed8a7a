#pragma once

// A desk, the simulated Word and product on it, and one load of the library between them, everything told to Doings.
//
//   World world(ForWord(u"10.0"));
//   world.Start();                       // load, Main2, Initialize
//   world.Open(u"One.doc");              // Word opens it, the product forwards that
//   EXPECT_EQ(Block(world.did.Logs()), ...);

#include <deque>
#include <optional>

#include "addin/Main2.h"
#include "addin/library.h"
#include "desk/watched_services.h"
#include "platform/desk/desk.h"
#include "tests/support/doings.h"
#include "wordsim/command_bars.h"
#include "wordsim/document.h"
#include "wordsim/product.h"
#include "wordsim/word_world.h"

namespace strandline {

struct WorldOptions {
  wordsim::Settings word;
  Long dpi = 96;
  String commandLine;
};

inline WorldOptions ForWord(const char16_t* version) {
  WorldOptions options;
  options.word.wordVersion = version;
  return options;
}

class World {
 public:
  explicit World(const WorldOptions& options = {});
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // The library is loaded and its object made, but not initialised.
  void Load();
  void Initialize();
  void Start() {
    Load();
    Initialize();
  }
  // The product lets go of the object.
  void Release() { mMain2 = nullptr; }
  // The object and the library go.
  void Unload();
  bool IsLoaded() const { return mLibrary.has_value(); }
  Main2& Main() { return *mMain2; }
  Library& TheLibrary() { return *mLibrary; }

  // Word opens a document, and the product forwards that.
  wordsim::Document& Open(const String& name, wordsim::OpenFlags flags = {}, bool startedFromIcon = false);
  // The product forwards a creation.
  void Create(bool startedFromIcon = false);
  // The product asks, and where it may, Word closes the document.
  bool Close(const String& name);
  // The question alone.
  bool HandleClose(const String& name);

  // The user's next answers to boxes; without one, OK or Yes.
  void AnswerBox(Long answer) { mBoxAnswers.push_back(answer); }
  // The next answers of the error component; without one, 0.
  void AnswerErrors(std::initializer_list<Long> answers);

  Object Application() const { return word.Application(); }
  Object Bar() const { return Ref<wordsim::CommandBar>(&word.ProductBar()); }

  desk::Desk desk;
  Doings did;
  wordsim::WordWorld word;
  deskprogram::WatchedServices services;

 private:
  Long OnBox(const String& text, Long style, const String* title);

  std::optional<Library> mLibrary;
  Ref<Main2> mMain2;
  std::deque<Long> mBoxAnswers;
};

}  // namespace strandline
