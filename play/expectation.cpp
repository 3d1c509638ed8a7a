#include "play/expectation.h"

#include <algorithm>
#include <charconv>

#include "platform/text.h"

namespace strandline::play {

namespace {

// Long lines, such as a state, would bury what a failure says.
constexpr std::size_t kLongestShown = 300;

std::string Shortened(std::string text) {
  if (text.size() <= kLongestShown) return text;
  std::size_t end = kLongestShown;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end) + "…";
}

const Json* FindInArray(const Json& array, std::string_view path) {
  std::size_t index = 0;
  const auto [stopped, failure] = std::from_chars(path.data(), path.data() + path.size(), index);
  if (failure != std::errc() || index >= array.size()) return nullptr;
  path.remove_prefix(static_cast<std::size_t>(stopped - path.data()));
  if (path.empty()) return &array[index];
  return path[0] == '.' ? FindField(array[index], path.substr(1)) : nullptr;
}

std::string Times(std::size_t count) { return count == 1 ? "1 line" : std::to_string(count) + " lines"; }

std::string NearestOf(const Expectation::Found& found) {
  return found.nearest.empty() ? "" : "; the nearest: " + Shortened(found.nearest);
}

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  std::size_t p = 0, t = 0;
  std::size_t star = std::string_view::npos, taken = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      taken = t;
    } else if (p < pattern.size() && pattern[p] == text[t]) {
      ++p;
      ++t;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      t = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

const Json* FindField(const Json& from, std::string_view path) {
  if (from.is_array()) return FindInArray(from, path);
  if (!from.is_object()) return nullptr;
  for (const auto& [key, value] : from.items()) {
    if (path == key) return &value;
    if (path.size() > key.size() && path.starts_with(key) && path[key.size()] == '.') {
      if (const Json* found = FindField(value, path.substr(key.size() + 1))) return found;
    }
  }
  return nullptr;
}

Expectation::Expectation(std::string kind, std::span<const std::string> fields) : mKind(std::move(kind)) {
  for (const std::string& field : fields) {
    const std::size_t equals = std::min(field.find('='), field.size());
    mFields.push_back({field.substr(0, equals), field.substr(std::min(equals + 1, field.size()))});
  }
}

std::string Expectation::Describe() const {
  std::string text = mKind;
  for (const Field& field : mFields) {
    const bool quoted = field.pattern.empty() || field.pattern.find_first_of(" \"") != std::string::npos;
    text += " " + field.path + "=" + (quoted ? CompactJson(field.pattern) : field.pattern);
  }
  return text;
}

bool Expectation::MatchesField(const Json& line, const Field& field) const {
  const Json* value = FindField(line, field.path);
  if (!value) return false;
  const std::string text = value->is_string() ? value->get<std::string>() : CompactJson(*value);
  if (field.path != "object" && field.path != "member") return MatchesPattern(field.pattern, text);
  return MatchesPattern(ToUtf8(LowerCase(FromUtf8(field.pattern).View())), ToUtf8(LowerCase(FromUtf8(text).View())));
}

std::size_t Expectation::MatchingFields(const std::string& line) const {
  if (mFields.empty()) return 0;
  const Json parsed = Json::parse(line, nullptr, false);
  return static_cast<std::size_t>(
      std::count_if(mFields.begin(), mFields.end(), [&](const Field& field) { return MatchesField(parsed, field); }));
}

Expectation::Found Expectation::Search(const Journal& journal, std::size_t from) const {
  Found found;
  std::size_t best = 0;
  for (std::size_t i = std::max(from, journal.FirstKept()); i < journal.Count(); ++i) {
    const Journal::Line& line = journal.At(i);
    if (line.kind != mKind) continue;
    ++found.ofKind;
    const std::size_t matching = MatchingFields(line.text);
    if (matching == mFields.size()) {
      if (found.count++ == 0) found.first = i;
      found.last = i;
    } else if (found.nearest.empty() || matching > best) {
      best = matching;
      found.nearest = line.text;
    }
  }
  return found;
}

void ExpectationState::Mark() {
  mMark = mJournal.Count();
  mJournal.Forget(std::min(mMark, mBehindFound));
}

std::string ExpectationState::Expect(std::optional<std::size_t> exactly, const Expectation& expectation) {
  const Expectation::Found found = expectation.Search(mJournal, mMark);
  mAsked = true;
  if (found.count > 0) mBehindFound = (exactly ? found.last : found.first) + 1;
  if (exactly ? found.count == *exactly : found.count > 0) return "";
  return (exactly ? std::to_string(*exactly) + " " : "") + expectation.Describe() + ", found " + Times(found.count) +
         " (" + std::to_string(found.ofKind) + " of that kind)" + NearestOf(found);
}

std::string ExpectationState::Then(const Expectation& expectation) {
  const Expectation::Found found = expectation.Search(mJournal, mBehindFound);
  if (found.count > 0) {
    mBehindFound = found.first + 1;
    return "";
  }
  return expectation.Describe() + " behind the line found before, found none (" + std::to_string(found.ofKind) +
         " of that kind)" + NearestOf(found);
}

}  // namespace strandline::play
