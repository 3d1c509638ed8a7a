// strandline-ads by its command line.

#include <gtest/gtest.h>

#include <algorithm>

#include "adtool/signature.h"
#include "play/expectation.h"
#include "tests/adtool/ads_runner.h"
#include "tests/adtool/dsa_test_key.h"

namespace strandline::adtool {
namespace {

using play::MatchesPattern;

constexpr char kList[] =
    "[[ad]]\npicture = \"a.gif\"\nfrom = 2009-03-01\nto = 2009-12-31\naddress = \"offers\"\n"
    "[[ad]]\npicture = \"b.jpg\"\nfrom = 2009-03-01\nto = 2009-12-31\naddress = \"more\"\n";

class AdsProgram : public testing::Test {
 protected:
  AdsProgram() {
    mKey = MakeDsaKey();
    mFolder.Write("list.toml", kList);
    mFolder.Write("private.pem", mKey.privatePem);
    mFolder.Write("public.pem", mKey.publicPem);
  }

  void ExpectWrong(const std::string& words, const std::string& error) {
    const std::string before = mFolder.Names();
    const AdsRun run = mFolder.Run(words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_EQ(run.output, "") << words;
    EXPECT_TRUE(MatchesPattern(error + "\n", run.errors)) << words << "\n" << run.errors;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    EXPECT_EQ(mFolder.Names(), before) << words;
  }

  AdsRunner mFolder;
  KeyPair mKey;
};

TEST_F(AdsProgram, BuildsSignsAndVerifies) {
  AdsRun run = mFolder.Run("build list.toml -o ads.dll");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  const std::string built = mFolder.Read("ads.dll");
  EXPECT_EQ(run.output, "ads.dll: 2 ads, " + std::to_string(built.size()) + " bytes, not signed yet\n");
  EXPECT_TRUE(built.starts_with("MZ"));

  run = mFolder.Run("verify ads.dll --key public.pem");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output + run.errors, "ads.dll: not good: it isn't signed\n");

  run = mFolder.Run("sign ads.dll --key private.pem -o signed.dll");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, "signed.dll: 2 ads, signed\n");
  EXPECT_EQ(mFolder.Read("ads.dll"), built);
  EXPECT_TRUE(mFolder.Read("signed.dll").starts_with(built));

  run = mFolder.Run("verify --key public.pem signed.dll");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, "signed.dll: good, 2 ads\n");

  // In its place.
  EXPECT_EQ(mFolder.Run("sign ads.dll --key private.pem").exitCode, 0);
  EXPECT_EQ(mFolder.Run("verify ads.dll --key public.pem").exitCode, 0);
  EXPECT_EQ(mFolder.Names(), "a.gif ads.dll b.jpg c.bmp list.toml private.pem public.pem signed.dll ");
}

TEST_F(AdsProgram, GivesTheSameBytesForTheSameList) {
  ASSERT_EQ(mFolder.Run("build list.toml -o one.dll").exitCode, 0);
  ASSERT_EQ(mFolder.Run("build " + mFolder.Path("list.toml") + " -o two.dll").exitCode, 0);
  EXPECT_TRUE(mFolder.Read("one.dll") == mFolder.Read("two.dll"));
}

TEST_F(AdsProgram, TakesPicturesFromTheListsFolder) {
  std::filesystem::create_directory(mFolder.Path("below"));
  EXPECT_EQ(mFolder.Run("build list.toml -o below/ads.dll").exitCode, 0);
  std::filesystem::rename(mFolder.Path("list.toml"), mFolder.Path("below/list.toml"));
  ExpectWrong("build below/list.toml -o ads.dll", "below/list.toml:2: can't read the picture \"a.gif\" (*); *");
  std::filesystem::copy(mFolder.Path("a.gif"), mFolder.Path("below/a.gif"));
  std::filesystem::copy(mFolder.Path("b.jpg"), mFolder.Path("below/b.jpg"));
  EXPECT_EQ(mFolder.Run("build below/list.toml -o ads.dll").exitCode, 0);
}

TEST_F(AdsProgram, SaysOfALibraryThatItIsntGood) {
  ASSERT_EQ(mFolder.Run("build list.toml -o ads.dll").exitCode, 0);
  ASSERT_EQ(mFolder.Run("sign ads.dll --key private.pem").exitCode, 0);
  std::string changed = mFolder.Read("ads.dll");
  changed[700] = static_cast<char>(changed[700] ^ 1);
  mFolder.Write("changed.dll", changed);
  AdsRun run = mFolder.Run("verify changed.dll --key public.pem");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(
      MatchesPattern("changed.dll: not good: the signature isn't one of this file by this key: *\n", run.errors))
      << run.errors;
  mFolder.Write("other.pem", MakeDsaKey().publicPem);
  EXPECT_EQ(mFolder.Run("verify ads.dll --key other.pem").exitCode, 1);
  EXPECT_EQ(mFolder.Run("verify list.toml --key public.pem").exitCode, 1);
  // A good signature doesn't help what holds no ad.
  const std::vector<std::uint8_t> empty = SignLibrary({}, mKey.privatePem);
  mFolder.Write("empty.dll", std::string(empty.begin(), empty.end()));
  run = mFolder.Run("verify empty.dll --key public.pem");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.errors, "empty.dll: not good: the signature is, but it holds no ad\n");
}

