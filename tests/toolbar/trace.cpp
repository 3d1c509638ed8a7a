#include "tests/toolbar/trace.h"

#include "platform/desk/object_table.h"
#include "platform/wrappers/operations.h"

namespace strandline {

namespace {

constexpr Long kFirstHandle = 0x20100;

unsigned KindOf(const Operation& operation) {
  switch (operation.kind) {
    case CallKind::kWindow:
    case CallKind::kPointer:
    case CallKind::kMessage:
      return Trace::kWindows;
    case CallKind::kTimer:
      return Trace::kTimers;
    case CallKind::kContext:
      return Trace::kContexts;
    case CallKind::kGraphicsObject:
      return Trace::kObjects;
    case CallKind::kDrawing:
      return Trace::kDrawing;
    case CallKind::kHook:
      return Trace::kHooks;
    default:
      return 0;
  }
}

std::string RectText(const Rect& r) {
  return "[" + std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) + " " +
         std::to_string(r.bottom) + "]";
}

std::string RasterText(Long operation) {
  return operation == rop::kSrcCopy ? "SRCCOPY" : "operation " + std::to_string(operation);
}

// The parameters of a procedure, without their names.
class ValueList final : public Reporter {
 public:
  explicit ValueList(std::function<std::string(const Variant&)> text) : mText(std::move(text)) {}
  void Variable(TextView, const Variant& value) override {
    if (!list.empty()) list += ", ";
    list += mText(value);
  }
  std::string list;

 private:
  std::function<std::string(const Variant&)> mText;
};

}  // namespace

void Trace::Listen(unsigned kinds) {
  mKinds = kinds;
  mBeginnings.clear();
  const bool procedures = (kinds & kProcedures) != 0;
  vbwProtector::variables.vbwTraceParameters = procedures;
  if (procedures) vbwProtector::variables.vbwTraceProc = true;
  vbwProtector::procedureObserver = procedures ? this : nullptr;
  Take();
}

Trace::Lines Trace::Take() {
  mNumbered.clear();
  mCounts.clear();
  return std::exchange(mLines, {});
}

std::string Trace::TakeText() { return AsText(Take()); }

void Trace::Add(const std::string& line) {
  bool isKept = mBeginnings.empty();
  for (const std::string& beginning : mBeginnings) isKept = isKept || line.starts_with(beginning);
  if (isKept) mLines.push_back(line);
  if (during) during(line);
}

std::string Trace::HandleName(Long handle, const char* kind) {
  if (handle == 0) return "0";
  if (handle == desk::ObjectTable::kStockBitmap) return "stock";
  if (const auto named = mNames.find(handle); named != mNames.end()) return named->second;
  auto [numbered, isNew] = mNumbered.try_emplace(handle);
  if (isNew) numbered->second = std::string(kind) + " " + std::to_string(++mCounts[kind]);
  return numbered->second;
}

std::string Trace::Text(const Variant& given) const {
  const Variant value = given.Resolved();
  if (const Object* object = value.If<Object>()) {
    if (object->IsNothing()) return "Nothing";
    const std::string name = mObjectNames ? mObjectNames(*object) : std::string();
    return name.empty() ? "object" : name;
  }
  if (value.If<Picture>()) return "picture";
  if (value.IsEmpty()) return "Empty";
  if (const Boolean* flag = value.If<Boolean>()) return *flag ? "True" : "False";
  if (const Long* number = value.If<Long>(); number && *number >= kFirstHandle) {
    if (const auto named = mNames.find(*number); named != mNames.end()) return named->second;
    if (const std::string window = mWindowNames ? mWindowNames(*number) : ""; !window.empty()) return window;
    if (const auto numbered = mNumbered.find(*number); numbered != mNumbered.end()) return numbered->second;
  }
  try {
    return ToUtf8(value.ToText());
  } catch (const Error&) {
    return "array";
  }
}

