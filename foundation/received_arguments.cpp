#include "foundation/received_arguments.h"

namespace strandline {

namespace {

// What was given for each parameter; null where nothing was.
using Assignment = std::array<const Variant*, ReceivedArguments::kMost>;

std::size_t PlaceOf(std::span<const Parameter> parameters, Name name) {
  for (std::size_t place = 0; place < parameters.size(); ++place) {
    if (parameters[place].name == name) return place;
  }
  Raise(errors::kNoSuchNamedArgument);
}

// A parameter that is given twice counts as one argument too many.
Assignment Assigned(std::span<const Parameter> parameters, const Arguments& given) {
  Assignment assignment{};
  for (const Named& named : given.named) PlaceOf(parameters, named.name);
  if (given.positional.size() > parameters.size()) Raise(errors::kWrongNumberOfArguments);
  bool isLeftOut = !given.named.empty();
  for (std::size_t place = 0; place < given.positional.size(); ++place) {
    if (given.positional[place].IsMissing()) {
      isLeftOut = true;
    } else {
      assignment[place] = &given.positional[place];
    }
  }
  for (const Named& named : given.named) {
    const Variant*& at = assignment[PlaceOf(parameters, named.name)];
    if (at) Raise(errors::kWrongNumberOfArguments);
    at = &named.value;
  }
  for (std::size_t place = 0; place < parameters.size(); ++place) {
    if (!assignment[place]) Raise(isLeftOut ? errors::kArgumentNotOptional : errors::kWrongNumberOfArguments);
  }
  return assignment;
}

}  // namespace

ReceivedArguments::ReceivedArguments(std::span<const Parameter> parameters, const Arguments& given)
    : mCount(parameters.size()) {
  const Assignment assignment = Assigned(parameters, given);
  for (std::size_t place = 0; place < mCount; ++place) {
    mArguments[place].Take(parameters[place].kind, *assignment[place]);
  }
}

void ReceivedArguments::GiveBack() const {
  for (std::size_t place = 0; place < mCount; ++place) mArguments[place].GiveBack();
}

}  // namespace strandline
