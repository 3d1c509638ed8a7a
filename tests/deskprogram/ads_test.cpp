// Ads on the desk: what scenes may say of them, and libraries that are really verified.

#include <gtest/gtest.h>
#include <openssl/dsa.h>
#include <openssl/evp.h>
#include <openssl/pem.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "adtool/ad_list.h"
#include "adtool/module_writer.h"
#include "adtool/signature.h"
#include "play/expectation.h"
#include "tests/deskprogram/desk_runner.h"

namespace strandline::deskprogram {
namespace {

using Bytes = std::vector<std::uint8_t>;

const std::string kAds = STRANDLINE_SOURCE_DIR "/scenes/ads/";

Bytes BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::string& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::string Pem(EVP_PKEY* key, bool isPrivate) {
  BIO* const memory = BIO_new(BIO_s_mem());
  if (isPrivate) {
    PEM_write_bio_PrivateKey(memory, key, nullptr, nullptr, 0, nullptr, nullptr);
  } else {
    PEM_write_bio_PUBKEY(memory, key);
  }
  char* text = nullptr;
  const long length = BIO_get_mem_data(memory, &text);
  std::string pem(text, static_cast<std::size_t>(length));
  BIO_free(memory);
  return pem;
}

// A pair of keys, made on the fly; small, since nobody's trust hangs on it.
struct KeyPair {
  KeyPair() {
    EVP_PKEY* parameters = nullptr;
    EVP_PKEY* key = nullptr;
    EVP_PKEY_CTX* making = EVP_PKEY_CTX_new_id(EVP_PKEY_DSA, nullptr);
    EVP_PKEY_paramgen_init(making);
    EVP_PKEY_CTX_set_dsa_paramgen_bits(making, 1024);
    EVP_PKEY_paramgen(making, &parameters);
    EVP_PKEY_CTX_free(making);
    making = EVP_PKEY_CTX_new(parameters, nullptr);
    EVP_PKEY_keygen_init(making);
    EVP_PKEY_keygen(making, &key);
    EVP_PKEY_CTX_free(making);
    privatePem = Pem(key, true);
    publicPem = Pem(key, false);
    EVP_PKEY_free(parameters);
    EVP_PKEY_free(key);
  }
  std::string privatePem;
  std::string publicPem;
};

TEST(SceneAds_TheLibraries, AreWhatTheirListsGive) {
  for (const auto& [list, library] : {std::pair("list.toml", "three.dll"), {"every_day.toml", "every_day.dll"}}) {
    EXPECT_TRUE(adtool::WriteModule(adtool::ReadAdList(kAds + list).content) == BytesOf(kAds + library))
        << "make it again: strandline-ads build scenes/ads/" << list << " -o scenes/ads/" << library;
  }
}

TEST(SceneAds_AWrongUse, GivesOneLineAndExitCode2) {
  const struct {
    const char* scene;
    const char* error;  // a pattern
  } kCases[] = {
      {"ads missing.dll\nstart\n", "a.scene:1: the ad library missing.dll is no file; name one, *"},
      {"ads .\nstart\n", "a.scene:1: the ad library . is no file; name one, relative to the scene's folder, or none"},
      {"start\nads none\n", "a.scene:2: \"ads FILE|none\" comes too late; it must stand before start"},
      {"library none\n", "a.scene:1: \"library FILE|none [aborted]\" needs start before it"},
      {"start\nlibrary missing.dll\n", "a.scene:2: the ad library missing.dll is no file; *"},
      {"word 12.0\nstart\nlibrary none\n", "a.scene:3: nobody who hears of new ads is known; *"},
      {"start\nquit\nlibrary none\n", "a.scene:3: nobody who hears of new ads is known; *"},
  };
  DeskRunner runner;
  for (const auto& each : kCases) {
    const DeskRun run = runner.Play(each.scene);
    EXPECT_EQ(run.exitCode, 2) << each.scene;
    EXPECT_TRUE(play::MatchesPattern(std::string(each.error) + "\n", run.errors)) << run.errors << each.error;
  }
}

constexpr const char* kUsed =
    "ads a.dll\nstart\nopen A.doc\nwait 200\n"
    "expect object object=verifier member=verifyDLL value=3\nexpect 3 picture module=Vistrel.dll ok=true\n";
constexpr const char* kNotUsed =
    "ads a.dll\nstart\nopen A.doc\nwait 200\n"
    "expect object object=verifier member=verifyDLL value=0\nexpect 0 picture module=Vistrel.dll\n"
    "expect log level=2 text=\"Failed verification of image DLL\"\n";

TEST(SceneAds_ALibraryThatIsSigned, IsUsed_AndNoOther) {
  const KeyPair keys;
  const KeyPair others;
  const Bytes library = BytesOf(kAds + "three.dll");
  const Bytes sound = adtool::SignLibrary(library, keys.privatePem);
  Bytes damaged = sound;
  damaged[damaged.size() / 2] ^= 1;
  Bytes longer = sound;
  longer.push_back(0);
  const struct {
    const char* what;
    Bytes file;
    std::string key;
    bool isUsed;
  } kCases[] = {
      {"signed", sound, keys.publicPem, true},
      {"unsigned", library, keys.publicPem, false},
      {"changed", damaged, keys.publicPem, false},
      {"longer", longer, keys.publicPem, false},
      {"signed by another", sound, others.publicPem, false},
      {"without a key", sound, "", false},
      {"with a key that is none", sound, "no key", false},
  };
  DeskRunner runner;
  for (const auto& each : kCases) {
    Write(runner.Folder() + "/a.dll", each.file);
    std::filesystem::remove(runner.Folder() + "/a.dll.pub.pem");
    if (!each.key.empty()) Write(runner.Folder() + "/a.dll.pub.pem", Bytes(each.key.begin(), each.key.end()));
    const DeskRun run = runner.Play(each.isUsed ? kUsed : kNotUsed);
    EXPECT_EQ(run.exitCode, 0) << each.what << ": " << run.errors;
  }
}

TEST(SceneAds_AFileThatIsNoModule, CantBeLoaded) {
  DeskRunner runner;
  Write(runner.Folder() + "/a.dll", Bytes{'n', 'o', 'n', 'e'});
  const DeskRun run = runner.Play(
      "ads a.dll\nverifier 3 good\nstart\nopen A.doc\nwait 200\n"
      "expect window call=LoadLibraryA value=0\nexpect 0 object object=verifier\n"
      "expect log level=2 text=\"Vistrel.dll is missing\"\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
}

TEST(SceneAds_AVerifiersAnswer, TakesTheChecksPlace_LaterToo) {
  DeskRunner runner;
  Write(runner.Folder() + "/a.dll", BytesOf(kAds + "three.dll"));
  const DeskRun run = runner.Play(
      "ads a.dll\nverifier 2 one\nstart\nopen A.doc\nwait 200\n"
      "expect object object=verifier member=verifyDLL args.1=one value=2\nexpect 2 picture module=Vistrel.dll\n"
      "mark\nafter 100 verifier 40000 two\nafter 100 library a.dll\nwait 200\n"
      "expect object object=verifier args.1=two value=40000\n"
      "expect object member=vbwErrorHandler args.0=6 args.4=NewAdvertisementsEvent\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
}

TEST(SceneAds_WithoutTheWorker, AreTheBuiltInOneAtMost) {
  DeskRunner runner;
  Write(runner.Folder() + "/a.dll", BytesOf(kAds + "three.dll"));
  const DeskRun missing = runner.Play(
      "component StrandlineDownload.Main2 missing\nads a.dll\nstart\nopen A.doc\nwait 200\n"
      "expect create progid=StrandlineDownload.Main2 ok=false\n"
      "then object member=vbwErrorHandler args.0=429 args.4=NewAdvertisementsEvent\n"
      "expect 0 object object=verifier\nexpect 0 picture module=Vistrel.dll\n");
  EXPECT_EQ(missing.exitCode, 0) << missing.errors;
}

TEST(SceneAds_Faults, ReachEveryComponent) {
  DeskRunner runner;
  Write(runner.Folder() + "/a.dll", BytesOf(kAds + "three.dll"));
  const DeskRun run = runner.Play(
      "ads a.dll\nverifier 3 good\nfail AlphaBlender.Main2 AlphaBlend 1 71\nfail HTTP.Main2 Browse 1 72\n"
      "start\nopen A.doc\nwait 7000\nexpect object object=AlphaBlender.Main2 error.number=71\n"
      "execute ClickOnAd\nexpect object object=HTTP.Main2 error.number=72\n"
      "fail StrandlineDownload.Main2 CreateDSAVerify 1 70\nlibrary a.dll\n"
      "expect object object=StrandlineDownload.Main2 error.number=70\n"
      "fail verifier verifyDLL 1 73\nlibrary a.dll\nexpect object object=verifier error.number=73\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
}

TEST(SceneAds_TheState, NamesTheContextsOfPanelAndFactory) {
  DeskRunner runner;
  Write(runner.Folder() + "/a.dll", BytesOf(kAds + "three.dll"));
  const DeskRun run = runner.Play(
      "ads a.dll\nverifier 3 good\nstart\nopen A.doc\nwait 200\nstate\n"
      "expect state \"value.AdvertisementsFactory.mHdc=dc *\" value.AdvertisementsFactory.mMaxWidth=229 "
      "value.AdvertisementsFactory.mLastSignature=good \"value.toolbars.0.Advertisements.mTargetHdc=dc *\" "
      "\"value.toolbars.0.Advertisements.mHwnd=bar 1\" value.toolbars.0.Advertisements.mAds_ubound=3\n");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
}

}  // namespace
}  // namespace strandline::deskprogram
