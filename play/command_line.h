#pragma once

// The command line of a program that plays scenes.

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace strandline::play {

// What a program takes beyond "play SCENE [--journal FILE] [--out DIR]".
struct ProgramWords {
  std::string_view usage;
  std::vector<std::string_view> options = {};  // further ones that have a value behind them
};

struct CommandLine {
  std::string scene;
  std::string journal = "-";                   // standard output
  std::string out;                             // where pictures go: the journal's folder unless told
  std::map<std::string, std::string> further;  // the program's own options that were given
  std::string error;                           // what is wrong, with the usage; empty when nothing is
};

// Without the program's name.
CommandLine ParseCommandLine(std::span<const char* const> words, const ProgramWords& program);

}  // namespace strandline::play
