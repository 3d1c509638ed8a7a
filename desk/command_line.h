#pragma once

// The program's own command line.

#include <span>
#include <string>
#include <string_view>

namespace strandline::deskprogram {

inline constexpr std::string_view kProgramUsage = "usage: strandline-desk play SCENE [--journal FILE] [--out DIR]";

struct CommandLine {
  std::string scene;
  std::string journal = "-";  // standard output
  std::string out;            // where pictures go: the journal's folder unless told
  std::string error;          // what is wrong, with the usage; empty when nothing is
};

// Without the program's name.
CommandLine ParseCommandLine(std::span<const char* const> words);

}  // namespace strandline::deskprogram
