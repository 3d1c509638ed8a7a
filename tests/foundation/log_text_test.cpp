// What is composed for the log, or read as the last error, can't be used once what it refers to is gone.

#include <type_traits>

#include "foundation/CommonLogger.h"

namespace strandline {
namespace {

template <class Text>
concept CanBeLogged = requires(Text&& text) {
  Log(std::forward<Text>(text));
};
template <class Text>
concept CanBeRead = requires(Text&& text) {
  std::forward<Text>(text).Text();
};
template <class Text>
concept CanBeTold = std::is_convertible_v<Text, Variant>;

// In the statement that composes it, a message is logged.
static_assert(CanBeLogged<const char16_t*>);
static_assert(CanBeLogged<LogPieces<2>>);
static_assert(CanBeLogged<LogText>);
static_assert(CanBeRead<LogText>);

// Kept in a variable, it isn't.
static_assert(!CanBeLogged<LogPieces<2>&> && !CanBeLogged<const LogPieces<2>&>);
static_assert(!CanBeLogged<LogText&> && !CanBeLogged<const LogText&>);
static_assert(!CanBeRead<LogText&> && !CanBeRead<const LogText&>);
static_assert(!CanBeTold<LogText&> && !CanBeTold<LogText>);
static_assert(!std::is_constructible_v<LogPiece, LogPiece&> && !std::is_constructible_v<LogPiece, LogPiece>);
static_assert(!std::is_constructible_v<LogText, LogPieces<2>&>);
// Nor can it be carried on.
static_assert(!std::is_copy_constructible_v<LogText> && !std::is_move_constructible_v<LogText>);
static_assert(!std::is_copy_constructible_v<LogPieces<2>> && !std::is_move_constructible_v<LogPieces<2>>);

// The next error would change it under whoever keeps it.
static_assert(std::is_same_v<decltype(Frame::LastError()), Error>);

}  // namespace
}  // namespace strandline
