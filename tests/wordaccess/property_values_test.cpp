// Named values on their three levels, a document's own values, and what is forwarded to the store.

#include "platform/wrappers/forwarding.h"
#include "tests/support/scripted_object.h"
#include "tests/support/variables.h"
#include "tests/wordaccess/word_access_fixture.h"
#include "wordsim/store.h"

namespace strandline {
namespace {

using namespace CommonPropertyFunctions;

class PropertyValues : public WordAccessTest {
 protected:
  Object Open(const char16_t* name) { return Ref<wordsim::Document>(&Word().Open(name)); }
  void SetUser(const char16_t* key, const char16_t* text) { Word().TheProduct().Store().SetUserValue(key, text); }
  void SetGlobal(const char16_t* key, const char16_t* text) { Word().TheProduct().Store().SetGlobalValue(key, text); }
  String ValueOfActive(const char16_t* key) {
    Object document;
    return DocumentValue(key, document);
  }
  TextLines Uses() { return Did().Of(Doings::kUse); }
};

TEST_F(PropertyValues, Store_IsForwardedTo) {
  TheWorld();
  Word().TheHooks().productCommand = [](const String& command, const Variant& param) -> Variant {
    return Concat({command, param.IsMissing() ? u"/none" : u"/", param.IsMissing() ? u"" : param.ToText()});
  };
  EXPECT_EQ(InstallPath(), u"C:\\Program Files\\Quillmere\\");
  EXPECT_EQ(CommonAppPath(), u"C:\\Documents and Settings\\All Users\\Application Data\\Quillmere\\");
  EXPECT_EQ(wordsim::JournalNameOf(tooltip()), "tooltip");
  EXPECT_EQ(ExecuteQLMCommand(u"Go").ToText(), u"Go/none");
  EXPECT_EQ(ExecuteQLMCommand(u"Go", String(u"there")).ToText(), u"Go/there");
  EXPECT_EQ(properties(), Word().Properties());
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")),
            "call properties ExecuteQLMCommand(Go) = Go/none\n"
            "call properties ExecuteQLMCommand(Go, there) = Go/there\n");
}

TEST_F(PropertyValues, WithoutAStore_EachForwardIsAnErrorOfItsOwn) {
  const struct {
    void (*forward)();
    const char* error;
  } cases[] = {
      {[] { InstallPath(); }, "91 CommonPropertyFunctions.InstallPath[Get]"},
      {[] { CommonAppPath(); }, "91 CommonPropertyFunctions.CommonAppPath[Get]"},
      {[] { tooltip(); }, "91 CommonPropertyFunctions.tooltip[Get]"},
      {[] { ExecuteQLMCommand(u"Go"); }, "91 CommonPropertyFunctions.ExecuteQLMCommand"},
      {[] { PropertyValue(u"Key"); }, "91 CommonPropertyFunctions.PropertyValue"},
  };
  TheWorld();
  Terminate();
  EXPECT_TRUE(properties().IsNothing());
  for (const auto& [forward, error] : cases) {
    Did().Clear();
    forward();
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
  }
}

// The first level that has a text of at least one character wins.
TEST_F(PropertyValues, PropertyValue_GoesDownTheLevels) {
  const struct {
    const char16_t* document;
    const char16_t* user;
    const char16_t* global;
    const char16_t* value;
  } cases[] = {
      {u"d", u"u", u"g", u"d"},         {u"", u"u", u"g", u"u"},  {nullptr, u"u", u"g", u"u"},
      {u"", u"", u"g", u"g"},           {u"", u"", u"", u""},     {nullptr, nullptr, u"g", u"g"},
      {nullptr, nullptr, nullptr, u""}, {u" ", u"u", u"g", u" "},
  };
  for (const auto& row : cases) {
    Begin(u"11.0");
    Open(u"One.doc");
    if (row.document) Word().SetVariable(u"Key", row.document);
    if (row.user) SetUser(u"Key", row.user);
    if (row.global) SetGlobal(u"Key", row.global);
    EXPECT_EQ(ToUtf8(PropertyValue(u"Key")), ToUtf8(row.value));
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(PropertyValues, LowerLevels_AreAskedOnlyWhenNeeded) {
  Open(u"One.doc");
  Word().SetVariable(u"Key", u"own");
  PropertyValue(u"Key");
  EXPECT_EQ(Did().Count(Doings::kUse, "get properties Global"), 0u);
  SetUser(u"Other", u"mine");
  PropertyValue(u"Other");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "get properties Global")), "get properties GlobalUserValue(Other) = mine\n");
}

TEST_F(PropertyValues, Keys_AreToldApartByCase) {
  Open(u"One.doc");
  Word().SetVariable(u"Key", u"own");
  EXPECT_EQ(ValueOfActive(u"Key"), u"own");
  EXPECT_EQ(ValueOfActive(u"KEY"), u"");
}

