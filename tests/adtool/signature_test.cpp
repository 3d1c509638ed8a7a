// The signature of a library: what it covers, and what it can't be moved to.

#include "adtool/signature.h"

#include <gtest/gtest.h>
#include <openssl/dsa.h>
#include <openssl/pem.h>

#include <algorithm>
#include <cstdio>

#include "adtool/module_writer.h"
#include "adtool/signature_parts.h"
#include "play/expectation.h"
#include "tests/adtool/dsa_test_key.h"

namespace strandline::adtool {
namespace {

using play::MatchesPattern;
using File = std::vector<std::uint8_t>;

File Library(std::initializer_list<int> pictures = {2, 3}) {
  ModuleContent content;
  for (const int number : pictures) content.pictures[number] = {1, 2, 3};
  content.strings[1] = "StartDate$";
  return WriteModule(content);
}

const KeyPair& TheKey() {
  static const KeyPair key = MakeDsaKey();
  return key;
}

File Signed() { return SignLibrary(Library(), TheKey().privatePem); }

bool IsGood(const File& file) { return VerifyLibrary(file, TheKey().publicPem).isGood; }

std::string ErrorOf(const File& file, const std::string& key) {
  try {
    SignLibrary(file, key);
    return "none";
  } catch (const SignatureFailure& failure) {
    return failure.what();
  }
}

TEST(Signature_OfALibrary, IsGoodByItsKeyOfEitherSize) {
  for (const KeySize size : {KeySize::k1024, KeySize::k2048}) {
    const KeyPair key = MakeDsaKey(size);
    for (const auto& [library, highest] : {std::pair{Library({2}), 1}, {Library({2, 3, 300}), 299}}) {
      const File file = SignLibrary(library, key.privatePem);
      EXPECT_TRUE(std::equal(library.begin(), library.end(), file.begin()));
      const Verdict verdict = VerifyLibrary(file, key.publicPem);
      EXPECT_TRUE(verdict.isGood) << verdict.why;
      EXPECT_EQ(verdict.why, "");
      EXPECT_EQ(verdict.highestAdIndex, highest);
      EXPECT_EQ(HighestAdIndex(file), highest);
    }
  }
}

std::string Hexadecimal(Bytes bytes) {
  std::string text;
  for (const std::uint8_t each : bytes) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", each);
    text += digits;
  }
  return text;
}

TEST(Signature_AsText, IsItsBytesInUpperCaseHexadecimal) {
  const File file = Signed();
  const std::size_t length = Library().size();
  const std::string expected = Hexadecimal(Bytes(file).subspan(length, file.size() - kFooterLength - length));
  EXPECT_TRUE(expected.starts_with("30"));
  EXPECT_EQ(VerifyLibrary(file, TheKey().publicPem).signatureText, expected);
  // Of a library that fails as well.
  File changed = file;
  changed[5] ^= 1;
  EXPECT_EQ(VerifyLibrary(changed, TheKey().publicPem).signatureText, expected);
  EXPECT_NE(VerifyLibrary(Signed(), TheKey().publicPem).signatureText, expected);
}

TEST(Signature_OfAFileWithOneByteChanged, Fails) {
  const File file = Signed();
  ASSERT_TRUE(IsGood(file));
  for (std::size_t i = 0; i < file.size(); ++i) {
    for (const int change : {0x01, 0x80, 0xFF}) {
      // In the module one of them is enough.
      if (change != 0x01 && i + 200 < file.size()) continue;
      File changed = file;
      changed[i] = static_cast<std::uint8_t>(changed[i] ^ change);
      const Verdict verdict = VerifyLibrary(changed, TheKey().publicPem);
      ASSERT_FALSE(verdict.isGood) << i;
      ASSERT_EQ(verdict.highestAdIndex, 0) << i;
      ASSERT_NE(verdict.why, "") << i;
    }
  }
}

TEST(Signature_OfAFileWithAByteRemovedOrAdded, Fails) {
  const File file = Signed();
  const std::size_t module = Library().size();
  for (std::size_t i = 0; i <= file.size(); i += i < module - 20 ? 37 : 1) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    if (i < file.size()) {
      File shorter = file;
      shorter.erase(shorter.begin() + at);
      EXPECT_FALSE(IsGood(shorter)) << i;
      // Cut off here.
      EXPECT_FALSE(IsGood(File(file.begin(), file.begin() + at))) << i;
    }
    for (const int added : {0, 1, 0xFF}) {
      File longer = file;
      longer.insert(longer.begin() + at, static_cast<std::uint8_t>(added));
      EXPECT_FALSE(IsGood(longer)) << i;
    }
  }
}

