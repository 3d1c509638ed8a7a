#include "adtool/key_depth.h"

#include <algorithm>

namespace strandline::adtool {

namespace {

class KeyScanner {
 public:
  explicit KeyScanner(std::string_view toml) : mRest(toml) {}

  std::optional<int> Scan() {
    while (!mRest.empty()) {
      switch (mRest[0]) {
        case '"':
        case '\'':
          SkipText(mRest[0]);
          break;
        case '#':
          Skip(std::min(mRest.find('\n'), mRest.size()));
          break;
        case '.':
          if (++mPoints >= kMostKeyParts) return mLine;
          Skip(1);
          break;
        default:
          if (std::string_view("\n=,[]{}").find(mRest[0]) != std::string_view::npos) mPoints = 0;
          Skip(1);
      }
    }
    return std::nullopt;
  }

 private:
  void Skip(std::size_t count) {
    mLine += static_cast<int>(std::count(mRest.begin(), mRest.begin() + static_cast<std::ptrdiff_t>(count), '\n'));
    mRest.remove_prefix(count);
  }

  void SkipText(char quote) {
    const std::string_view three = quote == '"' ? R"(""")" : "'''";
    const bool isLong = mRest.starts_with(three);
    const std::string_view end = isLong ? three : three.substr(0, 1);
    Skip(end.size());
    while (!mRest.empty() && !mRest.starts_with(end) && (isLong || mRest[0] != '\n')) {
      const bool isEscape = quote == '"' && mRest[0] == '\\' && mRest.size() > 1;
      Skip(isEscape ? 2 : 1);
    }
    if (!mRest.starts_with(end)) return;
    Skip(end.size());
    // A long text may itself end with one or two quotes.
    for (int i = 0; isLong && i < 2 && mRest.starts_with(quote); ++i) Skip(1);
  }

  std::string_view mRest;
  int mLine = 1;
  int mPoints = 0;  // since the last key could have begun
};

}  // namespace

std::optional<int> LineOfTooDeepKey(std::string_view toml) { return KeyScanner(toml).Scan(); }

}  // namespace strandline::adtool
