// An author's list: what it comes to, and what is refused at which line.

#include "adtool/ad_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "adtool/refusal.h"
#include "platform/desk/picture_decoder.h"
#include "play/expectation.h"
#include "tests/adtool/ads_runner.h"

namespace strandline::adtool {
namespace {

using play::MatchesPattern;

// One sound ad of six lines, with one of its lines exchanged or added.
std::string Ad(const std::string& changed = "") {
  const std::string key = changed.substr(0, changed.find_first_of(" ="));
  std::string text = "[[ad]]\n";
  bool isThere = false;
  for (const char* line :
       {"picture = \"a.gif\"", "from = 2009-03-01", "to = 2009-12-31", "duration = 8000", "address = \"offers\""}) {
    const bool isIt = std::string(line).substr(0, std::string(line).find(' ')) == key;
    text += (isIt ? changed : line) + "\n";
    isThere = isThere || isIt;
  }
  return isThere || changed.empty() ? text : text + changed + "\n";
}

std::string Without(const std::string& key) {
  std::string text = Ad();
  const std::size_t start = text.find("\n" + key) + 1;
  return text.erase(start, text.find('\n', start) + 1 - start);
}

// What is said of the list "list.toml" of the folder, without the folder; empty when nothing is.
std::string RefusalOf(const AdsRunner& folder, const std::string& list) {
  folder.Write("list.toml", list);
  try {
    ReadAdList(folder.Path("list.toml"));
    return {};
  } catch (const Refusal& refusal) {
    const std::string line = refusal.what();
    const std::string before = folder.Path("");
    return line.starts_with(before) ? line.substr(before.size()) : "not of this file: " + line;
  }
}

AdLibrary LibraryOf(const AdsRunner& folder, const std::string& list) {
  folder.Write("list.toml", list);
  return ReadAdList(folder.Path("list.toml"));
}

TEST(AdList_Ads, GetPicturesAndSettingsByNumber) {
  const AdsRunner folder;
  const AdLibrary library = LibraryOf(
      folder,
      "[builtin]\nfrom = 2008-01-31\nto = \"12/1/2010\"\nrule = \"M31\"\nfilter = \"\"\nduration = 1\n"
      "address = \"home#top\"\n"
      "[[ad]]\npicture = \"a.gif\"\nfrom = 2009-03-01\nto = 2009-12-31\nrule = \"W0100010\"\n"
      "filter = \"style=APA|MLA~stage=has_thesis\"\nduration = 8000\naddress = \"offers/spring?ref=bar\"\n"
      "[[ad]]\naddress = 'caf\xC3\xA9 \xE2\x82\xAC 5'\npicture = \"./b.jpg\"\nfrom = \"03/07/2009\"\nto = 2009-03-07\n"
      "[[ad]]\npicture = \"" +
          folder.Path("c.bmp") + "\"\nfrom = 1999-12-31\nto = 9999-01-02\nrule = \"M1\"\nduration = 2147483647\n" +
          "address = \" \"\n");
  EXPECT_EQ(library.ads, 3);
  const std::map<int, std::string> kStrings = {
      {1, "2008-01-31$2010-12-01$M31$-$$1$home#top"},
      {2, "2009-03-01$2009-12-31$W0100010$-$style=APA|MLA~stage=has_thesis$8000$offers/spring?ref=bar"},
      {3, "2009-03-07$2009-03-07$D1$-$$5000$caf\xC3\xA9 \xE2\x82\xAC 5"},
      {4, "1999-12-31$9999-01-02$M1$-$$2147483647$ "},
  };
  EXPECT_EQ(library.content.strings, kStrings);
  ASSERT_EQ(library.content.pictures.size(), 3u);
  const char* kNames[] = {"a.gif", "b.jpg", "c.bmp"};
  for (int i = 0; i < 3; ++i) {
    const std::vector<std::uint8_t>& bytes = library.content.pictures.at(i + 2);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), folder.Read(kNames[i])) << kNames[i];
  }
}

