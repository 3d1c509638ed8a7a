#pragma once

// The journal: one JSON object a line, in the order in which things are complete. Each line has `at`, the milliseconds
// since the clock's start, and `kind`. Lines that a later `expect` may ask for are kept since the last mark.

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace strandline::play {

using Json = nlohmann::ordered_json;

// As it stands in the journal: no blanks, UTF-8, no exception for what isn't well-formed.
std::string CompactJson(const Json& value);

class CallList;
class JournalFile;

class Journal {
 public:
  struct Line {
    std::string kind;
    std::string text;
  };

  // `file` may be null; `now` gives milliseconds. With keepLines false nothing can be expected later.
  Journal(JournalFile* file, std::function<std::int64_t()> now, bool keepLines);

  void Add(std::string_view kind, Json fields);
  // Who is told each line too; null for nobody.
  void SetCalls(CallList* calls) { mCalls = calls; }
  // From now on nothing is added: what an abandoned run does while it is taken down is no part of its story.
  void Stop() { mStopped = true; }

  // Lines are numbered from 0 since the beginning; those before FirstKept() are gone.
  std::size_t Count() const { return mForgotten + mLines.size(); }
  std::size_t FirstKept() const { return mForgotten; }
  const Line& At(std::size_t number) const { return mLines[number - mForgotten]; }
  // Lines before this number are of no more use.
  void Forget(std::size_t before);

 private:
  JournalFile* mFile;
  std::function<std::int64_t()> mNow;
  CallList* mCalls = nullptr;
  bool mKeepLines;
  bool mStopped = false;
  std::size_t mForgotten = 0;
  std::vector<Line> mLines;
};

}  // namespace strandline::play
