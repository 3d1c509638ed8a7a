#pragma once

// A folder for a list with its pictures, keys and libraries, in which the program strandline-ads is run.

#include <filesystem>
#include <string>

namespace strandline::adtool {

struct AdsRun {
  int exitCode = -1;
  std::string output;
  std::string errors;
};

class AdsRunner {
 public:
  // With sound pictures in it: "a.gif", "b.jpg" and "c.bmp".
  AdsRunner();
  ~AdsRunner();
  AdsRunner(const AdsRunner&) = delete;
  AdsRunner& operator=(const AdsRunner&) = delete;

  // With these words, as a shell takes them, in the folder.
  AdsRun Run(const std::string& words);

  void Write(const std::string& name, const std::string& bytes) const;
  std::string Read(const std::string& name) const;  // empty when it isn't there
  bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }
  std::string Path(const std::string& name) const { return mFolder + "/" + name; }
  // The names in the folder, in order, but for what Run leaves there.
  std::string Names() const;

 private:
  std::string mFolder;
};

}  // namespace strandline::adtool
