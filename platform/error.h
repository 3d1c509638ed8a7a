#pragma once

// An error as a procedure's tail hears of it: a number, a description and a source. Whatever can fail raises one; the
// step of the procedure in which it arises catches it (foundation/procedure.h). It never leaves a procedure.

#include "platform/text.h"

namespace strandline {

// The name of the program, which is the source of an error that names no other.
const String& ProgramName();

struct Error {
  // No error.
  Error() = default;
  // Marked, because an error that is made and neither thrown nor kept does nothing.
  [[nodiscard]] Error(Long withNumber, String withDescription, String withSource = ProgramName())
      : number(withNumber), description(std::move(withDescription)), source(std::move(withSource)) {}

  Long number = 0;
  String description;
  String source;
};

namespace errors {
inline constexpr Long kInvalidArgument = 5;
inline constexpr Long kOverflow = 6;
inline constexpr Long kOutOfMemory = 7;
inline constexpr Long kSubscriptOutOfRange = 9;
inline constexpr Long kTypeMismatch = 13;
inline constexpr Long kObjectNotSet = 91;
inline constexpr Long kInvalidUseOfNull = 94;
inline constexpr Long kCannotCreateComponent = 429;
inline constexpr Long kNoSuchMember = 438;
inline constexpr Long kNoNamedArguments = 446;
inline constexpr Long kNoSuchNamedArgument = 448;
inline constexpr Long kArgumentNotOptional = 449;
inline constexpr Long kWrongNumberOfArguments = 450;
inline constexpr Long kDuplicateKey = 457;
inline constexpr Long kResourceNotFound = 326;
}  // namespace errors

// The usual words for a number; "Application-defined or object-defined error" for one that has none.
[[nodiscard]] String ErrorDescription(Long number);

[[noreturn]] void Raise(Long number);
[[noreturn]] void Raise(Long number, String description, String source = ProgramName());

}  // namespace strandline
