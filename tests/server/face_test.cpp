// Any object of ours as the automation world sees it.

#include "platform/win32/face.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_variant.h"
#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

DISPID IdOf(IDispatch& object, const wchar_t* name) {
  LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
  DISPID id = DISPID_UNKNOWN;
  EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
  return id;
}

// Numbers up to a last one.
class Numbers final : public Dispatch {
 public:
  explicit Numbers(Long last) : mLast(last) {}
  Variant Invoke(Use, Name member, const Arguments& arguments) override {
    if (member != "Item") Raise(errors::kNoSuchMember);
    return static_cast<Long>(arguments.positional[0].ToLong() * 10);
  }
  Long Identity() const override { return 1; }
  Ref<Enumerator> Elements() override { return Ref<Enumerator>(New<Counter>(mLast)); }

 private:
  class Counter final : public Enumerator {
   public:
    explicit Counter(Long last) : mLast(last) {}
    bool Next(Variant& element) override {
      if (mAt == mLast) return false;
      element = ++mAt;
      return true;
    }

   private:
    Long mAt = 0;
    Long mLast;
  };
  Long mLast;
};

ComRef<IDispatch> Shown(const Object& object) {
  ComRef<IDispatch> outside;
  *outside.Put() = win32::Unwrap(object);
  return outside;
}

}  // namespace

TEST(Face, TheSameObjectIsTheSameOne_AsLongAsItIsHeld) {
  const Long before = win32::LiveObjects();
  const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
  {
    const ComRef<IDispatch> first = Outside(object);
    const ComRef<IDispatch> second = Outside(object);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(win32::LiveObjects(), before + 1);
    EXPECT_EQ(win32::TargetOf(first.get()).get(), object.get());
    EXPECT_TRUE(win32::Wrap(first.get()) == Object(object));
  }
  EXPECT_EQ(win32::LiveObjects(), before);
}

TEST(Face, OfAnotherModuleIsForeign) {
  const Dll dll;
  const ComRef<_Main2> main = dll.NewMain2();
  EXPECT_FALSE(win32::TargetOf(main.get()));
  EXPECT_FALSE(win32::TargetOf(NewFailing(E_FAIL).get()));
}

TEST(Face, TheFlagsTellTheUse) {
  struct Case {
    int flags;
    const char* use;
  };
  for (const Case& entry : {Case{DISPATCH_METHOD, "call Member"}, Case{DISPATCH_PROPERTYGET, "get Member"},
                            Case{DISPATCH_METHOD | DISPATCH_PROPERTYGET, "get Member"},
                            Case{DISPATCH_PROPERTYPUT, "let Member"}, Case{DISPATCH_PROPERTYPUTREF, "let Member"}}) {
    const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
    const ComRef<IDispatch> outside = Outside(object);
    const bool isLet = entry.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    Called called;
    CallByNumber(*outside.get(), IdOf(*outside.get(), L"Member"), {OfLong(1)}, called,
                 isLet ? std::vector<DISPID>{DISPID_PROPERTYPUT} : std::vector<DISPID>(),
                 static_cast<WORD>(entry.flags));
    EXPECT_EQ(called.outcome, S_OK);
    // A name keeps the letters of its first use anywhere.
    ASSERT_EQ(object->uses.size(), 1u);
    EXPECT_EQ(object->uses[0].substr(0, 4), std::string(entry.use).substr(0, 4)) << entry.flags;
  }
}

