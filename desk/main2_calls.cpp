#include "desk/main2_calls.h"

#include <algorithm>

#include "wordsim/document.h"

namespace strandline::deskprogram {

namespace {

enum class Kind { kFlag, kDocument, kName };

// Arguments as they go in, each of the kind that the operation takes.
struct Given {
  Boolean flag = false;
  Object document;
  String name;
};

struct Operation {
  const char* usage;  // the name and what it takes
  std::optional<Kind> takes;
  std::optional<Variant> (*call)(DeskSession& session, Given& given);
};

const Operation kOperations[] = {
    {"Initialize PRODUCTNAME", Kind::kName,
     [](DeskSession& session, Given& given) -> std::optional<Variant> {
       session.Initialize(given.name);
       return std::nullopt;
     }},
    {"EnableGotoQuickBookmark true|false", Kind::kFlag,
     [](DeskSession& session, Given& given) -> std::optional<Variant> {
       session.TheMain2().EnableGotoQuickBookmark(given.flag);
       return std::nullopt;
     }},
    {"RibbonHandler", std::nullopt,
     [](DeskSession& session, Given&) -> std::optional<Variant> { return session.TheMain2().RibbonHandler(); }},
    {"ProductNameChanged", std::nullopt,
     [](DeskSession& session, Given&) -> std::optional<Variant> {
       session.TheMain2().ProductNameChanged();
       return std::nullopt;
     }},
    {"HandleCreateDocument true|false", Kind::kFlag,
     [](DeskSession& session, Given& given) -> std::optional<Variant> {
       session.TheMain2().HandleCreateDocument(given.flag);
       return std::nullopt;
     }},
    {"HandleDocumentChange", std::nullopt,
     [](DeskSession& session, Given&) -> std::optional<Variant> {
       session.TheMain2().HandleDocumentChange();
       return std::nullopt;
     }},
    {"HandleCloseDocument NAME", Kind::kDocument,
     [](DeskSession& session, Given& given) -> std::optional<Variant> {
       return session.TheMain2().HandleCloseDocument(given.document);
     }},
    {"Quit", std::nullopt,
     [](DeskSession& session, Given&) -> std::optional<Variant> {
       session.TheMain2().Quit();
       return std::nullopt;
     }},
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

std::string ReadArgument(DeskSession& session, Kind kind, const std::string& text, Given& given) {
  std::int64_t number = 0;
  switch (kind) {
    case Kind::kFlag:
      given.flag = text == "true";
      if (given.flag || text == "false") return "";
      if (!ParseNumber(text, number)) return "\"" + text + "\" is neither true, false nor a number";
      given.flag = number != 0;
      return "";
    case Kind::kDocument:
      if (text.empty()) return "";
      if (wordsim::Document* document = session.World().Find(FromUtf8(text))) {
        given.document = Ref<wordsim::Document>(document);
        return "";
      }
      return "no document \"" + text + "\" is open";
    case Kind::kName:
      given.name = FromUtf8(text);
      return "";
  }
  return "";
}

}  // namespace

Main2Call CallMain2(DeskSession& session, const std::string& name, std::span<const std::string> arguments) {
  const Operation* operation = FindOperation(name);
  if (!operation) return {UnknownOperation(name), std::nullopt};
  const std::string usage = std::string("; usage: call ") + operation->usage;
  const std::size_t wanted = operation->takes ? 1 : 0;
  if (arguments.size() > wanted) return {"\"" + arguments[wanted] + "\" is too much" + usage, std::nullopt};
  if (arguments.size() < wanted) return {"an argument is missing" + usage, std::nullopt};
  Given given;
  if (operation->takes) {
    const std::string error = ReadArgument(session, *operation->takes, arguments[0], given);
    if (!error.empty()) return {error + usage, std::nullopt};
  }
  return {"", operation->call(session, given)};
}

}  // namespace strandline::deskprogram
