#pragma once

// The public operations of Main2 as a scene's `call` reaches them, by name.

#include <optional>
#include <span>
#include <string>

#include "desk/desk_session.h"

namespace strandline::deskprogram {

struct Main2Call {
  std::string error;              // what is wrong with name or arguments; empty when nothing is
  std::optional<Variant> result;  // of an operation that has one
};

// Names are taken without case. Documents are given by name, an empty text stands for Nothing.
Main2Call CallMain2(DeskSession& session, const std::string& operation, std::span<const std::string> arguments);

}  // namespace strandline::deskprogram
