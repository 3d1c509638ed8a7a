#pragma once

// A DSA key of OpenSSL's, and what is done with it.

#include <openssl/evp.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "adtool/signature_parts.h"

namespace strandline::adtool {

template <auto Free>
struct FreedBy {
  template <class T>
  void operator()(T* each) const {
    Free(each);
  }
};

class DsaKey {
 public:
  // A text in PEM. Throw KeyFailure, which says what the text holds instead.
  static DsaKey Public(const std::string& pem);
  static DsaKey Private(const std::string& pem);

  // The signature, in DER, of these bytes one behind the other.
  std::vector<std::uint8_t> Sign(std::initializer_list<Bytes> message) const;
  // Whether this is a signature of them, in the one encoding that its numbers have.
  bool Verify(std::initializer_list<Bytes> message, Bytes signature) const;

 private:
  explicit DsaKey(EVP_PKEY* key);

  std::unique_ptr<EVP_PKEY, FreedBy<EVP_PKEY_free>> mKey;
};

}  // namespace strandline::adtool