// Puts another signature in the place of that of a signed file.
File WithSignature(const File& file, const File& signature) {
  const SignedFile parts = *SplitSignedFile(file);
  File result(parts.module.begin(), parts.module.end());
  result.insert(result.end(), signature.begin(), signature.end());
  result.insert(result.end(), parts.footer.begin(), parts.footer.end());
  return result;
}

File SignatureOf(const File& file) {
  const Bytes signature = SplitSignedFile(file)->signature;
  return {signature.begin(), signature.end()};
}

// The two numbers of a signature in DER, each with the bytes that stand for it.
std::pair<File, File> NumbersOf(const File& der) {
  const std::size_t second = 4u + der[3];
  return {File(der.begin() + 4, der.begin() + static_cast<std::ptrdiff_t>(second)),
          File(der.begin() + static_cast<std::ptrdiff_t>(second) + 2, der.end())};
}

File Der(const File& r, const File& s) {
  File der = {0x30, static_cast<std::uint8_t>(4 + r.size() + s.size()), 2, static_cast<std::uint8_t>(r.size())};
  der.insert(der.end(), r.begin(), r.end());
  der.push_back(2);
  der.push_back(static_cast<std::uint8_t>(s.size()));
  der.insert(der.end(), s.begin(), s.end());
  return der;
}

TEST(Signature_WrittenInAnotherWay, Fails) {
  const File file = Signed();
  const File der = SignatureOf(file);
  const auto [r, s] = NumbersOf(der);
  ASSERT_TRUE(IsGood(WithSignature(file, Der(r, s))));
  const auto padded = [](File number, std::size_t zeros) {
    number.insert(number.begin(), zeros, 0);
    return number;
  };
  EXPECT_FALSE(IsGood(WithSignature(file, Der(padded(r, 2), s))));
  EXPECT_FALSE(IsGood(WithSignature(file, Der(r, padded(s, 2)))));
  // The length in two bytes where one is enough.
  File longForm = der;
  longForm.insert(longForm.begin() + 1, 0x81);
  EXPECT_FALSE(IsGood(WithSignature(file, longForm)));
  File endless = der;
  endless[1] = 0x80;
  endless.insert(endless.end(), 2, 0);
  EXPECT_FALSE(IsGood(WithSignature(file, endless)));
  File more = der;
  more.push_back(0);
  EXPECT_FALSE(IsGood(WithSignature(file, more)));
  more[1] = static_cast<std::uint8_t>(more[1] + 1);
  EXPECT_FALSE(IsGood(WithSignature(file, more)));
  for (const File& wrong : {File{}, File{0x30}, File{0x30, 0}, File{0x30, 3, 2, 1, 1}, Der({0}, {0}), Der({1}, {1}),
                            Der({0}, s), Der(r, {0}), Der({}, s), Der(r, {}), Der(s, r)}) {
    EXPECT_FALSE(IsGood(WithSignature(file, wrong)));
  }
}

