#include "tests/adtool/ads_runner.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>

namespace strandline::adtool {

namespace fs = std::filesystem;

AdsRunner::AdsRunner() {
  std::string pattern = (fs::temp_directory_path() / "strandline_ads_XXXXXX").string();
  mFolder = mkdtemp(pattern.data()) ? pattern : ".";
  const std::string source = STRANDLINE_SOURCE_DIR;
  fs::copy_file(source + "/resources/images/116.gif", Path("a.gif"));
  fs::copy_file(source + "/tests/data/pictures/ramp_16x16.jpg", Path("b.jpg"));
  fs::copy_file(source + "/resources/images/101.bmp", Path("c.bmp"));
}

AdsRunner::~AdsRunner() {
  std::error_code ignored;
  if (mFolder != ".") fs::remove_all(mFolder, ignored);
}

AdsRun AdsRunner::Run(const std::string& words) {
  const std::string command =
      "cd '" + mFolder + "' && '" STRANDLINE_ADS_PROGRAM "' " + words + " >stdout.txt 2>stderr.txt";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read("stdout.txt"), Read("stderr.txt")};
}

void AdsRunner::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
}

std::string AdsRunner::Read(const std::string& name) const {
  std::ifstream file(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string AdsRunner::Names() const {
  std::set<std::string> names;
  for (const auto& each : fs::directory_iterator(mFolder)) names.insert(each.path().filename().string());
  std::string text;
  for (const std::string& name : names) {
    if (name != "stdout.txt" && name != "stderr.txt") text += name + " ";
  }
  return text;
}

}  // namespace strandline::adtool
