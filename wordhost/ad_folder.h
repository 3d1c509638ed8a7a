#pragma once

// The product's folder for what all users share, as a real one in the system's folder for temporary files. It holds the
// ad library, for as long as this lives.

#include <string>

#include "platform/text.h"
#include "play/ad_library_file.h"

namespace strandline::wordhost {

class AdFolder {
 public:
  // One at a time on a machine. What an earlier one left behind goes.
  AdFolder();
  ~AdFolder();
  AdFolder(const AdFolder&) = delete;
  AdFolder& operator=(const AdFolder&) = delete;

  // With its last "\".
  const String& Path() const { return mPath; }
  // The library from now on; null: none. What is wrong; empty when nothing is.
  std::string Serve(const play::AdLibraryFile* file);

 private:
  String mPath;
};

}  // namespace strandline::wordhost
