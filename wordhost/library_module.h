#pragma once

// The library as a DLL, registered for the time of a run and created by its name as the product does it.

#include <string>

#include "platform/variant.h"

namespace strandline::wordhost {

class LibraryModule {
 public:
  explicit LibraryModule(std::string path) : mPath(std::move(path)) {}
  ~LibraryModule() { Unload(); }
  LibraryModule(const LibraryModule&) = delete;
  LibraryModule& operator=(const LibraryModule&) = delete;

  // Registers the DLL and creates its Main2. What is wrong; empty when nothing is.
  std::string Create(Object& main2);
  // Once nothing of it is held: the DLL is unregistered, and goes where it agrees.
  void Unload();
  // From any thread, when nothing else can be done any more.
  void Unregister();

 private:
  long CallExport(const char* name) const;

  std::string mPath;
  void* mModule = nullptr;
  bool mIsRegistered = false;
};

}  // namespace strandline::wordhost
