#pragma once

// Where the journal's text goes: a file or standard output, through a buffer of fixed size. A signal handler may hand
// on what is complete at any time, so that a run that is broken off still shows how far it came.

#include <memory>
#include <string>
#include <string_view>

namespace strandline::play {

class JournalFile {
 public:
  JournalFile() = default;
  ~JournalFile();
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  // "-" is standard output. What went wrong, in the system's words; empty when nothing did.
  std::string Open(const std::string& path);
  void WriteLine(std::string_view line);
  // False when some of the text couldn't be written, now or before.
  bool Flush();
  // From a signal handler: hands on the whole lines that wait.
  void FlushFromSignal();

 private:
  void WriteOut(const char* text, std::size_t length);

  static constexpr std::size_t kCapacity = 1 << 16;
  std::unique_ptr<char[]> mBuffer;
  volatile std::size_t mComplete = 0;
  int mDescriptor = -1;
  bool mOwned = false;
  bool mFailed = false;
};

}  // namespace strandline::play
