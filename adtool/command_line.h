#pragma once

#include <span>
#include <string>
#include <string_view>

namespace strandline::adtool {

enum class Command { kHelp, kBuild, kSign, kVerify };

struct CommandLine {
  Command command = Command::kHelp;
  std::string input;   // the list, or the library
  std::string output;  // empty: not told
  std::string key;     // the file of the key
  std::string error;   // what is wrong, with the usage; empty when nothing is
};

// Without the program's name.
CommandLine ParseCommandLine(std::span<const char* const> words);

// What --help shows.
std::string_view HelpText();

}  // namespace strandline::adtool
