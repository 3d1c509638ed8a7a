#pragma once

// One ad on a drawing floor, with a product that has an address, an e-mail value and a browser.

#include "platform/dates.h"
#include "tests/ads/advertisement_access.h"
#include "tests/drawing/drawing_fixture.h"
#include "tests/support/scripted_object.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordsim/product.h"
#include "wordsim/store.h"

namespace strandline {

class AdTest : public DrawingTest {
 protected:
  using Inside = AdvertisementAccess;

  AdTest() {
    ToolbarUtilities::variables.productState = Object(New<ScriptedObject>([this](Use, Name member, const Arguments& a) {
      std::string call(member.Text());
      for (const Variant& argument : a.positional) call += " " + Shown(argument);
      asked.push_back(call);
      return Variant(productAddress);
    }));
    floor->desk.Components().Register(u"HTTP.Main2", [this]() -> Object {
      browsing.push_back("made");
      return New<ScriptedObject>(
          [this](Use, Name member, const Arguments& a) {
            browsing.push_back(std::string(member.Text()) + " " + Shown(a.positional[0].Resolved()));
            if (browserWrites.Length() > 0) a.positional[0].Assign(browserWrites);
            return Variant();
          },
          [this] { browsing.push_back("gone"); });
    });
    SetEmail(u"reader");
  }
  ~AdTest() override { ad = nullptr; }

  void SetEmail(const String& email) { SetValue(u"email", email); }
  void SetValue(const String& key, const String& text) { floor->word.TheProduct().Store().SetGlobalValue(key, text); }

  // As the settings come from the library: a NUL behind them, and blanks up to 512 characters.
  static String Buffer(TextView settings) {
    std::u16string buffer(settings);
    buffer += u'\0';
    buffer.resize(512, u' ');
    return buffer;
  }
  Boolean Initialize(TextView settings, Date date = dates::FromParts(2009, 3, 2)) {
    String buffer = Buffer(settings);
    return ad->Initialize(floor->MakePicture(4, 2, kRed), buffer, date);
  }
  std::string Website() { return ToUtf8(Inside::Website(*ad)); }

  String productAddress = u"http://product";
  String browserWrites;  // what the browser leaves in the address; empty: nothing
  Lines asked;           // of the product's state
  Lines browsing;
  Ref<Advertisement> ad = New<Advertisement>();
};

}  // namespace strandline