TEST(AdList_WithoutTheToolbarsOwnPicture, LeavesItTheDefaults) {
  const AdsRunner folder;
  EXPECT_TRUE(LibraryOf(folder, Ad()).content.strings.at(1).starts_with("StartDate$"));
}

TEST(AdList_ThatCantBeWritten, IsRefusedWithFileAndLine) {
  const struct {
    std::string list;
    std::string error;  // a pattern
  } kCases[] = {
      // The list as a whole.
      {"", "1: the list has no ad, and a library holds at least one; begin each with a line [[ad]]"},
      {"# nothing\n", "1: the list has no ad, *"},
      {"ad = []\n", "1: the list has no ad, *"},
      {"\nad = 3\n", "2: ad: right are tables, each begun by a line [[ad]]"},
      {"ad = [3]\n", "1: ad: right are tables, *"},
      {"[ad]\npicture = \"a.gif\"\n", "1: ad: right are tables, *"},
      {"builtin = 3\n" + Ad(), "1: builtin: right is one table, begun by a line [builtin]"},
      {Ad() + "[[advert]]\n", "7: unknown key \"advert\" in the list; known are builtin, ad"},
      {"zebra = 1\napple = 2\n" + Ad(), "1: unknown key \"zebra\" in the list; known are builtin, ad"},
      {"[[ad]]\npicture = spring.gif\n", "2: Error while parsing *; the list is a text in TOML"},
      {"[= 3]\n", "1: *; the list is a text in TOML"},
      {"[", "1: *; the list is a text in TOML"},
      {"[[", "1: *; the list is a text in TOML"},
      {"a.", "1: *; the list is a text in TOML"},
      {Ad() + "to = 2010-01-01\n", "7: *redefine*"},
      {Ad("address = \"\xE9\""), "6: *; the list is a text in TOML"},
      {Ad("from = 2009-02-30"), "3: *"},
      // The keys of an ad.
      {Ad("colour = \"red\""),
       "7: unknown key \"colour\" in [[ad]]; known are picture, from, to, rule, filter, "
       "duration, address"},
      {Ad("Rule = \"D1\""), "7: unknown key \"Rule\" in [[ad]]; *"},
      {"\n" + Without("from"), "2: [[ad]] lacks from; write the first day, such as from = 2009-03-01"},
      {Ad() + Without("to"), "7: [[ad]] lacks to; write the last day, such as to = 2009-12-31"},
      {Without("picture"), "1: [[ad]] lacks picture; write the name of its file, *"},
      {Without("address"), "1: [[ad]] lacks address; write what a click opens, *"},
      {Ad("address = \"\""), "6: [[ad]] lacks address; *"},
      // Dates.
      {Ad("from = \"soon\""), "3: from: right is a date, such as 2009-03-01 or \"3/1/2009\""},
      {Ad("from = \"2/30/2009\""), "3: from: right is a date, *"},
      {Ad("from = \"1/1/20009\""), "3: from: right is a date, *"},
      {Ad("from = \"13/1/2009\""), "3: from: right is a date, *"},
      {Ad("from = \"1/1/2009 \""), "3: from: right is a date, *"},
      {Ad("from = \"-1/1/2009\""), "3: from: right is a date, *"},
      {Ad("from = 20090301"), "3: from: right is a date, *"},
      {Ad("to = 2009-12-31T10:00:00"), "4: to: right is a date, *"},
      {Ad("from = \"3/1/09\""), "3: from: the year of a date has four digits, *"},
      {Ad("from = 0999-03-01"), "3: from: the year of a date has four digits, *"},
      {Ad("from = 2010-01-01"), "3: from: the ad begins after its last day; *"},
      // The rule and the filter.
      {Ad("rule = \"D0\""), "7: rule \"D0\": \"0\" is no number of days; *"},
      {Ad("rule = \"Y12/25\""), "7: rule \"Y12/25\": the toolbar shows no ad with a yearly rule *"},
      {Ad("rule = \"\""), "7: rule \"\": a rule begins with *"},
      {Ad("rule = 1"), "7: rule: right is a text in quotes"},
      {Ad("to = 2109-12-31"), "1: rule \"D1\": the rule counts days from the start, *"},
      {Ad("filter = \"stage\""), "7: filter: the clause \"stage\" has no \"=\"; *"},
      // The duration.
      {Ad("duration = 0"), "5: duration: right is a number of milliseconds from 1 to 2147483647, such as 8000"},
      {Ad("duration = -1"), "5: duration: right is a number of milliseconds *"},
      {Ad("duration = 2147483648"), "5: duration: right is a number of milliseconds *"},
      {Ad("duration = 99999999999999999999"), "5: *; the list is a text in TOML"},
      {Ad("duration = 1.5"), "5: duration: right is a whole number, without quotes"},
      {Ad("duration = \"8000\""), "5: duration: right is a whole number, without quotes"},
      // Characters.
      {Ad("filter = \"a=$\""), "7: filter: a \"$\" can't stand in it: in the library it separates the fields *"},
      {Ad("address = \"pay?$5\""), "6: address: a \"$\" can't stand in it: *(in an address it is written %24)"},
      {Ad("rule = \"D1$\""), "7: rule: a \"$\" can't stand in it: *"},
      {Ad("address = \"a\\nb\""), "6: address: the control character U+000A can't stand in it; leave it out"},
      {Ad("address = \"a\\u0000b\""), "6: address: the control character U+0000 can't stand in it; *"},
      {Ad("address = \"\\u0081\""), "6: address: the control character U+0081 can't stand in it; *"},
      {Ad("address = \"\xCE\xB1\""), "6: address: the character \"\xCE\xB1\" (U+03B1) isn't in code page 1252, *"},
      {Ad("address = \"\xF0\x9F\x98\x80\""), "6: address: the character \"*\" (U+1F600) isn't in code page 1252, *"},
      {Ad("filter = \"a=\xC4\x80\""), "7: filter: the character \"\xC4\x80\" (U+0100) isn't in code page 1252, *"},
      // The picture.
      {Ad("picture = \"missing.gif\""),
       "2: can't read the picture \"missing.gif\" (No such file or directory); its name is taken from the folder *"},
      {Ad("picture = \".\""), "2: can't read the picture \".\" (Is a directory); *"},
      {Ad("picture = \"pipe\""), "2: can't read the picture \"pipe\" (not an ordinary file); *"},
      {Ad("picture = \"huge\""), "2: can't read the picture \"huge\" (it has more than 64 MB); *"},
      {Ad("picture = \"a\\u0000.gif\""), "2: picture: no file's name holds a NUL"},
      {Ad("picture = 7"), "2: picture: right is a text in quotes"},
      {Ad("picture = \"list.toml\""), "2: the picture \"list.toml\" is by its content no GIF, JPEG or BMP; *"},
      {Ad("picture = \"empty.gif\""), "2: the picture \"empty.gif\" is by its content no GIF, JPEG or BMP; *"},
      {Ad("picture = \"cut.gif\""), "2: the picture \"cut.gif\" can't be decoded, *; save it again as a sound GIF"},
      {Ad("picture = \"cut.jpg\""), "2: the picture \"cut.jpg\" can't be decoded, *; save it again as a sound JPEG"},
      {Ad("picture = \"cut.bmp\""), "2: the picture \"cut.bmp\" can't be decoded, *; save it again as a sound BMP"},
      {Ad("picture = \"wide.bmp\""), "2: the picture \"wide.bmp\" is more than 32767 pixels wide or high; *"},
      // The toolbar's own picture.
      {"[builtin]\npicture = \"a.gif\"\n" + Ad(), "2: picture: the picture of [builtin] is the toolbar's own; *"},
      {"[builtin]\n" + Ad(), "1: [builtin] lacks from; *"},
      {"[builtin]\nfrom = 2009-01-01\nto = 2009-02-01\nrule = \"Y\"\naddress = \"x\"\n" + Ad(), "4: rule \"Y\": *"},
      {"[builtin]\nname = 1\n" + Ad(), "2: unknown key \"name\" in [builtin]; known are from, to, rule, filter, *"},
  };
  const AdsRunner folder;
  folder.Write("empty.gif", "");
  folder.Write("cut.gif", folder.Read("a.gif").substr(0, 900));
  folder.Write("cut.jpg", folder.Read("b.jpg").substr(0, 200));
  folder.Write("cut.bmp", folder.Read("c.bmp").substr(0, 40));
  folder.Write("huge", "GIF89a");
  std::filesystem::resize_file(folder.Path("huge"), (std::uintmax_t{64} << 20) + 1);
  // A bitmap of one row, black and white.
  std::string wide("BM\0\0\0\0\0\0\0\0\x3E\0\0\0\x28\0\0\0\0\x80\0\0\1\0\0\0\1\0\1\0", 30);
  wide += std::string(24, '\0') + std::string("\0\0\0\0\xFF\xFF\xFF\0", 8) + std::string(4096, '\0');
  folder.Write("wide.bmp", wide);
  std::string narrower = wide;
  narrower.replace(18, 2, "\xFF\x7F");
  folder.Write("narrower.bmp", narrower);
  ASSERT_EQ(std::system(("mkfifo " + folder.Path("pipe")).c_str()), 0);
  for (const auto& each : kCases) {
    const std::string refusal = RefusalOf(folder, each.list);
    EXPECT_TRUE(MatchesPattern("list.toml:" + each.error, refusal)) << each.list << refusal << "\n" << each.error;
  }
  for (const char* sound : {"", "picture = \"narrower.bmp\"", "rule = \"W1\"", "duration = 1"}) {
    EXPECT_EQ(RefusalOf(folder, Ad(sound)), "") << sound;
  }
}

