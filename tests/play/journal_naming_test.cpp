#include "play/journal_naming.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/desk/desk_dictionary.h"

namespace strandline::play {
namespace {

JournalNaming SomeNaming() {
  return JournalNaming({
      [](Long hwnd) { return hwnd == 500 ? std::string("bar 1") : std::string(); },
      [](Long handle) { return handle == 600 ? std::string("dc 2") : std::string(); },
      nullptr,
  });
}

std::string Shown(const Variant& value) { return CompactJson(SomeNaming().Value(value)); }

TEST(JournalNaming_AValue, ShowsByItsType) {
  Array<String> texts(1, 2);
  texts(1) = u"a";
  Array<Boolean> flags(0, 1);
  flags(1) = true;
  Array<Byte> bytes(0, 8);
  for (Long i = 0; i < 9; ++i) bytes(i) = static_cast<Byte>('1' + i);
  const struct {
    Variant value;
    const char* shown;
  } kCases[] = {
      {Variant(), "null"},
      {Variant(true), "true"},
      {Variant(Integer{-3}), "-3"},
      {Variant(Long{500}), "500"},
      {Variant(Single{0.1f}), "\"0.1\""},
      {Variant(Single{3}), "\"3\""},
      {Variant(2.5), "2.5"},
      {Variant(Date{39874.375}), "\"2009-03-02T09:00:00\""},
      {Variant(Date{-1.25}), "\"1899-12-29T06:00:00\""},
      {Variant(u"\u00e9 \"x\"\n"), "\"\xC3\xA9 \\\"x\\\"\\n\""},
      {Variant(Object()), "null"},
      {Variant(Picture()), "null"},
      {Variant(New<desk::DeskDictionary>()), "\"Dictionary\""},
      {Variant(texts), "[\"a\",\"\"]"},
      {Variant(flags), "[false,true]"},
      {Variant(bytes), "{\"bytes\":9,\"crc32\":\"cbf43926\"}"},
      {Variant(Array<String>()), "[]"},
      {Variant(Date{std::numeric_limits<double>::infinity()}), "\"no date\""},
  };
  for (const auto& each : kCases) EXPECT_EQ(Shown(each.value), each.shown);
}

TEST(JournalNaming_ATextThatIsNotWellFormed, StillGivesALine) {
  EXPECT_EQ(Shown(Variant(String(TextView(u"a\xD800z", 3)))), "\"a\xEF\xBF\xBDz\"");
}

TEST(JournalNaming_ATextOfThisWorldsOwn, ReadsAsInEveryWorld) {
  const JournalNaming naming(
      {nullptr, nullptr, nullptr, [](std::string text) { return text == "C:\\Temp\\" ? "C:\\Shared\\" : text; }});
  EXPECT_EQ(naming.Value(u"C:\\Temp\\"), "C:\\Shared\\");
  EXPECT_EQ(naming.Value(u"D:\\"), "D:\\");
  EXPECT_EQ(SomeNaming().Value(u"C:\\Temp\\"), "C:\\Temp\\");
}

TEST(JournalNaming_AHandle, BearsItsNameWhereHandlesAreMeant) {
  const JournalNaming naming = SomeNaming();
  EXPECT_EQ(naming.ValueWithHandles(Long{500}), Json("bar 1"));
  EXPECT_EQ(naming.ValueWithHandles(Long{600}), Json("dc 2"));
  EXPECT_EQ(naming.ValueWithHandles(Long{7}), Json(7));
  EXPECT_EQ(naming.ValueWithHandles(Integer{500}), Json(500));
  EXPECT_EQ(naming.Window(0), Json(0));
  EXPECT_EQ(naming.GraphicsObject(500), Json(500));
}

TEST(JournalNaming_Arguments, ShowByReferenceOnesAsTheyAreNowAndNamedOnesAtTheEnd) {
  Long written = 1;
  const Variant positional[] = {Variant(u"x"), Variant(Missing{}), Variant::ByRef(written)};
  const Named named[] = {{Name::FromText("Show"), Variant(true)}, {Name::FromText("N"), Variant(Long{2})}};
  written = 9;
  const JournalNaming naming = SomeNaming();
  EXPECT_EQ(CompactJson(naming.Arguments(positional, named)), "[\"x\",9,{\"Show\":true,\"N\":2}]");
  EXPECT_EQ(CompactJson(naming.Arguments({}, {})), "[]");
}

}  // namespace
}  // namespace strandline::play
