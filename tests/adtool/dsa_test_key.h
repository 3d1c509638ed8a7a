#pragma once

// Keys for tests, made on the fly: none is kept.

#include <string>

namespace strandline::adtool {

struct KeyPair {
  std::string privatePem;
  std::string publicPem;
};

enum class KeySize { k1024, k2048 };

// A fresh DSA key. Its domain parameters, which are no secret and take long to find, are always the same of a size.
KeyPair MakeDsaKey(KeySize size = KeySize::k1024);

// The parameters alone, in PEM.
std::string DsaParameters(KeySize size);

// A key that isn't DSA's.
KeyPair MakeOtherKey();

// The private key, locked by a password.
std::string LockedPem(const std::string& privatePem);

}  // namespace strandline::adtool