TEST(AdList_WithKeysOfManyParts, IsRefusedBeforeTheyFillTheStack) {
  const AdsRunner folder;
  const auto parts = [](int count) {
    std::string key = "a";
    for (int i = 1; i < count; ++i) key += i % 2 ? ".a" : " . \"a\"";
    return key;
  };
  const std::string fault = ": a key has more than 16 parts with points between them; the keys of a list have none";
  EXPECT_EQ(RefusalOf(folder, "\n\n" + parts(200000) + " = 1\n"), "list.toml:3" + fault);
  EXPECT_EQ(RefusalOf(folder, "# " + parts(40) + "\n[" + parts(200000) + "]\n"), "list.toml:2" + fault);
  EXPECT_EQ(RefusalOf(folder, "ad = [{x=1},\n{" + parts(17) + "=1}]\n"), "list.toml:2" + fault);
  EXPECT_EQ(RefusalOf(folder, parts(16) + " = 1\n"),
            "list.toml:1: unknown key \"a\" in the list; known are builtin, ad");
  // Points in texts and comments are none of a key, however the text is written.
  const std::string points(100, '.');
  const std::string kTexts[] = {"\"" + points + "\"",
                                "'" + points + "'",
                                "\"\"\"" + points + "\"\"\"",
                                "\"\\\"" + points + "\"",
                                "\"\"\"" + points + "\\\"\"" + points + "\"\"\"\"",
                                "QQQ" + points + "QQ" + points + "QQQQQ"};
  for (std::string text : kTexts) {
    std::replace(text.begin(), text.end(), 'Q', '\'');
    EXPECT_EQ(RefusalOf(folder, Ad("address = " + text + " # " + points)), "") << text;
  }
}

