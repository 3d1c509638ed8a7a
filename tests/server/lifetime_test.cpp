// When the DLL may go, and what it makes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server/client.h"

namespace strandline::servertest {

TEST(Server, TheStubCantBeMadeByOutsiders) {
  const Dll dll;
  void* object = &object;
  EXPECT_EQ(dll.GetClassObject(CLSID_AdvertisementsCallbackStub, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(dll.GetClassObject(IID__Main2, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
}

TEST(Server, BadRequestsOfAClassObject) {
  const Dll dll;
  EXPECT_EQ(dll.GetClassObject(CLSID_Main2, IID_IClassFactory, nullptr), E_POINTER);
  void* object = &object;
  EXPECT_EQ(dll.GetClassObject(CLSID_Main2, IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  const ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  object = &object;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}

TEST(Server, MayGo_WhenNothingWasMade) {
  const Dll dll;
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAClassObject) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_RibbonEvents);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForALock) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  dll.Factory(CLSID_Main2)->LockServer(FALSE);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, MoreReleasesThanLocks_CountForNothing) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  dll.Factory(CLSID_Main2)->LockServer(FALSE);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAnObject) {
  const Dll dll;
  ComRef<_Main2> main = dll.NewMain2();
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(main->Quit(), S_OK);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  main = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAConnectionPoint) {
  const Dll dll;
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  ASSERT_EQ(dll.NewRibbonEvents()->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(DIID___RibbonEvents, point.Put()), S_OK);
  container = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  ComRef<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
  point = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  connections = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

// The client lets go of its object within the call, by whichever way that came.
TEST(Server, StaysWhileAnOperationRuns) {
  const Dll dll;
  for (const bool byNumber : {false, true}) {
    ComRef<_Main2> main = dll.NewMain2();
    _Main2* const called = main.get();
    std::vector<HRESULT> within;
    PlayedProduct product;
    product.word = New<Played>([&](Use, std::string_view, const Arguments&) -> Variant {
      main = {};
      within.push_back(dll.CanUnloadNow());
      return u"12.0";
    });
    const ComRef<IDispatch> word = Outside(product.word);
    if (byNumber) {
      Bstr name(L"Quillmere");
      VARIANT object;
      VariantInit(&object);
      object.vt = VT_DISPATCH;
      object.pdispVal = word.get();
      Called initialized;
      CallByNumber(*called, 1, {object, object, object, OfText(name)}, initialized);
      EXPECT_EQ(initialized.outcome, S_OK);
    } else {
      EXPECT_EQ(InitializeWith(*called, word.get(), word.get(), word.get()), S_OK);
    }
    ASSERT_FALSE(within.empty());
    EXPECT_EQ(within, std::vector<HRESULT>(within.size(), S_FALSE));
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  }
}

// A request that is refused has made nothing: the end of an object that was made in vain would stop the one in use.
TEST(Server, ARefusedInterface_LeavesTheProductAlone) {
  const Dll dll;
  const ComRef<_Main2> main = dll.NewMain2();
  PlayedProduct product;
  ASSERT_EQ(product.Initialize(*main.get()), S_OK);
  const ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  void* object = &object;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline");
  EXPECT_EQ(main->UseQuillmere(), S_OK);
  EXPECT_EQ(product.commands, std::vector<std::string>{"InsertReference"});
  void* other = nullptr;
  EXPECT_EQ(dll.GetClassObject(CLSID_Main2, IID_IStream, &other), E_NOINTERFACE);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline");
}

TEST(Server, MakesAnObjectByAnyInterfaceThatItHas) {
  const Dll dll;
  const IID* const ids[] = {&IID_IUnknown,
                            &IID_IDispatch,
                            &IID__Main2,
                            &IID__RibbonEvents,
                            &IID_ISupportErrorInfo,
                            &IID_IProvideClassInfo,
                            &IID_IProvideClassInfo2,
                            &IID_IConnectionPointContainer,
                            &IID_IConnectionPoint,
                            &IID_IStream};
  for (const CLSID& classId : {CLSID_Main2, CLSID_RibbonEvents}) {
    const ComRef<IClassFactory> factory = dll.Factory(classId);
    ComRef<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.PutVoid()), S_OK);
    int answered = 0;
    for (const IID* const id : ids) {
      ComRef<IUnknown> asked;
      ComRef<IUnknown> made;
      const HRESULT has = object->QueryInterface(*id, asked.PutVoid());
      EXPECT_EQ(factory->CreateInstance(nullptr, *id, made.PutVoid()), has);
      EXPECT_EQ(static_cast<bool>(made), SUCCEEDED(has));
      answered += SUCCEEDED(has);
    }
    EXPECT_EQ(answered, classId == CLSID_Main2 ? 6 : 7);
  }
}

// What the library lets go of at its end may ask for it again.
TEST(Server, WhileTheLoadEnds_NobodyGetsIn) {
  const Dll dll;
  Watched word(PlayedProduct().word);
  std::vector<HRESULT> mayGo;
  std::vector<HRESULT> made;
  {
    ComRef<_Main2> main = dll.NewMain2();
    // After its end it takes another product, of which it doesn't let go any more.
    ASSERT_EQ(main->Quit(), S_OK);
    ASSERT_EQ(InitializeWith(*main.get(), &word, &word, &word), S_OK);
  }
  EXPECT_GT(word.owners, 1u);
  word.onTouch = [&] {
    mayGo.push_back(dll.CanUnloadNow());
    void* object = nullptr;
    made.push_back(dll.GetClassObject(CLSID_Main2, IID_IClassFactory, &object));
  };
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  word.onTouch = nullptr;
  EXPECT_EQ(word.owners, 1u);
  ASSERT_FALSE(mayGo.empty());
  EXPECT_EQ(mayGo, std::vector<HRESULT>(mayGo.size(), S_FALSE));
  EXPECT_EQ(made, std::vector<HRESULT>(made.size(), CO_E_SERVER_STOPPING));
  const ComRef<_Main2> again = dll.NewMain2();
  EXPECT_EQ(again->ReadingMode(), S_OK);
}

TEST(Server, AfterItsEnd_BeginsAnew) {
  const Dll dll;
  for (int i = 0; i < 3; ++i) {
    ComRef<_Main2> main = dll.NewMain2();
    PlayedProduct product;
    EXPECT_EQ(product.Initialize(*main.get()), S_OK);
    EXPECT_FALSE(product.word->uses.empty());
    main = {};
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  }
}

TEST(Server, LetsGoOfTheProductWhenItsLastReferenceGoes) {
  const Dll dll;
  ULONG owners = 0;
  const ComRef<IDispatch> failing = NewFailing(E_FAIL, &owners);
  {
    const ComRef<_Main2> main = dll.NewMain2();
    IDispatch* places[] = {failing.get(), failing.get(), failing.get()};
    Bstr name(L"Quillmere");
    EXPECT_EQ(main->Initialize(&places[0], &places[1], &places[2], name.Place()), S_OK);
    EXPECT_GT(owners, 1u);
  }
  EXPECT_EQ(owners, 1u);
}

// The system's own count of the module falls to nothing each time: its handle is free in between.
TEST(Server, LoadedUsedAndFreedOverAndOver) {
  for (int i = 0; i < 50; ++i) {
    {
      const Dll dll;
      const ComRef<_Main2> main = dll.NewMain2();
      PlayedProduct product;
      ASSERT_EQ(product.Initialize(*main.get()), S_OK);
      ASSERT_EQ(main->Quit(), S_OK);
    }
    ASSERT_EQ(::GetModuleHandleW(L"strandline.dll"), nullptr) << i;
  }
}

// Wrong, but no reason to fall over: nobody asked whether the DLL may go.
TEST(Server, FreedWithoutAsking) {
  const HMODULE module = ::LoadLibraryW(L"strandline.dll");
  ASSERT_NE(module, nullptr);
  using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
  ComRef<IClassFactory> factory;
  ASSERT_EQ(entry(CLSID_Main2, IID_IClassFactory, factory.PutVoid()), S_OK);
  factory = {};
  EXPECT_TRUE(::FreeLibrary(module));
  EXPECT_EQ(::GetModuleHandleW(L"strandline.dll"), nullptr);
}

}  // namespace strandline::servertest
