#include "desk/library_verifier.h"

#include "adtool/files.h"
#include "adtool/signature.h"

namespace strandline::deskprogram {

namespace {

constexpr std::size_t kLongestKey = 64 * 1024;  // bytes

std::string KeyBeside(const std::string& path) {
  try {
    const std::vector<std::uint8_t> key = adtool::ReadWholeFile(path + ".pub.pem", kLongestKey);
    return std::string(key.begin(), key.end());
  } catch (const adtool::FileFailure&) {
    return "";
  }
}

}  // namespace

void LibraryVerifier::Serve(const String& path, const play::AdLibraryFile* file) {
  mPath = path;
  mIsThere = file != nullptr;
  mFile = file ? file->bytes : std::vector<std::uint8_t>();
  mPublicKey = file ? KeyBeside(file->path) : "";
}

Long LibraryVerifier::Verify(const String& path, String& signature) {
  if (!mIsThere || !SameText(path, mPath)) {
    signature = {};
    return 0;
  }
  const adtool::Verdict verdict = adtool::VerifyLibrary(mFile, mPublicKey);
  signature = FromUtf8(verdict.signatureText);
  return verdict.isGood ? verdict.highestAdIndex : 0;
}

}  // namespace strandline::deskprogram