TEST(AdList_Settings, MayTakeAsManyBytesAsTheToolbarReads) {
  const AdsRunner folder;
  const std::string fixed = "2009-03-01$2009-12-31$D1$-$$8000$";
  // A character of several bytes in the list is one byte to the toolbar.
  for (const char* character : {"x", "\xC3\xA9", "\xE2\x82\xAC"}) {
    std::string address;
    for (std::size_t i = fixed.size(); i < 511; ++i) address += character;
    EXPECT_EQ(LibraryOf(folder, Ad("address = \"" + address + "\"")).content.strings.at(2), fixed + address);
    EXPECT_EQ(RefusalOf(folder, "\n" + Ad("address = \"" + address + character + "\"")),
              "list.toml:2: the settings take 512 bytes, and the toolbar reads 511; shorten the filter or the address");
  }
}

TEST(AdList_EveryCharacterOfTheCodePage, IsTaken) {
  const AdsRunner folder;
  std::string all;
  for (char each = 0x20; each < 0x7F; ++each) {
    if (each != '$' && each != '\'') all += each;
  }
  for (int each = 0xA0; each < 0x100; ++each) {
    all += static_cast<char>(0xC0 | each >> 6);
    all += static_cast<char>(0x80 | (each & 0x3F));
  }
  all +=
      "\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u017D\u2018\u2019\u201C\u201D\u2022"
      "\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u017E\u0178";
  const AdLibrary library = LibraryOf(folder, Ad("address = '" + all + "'"));
  EXPECT_TRUE(library.content.strings.at(2).ends_with("$" + all));
}

