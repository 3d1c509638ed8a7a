#include "adtool/signature.h"

#include <algorithm>
#include <optional>

#include "adtool/dsa_key.h"
#include "adtool/signature_parts.h"
#include "platform/desk/resource_module.h"

namespace strandline::adtool {

namespace {

constexpr int kGreatestInteger = 32767;  // what the toolbar numbers ads in

std::string Hexadecimal(Bytes bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t each : bytes) {
    text += kDigits[each >> 4];
    text += kDigits[each & 15];
  }
  return text;
}

Bytes ModuleOf(Bytes file) {
  const std::optional<SignedFile> parts = SplitSignedFile(file);
  return parts ? parts->module : file;
}

}  // namespace

int HighestAdIndex(std::span<const std::uint8_t> file) {
  const std::optional<desk::ModuleImage> image = desk::ReadResourceModule(ModuleOf(file));
  if (!image) return 0;
  int highest = 0;
  for (const auto& [number, bytes] : image->OfType(u"CUSTOM"))
    highest = std::max(highest, static_cast<int>(number) - 1);
  return std::min(highest, kGreatestInteger);
}

Verdict VerifyLibrary(std::span<const std::uint8_t> file, const std::string& publicKeyPem) {
  Verdict verdict;
  const std::optional<SignedFile> parts = SplitSignedFile(file);
  if (!parts) {
    verdict.why = EndsWithMagic(file) ? "the signature at its end doesn't fit the file" : "it isn't signed";
    return verdict;
  }
  verdict.signatureText = Hexadecimal(parts->signature);
  try {
    const DsaKey key = DsaKey::Public(publicKeyPem);
    verdict.isGood = key.Verify({parts->module, parts->footer}, parts->signature);
  } catch (const KeyFailure& failure) {
    verdict.why = std::string("the public key can't be used: ") + failure.what();
    return verdict;
  }
  if (!verdict.isGood) {
    verdict.why = "the signature isn't one of this file by this key: the file was changed, or signed with another key";
    return verdict;
  }
  verdict.highestAdIndex = HighestAdIndex(parts->module);
  return verdict;
}

std::string PublicKeyFault(const std::string& publicKeyPem) {
  try {
    DsaKey::Public(publicKeyPem);
    return {};
  } catch (const KeyFailure& failure) {
    return failure.what();
  }
}

std::vector<std::uint8_t> SignLibrary(std::span<const std::uint8_t> file, const std::string& privateKeyPem) {
  if (EndsWithMagic(file) && !SplitSignedFile(file)) {
    throw SignatureFailure("it ends with a signature that doesn't fit the file; build the library again");
  }
  const DsaKey key = DsaKey::Private(privateKeyPem);
  const Bytes module = ModuleOf(file);
  const std::array<std::uint8_t, kFooterLength> footer = MakeFooter(module.size());
  const std::vector<std::uint8_t> signature = key.Sign({module, footer});
  std::vector<std::uint8_t> signedFile(module.begin(), module.end());
  signedFile.insert(signedFile.end(), signature.begin(), signature.end());
  signedFile.insert(signedFile.end(), footer.begin(), footer.end());
  return signedFile;
}

}  // namespace strandline::adtool
