#include "platform/error.h"

namespace strandline {

namespace {

struct Words {
  Long number;
  const char16_t* text;
};

constexpr Words kWords[] = {
    {errors::kInvalidArgument, u"Invalid procedure call or argument"},
    {errors::kOverflow, u"Overflow"},
    {errors::kOutOfMemory, u"Out of memory"},
    {errors::kSubscriptOutOfRange, u"Subscript out of range"},
    {errors::kTypeMismatch, u"Type mismatch"},
    {errors::kObjectNotSet, u"Object variable not set"},
    {errors::kInvalidUseOfNull, u"Invalid use of Null"},
    {errors::kCannotCreateComponent, u"The component can't create the object"},
    {errors::kNoSuchMember, u"The object doesn't support this property or method"},
    {errors::kNoNamedArguments, u"The object doesn't take named arguments"},
    {errors::kNoSuchNamedArgument, u"Named argument not found"},
    {errors::kArgumentNotOptional, u"Argument not optional"},
    {errors::kWrongNumberOfArguments, u"Wrong number of arguments or invalid property assignment"},
    {errors::kDuplicateKey, u"This key is already associated with an element of this collection"},
    {errors::kResourceNotFound, u"Resource with this identifier not found"},
};

}  // namespace

String ErrorDescription(Long number) {
  for (const Words& words : kWords) {
    if (words.number == number) return words.text;
  }
  return u"Application-defined or object-defined error";
}

const String& ProgramName() {
  static const String name = u"Strandline";
  return name;
}

void Raise(Long number) { throw Error(number, ErrorDescription(number)); }
void Raise(Long number, String description, String source) {
  throw Error(number, std::move(description), std::move(source));
}

}  // namespace strandline
