#pragma once

// Runs the program strandline-desk on a scene's text, in a folder of its own.

#include <string>
#include <vector>

namespace strandline::deskprogram {

struct DeskRun {
  int exitCode = -1;
  std::string journal;  // what it wrote to standard output
  std::string errors;   // what it wrote to standard error
};

class DeskRunner {
 public:
  DeskRunner();
  ~DeskRunner();
  DeskRunner(const DeskRunner&) = delete;
  DeskRunner& operator=(const DeskRunner&) = delete;

  // The scene is the file "a.scene" of the folder, which is the current one of the run.
  DeskRun Play(const std::string& scene, const std::string& options = "");
  // With these words, as a shell takes them.
  DeskRun Run(const std::string& words);

  const std::string& Folder() const { return mFolder; }
  std::string ReadFile(const std::string& name) const;  // of the folder; empty when it isn't there
  bool HasFile(const std::string& name) const;

 private:
  std::string mFolder;
};

}  // namespace strandline::deskprogram
