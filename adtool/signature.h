#pragma once

// The signature of an ad library: DSA with SHA-256, kept behind the module in the same file.
//
//   the module        as it was built
//   the signature     DER, both numbers in their shortest form
//   the footer        28 bytes: length of the module (8), version 1 (4), both little-endian; kMagic (16)
//
// Signed are the module and the footer. What is between them has one form alone, and its length follows from those of
// the file and the module; so a byte changed, added or removed anywhere makes the signature fail, and nobody but the
// key's owner can make a second one for the same library.

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace strandline::adtool {

struct Verdict {
  bool isGood = false;
  int highestAdIndex = 0;     // of a good library: the greatest number of a picture, less one; 0 when it has none
  std::string signatureText;  // the signature in upper-case hexadecimal, good or not; empty when there is none
  std::string why;            // what is wrong, when it isn't good
};

// A file can't be signed; the text says why, and what would be right.
class SignatureFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The same, when it is the key that can't be used.
class KeyFailure : public SignatureFailure {
 public:
  using SignatureFailure::SignatureFailure;
};

// Never throws: a key that can't be used verifies nothing.
Verdict VerifyLibrary(std::span<const std::uint8_t> file, const std::string& publicKeyPem);

// What is wrong with the key for verifying; empty when it can be used.
std::string PublicKeyFault(const std::string& publicKeyPem);

// The file with a signature, in place of one that it had. No two are alike. Throws SignatureFailure.
std::vector<std::uint8_t> SignLibrary(std::span<const std::uint8_t> file, const std::string& privateKeyPem);

// The highest ad index of an unsigned or signed file, whatever its signature; 0 when it holds no ad.
int HighestAdIndex(std::span<const std::uint8_t> file);

}  // namespace strandline::adtool
