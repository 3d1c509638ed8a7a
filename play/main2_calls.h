#pragma once

// The public operations of the library's object as a scene's `call` reaches them, by name.

#include <optional>
#include <span>
#include <string>

#include "play/session.h"

namespace strandline::play {

struct Main2Call {
  std::string error;              // what is wrong with name or arguments; empty when nothing is
  std::optional<Variant> result;  // of an operation that has one
};

// Names are taken without case. Documents are given by name, an empty text stands for Nothing.
Main2Call CallMain2(Session& session, const std::string& operation, std::span<const std::string> arguments);

// Initialises the object with the world's Word and product, under that product name.
void InitializeMain2(Session& session, const String& productName);

}  // namespace strandline::play
