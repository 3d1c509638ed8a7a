#include "wordhost/ad_folder.h"

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

using win32::Wide;

String TemporaryFolder() {
  wchar_t path[MAX_PATH + 1] = L"";
  const DWORD length = ::GetTempPathW(MAX_PATH + 1, path);
  return win32::FromWide(path, length <= MAX_PATH ? length : 0);
}

bool Write(const String& path, const std::vector<std::uint8_t>& bytes) {
  const HANDLE file =
      ::CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool isWhole =
      ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) && written == bytes.size();
  ::CloseHandle(file);
  return isWhole;
}

}  // namespace

AdFolder::AdFolder() : mPath(Concat({TemporaryFolder(), u"strandline-host\\"})) {
  ::CreateDirectoryW(Wide(mPath), nullptr);
  Serve(nullptr);
}

AdFolder::~AdFolder() {
  Serve(nullptr);
  ::RemoveDirectoryW(Wide(mPath));
}

std::string AdFolder::Serve(const play::AdLibraryFile* file) {
  const String path = Concat({mPath, u"Vistrel.dll"});
  const std::string what = ToUtf8(path.View());
  if (file) return Write(path, file->bytes) ? "" : what + " can't be written; make room for it, and let nobody hold it";
  if (::DeleteFileW(Wide(path)) || ::GetLastError() == ERROR_FILE_NOT_FOUND) return "";
  if (::GetLastError() == ERROR_PATH_NOT_FOUND) return "";
  return what + " can't be deleted; let nobody hold it";
}

}  // namespace strandline::wordhost
