#include "tests/script/helper/helper.h"

#include <algorithm>

#include "platform/win32/windows_api.h"
#include "tests/script/helper/listener.h"
#include "tests/script/helper/script_collection.h"

namespace strandline::script {

namespace {

Rect PlaceAt(Given given) {
  const Long left = given[0].ToLong();
  const Long top = given[1].ToLong();
  return {left, top, left + given[2].ToLong(), top + given[3].ToLong()};
}

HWND WindowOf(const Variant& given) { return win32::ToHandle<HWND>(given.ToLong()); }

const Array<Byte>& BytesOf(const Variant& given) {
  const auto* const bytes = given.If<Variant::Shared<Byte>>();
  if (!bytes) Raise(errors::kTypeMismatch);
  return **bytes;
}

class RaisingObject final : public Dispatch {
 public:
  RaisingObject(Long number, String text) : mNumber(number), mText(std::move(text)) {}
  Variant Invoke(Use, Name, const Arguments&) override { Raise(mNumber, mText); }
  Long Identity() const override { return IdentityOf(this); }
  Ref<Enumerator> Elements() override { Raise(mNumber, mText); }

 private:
  const Long mNumber;
  const String mText;
};

}  // namespace

Variant Helper::Invoke(Use use, Name member, const Arguments& arguments) {
  static constexpr Member<Helper> kMembers[] = {
      {"MakeWindow", 7, 7, &Helper::MakeWindow},
      {"DestroyWindow", 1, 1, &Helper::DestroyWindow},
      {"IsWindow", 1, 1, &Helper::IsWindow},
      {"Activate", 1, 1, &Helper::Activate},
      {"SetTitle", 2, 2, &Helper::SetTitle},
      {"Send", 4, 4, &Helper::Send},
      {"Pump", 1, 1, &Helper::Pump},
      {"Repaint", 1, 1, &Helper::Repaint},
      {"Pixel", 3, 3, &Helper::Pixel},
      {"Ink", 5, 5, &Helper::Ink},
      {"IsSubclassed", 1, 1, &Helper::IsSubclassed},
      {"Collection", 0, 0, &Helper::Collection},
      {"Listen", 1, 1, &Helper::Listen},
      {"Component", 2, 2, &Helper::PlayComponent},
      {"Forget", 1, 1, &Helper::Forget},
      {"ForgetAll", 0, 0, &Helper::ForgetAll},
      {"Raiser", 2, 2, &Helper::Raiser},
      {"ByteCount", 1, 1, &Helper::ByteCount},
      {"ByteText", 2, 2, &Helper::ByteText},
  };
  return InvokeMember(*this, kMembers, use, member, arguments);
}

Variant Helper::MakeWindow(Given given) {
  return mWindows.Make(given[0].ToText(), given[1].ToText(), given[2].ToLong(), PlaceAt(given.subspan(3)));
}

Variant Helper::DestroyWindow(Given given) {
  mWindows.Destroy(given[0].ToLong());
  return {};
}

Variant Helper::IsWindow(Given given) { return ::IsWindow(WindowOf(given[0])) != FALSE; }

Variant Helper::Activate(Given given) {
  ::SetActiveWindow(WindowOf(given[0]));
  return ::GetActiveWindow() == WindowOf(given[0]);
}

Variant Helper::SetTitle(Given given) {
  const String title = given[1].ToText();
  return ::SetWindowTextW(WindowOf(given[0]), win32::Wide(title)) != FALSE;
}

Variant Helper::Send(Given given) {
  return static_cast<Long>(::SendMessageW(WindowOf(given[0]), static_cast<UINT>(given[1].ToLong()),
                                          static_cast<WPARAM>(given[2].ToLong()), given[3].ToLong()));
}

Variant Helper::Pump(Given given) {
  TestWindows::Pump(given[0].ToLong());
  return {};
}

Variant Helper::Repaint(Given given) {
  TestWindows::Repaint(given[0].ToLong());
  return {};
}

Variant Helper::Pixel(Given given) {
  return TestWindows::Pixel(given[0].ToLong(), given[1].ToLong(), given[2].ToLong());
}

Variant Helper::Ink(Given given) { return TestWindows::Ink(given[0].ToLong(), PlaceAt(given.subspan(1))); }
Variant Helper::IsSubclassed(Given given) { return mWindows.IsSubclassed(given[0].ToLong()); }
Variant Helper::Collection(Given) { return Object(New<ScriptCollection>()); }
Variant Helper::Listen(Given given) { return Object(New<Listener>(given[0].ToObject())); }

Variant Helper::PlayComponent(Given given) {
  Forget(given.first(1));
  mComponents.push_back(std::make_unique<Component>(given[0].ToText(), given[1].ToObject()));
  return {};
}

Variant Helper::Forget(Given given) {
  const String progId = given[0].ToText();
  std::erase_if(mComponents, [&](const auto& component) { return SameText(component->ProgId(), progId); });
  return {};
}

Variant Helper::ForgetAll(Given) {
  mComponents.clear();
  return {};
}

Variant Helper::Raiser(Given given) { return Object(New<RaisingObject>(given[0].ToLong(), given[1].ToText())); }

Variant Helper::ByteCount(Given given) {
  const Variant value = given[0].Resolved();
  return static_cast<Long>(BytesOf(value).Elements().size());
}

Variant Helper::ByteText(Given given) {
  const Variant value = given[0].Resolved();
  const auto& bytes = BytesOf(value).Elements();
  const auto wanted = static_cast<std::size_t>(std::max<Long>(0, given[1].ToLong()));
  std::u16string text;
  for (std::size_t i = 0; i < std::min(wanted, bytes.size()); ++i) text.push_back(bytes[i]);
  return String(text);
}

}  // namespace strandline::script
