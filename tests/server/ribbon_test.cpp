// A ribbon component that the library creates by name, and what it gets: the relay, as an object of the public class.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/win32/win32_variant.h"
#include "tests/server/client.h"
#include "tests/server/component.h"
#include "tests/server/sink.h"

namespace strandline::servertest {

namespace {

// What stands in this program's own copy of the images.
std::vector<BYTE> ImageBytes(int number) {
  const HRSRC found = ::FindResourceW(nullptr, MAKEINTRESOURCEW(number), L"CUSTOM");
  EXPECT_NE(found, nullptr);
  if (!found) return {};
  const auto* from = static_cast<const BYTE*>(::LockResource(::LoadResource(nullptr, found)));
  return std::vector<BYTE>(from, from + ::SizeofResource(nullptr, found));
}

class Ribbon : public testing::Test {
 protected:
  Ribbon() {
    EXPECT_EQ(product.Initialize(*main.get()), S_OK);
    if (relay.IsNothing()) throw std::runtime_error("the component wasn't given the relay");
  }

  ComRef<_RibbonEvents> RelayOutside() const {
    ComRef<IDispatch> object;
    *object.Put() = win32::Unwrap(relay);
    ComRef<_RibbonEvents> outside;
    EXPECT_EQ(object->QueryInterface(IID__RibbonEvents, outside.PutVoid()), S_OK);
    return outside;
  }

  Dll dll;
  Object relay;  // as the component has it
  std::vector<bool> flags;
  Ref<Played> handler = New<Played>([this](Use, std::string_view member, const Arguments& arguments) -> Variant {
    if (member == "Initialize") relay = arguments.positional[0].ToObject();
    if (member == "EnableGotoQuickBookmark") flags.push_back(arguments.positional[0].ToBoolean());
    return {};
  });
  ComRef<IDispatch> handlerOutside = Outside(handler);
  Component component{L"RibbonHandler.Main2", handlerOutside.get()};
  PlayedProduct product;
  ComRef<_Main2> main = dll.NewMain2();
};

}  // namespace

TEST_F(Ribbon, IsGivenTheRelay_WhichAnswersWithTheImages) {
  const ComRef<_RibbonEvents> outside = RelayOutside();
  short index = 102;
  SAFEARRAY* bytes = nullptr;
  ASSERT_EQ(outside->getToolbarIconBits(&index, &bytes), S_OK);
  ASSERT_NE(bytes, nullptr);
  const auto* from = static_cast<const BYTE*>(bytes->pvData);
  EXPECT_EQ(std::vector<BYTE>(from, from + bytes->rgsabound[0].cElements), ImageBytes(102));
  ::SafeArrayDestroy(bytes);
}

TEST_F(Ribbon, AnImageThatIsntThere_GivesNoBytes) {
  const ComRef<_RibbonEvents> outside = RelayOutside();
  short index = 9999;
  SAFEARRAY* bytes = nullptr;
  EXPECT_EQ(outside->getToolbarIconBits(&index, &bytes), S_OK);
  EXPECT_EQ(bytes, nullptr);
}

TEST_F(Ribbon, ACommandReachesTheProduct_AndAListenerBesides) {
  const ComRef<_RibbonEvents> outside = RelayOutside();
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  ASSERT_EQ(outside->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(DIID___RibbonEvents, point.Put()), S_OK);
  Sink sink(DIID___RibbonEvents);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  Bstr command(L"InsertReference");
  EXPECT_EQ(outside->run(command.Place()), S_OK);
  EXPECT_EQ(product.commands, std::vector<std::string>{"InsertReference"});
  EXPECT_EQ(sink.heard, std::vector<DISPID>{2});
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(Ribbon, AFlagOfAnyKind_ReachesIt) {
  constexpr DISPID kEnableGotoQuickBookmark = 3;
  VARIANT_BOOL yes = VARIANT_TRUE;
  VARIANT_BOOL no = VARIANT_FALSE;
  Bstr yesText(L"True");
  Bstr noText(L"False");
  const VARIANT ways[] = {Of(VT_BOOL, &yes), Of(VT_BOOL, &no), OfLong(1), OfLong(0), OfText(yesText), OfText(noText)};
  for (const VARIANT& way : ways) {
    Called called;
    CallByNumber(*main.get(), kEnableGotoQuickBookmark, {way}, called);
    EXPECT_EQ(called.outcome, S_OK) << way.vt;
  }
  EXPECT_EQ(main->EnableGotoQuickBookmark(&yes), S_OK);
  EXPECT_EQ(main->EnableGotoQuickBookmark(&no), S_OK);
  EXPECT_EQ(flags, (std::vector<bool>{true, false, true, false, true, false, true, false}));
  EXPECT_EQ(yes, VARIANT_TRUE);
  EXPECT_EQ(no, VARIANT_FALSE);
}

// The library's own handler comes first; what a listener writes, the caller finds in its variable.
TEST_F(Ribbon, AListenerThatWrites_IsHeardByTheCaller) {
  const ComRef<_RibbonEvents> outside = RelayOutside();
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  ASSERT_EQ(outside->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(DIID___RibbonEvents, point.Put()), S_OK);
  Sink sink(DIID___RibbonEvents);
  sink.during = [](DISPID, DISPPARAMS& parameters) {
    ::SysReAllocString(parameters.rgvarg[0].pbstrVal, L"Written");
    return S_OK;
  };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  Bstr command(L"InsertReference");
  EXPECT_EQ(outside->run(command.Place()), S_OK);
  EXPECT_EQ(product.commands, std::vector<std::string>{"InsertReference"});
  EXPECT_EQ(command.Text(), L"Written");
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(Ribbon, IsToldOfDocumentsAndGivenBack) {
  handler->uses.clear();
  VARIANT_BOOL fromIcon = VARIANT_FALSE;
  EXPECT_EQ(main->HandleCreateDocument(&fromIcon), S_OK);
  EXPECT_EQ(handler->uses.front(), "call EnableToolbar");
  ComRef<IDispatch> given;
  EXPECT_EQ(main->get_RibbonHandler(given.Put()), S_OK);
  EXPECT_EQ(given.get(), handlerOutside.get());
}

TEST_F(Ribbon, TheRelayOutlivesQuit_AndDoesNothingThen) {
  const ComRef<_RibbonEvents> outside = RelayOutside();
  EXPECT_EQ(main->Quit(), S_OK);
  ComRef<IDispatch> given;
  EXPECT_EQ(main->get_RibbonHandler(given.Put()), S_OK);
  EXPECT_FALSE(given);
  main = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  Bstr command(L"InsertReference");
  EXPECT_EQ(outside->run(command.Place()), S_OK);
  EXPECT_TRUE(product.commands.empty());
}

}  // namespace strandline::servertest