TEST(Face, PositionalAndNamedArguments) {
  std::vector<Long> positional;
  std::vector<std::pair<std::string, Long>> named;
  const auto object = New<Played>([&](Use, std::string_view, const Arguments& arguments) -> Variant {
    for (const Variant& value : arguments.positional) positional.push_back(value.ToLong());
    for (const Named& value : arguments.named) named.emplace_back(value.name.Text(), value.value.ToLong());
    return Long{8};
  });
  const ComRef<IDispatch> outside = Outside(object);
  wchar_t member[] = L"Open";
  wchar_t second[] = L"FaceTestSecond";
  wchar_t third[] = L"FaceTestThird";
  LPOLESTR names[] = {member, second, third};
  DISPID ids[3] = {};
  ASSERT_EQ(outside->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  Called called;
  CallByNumber(*outside.get(), ids[0], {OfLong(1), OfLong(2), OfLong(3)}, called, {ids[2], ids[1]});
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(called.result.lVal, 8);
  EXPECT_EQ(positional, std::vector<Long>{1});
  EXPECT_EQ(named, (std::vector<std::pair<std::string, Long>>{{"FaceTestThird", 3}, {"FaceTestSecond", 2}}));
}

TEST(Face, WhatTheObjectRaises_IsAnExceptionWithItsNumberAndWords) {
  struct Case {
    Long number;
    std::uint32_t result;
  };
  for (const Case& entry : {Case{438, 0x800A01B6}, Case{4605, 0x800A11FD}, Case{13, 0x800A000D},
                            Case{static_cast<Long>(0x80040203), 0x80040203}}) {
    const auto object = New<Played>(
        [&](Use, std::string_view, const Arguments&) -> Variant { Raise(entry.number, u"in its own words"); });
    const ComRef<IDispatch> outside = Outside(object);
    Called called;
    CallByNumber(*outside.get(), IdOf(*outside.get(), L"Anything"), {}, called);
    EXPECT_EQ(called.outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<std::uint32_t>(called.exception.scode), entry.result);
    EXPECT_EQ(std::wstring(called.exception.bstrDescription), L"in its own words");
    DISPPARAMS none{};
    EXPECT_EQ(outside->Invoke(IdOf(*outside.get(), L"Anything"), IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                              nullptr),
              DISP_E_EXCEPTION);
  }
}

TEST(Face, AVariableOfEachKindIsWrittenInItsOwnType) {
  Variant answer;
  const auto object = New<Played>([&](Use, std::string_view, const Arguments& arguments) -> Variant {
    arguments.positional[0].Assign(answer);
    return {};
  });
  const ComRef<IDispatch> outside = Outside(object);
  const DISPID id = IdOf(*outside.get(), L"Write");
  const auto write = [&](VARTYPE type, void* place, const Variant& value) {
    answer = value;
    Called called;
    CallByNumber(*outside.get(), id, {Of(type, place)}, called);
    return called.outcome;
  };
  BYTE small = 1;
  float single = 1;
  CY money{};
  DATE date = 0;
  std::int64_t large = 1;
  DECIMAL decimal{};
  IUnknown* unknown = nullptr;
  EXPECT_EQ(write(VT_UI1, &small, Long{200}), S_OK);
  EXPECT_EQ(small, 200);
  EXPECT_EQ(write(VT_R4, &single, 2.5), S_OK);
  EXPECT_EQ(single, 2.5F);
  EXPECT_EQ(write(VT_CY, &money, 1.25), S_OK);
  EXPECT_EQ(money.int64, 12500);
  EXPECT_EQ(write(VT_DATE, &date, Date{45000.25}), S_OK);
  EXPECT_EQ(date, 45000.25);
  EXPECT_EQ(write(VT_I8, &large, Long{70000}), S_OK);
  EXPECT_EQ(large, 70000);
  EXPECT_EQ(write(VT_DECIMAL, &decimal, Long{-7}), S_OK);
  LONG whole = 0;
  EXPECT_EQ(::VarI4FromDec(&decimal, &whole), S_OK);
  EXPECT_EQ(whole, -7);
  EXPECT_EQ(decimal.wReserved, 0);
  EXPECT_EQ(write(VT_UNKNOWN, &unknown, Object(object)), S_OK);
  EXPECT_NE(unknown, nullptr);
  if (unknown) unknown->Release();

  SAFEARRAY* bytes = ::SafeArrayCreateVector(VT_UI1, 0, 1);
  Array<Byte> written(0, 2);
  written(2) = 9;
  EXPECT_EQ(write(VT_ARRAY | VT_UI1, &bytes, written), S_OK);
  EXPECT_EQ(bytes->rgsabound[0].cElements, 3u);
  EXPECT_EQ(write(VT_ARRAY | VT_UI1, &bytes, u"no array"), DISP_E_EXCEPTION);
  ::SafeArrayDestroy(bytes);

  VARIANT any;
  VariantInit(&any);
  EXPECT_EQ(write(VT_VARIANT, &any, u"text"), S_OK);
  EXPECT_EQ(any.vt, VT_BSTR);
  VariantClear(&any);
  SHORT inner = 4;
  any = Of(VT_I2, &inner);
  EXPECT_EQ(write(VT_VARIANT, &any, Long{5}), S_OK);
  EXPECT_EQ(inner, 5);
  EXPECT_EQ(any.vt, VT_BYREF | VT_I2);
  SHORT narrow = 4;
  EXPECT_EQ(write(VT_I2, &narrow, Long{70000}), DISP_E_EXCEPTION);
  EXPECT_EQ(narrow, 4);
}

TEST(Face, AVariableThatNobodyWrites_KeepsWhatTheSeamDoesntKnow) {
  const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
  const ComRef<IDispatch> outside = Outside(object);
  VARIANT null;
  VariantInit(&null);
  null.vt = VT_NULL;
  Called called;
  CallByNumber(*outside.get(), IdOf(*outside.get(), L"Look"), {Of(VT_VARIANT, &null)}, called);
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(null.vt, VT_NULL);
}

TEST(Face, ACollectionIsWalked) {
  const Long before = win32::LiveObjects();
  {
    const ComRef<IDispatch> outside = Shown(Ref<Numbers>(New<Numbers>(3)));
    EXPECT_EQ(IdOf(*outside.get(), L"_NewEnum"), DISPID_NEWENUM);
    Called called;
    CallByNumber(*outside.get(), DISPID_NEWENUM, {}, called);
    ASSERT_EQ(called.outcome, S_OK);
    ASSERT_EQ(called.result.vt, VT_UNKNOWN);
    ComRef<IEnumVARIANT> elements;
    ASSERT_EQ(called.result.punkVal->QueryInterface(IID_IEnumVARIANT, elements.PutVoid()), S_OK);
    VARIANT found[4];
    ULONG fetched = 0;
    EXPECT_EQ(elements->Next(2, found, &fetched), S_OK);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(found[1].lVal, 2);
    ComRef<IEnumVARIANT> clone;
    ASSERT_EQ(elements->Clone(clone.Put()), S_OK);
    for (const ComRef<IEnumVARIANT>& at : {elements, clone}) {
      EXPECT_EQ(at->Next(4, found, &fetched), S_FALSE);
      EXPECT_EQ(fetched, 1u);
      EXPECT_EQ(found[0].lVal, 3);
    }
    EXPECT_EQ(elements->Reset(), S_OK);
    EXPECT_EQ(elements->Skip(2), S_OK);
    EXPECT_EQ(elements->Skip(2), S_FALSE);
    EXPECT_EQ(elements->Next(1, nullptr, nullptr), E_POINTER);
    Called item;
    CallByNumber(*outside.get(), DISPID_VALUE, {OfLong(4)}, item);
    EXPECT_EQ(item.result.lVal, 40);
  }
  EXPECT_EQ(win32::LiveObjects(), before);
}

TEST(Face, WhatIsNoCollectionIsntWalked) {
  const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
  const ComRef<IDispatch> outside = Outside(object);
  Called called;
  CallByNumber(*outside.get(), DISPID_NEWENUM, {}, called);
  EXPECT_EQ(called.outcome, DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<std::uint32_t>(called.exception.scode), 0x800A01B6u);
}

TEST(Face, BadRequests) {
  const auto object = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
  const ComRef<IDispatch> outside = Outside(object);
  DISPID id = 0;
  LPOLESTR names[] = {nullptr};
  EXPECT_EQ(outside->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(outside->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(outside->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
  EXPECT_EQ(outside->GetIDsOfNames(IID_NULL, names, 1, 0, &id), E_INVALIDARG);
  EXPECT_EQ(outside->GetIDsOfNames(IID_NULL, names, 0, 0, &id), E_INVALIDARG);
  EXPECT_EQ(outside->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
  Called unknown;
  CallByNumber(*outside.get(), 12345678, {}, unknown);
  EXPECT_EQ(unknown.outcome, DISP_E_MEMBERNOTFOUND);
  Called value;
  CallByNumber(*outside.get(), DISPID_VALUE, {}, value);
  EXPECT_EQ(value.outcome, DISP_E_MEMBERNOTFOUND);
  EXPECT_TRUE(object->uses.empty());
}

// An object that is a picture gives the system's own picture to whom wants one.
TEST(Face, APictureIsOneForTheWorldToo) {
  win32::Win32Platform platform(u"Software\\Morvane\\StrandlineTest");
  Pictures& pictures = *platform.Services().pictures;
  const HBITMAP bitmap = ::CreateBitmap(20, 10, 1, 1, nullptr);
  PictDesc description;
  description.picType = PICTYPE_BITMAP;
  description.hImage = win32::ToNumber(bitmap);
  Guid id;
  ASSERT_EQ(pictures.CLSIDFromString(u"{7BF80981-BF32-101A-8BBB-00AA00300CAB}", id), 0);
  Picture picture;
  ASSERT_EQ(pictures.OleCreatePictureIndirect(description, id, true, picture), 0);

  class Holder final : public Dispatch {
   public:
    explicit Holder(Picture held) : mPicture(std::move(held)) {}
    Variant Invoke(Use, Name, const Arguments&) override { return {}; }
    Long Identity() const override { return 2; }
    Picture AsPicture() const override { return mPicture; }

   private:
    Picture mPicture;
  };
  const ComRef<IDispatch> outside = Shown(Ref<Holder>(New<Holder>(picture)));
  ComRef<IPicture> shown;
  ASSERT_EQ(outside->QueryInterface(IID_IPicture, shown.PutVoid()), S_OK);
  OLE_HANDLE handle = 0;
  EXPECT_EQ(shown->get_Handle(&handle), S_OK);
  EXPECT_EQ(static_cast<Long>(handle), picture->Handle());
  for (const auto& [number, expected] :
       {std::pair(PictureObject::kHandleId, picture->Handle()), std::pair(PictureObject::kWidthId, picture->Width()),
        std::pair(PictureObject::kHeightId, picture->Height())}) {
    Called called;
    CallByNumber(*outside.get(), number, {}, called, {}, DISPATCH_PROPERTYGET);
    EXPECT_EQ(called.outcome, S_OK) << number;
    EXPECT_EQ(called.result.lVal, expected) << number;
  }
}

}  // namespace strandline::servertest
