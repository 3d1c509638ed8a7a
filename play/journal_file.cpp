#include "play/journal_file.h"

#include <fcntl.h>
#include <unistd.h>
#ifdef _WIN32
#include <io.h>
#endif

#include <cerrno>
#include <cstring>

namespace strandline::play {

namespace {

// Lines end as they are written, on every system.
#ifdef _WIN32
constexpr int kMode = O_BINARY | O_NOINHERIT;
void WriteAsIs(int descriptor) { _setmode(descriptor, O_BINARY); }
#else
constexpr int kMode = O_CLOEXEC;
void WriteAsIs(int) {}
#endif

}  // namespace

JournalFile::~JournalFile() {
  Flush();
  if (mOwned) close(mDescriptor);
}

std::string JournalFile::Open(const std::string& path) {
  mBuffer = std::make_unique<char[]>(kCapacity);
  if (path == "-") {
    mDescriptor = STDOUT_FILENO;
    WriteAsIs(mDescriptor);
    return "";
  }
  mDescriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | kMode, 0666);
  if (mDescriptor < 0) return std::strerror(errno);
  mOwned = true;
  return "";
}

void JournalFile::WriteLine(std::string_view line) {
  if (mDescriptor < 0) return;
  if (mComplete + line.size() + 1 > kCapacity) Flush();
  if (line.size() + 1 > kCapacity) {
    WriteOut(line.data(), line.size());
    WriteOut("\n", 1);
    return;
  }
  std::memcpy(mBuffer.get() + mComplete, line.data(), line.size());
  mBuffer[mComplete + line.size()] = '\n';
  mComplete = mComplete + line.size() + 1;
}

bool JournalFile::Flush() {
  const std::size_t length = mComplete;
  mComplete = 0;
  WriteOut(mBuffer.get(), length);
  return !mFailed;
}

void JournalFile::FlushFromSignal() { Flush(); }

void JournalFile::WriteOut(const char* text, std::size_t length) {
  while (length > 0 && !mFailed) {
    const auto written = write(mDescriptor, text, static_cast<unsigned>(length));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      mFailed = true;
      return;
    }
    text += written;
    length -= static_cast<std::size_t>(written);
  }
}

}  // namespace strandline::play