std::string Trace::Text(const CallArgument& argument) {
  using Hint = CallArgument::Hint;
  if (argument.If<CallArgument::Null>()) return "null";
  if (const String* text = argument.If<String>()) return "'" + ToUtf8(*text) + "'";
  if (const Boolean* flag = argument.If<Boolean>()) return *flag ? "True" : "False";
  if (const Rect* rectangle = argument.If<Rect>()) return RectText(*rectangle);
  const Long* number = argument.If<Long>();
  if (!number) return "?";
  switch (argument.hint) {
    case Hint::kWindow: {
      const std::string name = mWindowNames ? mWindowNames(*number) : "";
      return name.empty() ? HandleName(*number, "window") : name;
    }
    case Hint::kContext:
      return HandleName(*number, "dc");
    case Hint::kBitmap:
    case Hint::kGraphicsObject:
      return HandleName(*number, "bitmap");
    default:
      return mNames.contains(*number) ? mNames[*number] : std::to_string(*number);
  }
}

void Trace::OnUse(const wordsim::ObjectUse& use) {
  if (!(mKinds & kUses)) return;
  static constexpr const char* kOps[] = {"get", "let", "call", "each"};
  std::string line = std::string(kOps[static_cast<int>(use.op)]) + " " + use.object;
  if (!use.member.empty()) line += " " + std::string(use.member);
  const bool isLet = use.op == wordsim::UseOp::kLet;
  std::string list;
  const std::size_t count = use.arguments.size() - (isLet && !use.arguments.empty() ? 1 : 0);
  for (std::size_t i = 0; i < count; ++i) list += (list.empty() ? "" : ", ") + Text(use.arguments[i]);
  for (const Named& named : use.named) {
    list += (list.empty() ? "" : ", ") + std::string(named.name.Text()) + ":=" + Text(named.value);
  }
  if (!list.empty()) line += "(" + list + ")";
  if (use.error) {
    line += " ! " + std::to_string(use.error->number);
  } else if (use.value && (use.op != wordsim::UseOp::kCall || !use.value->IsEmpty())) {
    line += " = " + Text(*use.value);
  }
  Add(line);
}

void Trace::Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) {
  const Operation* operation = FindOperation(call);
  if (!operation || !(KindOf(*operation) & mKinds) || call.starts_with("DoEvents")) return;
  const bool isMessage = call == "message";
  const std::size_t count = arguments.size() - (isMessage ? 1 : 0);
  std::string line = (operation->kind == CallKind::kHook ? "hook " : "") + std::string(call) + "(";
  for (std::size_t i = 0; i < count; ++i) {
    const bool isRaster = call == "BitBlt" && i + 1 == count;
    line += i == 0 ? "" : ", ";
    line += isRaster ? RasterText(*arguments[i].If<Long>()) : Text(arguments[i]);
  }
  line += ")";
  if (isMessage && *arguments[count].If<Boolean>()) line += " cancelled";
  if (result.hint != CallArgument::Hint::kPlain) line += " = " + Text(result);
  Add(line);
}

void Trace::OnLog(TextView message, Long level) {
  if (!(mKinds & kLogs)) return;
  Add((level == 0 ? "log " : "log(" + std::to_string(level) + ") ") + ToUtf8(message));
}

void Trace::OnPicture(Integer index, Long hModule, Boolean ok) {
  if (!(mKinds & kPictures)) return;
  Add("picture " + std::to_string(index) + (hModule == 0 ? "" : " of a module") + (ok ? "" : " failed"));
}

void Trace::OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                        const void* parameters) {
  if (!(mKinds & kProcedures)) return;
  ValueList values([this](const Variant& value) { return Text(value); });
  report(parameters, values);
  Add(ToUtf8(name.TraceName()) + "(" + values.list + ")");
}

std::string AsText(const Trace::Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

Trace::Lines Beginning(const Trace::Lines& lines, const std::string& beginning) {
  Trace::Lines found;
  for (const std::string& line : lines) {
    if (line.starts_with(beginning)) found.push_back(line);
  }
  return found;
}

}  // namespace strandline
