#pragma once

// What `expect` and `then` ask of the journal: a kind, and fields whose text matches. A `*` in the text stands for any
// run of characters. A field may be a path into the line (value.Main2.mSmallToolbar, args.0); a path that isn't there
// doesn't match, and a field that isn't a text is compared by its compact JSON.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "play/journal.h"

namespace strandline::play {

bool MatchesPattern(std::string_view pattern, std::string_view text);

// What a path leads to; null when nothing is there. A key may hold points of its own.
const Json* FindField(const Json& from, std::string_view path);

class Expectation {
 public:
  // `fields` as FIELD=TEXT each.
  Expectation(std::string kind, std::span<const std::string> fields);

  bool Matches(const Journal::Line& line) const {
    return line.kind == mKind && MatchingFields(line.text) == mFields.size();
  }
  // As in the scene: window call=SetTimer.
  std::string Describe() const;

  struct Found {
    std::size_t count = 0;
    std::size_t ofKind = 0;  // lines of the kind, matching or not
    std::size_t first = 0;
    std::size_t last = 0;
    std::string nearest;  // the line of the kind that has the most of the fields, when none has all
  };
  Found Search(const Journal& journal, std::size_t from) const;

 private:
  struct Field {
    std::string path;
    std::string pattern;
  };
  bool MatchesField(const Json& line, const Field& field) const;
  std::size_t MatchingFields(const std::string& line) const;

  std::string mKind;
  std::vector<Field> mFields;
};

// The marks and finds of a scene, and what its expectations come to: the text behind "expected " of a failure, empty
// when it holds.
class ExpectationState {
 public:
  explicit ExpectationState(Journal& journal) : mJournal(journal) {}

  void Mark();
  std::string Expect(std::optional<std::size_t> exactly, const Expectation& expectation);
  bool CanContinue() const { return mAsked; }
  // Only where an `expect` came before.
  std::string Then(const Expectation& expectation);

 private:
  Journal& mJournal;
  std::size_t mMark = 0;
  std::size_t mBehindFound = 0;
  bool mAsked = false;
};

}  // namespace strandline::play
