// strandline-ads: makes, signs and verifies libraries of ads.

#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "adtool/command_line.h"
#include "adtool/commands.h"
#include "adtool/refusal.h"

namespace {

using namespace strandline::adtool;

constexpr int kWrong = 2;

int SayWrong(const std::string& line) {
  std::fprintf(stderr, "%s\n", Printable(line).c_str());
  return kWrong;
}

}  // namespace

int main(int count, char** words) {
  try {
    const CommandLine line = ParseCommandLine({words + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)});
    if (!line.error.empty()) return SayWrong("strandline-ads: " + line.error);
    if (line.command == Command::kHelp) return std::fputs(HelpText().data(), stdout) < 0 ? kWrong : 0;
    const Outcome outcome = RunCommand(line);
    std::fprintf(outcome.exitCode == 0 ? stdout : stderr, "%s\n", Printable(outcome.report).c_str());
    return outcome.exitCode;
  } catch (const Refusal& refusal) {
    return SayWrong(refusal.what());
  } catch (const std::bad_alloc&) {
    return SayWrong("strandline-ads: there isn't enough memory for it");
  } catch (const std::exception& error) {
    return SayWrong(std::string("strandline-ads: ") + error.what());
  }
}