TEST_F(PropertyValues, WithoutADocument_NoVariablesAreTouched) {
  SetUser(u"Key", u"mine");
  Did().Clear();
  EXPECT_EQ(ValueOfActive(u"Key"), u"");
  EXPECT_EQ(Block(Uses()), "get Application Documents() = Documents\nget Documents Count() = 0\n");
  EXPECT_EQ(PropertyValue(u"Key"), u"mine");
}

TEST_F(PropertyValues, WithoutADocument_TheArgumentStays) {
  TheWorld();
  Object document;
  DocumentValue(u"Key", document);
  EXPECT_TRUE(document.IsNothing());
}

TEST_F(PropertyValues, DocumentLeftOut_BecomesTheActiveOne) {
  Open(u"One.doc");
  const Object two = Open(u"Two.doc");
  Object document;
  DocumentValue(u"Key", document);
  EXPECT_EQ(document, two);
}

TEST_F(PropertyValues, DocumentGiven_IsTheOneAsked) {
  Object one = Open(u"One.doc");
  Word().SetVariable(u"Key", u"of one");
  Open(u"Two.doc");
  Word().SetVariable(u"Key", u"of two");
  EXPECT_EQ(DocumentValue(u"Key", one), u"of one");
  EXPECT_EQ(wordsim::JournalNameOf(one), "document One.doc");
  EXPECT_EQ(ValueOfActive(u"Key"), u"of two");
}

TEST_F(PropertyValues, DocId_IsTheIdentityInDecimals) {
  const Object one = Open(u"One.doc");
  const Object two = Open(u"Two.doc");
  EXPECT_EQ(docId(one), DecimalText(one.Identity()));
  EXPECT_EQ(docId(one), docId(CommonWordInteractionFunctions::Documents().Get("Item", u"One.doc").ToObject()));
  EXPECT_NE(docId(one), docId(two));
  EXPECT_EQ(docId(nullptr), u"");
}

