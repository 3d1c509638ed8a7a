#include "tests/foundation/error_component.h"

#include <algorithm>

#include "platform/convert.h"

namespace strandline {

namespace {

std::string Quoted(const String& text) {
  std::string shown = "'";
  for (const char c : ToUtf8(text)) {
    if (c == '\n') {
      shown += '|';
    } else if (c != '\r') {
      shown += c;
    }
  }
  return shown + "'";
}

template <class T>
std::string ShownArray(const Array<T>& values) {
  if (!values.IsSized()) return "[unsized]";
  std::string shown = "[" + std::to_string(values.Lower());
  for (const T& value : values.Elements()) {
    if constexpr (std::is_same_v<T, String>) {
      shown += " " + Quoted(value);
    } else if constexpr (std::is_same_v<T, Variant>) {
      shown += " " + Shown(value);
    } else {
      shown += " " + std::to_string(value);
    }
  }
  return shown + "]";
}

}  // namespace

std::string Shown(const Variant& given) {
  const Variant value = given.Resolved();
  if (value.IsEmpty()) return "Empty";
  if (value.IsMissing()) return "Missing";
  if (value.IsNull()) return "Null";
  if (const String* text = value.If<String>()) return Quoted(*text);
  if (const Object* object = value.If<Object>()) return object->IsNothing() ? "Nothing" : "object";
  if (const Date* date = value.If<Date>()) return "day " + ToUtf8(TextFromNumber(date->days));
  if (const Picture* picture = value.If<Picture>()) return *picture ? "picture" : "no picture";
  if (const auto* bytes = value.If<Variant::Shared<Byte>>()) return ShownArray(**bytes);
  if (const auto* texts = value.If<Variant::Shared<String>>()) return ShownArray(**texts);
  if (const auto* values = value.If<Variant::Shared<Variant>>()) return ShownArray(**values);
  if (const auto* flags = value.If<Variant::Shared<Boolean>>()) return ShownArray(**flags);
  if (const auto* values = value.If<Variant::Shared<Variant>>()) return ShownArray(**values);
  return ToUtf8(value.ToText());
}

LogLines Question::Running() const {
  const auto count = std::min<std::size_t>(static_cast<std::size_t>(depth), stack.size());
  return {stack.begin(), stack.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::string Question::Brief() const { return std::to_string(number) + " " + module + "." + procedure; }

class ErrorScript::Component final : public Dispatch {
 public:
  explicit Component(ErrorScript& script) : mScript(script) { mScript.log.push_back("born"); }

  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    if (use != Use::kCall) Raise(errors::kNoSuchMember);
    if (!arguments.named.empty()) Raise(errors::kNoSuchNamedArgument);
    return mScript.Called(std::string(member.Text()), arguments.positional);
  }
  Long Identity() const override { return 1; }

 private:
  void Terminated() override { mScript.log.push_back("gone"); }

  ErrorScript& mScript;
};

Object ErrorScript::Create() { return New<Component>(*this); }

Variant ErrorScript::Called(const std::string& member, std::span<const Variant> arguments) {
  std::string call = member + "(";
  const bool isQuestion = member == "vbwErrorHandler";
  for (const Variant& argument : arguments.first(isQuestion ? 1 : arguments.size())) {
    call += (call.back() == '(' ? "" : ", ") + Shown(argument);
  }
  log.push_back(call + ")");
  if (isQuestion) {
    if (arguments.size() != 8) Raise(errors::kWrongNumberOfArguments);
    Question question{arguments[0].ToLong(),         ToUtf8(arguments[1].ToText()),
                      ToUtf8(arguments[2].ToText()), ToUtf8(arguments[3].ToText()),
                      ToUtf8(arguments[4].ToText()), arguments[5].ToLong(),
                      arguments[6].ToLong(),         {}};
    const Variant names = arguments[7].Resolved();
    for (const String& name : (**names.If<Variant::Shared<String>>()).Elements())
      question.stack.push_back(ToUtf8(name));
    questions.push_back(std::move(question));
  }
  if (mDuring) mDuring(member);
  if (auto failure = mFailures.find(member); failure != mFailures.end() && failure->second > 0) {
    --failure->second;
    Raise(50, u"The error component fails");
  }
  if (member == "vbwReportParameter") return Concat({arguments[0].ToText(), u"=", FromUtf8(Shown(arguments[1]))});
  if (!isQuestion || mAnswers.empty()) return Long{0};
  const Variant answer = mAnswers.front();
  mAnswers.erase(mAnswers.begin());
  return answer;
}

LogLines ErrorScript::Asked() const {
  LogLines asked;
  for (const Question& question : questions) asked.push_back(question.Brief());
  return asked;
}

LogLines ErrorScript::CallsOf(const std::string& member) const {
  LogLines calls;
  for (const std::string& call : log) {
    if (call.starts_with(member + "(")) calls.push_back(call);
  }
  return calls;
}

}  // namespace strandline
