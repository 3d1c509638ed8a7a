#include "adtool/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

namespace strandline::adtool {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(int error) { throw FileFailure(std::strerror(error)); }

class Descriptor {
 public:
  explicit Descriptor(int number) : mNumber(number) {}
  ~Descriptor() {
    if (mNumber >= 0) close(mNumber);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return mNumber; }

  // A full disk may be told only here.
  void Close() {
    const int number = std::exchange(mNumber, -1);
    if (close(number) != 0) Fail(errno);
  }

 private:
  int mNumber;
};

// The file that a link leads to, so that the link stays one.
fs::path Target(const fs::path& path) {
  std::error_code ignored;
  const fs::path resolved = fs::canonical(path, ignored);
  return ignored ? path : resolved;
}

mode_t NewFilesMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

void WriteAll(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) Fail(errno);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

}  // namespace

std::vector<std::uint8_t> ReadWholeFile(const fs::path& path, std::size_t limit) {
  // Without O_NONBLOCK a pipe would be waited for before it can be seen to be one.
  Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (file.Number() < 0 || fstat(file.Number(), &status) != 0) Fail(errno);
  if (S_ISDIR(status.st_mode)) Fail(EISDIR);
  if (!S_ISREG(status.st_mode)) throw FileFailure("not an ordinary file");
  if (static_cast<std::uintmax_t>(status.st_size) > limit) {
    throw FileFailure("it has more than " + std::to_string(limit >> 20) + " MB");
  }
  // The file may shrink or grow while it is read.
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(status.st_size));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t count = read(file.Number(), bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail(errno);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

void ReplaceFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
  const fs::path target = Target(path);
  struct stat status = {};
  const bool isThere = stat(target.c_str(), &status) == 0;
  if (isThere && S_ISDIR(status.st_mode)) Fail(EISDIR);
  if (isThere && !S_ISREG(status.st_mode)) throw FileFailure("not an ordinary file");
  std::string temporary = target.string() + ".XXXXXX";
  Descriptor file(mkstemp(temporary.data()));
  if (file.Number() < 0) Fail(errno);
  try {
    WriteAll(file.Number(), bytes);
    if (fchmod(file.Number(), isThere ? status.st_mode & 07777 : NewFilesMode()) != 0) Fail(errno);
    file.Close();
    if (std::rename(temporary.c_str(), target.c_str()) != 0) Fail(errno);
  } catch (...) {
    unlink(temporary.c_str());
    throw;
  }
}

}  // namespace strandline::adtool