TEST(AdList_WithMoreAdsThanTheToolbarNumbers, IsRefusedAtTheFirstOne) {
  const AdsRunner folder;
  std::string list;
  for (int i = 0; i < 32767; ++i) list += "[[ad]]\n";
  EXPECT_EQ(RefusalOf(folder, list),
            "list.toml:32767: this is one ad more than the toolbar can number, which is 32766; make a second list");
  EXPECT_TRUE(MatchesPattern("list.toml:1: [[ad]] lacks *", RefusalOf(folder, list.substr(7))));
}

TEST(AdList_ThatCantBeRead, IsRefusedByName) {
  const AdsRunner folder;
  for (const char* name : {"missing", "."}) {
    try {
      ReadAdList(folder.Path(name));
      ADD_FAILURE() << name;
    } catch (const Refusal& refusal) {
      EXPECT_TRUE(MatchesPattern(folder.Path(name) + ": can't read the list (*); name a text file that can be read",
                                 refusal.what()))
          << refusal.what();
    }
  }
}

TEST(AdList_OfTheTour, HasThreeSoundAdsOfTheBannersSize) {
  const AdLibrary library = ReadAdList(std::string(STRANDLINE_SOURCE_DIR) + "/scenes/ads/list.toml");
  EXPECT_EQ(library.ads, 3);
  ASSERT_EQ(library.content.pictures.size(), 3u);
  for (const auto& [number, bytes] : library.content.pictures) {
    const auto picture = desk::DecodePicture(bytes);
    ASSERT_TRUE(picture) << number;
    EXPECT_EQ(picture->width, 223);
    EXPECT_EQ(picture->height, 32);
    // The rounded corners let the bar through.
    EXPECT_EQ(picture->pixels[0], 0x0000FFu);
    EXPECT_NE(picture->pixels[16 * 223 + 100], 0x0000FFu);
  }
}

TEST(AdList_OfWhateverBytes, IsWrittenOrRefusedAtALine) {
  const AdsRunner folder;
  const std::string sound = "[builtin]\nfrom = 2008-01-31\nto = 2010-12-31\naddress = \"home\"\n" +
                            Ad("filter = \"a=b|!c~d=has_e\"") + Ad("rule = \"Mx30\"");
  std::mt19937 random(20030817);
  const std::string marks = "\"'[]{}=,.#\n$~|0129-/\\\xC3\x80\xFFWDMxuU+ ";
  int refused = 0;
  for (int round = 0; round < 400; ++round) {
    std::string list = sound;
    for (unsigned i = random() % 4 + 1; i > 0; --i) {
      const std::size_t at = random() % list.size();
      const char mark = marks[random() % marks.size()];
      switch (random() % 4) {
        case 0:
          list[at] = mark;
          break;
        case 1:
          list.insert(at, 1, mark);
          break;
        case 2:
          list.erase(at, random() % 8 + 1);
          break;
        default:
          list.insert(at, list.substr(random() % list.size(), random() % 40));
      }
    }
    const std::string refusal = RefusalOf(folder, list);
    if (refusal.empty()) continue;
    ++refused;
    EXPECT_TRUE(MatchesPattern("list.toml:*: *", refusal)) << list << refusal;
  }
  EXPECT_GT(refused, 100);
  EXPECT_LT(refused, 400);
}

}  // namespace
}  // namespace strandline::adtool
