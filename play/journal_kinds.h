#pragma once

// The kinds of journal lines, each with what it stands for in desk/journal.h.

#include <array>
#include <string>
#include <string_view>

namespace strandline::play {

inline constexpr std::array<std::string_view, 11> kJournalKinds = {
    "object", "create", "window", "hook", "message", "log", "box", "result", "picture", "paint", "state"};

inline bool IsJournalKind(std::string_view text) {
  for (std::string_view kind : kJournalKinds) {
    if (kind == text) return true;
  }
  return false;
}

inline std::string JournalKindList() {
  std::string list;
  for (std::string_view kind : kJournalKinds) list.append(list.empty() ? "" : ", ").append(kind);
  return list;
}

}  // namespace strandline::play
