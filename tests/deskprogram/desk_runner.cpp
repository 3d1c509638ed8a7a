#include "tests/deskprogram/desk_runner.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace strandline::deskprogram {

DeskRunner::DeskRunner() {
  std::string pattern = (std::filesystem::temp_directory_path() / "strandline_desk_XXXXXX").string();
  mFolder = mkdtemp(pattern.data()) ? pattern : ".";
}

DeskRunner::~DeskRunner() {
  std::error_code ignored;
  if (mFolder != ".") std::filesystem::remove_all(mFolder, ignored);
}

DeskRun DeskRunner::Play(const std::string& scene, const std::string& options) {
  std::ofstream(mFolder + "/a.scene", std::ios::binary) << scene;
  return Run("play a.scene " + options);
}

DeskRun DeskRunner::Run(const std::string& words) {
  const std::string command =
      "cd '" + mFolder + "' && '" STRANDLINE_DESK_PROGRAM "' " + words + " >stdout.txt 2>stderr.txt";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile("stdout.txt"), ReadFile("stderr.txt")};
}

std::string DeskRunner::ReadFile(const std::string& name) const {
  std::ifstream file(mFolder + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool DeskRunner::HasFile(const std::string& name) const { return std::filesystem::exists(mFolder + "/" + name); }

}  // namespace strandline::deskprogram
