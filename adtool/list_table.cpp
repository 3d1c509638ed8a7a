#include "adtool/list_table.h"

#include <algorithm>
#include <charconv>

#include "adtool/ad_settings.h"
#include "adtool/refusal.h"

namespace strandline::adtool {

namespace {

std::string Joined(std::initializer_list<std::string_view> names) {
  std::string text;
  for (const std::string_view name : names) text += (text.empty() ? "" : ", ") + std::string(name);
  return text;
}

// A number of one to four digits, taken off the text.
std::optional<int> TakeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + std::min<std::size_t>(text.size(), 4), number);
  if (error != std::errc() || number < 0) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

bool TakeSlash(std::string_view& text) {
  if (!text.starts_with('/')) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<Day> MonthDayYear(std::string_view text) {
  const std::optional<int> month = TakeNumber(text);
  if (!month || !TakeSlash(text)) return std::nullopt;
  const std::optional<int> day = TakeNumber(text);
  if (!day || !TakeSlash(text)) return std::nullopt;
  const std::optional<int> year = TakeNumber(text);
  if (!year || !text.empty()) return std::nullopt;
  return Day{std::chrono::year{*year}, std::chrono::month{static_cast<unsigned>(*month)},
             std::chrono::day{static_cast<unsigned>(*day)}};
}

}  // namespace

void ListTable::AllowOnly(std::initializer_list<std::string_view> known) const {
  const toml::key* unknown = nullptr;
  for (const auto& [key, node] : mTable) {
    if (std::find(known.begin(), known.end(), key.str()) != known.end()) continue;
    if (!unknown || key.source().begin.line < unknown->source().begin.line) unknown = &key;
  }
  if (!unknown) return;
  RefuseAt(unknown->source().begin.line,
           "unknown key " + Quoted(unknown->str()) + " in " + std::string(mWhere) + "; known are " + Joined(known));
}

std::optional<std::string> ListTable::Text(std::string_view key) const {
  std::optional<std::string> text = AnyText(key);
  if (!text) return text;
  const std::string fault = TextFault(*text);
  if (!fault.empty()) Refuse(key, std::string(key) + ": " + fault);
  return text;
}

std::optional<std::string> ListTable::AnyText(std::string_view key) const {
  const toml::node* node = mTable.get(key);
  if (!node) return std::nullopt;
  if (!node->is_string()) RefuseKind(key, "a text in quotes");
  return node->as_string()->get();
}

std::optional<std::int64_t> ListTable::Whole(std::string_view key) const {
  const toml::node* node = mTable.get(key);
  if (!node) return std::nullopt;
  if (!node->is_integer()) RefuseKind(key, "a whole number, without quotes");
  return node->as_integer()->get();
}

std::optional<Day> ListTable::Date(std::string_view key) const {
  const toml::node* node = mTable.get(key);
  if (!node) return std::nullopt;
  std::optional<Day> day;
  if (const auto* date = node->as_date()) {
    day = Day{std::chrono::year{date->get().year}, std::chrono::month{date->get().month},
              std::chrono::day{date->get().day}};
  } else if (const auto* text = node->as_string()) {
    day = MonthDayYear(text->get());
  }
  if (!day || !day->ok()) RefuseKind(key, "a date, such as 2009-03-01 or \"3/1/2009\"");
  if (static_cast<int>(day->year()) < 1000) {
    Refuse(key, std::string(key) + ": the year of a date has four digits, or the toolbar takes another century for it");
  }
  return day;
}

void ListTable::RefuseMissing(std::string_view key, std::string_view example) const {
  Refuse(key, std::string(mWhere) + " lacks " + std::string(key) + "; write " + std::string(example));
}

void ListTable::Refuse(std::string_view key, const std::string& what) const {
  const toml::node* node = mTable.get(key);
  RefuseAt(node ? node->source().begin.line : mTable.source().begin.line, what);
}

void ListTable::RefuseKind(std::string_view key, std::string_view right) const {
  Refuse(key, std::string(key) + ": right is " + std::string(right));
}

void ListTable::RefuseAt(toml::source_index line, const std::string& what) const {
  throw Refusal(mListName + ":" + std::to_string(line) + ": " + what);
}

}  // namespace strandline::adtool
