#include "play/main2_calls.h"

#include <algorithm>

#include "wordsim/document.h"

namespace strandline::play {

namespace {

enum class Takes { kNothing, kFlag, kDocument, kText };
enum class Gives { kNothing, kResult, kProperty };

struct Operation {
  const char* usage;  // the name and what it takes
  Takes takes;
  Gives gives;
};

constexpr Operation kOperations[] = {
    {"Initialize PRODUCTNAME", Takes::kText, Gives::kNothing},
    {"Execute COMMAND", Takes::kText, Gives::kResult},
    {"EnableGotoQuickBookmark true|false", Takes::kFlag, Gives::kNothing},
    {"RibbonHandler", Takes::kNothing, Gives::kProperty},
    {"ReadingMode", Takes::kNothing, Gives::kNothing},
    {"ReadingModeLayout", Takes::kNothing, Gives::kNothing},
    {"CloseReadingMode", Takes::kNothing, Gives::kNothing},
    {"ToggleLumivex", Takes::kNothing, Gives::kNothing},
    {"FilePrintPreview2", Takes::kNothing, Gives::kNothing},
    {"ClosePreview", Takes::kNothing, Gives::kNothing},
    {"ShrinkToolbar", Takes::kNothing, Gives::kNothing},
    {"ProductNameChanged", Takes::kNothing, Gives::kNothing},
    {"OpenUserManual", Takes::kNothing, Gives::kResult},
    {"UseQuillmere", Takes::kNothing, Gives::kNothing},
    {"HandleCreateDocument true|false", Takes::kFlag, Gives::kNothing},
    {"HandleDocumentChange", Takes::kNothing, Gives::kNothing},
    {"HandleCloseDocument NAME", Takes::kDocument, Gives::kResult},
    {"ClickOnAd", Takes::kNothing, Gives::kNothing},
    {"Quit", Takes::kNothing, Gives::kNothing},
};

std::string_view NameOf(const Operation& operation) {
  const std::string_view usage = operation.usage;
  return usage.substr(0, usage.find(' '));
}

const Operation* FindOperation(const std::string& name) {
  const auto found = std::find_if(std::begin(kOperations), std::end(kOperations), [&](const Operation& operation) {
    return SameText(FromUtf8(NameOf(operation)).View(), FromUtf8(name).View());
  });
  return found == std::end(kOperations) ? nullptr : found;
}

std::string UnknownOperation(const std::string& name) {
  std::string list;
  for (const Operation& operation : kOperations) list.append(list.empty() ? "" : ", ").append(operation.usage);
  return "Main2 has no operation \"" + name + "\"; it has: " + list;
}

std::string ReadArgument(Session& session, Takes takes, const std::string& text, Variant& given) {
  std::int64_t number = 0;
  switch (takes) {
    case Takes::kFlag:
      given = text == "true";
      if (text == "true" || text == "false") return "";
      if (!ParseNumber(text, number)) return "\"" + text + "\" is neither true, false nor a number";
      given = number != 0;
      return "";
    case Takes::kDocument:
      given = Object();
      if (text.empty()) return "";
      if (wordsim::Document* document = session.World().Find(FromUtf8(text))) {
        given = Ref<wordsim::Document>(document);
        return "";
      }
      return "no document \"" + text + "\" is open";
    case Takes::kText:
      given = FromUtf8(text);
      return "";
    case Takes::kNothing:
      break;
  }
  return "";
}

std::optional<Variant> Perform(Session& session, const Operation& operation, const Variant& given) {
  const Object main2 = session.Main2();
  const Name name = Name::FromText(NameOf(operation));
  if (operation.gives == Gives::kProperty) return main2.Get(name);
  if (SameText(FromUtf8(NameOf(operation)).View(), u"Initialize")) {
    InitializeMain2(session, given.ToText());
    return std::nullopt;
  }
  Variant result = operation.takes == Takes::kNothing ? main2.Call(name) : main2.Call(name, given);
  if (operation.gives == Gives::kNothing) return std::nullopt;
  return result;
}

}  // namespace

Main2Call CallMain2(Session& session, const std::string& name, std::span<const std::string> arguments) {
  const Operation* operation = FindOperation(name);
  if (!operation) return {UnknownOperation(name), std::nullopt};
  const std::string usage = std::string("; usage: call ") + operation->usage;
  const std::size_t wanted = operation->takes == Takes::kNothing ? 0 : 1;
  if (arguments.size() > wanted) return {"\"" + arguments[wanted] + "\" is too much" + usage, std::nullopt};
  if (arguments.size() < wanted) return {"an argument is missing" + usage, std::nullopt};
  Variant given;
  if (wanted > 0) {
    const std::string error = ReadArgument(session, operation->takes, arguments[0], given);
    if (!error.empty()) return {error + usage, std::nullopt};
  }
  return {"", Perform(session, *operation, given)};
}

void InitializeMain2(Session& session, const String& productName) {
  wordsim::WordWorld& world = session.World();
  session.Main2().Call("Initialize", world.Application(), world.Properties(), world.ProductState(), productName);
}

}  // namespace strandline::play
