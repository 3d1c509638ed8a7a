#include "play/journal.h"

#include <algorithm>

#include "play/call_list.h"
#include "play/journal_file.h"

namespace strandline::play {

std::string CompactJson(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

Journal::Journal(JournalFile* file, std::function<std::int64_t()> now, bool keepLines)
    : mFile(file), mNow(std::move(now)), mKeepLines(keepLines) {}

void Journal::Add(std::string_view kind, Json fields) {
  if (mStopped) return;
  if (mCalls) mCalls->Add(kind, fields);
  Json line = Json::object();
  line["at"] = mNow();
  line["kind"] = std::string(kind);
  for (auto& [name, value] : fields.items()) line[name] = std::move(value);
  std::string text = CompactJson(line);
  if (mFile) mFile->WriteLine(text);
  if (mKeepLines) mLines.push_back({std::string(kind), std::move(text)});
}

void Journal::Forget(std::size_t before) {
  const std::size_t count = std::min(std::max(before, mForgotten) - mForgotten, mLines.size());
  mLines.erase(mLines.begin(), mLines.begin() + static_cast<std::ptrdiff_t>(count));
  mForgotten += count;
}

}  // namespace strandline::play
