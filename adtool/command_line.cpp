#include "adtool/command_line.h"

#include <algorithm>
#include <iterator>

#include "adtool/refusal.h"

namespace strandline::adtool {

namespace {

constexpr std::string_view kHelp =
    R"(strandline-ads makes the library of ads that the toolbar shows.

usage: strandline-ads build LIST -o FILE
       strandline-ads sign FILE --key PRIVATE.pem [-o FILE]
       strandline-ads verify FILE --key PUBLIC.pem

build   makes a library from a list in TOML and the pictures that it names, taken from the list's folder
sign    signs a library, in its place unless -o names another; a signature that it has is replaced
verify  says whether the toolbar would use the library

A pair of keys is made once; the private one stays with its owner, and nobody asks for it by mail:
    openssl dsaparam -genkey -noout -out private.pem 2048
    openssl pkey -in private.pem -pubout -out public.pem

The exit code is 0 when all is well, 1 when verify finds that the library isn't good, and 2 when the command, the list,
a picture, a key or a file can't be used; then nothing is written.
)";

struct Form {
  std::string_view word;
  Command command;
  std::string_view usage;
  std::string_view input;
  bool takesKey;
  bool takesOutput;
  bool needsOutput;
};

constexpr Form kForms[] = {
    {"build", Command::kBuild, "usage: strandline-ads build LIST -o FILE", "list", false, true, true},
    {"sign", Command::kSign, "usage: strandline-ads sign FILE --key PRIVATE.pem [-o FILE]", "library", true, true,
     false},
    {"verify", Command::kVerify, "usage: strandline-ads verify FILE --key PUBLIC.pem", "library", true, false, false},
};

CommandLine Wrong(const std::string& what, std::string_view usage) {
  CommandLine line;
  line.error = what + "; " + std::string(usage);
  return line;
}

bool AsksForHelp(std::string_view word) { return word == "--help" || word == "-h"; }

CommandLine ParseForm(const Form& form, std::span<const char* const> words) {
  CommandLine line;
  line.command = form.command;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view word = words[i];
    if (AsksForHelp(word)) return {};
    std::string* target = form.takesKey && word == "--key"   ? &line.key
                          : form.takesOutput && word == "-o" ? &line.output
                                                             : nullptr;
    if (target) {
      if (!target->empty()) return Wrong(std::string(word) + " is given twice", form.usage);
      if (i + 1 == words.size() || *words[i + 1] == '\0') {
        return Wrong(std::string(word) + " needs a name behind it", form.usage);
      }
      *target = words[++i];
    } else if (word.starts_with("-")) {
      return Wrong("unknown option " + Quoted(word), form.usage);
    } else if (word.empty() || !line.input.empty()) {
      return Wrong(Quoted(word) + " is too much, one " + std::string(form.input) + " is taken", form.usage);
    } else {
      line.input = word;
    }
  }
  if (line.input.empty()) return Wrong("no " + std::string(form.input) + " is named", form.usage);
  if (form.takesKey && line.key.empty()) return Wrong("no key is named", form.usage);
  if (form.needsOutput && line.output.empty()) return Wrong("no file is named to write", form.usage);
  return line;
}

}  // namespace

CommandLine ParseCommandLine(std::span<const char* const> words) {
  constexpr std::string_view kUsage = "usage: strandline-ads build|sign|verify|--help";
  if (words.empty()) return Wrong("no command is given", kUsage);
  if (AsksForHelp(words[0])) return {};
  const auto form =
      std::find_if(std::begin(kForms), std::end(kForms), [&](const Form& each) { return each.word == words[0]; });
  if (form == std::end(kForms)) return Wrong("unknown command " + Quoted(words[0]), kUsage);
  return ParseForm(*form, words.subspan(1));
}

std::string_view HelpText() { return kHelp; }

}  // namespace strandline::adtool
