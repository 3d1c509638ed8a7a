#pragma once

// What a script that tests the library can't do by itself: windows and their pixels, collections that can be gone
// through, hearing events, playing a component, objects that fail.

#include <memory>
#include <vector>

#include "tests/script/helper/component.h"
#include "tests/script/helper/member_table.h"
#include "tests/script/helper/test_windows.h"

namespace strandline::script {

class Helper final : public Dispatch {
 public:
  // Windows; a handle is a number. MakeWindow(className, title, parent, left, top, width, height) → handle,
  // DestroyWindow(h), IsWindow(h), Activate(h), SetTitle(h, title), Send(h, message, wParam, lParam) → result,
  // Pump(milliseconds), Repaint(h), Pixel(h, x, y), Ink(h, left, top, width, height), IsSubclassed(h).
  //
  // Objects. Collection() → an empty ScriptCollection. Listen(source) → a Listener. Component(progId, object),
  // Forget(progId), ForgetAll(). Raiser(number, text) → an object whose every member raises that. ByteCount(bytes) and
  // ByteText(bytes, count): the first ones as a text, a character for each.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override { return IdentityOf(this); }

 private:
  Variant MakeWindow(Given given);
  Variant DestroyWindow(Given given);
  Variant IsWindow(Given given);
  Variant Activate(Given given);
  Variant SetTitle(Given given);
  Variant Send(Given given);
  Variant Pump(Given given);
  Variant Repaint(Given given);
  Variant Pixel(Given given);
  Variant Ink(Given given);
  Variant IsSubclassed(Given given);
  Variant Collection(Given given);
  Variant Listen(Given given);
  Variant PlayComponent(Given given);
  Variant Forget(Given given);
  Variant ForgetAll(Given given);
  Variant Raiser(Given given);
  Variant ByteCount(Given given);
  Variant ByteText(Given given);

  TestWindows mWindows;
  std::vector<std::unique_ptr<Component>> mComponents;
};

}  // namespace strandline::script
