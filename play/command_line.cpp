#include "play/command_line.h"

#include <algorithm>
#include <filesystem>

namespace strandline::play {

namespace {

std::string FolderOf(const std::string& journal) {
  if (journal == "-") return ".";
  const std::string folder = std::filesystem::path(journal).parent_path().string();
  return folder.empty() ? "." : folder;
}

}  // namespace

CommandLine ParseCommandLine(std::span<const char* const> words, const ProgramWords& program) {
  const auto wrong = [&](const std::string& what) {
    CommandLine line;
    line.error = what + "; " + std::string(program.usage);
    return line;
  };
  if (words.empty()) return wrong("no command is given");
  if (words[0] != std::string_view("play")) return wrong("unknown command \"" + std::string(words[0]) + "\"");
  CommandLine line;
  std::string journal;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string word = words[i];
    const bool isFurther = std::find(program.options.begin(), program.options.end(), word) != program.options.end();
    if (isFurther || word == "--journal" || word == "--out") {
      std::string& target = word == "--journal" ? journal : word == "--out" ? line.out : line.further[word];
      if (!target.empty()) return wrong(word + " is given twice");
      if (i + 1 == words.size() || *words[i + 1] == '\0') return wrong(word + " needs a name behind it");
      target = words[++i];
    } else if (word.starts_with("--")) {
      return wrong("unknown option \"" + word + "\"");
    } else if (!line.scene.empty()) {
      return wrong("\"" + word + "\" is too much, one scene is played");
    } else {
      line.scene = word;
    }
  }
  if (line.scene.empty()) return wrong("no scene is given");
  if (!journal.empty()) line.journal = journal;
  if (line.out.empty()) line.out = FolderOf(line.journal);
  return line;
}

}  // namespace strandline::play
