#include "play/scene_lexer.h"

namespace strandline::play {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

class LineLexer {
 public:
  explicit LineLexer(std::string_view line) : mLine(line) {}

  LexResult Run() {
    LexResult result;
    for (;;) {
      while (mAt < mLine.size() && IsBlank(mLine[mAt])) ++mAt;
      if (mAt == mLine.size() || mLine[mAt] == '#') return result;
      SceneWord word{"", static_cast<int>(mAt) + 1};
      result.error = ReadWord(word.text);
      if (!result.error.empty()) return result;
      result.words.push_back(std::move(word));
    }
  }

 private:
  std::string ReadWord(std::string& text) {
    while (mAt < mLine.size() && !IsBlank(mLine[mAt])) {
      if (mLine[mAt] != '"') {
        text += mLine[mAt++];
        continue;
      }
      const std::string error = ReadQuoted(text);
      if (!error.empty()) return error;
    }
    return "";
  }

  std::string ReadQuoted(std::string& text) {
    const std::size_t opened = mAt++;
    while (mAt < mLine.size()) {
      char c = mLine[mAt++];
      if (c == '"') return "";
      if (c == '\\' && mAt < mLine.size() && (mLine[mAt] == '"' || mLine[mAt] == '\\')) c = mLine[mAt++];
      text += c;
    }
    return "the quote opened at column " + std::to_string(opened + 1) +
           " isn't closed; close it with \" (inside, \\\" stands for a quote)";
  }

  std::string_view mLine;
  std::size_t mAt = 0;
};

}  // namespace

LexResult LexLine(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  if (!IsUtf8(line)) return {{}, "the line isn't UTF-8 text; save the scene as UTF-8"};
  if (line.find('\0') != std::string_view::npos) return {{}, "the line holds a NUL character; a scene is plain text"};
  LexResult result = LineLexer(line).Run();
  if (!result.error.empty()) result.words.clear();
  return result;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) continue;
    const int more = lead >= 0xF0 && lead <= 0xF4  ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    if (more == 0 || text.size() - at < static_cast<std::size_t>(more)) return false;
    unsigned long code = lead & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
      const auto next = static_cast<unsigned char>(text[at++]);
      if ((next & 0xC0) != 0x80) return false;
      code = code << 6 | (next & 0x3F);
    }
    const unsigned long least = more == 3 ? 0x10000 : more == 2 ? 0x800 : 0x80;
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
  }
  return true;
}

}  // namespace strandline::play
