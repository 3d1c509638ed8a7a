#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "adtool/ad_rule.h"
#include "adtool/toml_library.h"

namespace strandline::adtool {

// One table of a list, read by key; what is wrong is told with the line where it stands.
class ListTable {
 public:
  // `where` names the kind of table in messages. All three live as long as this.
  ListTable(const std::string& listName, const toml::table& table, std::string_view where)
      : mListName(listName), mTable(table), mWhere(where) {}

  // The first key, by line, that isn't one of these is refused.
  void AllowOnly(std::initializer_list<std::string_view> known) const;

  // A text that the library can hold; nullopt where the key isn't there.
  std::optional<std::string> Text(std::string_view key) const;
  // As Text, for what the library doesn't keep.
  std::optional<std::string> AnyText(std::string_view key) const;
  std::optional<std::int64_t> Whole(std::string_view key) const;
  // A date, or the text of one as month/day/year.
  std::optional<Day> Date(std::string_view key) const;

  [[noreturn]] void RefuseMissing(std::string_view key, std::string_view example) const;
  // The line is that of the key, or of the table where the key isn't there.
  [[noreturn]] void Refuse(std::string_view key, const std::string& what) const;

 private:
  [[noreturn]] void RefuseAt(toml::source_index line, const std::string& what) const;
  [[noreturn]] void RefuseKind(std::string_view key, std::string_view right) const;

  const std::string& mListName;
  const toml::table& mTable;
  std::string_view mWhere;
};

}  // namespace strandline::adtool
