#include "tests/support/doings.h"

#include "platform/wrappers/operations.h"
#include "wordsim/sim_object.h"

namespace strandline {

namespace {

std::string Shown(const Rect& r) {
  return "(" + std::to_string(r.left) + ", " + std::to_string(r.top) + ", " + std::to_string(r.right) + ", " +
         std::to_string(r.bottom) + ")";
}

std::string NameOr(const std::function<std::string(Long)>& source, Long number) {
  const std::string name = number != 0 && source ? source(number) : std::string();
  return name.empty() ? std::to_string(number) : name;
}

}  // namespace

std::string Block(const TextLines& lines) {
  std::string block;
  for (const std::string& line : lines) block += line + "\n";
  return block;
}

TextLines Doings::Of(unsigned kinds, const std::string& beginning) const {
  TextLines lines;
  for (const Line& line : mLines) {
    if ((line.kind & kinds) && line.text.starts_with(beginning)) lines.push_back(line.text);
  }
  return lines;
}

bool Doings::Has(const std::string& text) const {
  for (const Line& line : mLines) {
    if (line.text == text) return true;
  }
  return false;
}

void Doings::Add(Kind kind, std::string text) {
  mLines.push_back({kind, std::move(text)});
  if (!during) return;
  // Whoever is called may put another in its place, or clear the lines.
  const auto listener = during;
  const Line line = mLines.back();
  listener(line);
}

std::string Doings::Window(Long hwnd) const { return NameOr(mNames.window, hwnd); }

std::string Doings::Shown(const Variant& given) const {
  const Variant value = given.Resolved();
  if (const Object* object = value.If<Object>()) {
    if (object->IsNothing()) return "Nothing";
    const std::string name = wordsim::JournalNameOf(*object);
    return name.empty() ? "object" : name;
  }
  if (value.IsEmpty()) return "Empty";
  if (value.IsMissing()) return "Missing";
  if (const Picture* picture = value.If<Picture>()) return *picture ? "picture" : "Nothing";
  if (const auto* bytes = value.If<Variant::Shared<Byte>>()) {
    return std::to_string((*bytes)->Elements().size()) + " bytes";
  }
  if (value.If<Variant::Shared<String>>() || value.If<Variant::Shared<Boolean>>()) return "array";
  return ToUtf8(value.ToText());
}

void Doings::OnUse(const wordsim::ObjectUse& use) {
  static constexpr const char* kOps[] = {"get", "let", "call", "each"};
  if (use.object == "QuillmereError.Main2" && Name::FromText(use.member) == Name("vbwErrorHandler")) {
    if (use.arguments.size() < 5) return;
    const auto text = [&](std::size_t place) { return Shown(use.arguments[place]); };
    mQuestions.push_back({use.arguments[0].ToLong(), text(1), text(2)});
    return Add(kError, text(0) + " " + text(3) + "." + text(4));
  }
  std::string line = std::string(kOps[static_cast<int>(use.op)]) + " " + use.object;
  if (!use.member.empty()) line += " " + std::string(use.member);
  line += "(";
  const char* comma = "";
  for (const Variant& argument : use.arguments) {
    line += comma + Shown(argument);
    comma = ", ";
  }
  for (const Named& named : use.named) {
    line += comma + std::string(named.name.Text()) + ":=" + Shown(named.value);
    comma = ", ";
  }
  if (use.op == wordsim::UseOp::kLet && use.value) line += comma + Shown(*use.value);
  line += ")";
  if (use.error) {
    line += " ! " + std::to_string(use.error->number);
  } else if (use.value && use.op != wordsim::UseOp::kLet && !use.value->IsEmpty()) {
    line += " = " + Shown(*use.value);
  }
  Add(kUse, std::move(line));
}

std::string Doings::Shown(const CallArgument& argument) const {
  if (const Long* number = argument.If<Long>()) {
    switch (argument.hint) {
      case CallArgument::Hint::kWindow:
        return Window(*number);
      case CallArgument::Hint::kContext:
      case CallArgument::Hint::kBitmap:
      case CallArgument::Hint::kGraphicsObject:
        return NameOr(mNames.graphics, *number);
      default:
        return std::to_string(*number);
    }
  }
  if (const Double* fraction = argument.If<Double>()) return std::to_string(*fraction);
  if (const Boolean* flag = argument.If<Boolean>()) return *flag ? "True" : "False";
  if (const String* text = argument.If<String>()) return ToUtf8(*text);
  if (const Object* object = argument.If<Object>()) return Shown(Variant(*object));
  if (const Rect* rect = argument.If<Rect>()) return strandline::Shown(*rect);
  if (const Point* point = argument.If<Point>()) {
    return "(" + std::to_string(point->x) + ", " + std::to_string(point->y) + ")";
  }
  if (const Message* message = argument.If<Message>()) {
    return Window(message->hwnd) + " " + std::to_string(message->message);
  }
  return argument.If<CallArgument::Null>() ? "null" : "";
}

void Doings::Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) {
  if (call == "createsubclasser") return;
  if (call == "subclass" || call == "unsubclass") {
    return Add(kHook, std::string(call) + " " + Shown(arguments[0]));
  }
  if (call == "message") {
    return Add(kMessage, Shown(arguments[0]) + " " + Shown(arguments[1]) + "(" + Shown(arguments[2]) + ", " +
                             Shown(arguments[3]) + ") = " + Shown(result) +
                             (Shown(arguments[4]) == "True" ? " kept" : ""));
  }
  std::string line = std::string(call) + "(";
  const char* comma = "";
  for (const CallArgument& argument : arguments) {
    line += comma + Shown(argument);
    comma = ", ";
  }
  line += ")";
  if (!result.If<CallArgument::Nothing>()) line += " = " + Shown(result);
  Add(call == "previous" ? kHook : kService, std::move(line));
}

void Doings::OnLog(TextView message, Long level) { Add(kLog, "log " + std::to_string(level) + " " + ToUtf8(message)); }

void Doings::OnPicture(Integer index, Long hModule, Boolean ok) {
  Add(kPicture, "picture " + std::to_string(index) + (hModule == 0 ? " own" : " other") + (ok ? "" : " failed"));
}

void Doings::OnCreate(const String& progId, bool ok) {
  Add(kCreate, "create " + ToUtf8(progId) + (ok ? "" : " failed"));
}

void Doings::OnPaint(Long hwnd, const Rect& pixels, const char* operation) {
  Add(kPaint, "paint " + Window(hwnd) + " " + strandline::Shown(pixels) + " " + operation);
}

void Doings::OnBox(const String& text, Long style, const String* title, Long answer) {
  Add(kBox, "box " + std::to_string(style) + " [" + (title ? ToUtf8(*title) : "") + "] " + ToUtf8(text) + " = " +
                std::to_string(answer));
}

}  // namespace strandline