TEST_F(AdsProgram, RefusesAWrongCommandLine) {
  const struct {
    const char* words;
    const char* error;  // a pattern
  } kCases[] = {
      {"", "strandline-ads: no command is given; usage: strandline-ads build|sign|verify|--help"},
      {"make", "strandline-ads: unknown command \"make\"; usage: *"},
      {"build", "strandline-ads: no list is named; usage: strandline-ads build LIST -o FILE"},
      {"build list.toml", "strandline-ads: no file is named to write; usage: *"},
      {"build list.toml -o", "strandline-ads: -o needs a name behind it; usage: *"},
      {"build list.toml -o ''", "strandline-ads: -o needs a name behind it; usage: *"},
      {"build list.toml -o a -o b", "strandline-ads: -o is given twice; usage: *"},
      {"build list.toml more -o a", "strandline-ads: \"more\" is too much, one list is taken; usage: *"},
      {"build list.toml -o a --key k", "strandline-ads: unknown option \"--key\"; usage: *"},
      {"build '' -o a", "strandline-ads: \"\" is too much, one list is taken; usage: *"},
      {"sign", "strandline-ads: no library is named; usage: strandline-ads sign FILE --key PRIVATE.pem [-o FILE]"},
      {"sign a.dll", "strandline-ads: no key is named; usage: *"},
      {"verify a.dll", "strandline-ads: no key is named; usage: strandline-ads verify FILE --key PUBLIC.pem"},
      {"verify a.dll --key k -o b", "strandline-ads: unknown option \"-o\"; usage: *"},
      {"verify a.dll --quiet", "strandline-ads: unknown option \"--quiet\"; usage: *"},
  };
  for (const auto& each : kCases) ExpectWrong(each.words, each.error);
}

TEST_F(AdsProgram, RefusesWhatItCantRead) {
  mFolder.Write("wrong.toml", "[[ad]]\n\nrule = \"\x1b[31m\"\n");
  mFolder.Write("odd.toml", "[[ad]]\n\"\\u001b[31m\" = 3\n");
  ASSERT_EQ(mFolder.Run("build list.toml -o ads.dll").exitCode, 0);
  const struct {
    const char* words;
    const char* error;  // a pattern
  } kCases[] = {
      {"build missing.toml -o new.dll", "missing.toml: can't read the list (No such file or directory); *"},
      {"build . -o new.dll", ".: can't read the list (Is a directory); *"},
      {"build wrong.toml -o new.dll", "wrong.toml:3: *; the list is a text in TOML"},
      {"build odd.toml -o new.dll", "odd.toml:2: unknown key \"?[31m\" in *"},
      {"sign missing.dll --key private.pem", "missing.dll: can't read the library (No such file or directory); *"},
      {"sign ads.dll --key missing.pem", "missing.pem: can't read the key (No such file or directory); *"},
      {"sign ads.dll --key public.pem", "public.pem: it is a public key; signing takes the private one"},
      {"sign list.toml --key private.pem", "list.toml: it is no library with ads; sign one that build has made"},
      {"verify missing.dll --key public.pem", "missing.dll: can't read the library (*); *"},
      {"verify ads.dll --key missing.pem", "missing.pem: can't read the key (*); *"},
      {"verify ads.dll --key private.pem", "private.pem: it is a private key; give the public one, *"},
      {"verify ads.dll --key ads.dll", "ads.dll: it is no public key in PEM; *"},
  };
  for (const auto& each : kCases) ExpectWrong(each.words, each.error);
}

TEST_F(AdsProgram, LeavesFilesAsTheyWereWhenItRefuses) {
  ASSERT_EQ(mFolder.Run("build list.toml -o ads.dll").exitCode, 0);
  const std::string built = mFolder.Read("ads.dll");
  mFolder.Write("wrong.toml", std::string(kList) + "rule = \"d1\"\n");
  ExpectWrong("build wrong.toml -o ads.dll", "wrong.toml:11: rule \"d1\": *");
  ExpectWrong("sign ads.dll --key public.pem", "public.pem: *");
  EXPECT_TRUE(mFolder.Read("ads.dll") == built);
  ExpectWrong("build list.toml -o list.toml", "list.toml: the library would overwrite the list; choose *");
  ExpectWrong("build list.toml -o ./b.jpg", "./b.jpg: the library would overwrite the picture; choose *");
  ExpectWrong("sign ads.dll --key private.pem -o private.pem", "private.pem: the library would overwrite the key; *");
  EXPECT_EQ(mFolder.Read("list.toml"), kList);
  EXPECT_EQ(mFolder.Read("private.pem"), mKey.privatePem);
}

TEST_F(AdsProgram, WritesOnlyWhereItCanWriteAFile) {
  ExpectWrong("build list.toml -o missing/ads.dll", "missing/ads.dll: can't write it (No such file or directory); *");
  ExpectWrong("build list.toml -o .", ".: can't write it (Is a directory); name a file that can be written");
  ASSERT_EQ(std::system(("mkfifo " + mFolder.Path("pipe")).c_str()), 0);
  ExpectWrong("build list.toml -o pipe", "pipe: can't write it (not an ordinary file); *");
  // A link stays one.
  mFolder.Write("real.dll", "old");
  std::filesystem::create_symlink("real.dll", mFolder.Path("link.dll"));
  EXPECT_EQ(mFolder.Run("build list.toml -o link.dll").exitCode, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(mFolder.Path("link.dll")));
  EXPECT_TRUE(mFolder.Read("real.dll").starts_with("MZ"));
}

TEST_F(AdsProgram, ShowsItsHelp) {
  for (const char* words : {"--help", "-h", "build --help", "sign a --key b --help", "verify -h"}) {
    const AdsRun run = mFolder.Run(words);
    EXPECT_EQ(run.exitCode, 0) << words;
    EXPECT_EQ(run.errors, "");
    for (const char* part : {"build LIST -o FILE", "sign FILE --key PRIVATE.pem", "verify FILE --key PUBLIC.pem",
                             "openssl dsaparam -genkey"}) {
      EXPECT_NE(run.output.find(part), std::string::npos) << part;
    }
  }
}

}  // namespace
}  // namespace strandline::adtool
