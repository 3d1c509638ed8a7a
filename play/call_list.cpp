#include "play/call_list.h"

#include "platform/text.h"

namespace strandline::play {

namespace {

constexpr Long kPaint = 15;
constexpr Long kEraseBackground = 20;
constexpr Long kNonClientPaint = 133;
constexpr Long kTimer = 275;

// Each world has handles of its own; what they are called by differs too.
void ForgetContexts(Json& line) {
  if (line.value("object", "") != "AlphaBlender.Main2" || line.value("member", "") != "alphablend") return;
  Json& arguments = line["args"];
  for (const std::size_t place : {0, 3, 4}) {
    if (place < arguments.size()) arguments[place] = "dc";
  }
}

bool IsCompared(std::string_view kind) {
  return kind == "object" || kind == "create" || kind == "box" || kind == "result";
}

}  // namespace

void CallList::Add(std::string_view kind, const Json& fields) {
  if (mSystemsTurns > 0 || !IsCompared(kind)) return;
  Json line = Json::object();
  line["kind"] = std::string(kind);
  for (const auto& [name, value] : fields.items()) line[name] = value;
  if (line.contains("member")) {
    const std::string member = line["member"].get<std::string>();
    line["member"] = ToUtf8(LowerCase(FromUtf8(member).View()));
  }
  ForgetContexts(line);
  if (mNormaliser) mNormaliser(line);
  mFile.WriteLine(CompactJson(line));
}

bool CallList::IsSystems(Long message) {
  return message == kPaint || message == kEraseBackground || message == kNonClientPaint || message == kTimer;
}

}  // namespace strandline::play
