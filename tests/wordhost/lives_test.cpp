// What a long day leaves behind: a thousand documents come and go under the real DLL, and the system's handles are
// counted before and after.

#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "play/journal_file.h"
#include "play/main2_calls.h"
#include "tests/wordhost/system_handles.h"
#include "wordhost/host_session.h"
#include "wordhost/window_pixels.h"
#include "wordsim/document.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::wordhosttest {
namespace {

std::string DllPath() {
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string program = path;
  return program.substr(0, program.find_last_of('\\') + 1) + "strandline.dll";
}

// Word of that version with the DLL in it, started.
class StartedWord {
 public:
  explicit StartedWord(const char16_t* version) {
    play::SceneSettings settings;
    settings.world.wordVersion = version;
    mSession.emplace(settings, wordhost::HostSession::Surroundings{mRegistry, mLibrary, mJournal, nullptr, {}}, false);
    EXPECT_EQ(mSession->Problem(), "");
    EXPECT_EQ(mSession->Start(), "");
    play::InitializeMain2(*mSession, settings.world.productName);
  }
  ~StartedWord() {
    if (mSession) End();
  }
  // The product lets go of everything. Whether the DLL then says that nothing of it lives.
  bool End() {
    mSession->Main2().Call("Quit");
    const HMODULE dll = ::LoadLibraryA(DllPath().c_str());
    mSession->Unload();
    const auto canUnload =
        reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(::GetProcAddress(dll, "DllCanUnloadNow")));
    const bool isFree = canUnload && canUnload() == S_OK;
    mSession.reset();
    mRegistry.TakeAway();
    ::FreeLibrary(dll);
    return isFree;
  }
  StartedWord(const StartedWord&) = delete;
  StartedWord& operator=(const StartedWord&) = delete;

  // The product forwards the events as it does for its user; the strip is painted meanwhile.
  void LiveAndDie(const String& name) {
    wordsim::Document& document = mSession->World().Open(name);
    mSession->Main2().Call("HandleCreateDocument", false);
    LetMessagesRun();
    if (ShowsIcons()) ++mPaintedLives;
    const Object face = Ref<wordsim::Document>(&document);
    ASSERT_TRUE(mSession->Main2().Call("HandleCloseDocument", face).ToBoolean());
    mSession->World().Close(name);
    LetMessagesRun();
  }
  void LiveAndDie(int times) {
    for (int i = 0; i < times; ++i) LiveAndDie(Concat({u"Life ", DecimalText(i), u".doc"}));
  }
  // How many of the lives showed a strip with its icons.
  int PaintedLives() const { return mPaintedLives; }

 private:
  // A bar without its icons, be it Word's own or the frame alone, has a handful of colours.
  bool ShowsIcons() {
    constexpr std::size_t kColoursWithoutIcons = 20;
    const wordhost::WindowPixels read = wordhost::ReadWindow(mSession->World().ActiveBarWindow());
    return std::set<std::uint32_t>(read.pixels.begin(), read.pixels.end()).size() > kColoursWithoutIcons;
  }

  // The first paints after a size are dropped, and each round ends at a window's second one.
  void LetMessagesRun() {
    for (int round = 0; round < 6; ++round) mSession->World().Services().windows->DoEvents();
  }

  wordhost::RegistryEntries mRegistry;
  wordhost::LibraryModule mLibrary{DllPath()};
  play::JournalFile mJournal;
  std::optional<wordhost::HostSession> mSession;
  int mPaintedLives = 0;
};

}  // namespace

TEST(SystemHandles, AreReallyCounted) {
  const SystemHandles before = SystemHandles::Now();
  const HDC context = ::CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = ::CreateBitmap(4, 4, 1, 1, nullptr);
  EXPECT_EQ(SystemHandles::Now().graphics, before.graphics + 2);
  ::DeleteDC(context);
  ::DeleteObject(bitmap);
  EXPECT_EQ(SystemHandles::Now().graphics, before.graphics);
}

TEST(DocumentLives, AThousandOfThem_LeaveNothingOfTheSystems) {
#ifdef _WIN64
  StartedWord word(u"16.0");
  constexpr int kPainted = 0;  // of a ribbon Word's documents none has a strip
#else
  StartedWord word(u"11.0");
  constexpr int kPainted = 1010;
#endif
  word.LiveAndDie(10);
  const SystemHandles before = SystemHandles::Now();
  word.LiveAndDie(1000);
  const SystemHandles after = SystemHandles::Now();
  EXPECT_EQ(after.graphics, before.graphics);
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(word.PaintedLives(), kPainted);
  EXPECT_TRUE(word.End());
}

}  // namespace strandline::wordhosttest
