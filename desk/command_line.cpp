#include "desk/command_line.h"

#include <filesystem>

namespace strandline::deskprogram {

namespace {

CommandLine Wrong(const std::string& what) {
  CommandLine line;
  line.error = what + "; " + std::string(kProgramUsage);
  return line;
}

std::string FolderOf(const std::string& journal) {
  if (journal == "-") return ".";
  const std::string folder = std::filesystem::path(journal).parent_path().string();
  return folder.empty() ? "." : folder;
}

}  // namespace

CommandLine ParseCommandLine(std::span<const char* const> words) {
  if (words.empty()) return Wrong("no command is given");
  if (words[0] != std::string_view("play")) return Wrong("unknown command \"" + std::string(words[0]) + "\"");
  CommandLine line;
  std::string journal;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string word = words[i];
    std::string* target = word == "--journal" ? &journal : word == "--out" ? &line.out : nullptr;
    if (target) {
      if (!target->empty()) return Wrong(word + " is given twice");
      if (i + 1 == words.size() || *words[i + 1] == '\0') return Wrong(word + " needs a name behind it");
      *target = words[++i];
    } else if (word.starts_with("--")) {
      return Wrong("unknown option \"" + word + "\"");
    } else if (!line.scene.empty()) {
      return Wrong("\"" + word + "\" is too much, one scene is played");
    } else {
      line.scene = word;
    }
  }
  if (line.scene.empty()) return Wrong("no scene is given");
  if (!journal.empty()) line.journal = journal;
  if (line.out.empty()) line.out = FolderOf(line.journal);
  return line;
}

}  // namespace strandline::deskprogram
