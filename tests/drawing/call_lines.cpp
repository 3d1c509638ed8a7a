#include "tests/drawing/call_lines.h"

#include <cstdio>

#include "platform/desk/object_table.h"

namespace strandline {

namespace {

constexpr Long kFirstShownAsHex = 0x10000;

std::string Hexadecimal(Long number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%06X", static_cast<unsigned>(number));
  return text;
}

std::string ShownNumber(Long number) {
  return number >= kFirstShownAsHex ? Hexadecimal(number) : std::to_string(number);
}

std::string ShownRasterOperation(Long operation) {
  switch (operation) {
    case rop::kSrcCopy:
      return "SRCCOPY";
    case rop::kNotSrcCopy:
      return "NOTSRCCOPY";
    case rop::kSrcAnd:
      return "SRCAND";
    case rop::kSrcInvert:
      return "SRCINVERT";
    default:
      return ShownNumber(operation);
  }
}

}  // namespace

std::string CallLines::NameOf(Long handle, const char* kind) {
  if (handle == 0) return "0";
  if (handle == desk::ObjectTable::kStockBitmap) return "stock";
  if (const auto named = mNames.find(handle); named != mNames.end()) return named->second;
  auto [numbered, isNew] = mNumbered.try_emplace(handle);
  if (isNew) numbered->second = std::string(kind) + " " + std::to_string(++mCounts[kind]);
  return numbered->second;
}

std::string CallLines::Shown(const CallArgument& argument) {
  using Hint = CallArgument::Hint;
  if (argument.If<CallArgument::Null>()) return "null";
  if (const String* text = argument.If<String>()) return "'" + ToUtf8(*text) + "'";
  if (const Boolean* flag = argument.If<Boolean>()) return *flag ? "True" : "False";
  if (const Rect* r = argument.If<Rect>()) {
    return "[" + std::to_string(r->left) + " " + std::to_string(r->top) + " " + std::to_string(r->right) + " " +
           std::to_string(r->bottom) + "]";
  }
  const Long* number = argument.If<Long>();
  if (!number) return "?";
  switch (argument.hint) {
    case Hint::kWindow:
      return NameOf(*number, "window");
    case Hint::kContext:
      return NameOf(*number, "dc");
    case Hint::kBitmap:
      return NameOf(*number, "bitmap");
    case Hint::kGraphicsObject:
      return NameOf(*number, "object");
    case Hint::kModule:
      return NameOf(*number, "module");
    case Hint::kMemory:
      return NameOf(*number, "memory");
    case Hint::kPlain:
      break;
  }
  // A handle that travels as a mere number, such as the context of a print.
  const bool isHandle = mNames.contains(*number) || mNumbered.contains(*number);
  if (*number >= kFirstShownAsHex && isHandle) return NameOf(*number, "");
  return ShownNumber(*number);
}

void CallLines::Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) {
  if (mLeftOut.contains(std::string(call))) return;
  std::string line = std::string(call) + "(";
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool isOperation = call == "BitBlt" && i + 1 == arguments.size();
    line += i == 0 ? "" : ", ";
    line += isOperation ? ShownRasterOperation(*arguments[i].If<Long>()) : Shown(arguments[i]);
  }
  line += ")";
  if (result.hint != CallArgument::Hint::kPlain) line += " = " + Shown(result);
  mLines.push_back(line);
}

CallLines::Lines CallLines::Take() {
  mNumbered.clear();
  mCounts.clear();
  return std::exchange(mLines, {});
}

CallLines::Lines CallLines::CallsOf(const std::string& call) const {
  Lines found;
  for (const std::string& line : mLines) {
    if (line.starts_with(call + "(")) found.push_back(line);
  }
  return found;
}

std::string Listed(const CallLines::Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace strandline
