#include "wordsim/use_faults.h"

#include "wordsim/sim_object.h"

namespace strandline::wordsim {

namespace {

bool SameName(std::string_view a, std::string_view b) { return SameText(FromUtf8(a), FromUtf8(b)); }

// The argument as a scene would write it: a text, a number, or an object's name.
std::string TextOf(const Variant& argument) {
  const Variant value = argument.Resolved();
  if (const Object* object = value.If<Object>()) return JournalNameOf(*object);
  if (value.If<Picture>() || value.IsMissing()) return {};
  try {
    return ToUtf8(value.ToText());
  } catch (const Error&) {
    return {};
  }
}

}  // namespace

void UseFaults::Arm(std::string_view object, std::string_view member, Long count, Long number) {
  if (count <= 0) return;
  Armed armed{std::string(object), std::string(member), std::nullopt, count, number};
  const std::size_t open = member.find('(');
  if (open != std::string_view::npos && member.ends_with(')')) {
    armed.member = member.substr(0, open);
    armed.argument = member.substr(open + 1, member.size() - open - 2);
  }
  mArmed.push_back(std::move(armed));
}

std::optional<Long> UseFaults::Take(std::string_view object, std::string_view member,
                                    std::span<const Variant> arguments) {
  for (auto armed = mArmed.begin(); armed != mArmed.end(); ++armed) {
    if (!SameName(armed->object, object) || !SameName(armed->member, member)) continue;
    if (armed->argument && (arguments.empty() || !SameName(*armed->argument, TextOf(arguments[0])))) continue;
    const Long number = armed->number;
    if (--armed->count == 0) mArmed.erase(armed);
    return number;
  }
  return std::nullopt;
}

}  // namespace strandline::wordsim
