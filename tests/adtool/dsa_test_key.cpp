#include "tests/adtool/dsa_test_key.h"

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>

#include <memory>
#include <stdexcept>

namespace strandline::adtool {

namespace {

constexpr char kParameters1024[] =
    "-----BEGIN DSA PARAMETERS-----\n"
    "MIIBHwKBgQDayQBM/Q98THLGK52Gx7ZMbNwSvBxLMTBacv45ZZdYYeFhQnhnyYq7\n"
    "zBnoJz1jZHrsXL8DTs4hXSNsL5dQurT34V6TRfUz0uN2JY3tRnlGTnNl9fiBX93c\n"
    "O83A2iWRQ0RksvWGf0frPLnFxZ+Ze2orcogPeY0VKD0o3p14b5dwrwIVAKTQs7xH\n"
    "upb9eGEGGf0l7yFqgFB5AoGBALTE+ooqnU7N1dNShU+mmsb8lMWfvWY78VybFFpr\n"
    "DCxE7LRmWSecFt2tImXOBmgpOvMNXwlM4Ub4M9AgygnfuEx/CRPAwgpEc3OuBo3L\n"
    "gxilLBjcKuPdS2JhvMx30IM7MneWIeo9puXkynQSeUUxmFW3GF8Sn6IQYf+CE1El\n"
    "87S3\n"
    "-----END DSA PARAMETERS-----\n";

constexpr char kParameters2048[] =
    "-----BEGIN DSA PARAMETERS-----\n"
    "MIICLAKCAQEAzW8cZWIGL7dFydJubriyzCeiWtFG2TqxyzAEqXZ0HJxLRej+HWti\n"
    "VmKTJTVeO4Vf2tEVRpimFgvprHYfWVMfZ4qDzGDEFLnCRa8YFHn14957OCXMzWaF\n"
    "fZP8iBGI5pRNjtdwbxiVfJ+32cTuhvvzSVKgqW9zRT8N9p8VqdUoOJzmBIKn8GXe\n"
    "MNeF3bJju4qXIKdAzLLZ2Pal9p5Q5cE6xfsbllQorBicw8hUTYiu296bm+JxfTaX\n"
    "YMh/PDeXNI2JBpOKvImkHShLLsbvSxbtOnUf9wxxCtkg/TronEjcNeMW+CDo+ZLe\n"
    "GX53rp1jHT4iQXBx9HnSrvNhPboTdft0OwIhAOrEeHWQm/GLnU/u0VsNDG0+v33e\n"
    "pejEPEMZZUy8avxpAoIBACTXfqIx/SRLLFYO4b1nTW+z4MuUo4s4/B735pLxMhPH\n"
    "ANxz/tDLCmd9Z11GHaR+WceKGjTBiyMZsqewt26R8InBUu7oyzq6wYtdoJ6+Wx2r\n"
    "Unsi7O6Th6c34xkk30D3UJj3TTa9r99IsiX9J2qT1+oKc4RmdgrqhzW7dWgzVxP1\n"
    "S/BvECcZxVqclkYGGnsr8FfUzpnUpMNw9+XDujS5MJ0QmlWcYHMVkePo8NpC17fL\n"
    "GNFwDHkxkNK/zTjEHYNs5a5T/UfCp4VDiZNI5XWgBjIAMDxT5hCeg+5uLKuMGwk7\n"
    "uteBGU9P+9JaPe+ylEfaz+rv6wgi0tBGotMN3Jk1tRk=\n"
    "-----END DSA PARAMETERS-----\n";

struct Free {
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(EVP_PKEY_CTX* context) const { EVP_PKEY_CTX_free(context); }
  void operator()(BIO* text) const { BIO_free(text); }
};
using Key = std::unique_ptr<EVP_PKEY, Free>;
using KeyContext = std::unique_ptr<EVP_PKEY_CTX, Free>;
using Text = std::unique_ptr<BIO, Free>;

void Need(bool isDone) {
  if (!isDone) throw std::runtime_error("OpenSSL makes no key for the test");
}

std::string TextOf(const Text& text) {
  const char* bytes = nullptr;
  const long length = BIO_get_mem_data(text.get(), &bytes);
  return {bytes, static_cast<std::size_t>(length)};
}

KeyPair PairOf(const Key& key) {
  const Text privateText(BIO_new(BIO_s_mem())), publicText(BIO_new(BIO_s_mem()));
  Need(PEM_write_bio_PrivateKey(privateText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1);
  Need(PEM_write_bio_PUBKEY(publicText.get(), key.get()) == 1);
  return {TextOf(privateText), TextOf(publicText)};
}

Text Open(const std::string& pem) { return Text(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size()))); }

}  // namespace

std::string DsaParameters(KeySize size) { return size == KeySize::k1024 ? kParameters1024 : kParameters2048; }

KeyPair MakeDsaKey(KeySize size) {
  const std::string pem = DsaParameters(size);
  const Key parameters(PEM_read_bio_Parameters(Open(pem).get(), nullptr));
  Need(parameters != nullptr);
  const KeyContext context(EVP_PKEY_CTX_new_from_pkey(nullptr, parameters.get(), nullptr));
  EVP_PKEY* key = nullptr;
  Need(context && EVP_PKEY_keygen_init(context.get()) == 1 && EVP_PKEY_keygen(context.get(), &key) == 1);
  return PairOf(Key(key));
}

KeyPair MakeOtherKey() {
  const Key key(EVP_EC_gen("P-256"));
  Need(key != nullptr);
  return PairOf(key);
}

std::string LockedPem(const std::string& privatePem) {
  const Key key(PEM_read_bio_PrivateKey(Open(privatePem).get(), nullptr, nullptr, nullptr));
  const Text text(BIO_new(BIO_s_mem()));
  const std::string password = "open";
  Need(key && PEM_write_bio_PKCS8PrivateKey(text.get(), key.get(), EVP_aes_128_cbc(), password.data(),
                                            static_cast<int>(password.size()), nullptr, nullptr) == 1);
  return TextOf(text);
}

}  // namespace strandline::adtool
