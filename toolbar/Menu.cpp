#include "toolbar/Menu.h"

#include "foundation/procedure.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"Menu", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
}  // namespace

void Menu::ProductNameChanged(const String& productName) { METHOD(void, u"ProductNameChanged", productName); }

}  // namespace strandline
