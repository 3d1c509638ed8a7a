#include "play/library_watch.h"

#include "platform/runtime.h"
#include "platform/wrappers/operations.h"

namespace strandline::play {

namespace {

std::string_view OpName(wordsim::UseOp op) {
  switch (op) {
    case wordsim::UseOp::kGet:
      return "get";
    case wordsim::UseOp::kLet:
      return "let";
    case wordsim::UseOp::kCall:
      return "call";
    case wordsim::UseOp::kEach:
      return "each";
  }
  return "";
}

Json MessageJson(const Message& message, const JournalNaming& naming) {
  return Json{{"hwnd", naming.Window(message.hwnd)},
              {"message", message.message},
              {"wParam", message.wParam},
              {"lParam", message.lParam}};
}

// The one that mixes pictures is told where they are, as numbers.
bool IsMix(const wordsim::ObjectUse& use) {
  return use.object == "AlphaBlender.Main2" && SameText(FromUtf8(use.member), u"AlphaBlend");
}
constexpr std::size_t kContextsOfMix[] = {0, 3, 4};

// Which services make a `window` line. Drawing shows as `paint`, a picture's bytes and memory as `picture`.
bool IsListed(const Operation& operation) {
  switch (operation.kind) {
    case CallKind::kWindow:
    case CallKind::kPointer:
    case CallKind::kTimer:
    case CallKind::kContext:
      return true;
    case CallKind::kMessage:
      return !operation.name.starts_with("DoEvents");
    case CallKind::kModule:
      return operation.name != "LoadResData";
    default:
      return false;
  }
}

}  // namespace

void LibraryWatch::OnUse(const wordsim::ObjectUse& use) {
  Json line = Json{{"object", use.object}, {"op", OpName(use.op)}};
  line["member"] = std::string(use.member);
  line["args"] = mNaming.Arguments(use.arguments, use.named);
  // The tooltip is told the window that it belongs to, as a number.
  if (use.object == "tooltip" && line["args"].size() > 1 && line["args"][0].is_number_integer()) {
    line["args"][0] = mNaming.Window(line["args"][0].get<Long>());
  }
  if (IsMix(use)) {
    for (const std::size_t place : kContextsOfMix) NameContext(line["args"], place);
  }
  if (use.error) {
    line["error"] = Json{{"number", use.error->number}, {"description", ToUtf8(use.error->description.View())}};
  } else {
    line["value"] = use.value ? mNaming.Value(*use.value) : Json(nullptr);
  }
  mJournal.Add("object", std::move(line));
}

void LibraryWatch::Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) {
  const Operation* operation = FindOperation(call);
  if (!operation) return;
  if (operation->kind == CallKind::kHook) return RecordHook(call, arguments);
  if (!IsListed(*operation)) return;
  Json line = Json{{"call", std::string(call)}};
  line["args"] = ArgumentsOf(call, arguments);
  line["value"] = Argument(result);
  mJournal.Add("window", std::move(line));
}

void LibraryWatch::RecordHook(std::string_view step, std::span<const CallArgument> arguments) {
  if (arguments.empty()) return;
  const Json window = Argument(arguments[0]);
  if (step != "message") {
    mJournal.Add("hook", Json{{"op", std::string(step)}, {"window", window}});
  } else if (arguments.size() == 5) {
    mJournal.Add("message", Json{{"window", window},
                                 {"msg", Argument(arguments[1])},
                                 {"wParam", Argument(arguments[2])},
                                 {"lParam", Argument(arguments[3])},
                                 {"cancel", Argument(arguments[4])}});
  }
}

void LibraryWatch::NameContext(Json& arguments, std::size_t place) const {
  if (place >= arguments.size() || !arguments[place].is_number_integer()) return;
  arguments[place] = mNaming.GraphicsObject(arguments[place].get<Long>());
}

Json LibraryWatch::Argument(const CallArgument& argument) const {
  if (const Long* number = argument.If<Long>()) {
    switch (argument.hint) {
      case CallArgument::Hint::kWindow:
        return mNaming.Window(*number);
      case CallArgument::Hint::kContext:
      case CallArgument::Hint::kBitmap:
      case CallArgument::Hint::kGraphicsObject:
        return mNaming.GraphicsObject(*number);
      default:
        return *number;
    }
  }
  if (const Double* fraction = argument.If<Double>()) return *fraction;
  if (const Boolean* flag = argument.If<Boolean>()) return *flag;
  if (const String* text = argument.If<String>()) return ToUtf8(text->View());
  if (const Object* object = argument.If<Object>()) return mNaming.Value(*object);
  if (const Message* message = argument.If<Message>()) return MessageJson(*message, mNaming);
  if (const Point* point = argument.If<Point>()) return Json{{"x", point->x}, {"y", point->y}};
  if (const Rect* rect = argument.If<Rect>()) {
    return Json{{"left", rect->left}, {"top", rect->top}, {"right", rect->right}, {"bottom", rect->bottom}};
  }
  return nullptr;
}

Json LibraryWatch::ArgumentsOf(std::string_view call, std::span<const CallArgument> arguments) const {
  Json list = Json::array();
  for (const CallArgument& argument : arguments) list.push_back(Argument(argument));
  // A window that is asked to print itself is given the context as a plain number.
  const bool isPrint = call == "SendMessageA" && arguments.size() == 4 && list[1] == wm::kPrint;
  if (isPrint && arguments[2].If<Long>()) list[2] = mNaming.GraphicsObject(*arguments[2].If<Long>());
  return list;
}

void LibraryWatch::OnLog(TextView message, Long level) {
  mJournal.Add("log", Json{{"level", level}, {"text", ToUtf8(message)}});
}

void LibraryWatch::OnPicture(Integer index, Long hModule, Boolean ok) {
  mJournal.Add("picture", Json{{"id", index}, {"module", hModule == 0 ? "own" : "Vistrel.dll"}, {"ok", ok}});
}

void LibraryWatch::OnCreate(const String& progId, bool ok) {
  mJournal.Add("create", Json{{"progid", ToUtf8(progId.View())}, {"ok", ok}});
}

void LibraryWatch::OnPaint(Long hwnd, const Rect& pixels) {
  mJournal.Add("paint", Json{{"window", mNaming.Window(hwnd)},
                             {"left", pixels.left},
                             {"top", pixels.top},
                             {"right", pixels.right},
                             {"bottom", pixels.bottom}});
}

Long LibraryWatch::OnBox(const String& text, Long style, const String* title) {
  const Long buttons = style & 15;
  const bool asks = buttons == msgbox::kYesNoCancel || buttons == msgbox::kYesNoCancel + 1;  // with a Cancel or without
  Long answer = asks ? msgbox::kAnswerYes : msgbox::kAnswerOk;
  if (!mBoxAnswers.empty()) {
    answer = mBoxAnswers.front();
    mBoxAnswers.pop_front();
  }
  mJournal.Add("box", Json{{"text", ToUtf8(text.View())},
                           {"title", title ? ToUtf8(title->View()) : ""},
                           {"style", style},
                           {"answer", answer}});
  return answer;
}

}  // namespace strandline::play