TEST_F(PropertyValues, DocIdThatCantBeTaken_IsEmptyWithoutASign) {
  class Faceless final : public Dispatch {
   public:
    Variant Invoke(Use, Name, const Arguments&) override { return {}; }
    Long Identity() const override { Raise(errors::kNoSuchMember); }
  };
  TheWorld();
  EXPECT_EQ(docId(Object(New<Faceless>())), u"");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(PropertyValues, FirstRead_HandsAllVariablesToTheStore) {
  const Object one = Open(u"One.doc");
  Word().SetVariable(u"B", u"2");
  Word().SetVariable(u"A", u"1");
  ValueOfActive(u"A");
  const Object map = Word().Properties().Get("DocumentValueMap", docId(one)).ToObject();
  auto* const dictionary = dynamic_cast<strandline::Dictionary*>(map.Target());
  ASSERT_NE(dictionary, nullptr);
  ASSERT_EQ(dictionary->Count(), 2);
  EXPECT_EQ(dictionary->KeyAt(0).ToText(), u"B");
  EXPECT_EQ(dictionary->ItemAt(0).ToText(), u"2");
  EXPECT_EQ(dictionary->KeyAt(1).ToText(), u"A");
  EXPECT_EQ(dictionary->ItemAt(1).ToText(), u"1");
}

TEST_F(PropertyValues, VariableThatComesLater_IsntSeenUntilTheProductTells) {
  const Object one = Open(u"One.doc");
  ValueOfActive(u"Key");
  Word().SetVariable(u"Key", u"late");
  Did().Clear();
  EXPECT_EQ(ValueOfActive(u"Key"), u"");
  EXPECT_EQ(Did().Count(Doings::kUse, "get document One.doc Variables"), 0u);
  Word().TheProduct().ChangeValue(wordsim::ValueLevel::kDocument, u"Key", u"told", docId(one));
  EXPECT_EQ(ValueOfActive(u"Key"), u"told");
}

// What fails while the variables are gone through, and what the store is then given.
TEST_F(PropertyValues, UnreadableVariables_CostTheirOwnStepAlone) {
  const struct {
    const char* object;
    const char* member;
    const char* a;
    const char* b;
  } faults[] = {
      {"document One.doc", "Variables", "", ""},   {"variable A of One.doc", "name", "", "2"},
      {"variable A of One.doc", "value", "", "2"}, {"variable B of One.doc", "value", "1", ""},
      {"variables One.doc", "each", "", ""},
  };
  for (const auto& [object, member, a, b] : faults) {
    SCOPED_TRACE(std::string(object) + "." + member);
    Begin(u"11.0");
    const Object one = Open(u"One.doc");
    Word().SetVariable(u"A", u"1");
    Word().SetVariable(u"B", u"2");
    Word().Faults().Arm(object, member);
    EXPECT_EQ(ToUtf8(ValueOfActive(u"A")), a);
    EXPECT_EQ(ToUtf8(ValueOfActive(u"B")), b);
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_TRUE(Word().Properties().Get("DocumentValueMapExists", docId(one)).ToBoolean());
  }
}

// A document whose variables are A, A again and B.
class DocumentOfTwins final : public Dispatch {
 public:
  Variant Invoke(Use, Name member, const Arguments&) override {
    if (member != Name("Variables")) Raise(errors::kNoSuchMember);
    return Object(Ref<Dispatch>(this));
  }
  Long Identity() const override { return 77; }
  Ref<Enumerator> Elements() override { return New<Variables>(); }

 private:
  class Variables final : public Enumerator {
   public:
    bool Next(Variant& element) override {
      static constexpr const char16_t* kNames[] = {u"A", u"A", u"B"};
      if (mAt == std::size(kNames)) return false;
      element = Object(New<ScriptedObject>([at = mAt](Use, Name member, const Arguments&) -> Variant {
        return member == Name("name") ? Variant(kNames[at]) : Variant(DecimalText(static_cast<Long>(at) + 1));
      }));
      ++mAt;
      return true;
    }

   private:
    std::size_t mAt = 0;
  };
};

TEST_F(PropertyValues, DuplicateVariable_CostsItsStepAlone) {
  Open(u"One.doc");
  Object document = New<DocumentOfTwins>();
  EXPECT_EQ(DocumentValue(u"A", document), u"1");
  EXPECT_EQ(DocumentValue(u"B", document), u"3");
  EXPECT_EQ(Word().Properties().Get("DocumentValueMap", u"77").ToObject().Get("Count").ToLong(), 2);
  EXPECT_TRUE(Did().Errors().empty());
}

// A document with the variable A, behind which the walk breaks off.
class DocumentThatBreaksOff final : public Dispatch {
 public:
  explicit DocumentThatBreaksOff(int& reads) : mReads(reads) {}
  Variant Invoke(Use, Name, const Arguments&) override { return Object(Ref<Dispatch>(this)); }
  Long Identity() const override { return 78; }
  Ref<Enumerator> Elements() override { return New<Variables>(mReads); }

 private:
  class Variables final : public Enumerator {
   public:
    explicit Variables(int& reads) : mReads(reads) {}
    bool Next(Variant& element) override {
      if (mIsGiven) Raise(1000);
      mIsGiven = true;
      element = Object(New<ScriptedObject>([&reads = mReads](Use, Name member, const Arguments&) -> Variant {
        ++reads;
        return member == Name("name") ? Variant(u"A") : Variant(u"1");
      }));
      return true;
    }

   private:
    int& mReads;
    bool mIsGiven = false;
  };
  int& mReads;
};

TEST_F(PropertyValues, WalkThatBreaksOff_EndsWithTheVariablesReadOnce) {
  Open(u"One.doc");
  int reads = 0;
  Object document = New<DocumentThatBreaksOff>(reads);
  EXPECT_EQ(DocumentValue(u"A", document), u"1");
  EXPECT_EQ(reads, 2) << "the name and the value";
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(PropertyValues, FailingStore_ReachesTheCallersTail) {
  const struct {
    const char* member;
    const char* error;
  } faults[] = {
      {"DocumentValueMapExists", "1000 CommonPropertyFunctions.InitializeDocumentValueMap"},
      {"DocumentValue", "1000 CommonPropertyFunctions.DocumentValue[Get]"},
      {"GlobalUserValue", "1000 CommonPropertyFunctions.PropertyValue"},
      {"GlobalValue", "1000 CommonPropertyFunctions.PropertyValue"},
  };
  for (const auto& [member, error] : faults) {
    Begin(u"11.0");
    Open(u"One.doc");
    Word().Faults().Arm("properties", member);
    PropertyValue(u"Key");
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
  }
}

TEST_F(PropertyValues, Dictionary_ComesFromTheSeam) {
  class NoDictionaries final : public ForwardingComponents {
   public:
    using ForwardingComponents::ForwardingComponents;
    Ref<strandline::Dictionary> CreateDictionary() override { Raise(errors::kCannotCreateComponent); }
  };
  TheWorld();
  NoDictionaries components(TheWorld().desk.Components());
  platform::current.components = &components;
  EXPECT_FALSE(CommonPropertyFunctions::Dictionary());
  EXPECT_EQ(Block(Did().Errors()), "429 CommonPropertyFunctions.Dictionary\n");
}

TEST_F(PropertyValues, Dictionary_IsNewAtEachCall) {
  TheWorld();
  const auto one = CommonPropertyFunctions::Dictionary();
  const auto two = CommonPropertyFunctions::Dictionary();
  ASSERT_TRUE(one && two);
  EXPECT_NE(one.get(), two.get());
  EXPECT_EQ(one->Count(), 0);
}

TEST_F(PropertyValues, Dump_ListsTheVariablesInTheirOrder) {
  TheWorld();
  EXPECT_EQ(
      Block(VariableSnapshot::Of(&ReportModule).Names()),
      "mFormatDisplayNames\nmCurrentFormatter\nmDisplayToClassNames\nmFormatMetaData\nmFormatters\nmProperties\n");
  EXPECT_EQ(Block(VariableSnapshot::Of(&CommonWordInteractionFunctions::ReportModule).Names()), "mWord\n");
}

}  // namespace
}  // namespace strandline
