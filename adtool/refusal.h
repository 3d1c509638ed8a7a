#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace strandline::adtool {

// What the author gave can't be used. The text is the whole line that the program shows, beginning with the file.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(const std::string& line) : std::runtime_error(line) {}
};

// The text as a message shows it: in quotes, and not longer than a line bears.
std::string Quoted(std::string_view text);

// Without what could steer the terminal.
std::string Printable(std::string_view text);

}  // namespace strandline::adtool