TEST(Signature_InDer, HasOneFormAlone) {
  const struct {
    File der;
    bool isRight;
  } kCases[] = {
      {{0x30, 6, 2, 1, 1, 2, 1, 1}, true},
      {{0x30, 8, 2, 2, 0, 0x80, 2, 2, 0x7F, 0}, true},
      {{0x31, 6, 2, 1, 1, 2, 1, 1}, false},        // no sequence
      {{0x30, 0x81, 6, 2, 1, 1, 2, 1, 1}, false},  // its length in two bytes
      {{0x30, 7, 2, 1, 1, 2, 1, 1}, false},        // longer than what is there
      {{0x30, 5, 2, 1, 1, 2, 1, 1}, false},        // shorter
      {{0x30, 7, 2, 1, 1, 2, 1, 1, 0}, false},     // more behind the numbers
      {{0x30, 3, 2, 1, 1}, false},                 // one number
      {{0x30, 6, 3, 1, 1, 2, 1, 1}, false},        // no number
      {{0x30, 6, 2, 2, 1, 2, 1, 1}, false},        // the first takes from the second
      {{0x30, 6, 2, 1, 1, 2, 2, 1}, false},        // the second ends too late
      {{0x30, 7, 2, 2, 0, 1, 2, 1, 1}, false},     // a zero in front
      {{0x30, 6, 2, 1, 0x80, 2, 1, 1}, false},     // negative
      {{0x30, 6, 2, 1, 0, 2, 1, 1}, false},        // zero
      {{0x30, 5, 2, 0, 2, 1, 1}, false},           // without a byte
      {{0x30, 7, 2, 0x81, 1, 1, 2, 1, 1}, false},  // a number's length in two bytes
      {{0x30}, false},
      {{}, false},
  };
  for (const auto& each : kCases) EXPECT_EQ(IsCanonicalSignature(each.der), each.isRight) << Hexadecimal(each.der);
}

TEST(Signature_WithItsSecondNumberNegatedOrAboveTheOrder, Fails) {
  const File file = Signed();
  const auto [r, s] = NumbersOf(SignatureOf(file));
  BIO* text = BIO_new_mem_buf(TheKey().publicPem.data(), static_cast<int>(TheKey().publicPem.size()));
  EVP_PKEY* key = PEM_read_bio_PUBKEY(text, nullptr, nullptr, nullptr);
  BIGNUM* q = nullptr;
  ASSERT_EQ(EVP_PKEY_get_bn_param(key, "q", &q), 1);
  BIGNUM* number = BN_bin2bn(s.data(), static_cast<int>(s.size()), nullptr);
  const auto written = [](const BIGNUM* each) {
    File bytes(static_cast<std::size_t>(BN_num_bytes(each)));
    BN_bn2bin(each, bytes.data());
    if (bytes[0] >= 0x80) bytes.insert(bytes.begin(), 0);
    return bytes;
  };
  BN_add(number, q, number);
  EXPECT_FALSE(IsGood(WithSignature(file, Der(r, written(number)))));
  BN_sub(number, number, q);
  EXPECT_TRUE(IsGood(WithSignature(file, Der(r, written(number)))));
  BN_sub(number, q, number);
  EXPECT_FALSE(IsGood(WithSignature(file, Der(r, written(number)))));
  BN_free(number);
  BN_free(q);
  EVP_PKEY_free(key);
  BIO_free(text);
}

TEST(Signature_OfAnotherFileOrKey, Fails) {
  const File one = Signed();
  const File other = SignLibrary(Library({2, 4}), TheKey().privatePem);
  EXPECT_FALSE(IsGood(WithSignature(one, SignatureOf(other))));
  EXPECT_FALSE(VerifyLibrary(one, MakeDsaKey().publicPem).isGood);
  EXPECT_FALSE(VerifyLibrary(one, MakeDsaKey(KeySize::k2048).publicPem).isGood);
  // Two signatures of one file are both good, in each other's place.
  const File again = SignLibrary(one, TheKey().privatePem);
  EXPECT_NE(SignatureOf(again), SignatureOf(one));
  EXPECT_TRUE(IsGood(WithSignature(one, SignatureOf(again))));
}

