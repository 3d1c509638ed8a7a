#pragma once

// The desk's own check of ad libraries: the signature of the file that is served, by the public key that lies beside
// it, under the file's name and ".pub.pem".

#include <cstdint>
#include <string>
#include <vector>

#include "play/ad_library_file.h"
#include "wordsim/library_check.h"

namespace strandline::deskprogram {

class LibraryVerifier final : public wordsim::LibraryCheck {
 public:
  // From now on this file lies at that path, where it is looked for without case; null: none does.
  void Serve(const String& path, const play::AdLibraryFile* file);

  // A file without a key, like one that isn't there, is none that anybody signed.
  Long Verify(const String& path, String& signature) override;

 private:
  String mPath;
  std::vector<std::uint8_t> mFile;
  std::string mPublicKey;
  bool mIsThere = false;
};

}  // namespace strandline::deskprogram
