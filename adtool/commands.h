#pragma once

#include <string>

#include "adtool/command_line.h"

namespace strandline::adtool {

// What a command has come to.
struct Outcome {
  int exitCode = 0;    // 0 good, 1 the library isn't good
  std::string report;  // one line, for the author
};

// Runs it. Throws Refusal when what it was given can't be used; nothing is written then.
Outcome RunCommand(const CommandLine& line);

}  // namespace strandline::adtool