TEST(Signature_OfASignedFile, TakesTheOldOnesPlace) {
  const File once = Signed();
  const File twice = SignLibrary(once, TheKey().privatePem);
  EXPECT_TRUE(IsGood(twice));
  EXPECT_EQ(SplitSignedFile(twice)->module.size(), Library().size());
  const KeyPair other = MakeDsaKey();
  const File again = SignLibrary(once, other.privatePem);
  EXPECT_FALSE(IsGood(again));
  EXPECT_TRUE(VerifyLibrary(again, other.publicPem).isGood);
}

TEST(Signature_ThatIsntThere, IsToldAndHasNoText) {
  for (const File& file : {File{}, File{1, 2, 3}, Library(), File(40, 0)}) {
    const Verdict verdict = VerifyLibrary(file, TheKey().publicPem);
    EXPECT_FALSE(verdict.isGood);
    EXPECT_EQ(verdict.why, "it isn't signed");
    EXPECT_EQ(verdict.signatureText, "");
    EXPECT_EQ(verdict.highestAdIndex, 0);
  }
  File magic(kMagic.begin(), kMagic.end());
  EXPECT_EQ(VerifyLibrary(magic, TheKey().publicPem).why, "the signature at its end doesn't fit the file");
  EXPECT_EQ(ErrorOf(magic, TheKey().privatePem),
            "it ends with a signature that doesn't fit the file; build the library again");
}

TEST(Signature_OfWhatIsNoLibrary, IsGoodButHasNoAd) {
  for (const File& file : {File{}, File{1, 2, 3}, Library({}), Library({1})}) {
    const Verdict verdict = VerifyLibrary(SignLibrary(file, TheKey().privatePem), TheKey().publicPem);
    EXPECT_TRUE(verdict.isGood);
    EXPECT_EQ(verdict.highestAdIndex, 0);
  }
}

TEST(Signature_ByAKeyThatCantBeUsed, SaysWhatTheKeyIs) {
  const KeyPair other = MakeOtherKey();
  const struct {
    std::string key;
    const char* asPrivate;  // patterns
    const char* asPublic;
  } kCases[] = {
      {"", "it is no private key in PEM; right is *", "it is no public key in PEM; right is *"},
      {"-----BEGIN PUBLIC KEY-----\nAAAA\n", "it is a public key; *", "it is no public key in PEM; *"},
      {other.privatePem, "it is a key of the kind EC; right is a DSA key, *", "it is a private key; give the public *"},
      {other.publicPem, "it is a public key; signing takes the private one", "it is a key of the kind EC; *"},
      {TheKey().publicPem, "it is a public key; signing takes the private one", "" /* good */},
      {DsaParameters(KeySize::k1024), "it holds parameters, but no key; *", "it is no public key in PEM; *"},
      {LockedPem(TheKey().privatePem), "the key is locked by a password; *", "it is a private key; *"},
      {TheKey().privatePem, "none", "it is a private key; give the public one, *"},
      {DsaParameters(KeySize::k1024) + TheKey().privatePem, "none", "it is a private key; give the public one, *"},
  };
  const File file = Signed();
  for (const auto& each : kCases) {
    EXPECT_TRUE(MatchesPattern(each.asPrivate, ErrorOf(file, each.key))) << ErrorOf(file, each.key);
    const std::string fault = PublicKeyFault(each.key);
    EXPECT_TRUE(MatchesPattern(each.asPublic, fault)) << fault;
    const Verdict verdict = VerifyLibrary(file, each.key);
    EXPECT_EQ(verdict.isGood, fault.empty());
    EXPECT_EQ(verdict.why, fault.empty() ? "" : "the public key can't be used: " + fault);
    EXPECT_NE(verdict.signatureText, "");
  }
}

}  // namespace
}  // namespace strandline::adtool
