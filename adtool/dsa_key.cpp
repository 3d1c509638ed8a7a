#include "adtool/dsa_key.h"

#include <openssl/err.h>
#include <openssl/pem.h>

#include <algorithm>
#include <limits>

#include "adtool/signature.h"

namespace strandline::adtool {

namespace {

using Context = std::unique_ptr<EVP_MD_CTX, FreedBy<EVP_MD_CTX_free>>;
using Reader = std::unique_ptr<BIO, FreedBy<BIO_free>>;

constexpr char kDigest[] = "SHA2-256";

// What fails in OpenSSL is left in a queue of the thread's, which isn't ours to fill.
struct QuietErrors {
  QuietErrors() { ERR_set_mark(); }
  ~QuietErrors() { ERR_pop_to_mark(); }
};

Reader OpenText(const std::string& pem) {
  const std::size_t length = std::min<std::size_t>(pem.size(), std::numeric_limits<int>::max());
  return Reader(BIO_new_mem_buf(pem.data(), static_cast<int>(length)));
}

// In place of OpenSSL's own question on the terminal, where nobody may sit.
int NoPassword(char*, int, int, void*) { return -1; }

bool Has(const std::string& pem, const char* text) { return pem.find(text) != std::string::npos; }

std::string PublicFault(const std::string& pem) {
  if (Has(pem, "PRIVATE KEY-----"))
    return "it is a private key; give the public one, which \"openssl pkey -pubout\" writes";
  return "it is no public key in PEM; right is a file that begins with -----BEGIN PUBLIC KEY-----";
}

std::string PrivateFault(const std::string& pem) {
  if (Has(pem, "ENCRYPTED")) return "the key is locked by a password; write it without one by \"openssl pkey\" first";
  if (Has(pem, "-----BEGIN PUBLIC KEY-----")) return "it is a public key; signing takes the private one";
  if (Has(pem, "-----BEGIN DSA PARAMETERS-----") && !Has(pem, "PRIVATE KEY-----")) {
    return "it holds parameters, but no key; \"openssl dsaparam -genkey\" makes both";
  }
  return "it is no private key in PEM; right is what \"openssl dsaparam -genkey 2048\" writes";
}

}  // namespace

DsaKey::DsaKey(EVP_PKEY* key) : mKey(key) {
  if (!EVP_PKEY_is_a(key, "DSA")) {
    const char* kind = EVP_PKEY_get0_type_name(key);
    throw KeyFailure(std::string("it is a key of the kind ") + (kind ? kind : "unknown") +
                     "; right is a DSA key, as \"openssl dsaparam -genkey 2048\" makes it");
  }
  if (EVP_PKEY_missing_parameters(key)) {
    throw KeyFailure("the DSA key lacks its parameters; make a key by \"openssl dsaparam -genkey 2048\"");
  }
}

DsaKey DsaKey::Public(const std::string& pem) {
  const QuietErrors quiet;
  const Reader reader = OpenText(pem);
  EVP_PKEY* key = reader ? PEM_read_bio_PUBKEY(reader.get(), nullptr, NoPassword, nullptr) : nullptr;
  if (!key) throw KeyFailure(PublicFault(pem));
  return DsaKey(key);
}

DsaKey DsaKey::Private(const std::string& pem) {
  const QuietErrors quiet;
  const Reader reader = OpenText(pem);
  EVP_PKEY* key = reader ? PEM_read_bio_PrivateKey(reader.get(), nullptr, NoPassword, nullptr) : nullptr;
  if (!key) throw KeyFailure(PrivateFault(pem));
  return DsaKey(key);
}

std::vector<std::uint8_t> DsaKey::Sign(std::initializer_list<Bytes> message) const {
  const QuietErrors quiet;
  const Context context(EVP_MD_CTX_new());
  bool isDone =
      context && EVP_DigestSignInit_ex(context.get(), nullptr, kDigest, nullptr, nullptr, mKey.get(), nullptr);
  for (const Bytes each : message) isDone = isDone && EVP_DigestSignUpdate(context.get(), each.data(), each.size());
  std::size_t length = 0;
  isDone = isDone && EVP_DigestSignFinal(context.get(), nullptr, &length);
  std::vector<std::uint8_t> der(length);
  isDone = isDone && EVP_DigestSignFinal(context.get(), der.data(), &length);
  der.resize(isDone ? length : 0);
  if (!IsCanonicalSignature(der)) throw KeyFailure("OpenSSL can't sign with this key; make another one");
  return der;
}

bool DsaKey::Verify(std::initializer_list<Bytes> message, Bytes signature) const {
  const QuietErrors quiet;
  if (!IsCanonicalSignature(signature)) return false;
  const Context context(EVP_MD_CTX_new());
  bool isGood =
      context && EVP_DigestVerifyInit_ex(context.get(), nullptr, kDigest, nullptr, nullptr, mKey.get(), nullptr) == 1;
  for (const Bytes each : message) {
    isGood = isGood && EVP_DigestVerifyUpdate(context.get(), each.data(), each.size()) == 1;
  }
  return isGood && EVP_DigestVerifyFinal(context.get(), signature.data(), signature.size()) == 1;
}

}  // namespace strandline::adtool
