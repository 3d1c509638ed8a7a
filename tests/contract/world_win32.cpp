// Windows, or Wine, as the world of the contract.

#include <clocale>
#include <cstring>
#include <fstream>
#include <iterator>

#include "platform/win32/host/win32_host_canvas.h"
#include "platform/win32/host/win32_host_clock.h"
#include "platform/win32/host/win32_host_mouse.h"
#include "platform/win32/host/win32_host_windows.h"
#include "platform/win32/win32_platform.h"
#include "tests/contract/contract.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::contract {

namespace {

using win32::Wide;

constexpr Long kStringsOfABlock = 16;

// A block of strings as modules carry them: sixteen, each with its length before it.
std::vector<char16_t> StringBlock(const std::map<Long, String>& strings, Long block) {
  std::vector<char16_t> words;
  for (Long i = 0; i < kStringsOfABlock; ++i) {
    const auto found = strings.find(block * kStringsOfABlock + i);
    const TextView text = found == strings.end() ? TextView() : found->second.View();
    words.push_back(static_cast<char16_t>(text.size()));
    words.insert(words.end(), text.begin(), text.end());
  }
  return words;
}

String TemporaryFile() {
  wchar_t folder[MAX_PATH + 1] = L"";
  wchar_t file[MAX_PATH + 1] = L"";
  ::GetTempPathW(MAX_PATH, folder);
  if (!::GetTempFileNameW(folder, L"sct", 0, file)) return {};
  return win32::FromWide(file, std::wcslen(file));
}

// The program's folder, where the build puts the module of resources.
String EmptyModule() {
  wchar_t program[MAX_PATH + 1] = L"";
  const DWORD length = ::GetModuleFileNameW(nullptr, program, MAX_PATH);
  const TextView path(reinterpret_cast<const char16_t*>(program), length);
  return Concat({path.substr(0, path.find_last_of(u'\\') + 1), u"images.dll"});
}

bool PutContents(const String& path, const ModuleContents& contents) {
  const HANDLE update = ::BeginUpdateResourceW(Wide(path), TRUE);
  if (!update) return false;
  bool ok = true;
  const auto put = [&](const wchar_t* type, Long id, const void* data, std::size_t size) {
    ok = ::UpdateResourceW(update, type, MAKEINTRESOURCEW(id), 0, const_cast<void*>(data), static_cast<DWORD>(size)) &&
         ok;
  };
  for (const auto& [id, bytes] : contents.resources) put(L"CUSTOM", id, bytes.data(), bytes.size());
  Long done = -1;
  for (const auto& [id, text] : contents.strings) {
    const Long block = id / kStringsOfABlock;
    if (block == done) continue;
    done = block;
    const std::vector<char16_t> words = StringBlock(contents.strings, block);
    put(MAKEINTRESOURCEW(6), block + 1, words.data(), words.size() * sizeof(char16_t));
  }
  return ::EndUpdateResourceW(update, !ok) && ok;
}

bool PutFile(const String& path, const std::vector<Byte>& bytes) {
  const HANDLE file = ::CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const auto size = static_cast<DWORD>(bytes.size());
  const bool ok = ::WriteFile(file, bytes.data(), size, &written, nullptr) && written == size;
  ::CloseHandle(file);
  return ok;
}

class WindowsWorld final : public World {
 public:
  ~WindowsWorld() override {
    for (const String& file : mFiles) ::DeleteFileW(Wide(file));
  }

  Platform Services() override { return mPlatform.Services(); }
  HostWindows& Host() override { return mWindows; }
  HostCanvas& Canvas() override { return mCanvas; }
  HostMouse& Mouse() override { return mMouse; }
  HostClock& Clock() override { return mClock; }

  String MakeModule(const ModuleContents& contents) override {
    const String path = TemporaryFile();
    if (path.IsEmpty()) return {};
    mFiles.push_back(path);
    if (!::CopyFileW(Wide(EmptyModule()), Wide(path), FALSE)) return {};
    return PutContents(path, contents) ? path : String();
  }

  String MakeModuleFile(const std::vector<Byte>& file) override {
    const String path = TemporaryFile();
    if (path.IsEmpty()) return {};
    mFiles.push_back(path);
    return PutFile(path, file) ? path : String();
  }

  // It stands among the program's resources.
  void GiveHostItsString() override {}

  void Compute(std::int64_t milliseconds) override { ::Sleep(static_cast<DWORD>(milliseconds)); }

 private:
  win32::Win32Platform mPlatform{u"Software\\Strandline Contract"};
  win32::Win32HostWindows mWindows;
  win32::Win32HostCanvas mCanvas;
  win32::Win32HostMouse mMouse;
  win32::Win32HostClock mClock;
  std::vector<String> mFiles;
};

// The root of the source tree, as the compiler was told this file's place; under Wine the machine's own root is Z:.
std::string SourceRoot() {
  const std::string here = __FILE__;
  const std::string root = here.substr(0, here.rfind("tests/contract/"));
  return !root.empty() && root[0] == '/' ? "Z:" + root : root;
}

}  // namespace

std::unique_ptr<World> MakeWorld() { return std::make_unique<WindowsWorld>(); }

HostLocale::HostLocale(Language language) {
  EXPECT_NE(std::setlocale(LC_ALL, language == Language::kGerman ? "German" : "Turkish"), nullptr);
}
HostLocale::~HostLocale() { std::setlocale(LC_ALL, "C"); }

bool IsWine() {
  static const bool isWine = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return isWine;
}

std::vector<Byte> BytesOfFile(const std::string& path) {
  std::ifstream file(SourceRoot() + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace strandline::contract
