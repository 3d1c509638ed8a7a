// The desk as the world of the contract.

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/desk/desk.h"
#include "tests/contract/contract.h"

namespace strandline::contract {

namespace {

class DeskWorld final : public World {
 public:
  Platform Services() override { return mDesk.Services(); }
  HostWindows& Host() override { return mDesk.Host(); }
  HostCanvas& Canvas() override { return mDesk.Canvas(); }
  HostMouse& Mouse() override { return mDesk.Mouse(); }
  HostClock& Clock() override { return mDesk.Clock(); }

  String MakeModule(const ModuleContents& contents) override {
    desk::ModuleImage image;
    for (const auto& [id, bytes] : contents.resources) image.AddResource(id, u"CUSTOM", bytes);
    image.strings = contents.strings;
    const String path = NewPath();
    mDesk.Modules().SetModule(path, std::move(image));
    return path;
  }

  String MakeModuleFile(const std::vector<Byte>& file) override {
    const String path = NewPath();
    mDesk.Modules().SetModuleFile(path, file);
    return path;
  }

  void GiveHostItsString() override { mDesk.Modules().SetHostStrings({{kHostString, kHostText}}); }

  void Compute(std::int64_t) override {}

 private:
  String NewPath() { return Concat({u"C:\\Contract\\module", FromUtf8(std::to_string(++mModules)), u".dll"}); }

  desk::Desk mDesk;
  int mModules = 0;
};

}  // namespace

std::unique_ptr<World> MakeWorld() { return std::make_unique<DeskWorld>(); }

// The build makes the locales, for a machine needn't have any but C's.
HostLocale::HostLocale(Language language) {
  ::setenv("LOCPATH", STRANDLINE_LOCALES, 1);
  EXPECT_NE(std::setlocale(LC_ALL, language == Language::kGerman ? "de_DE.UTF-8" : "tr_TR.UTF-8"), nullptr);
}
HostLocale::~HostLocale() {
  std::setlocale(LC_ALL, "C");
  ::unsetenv("LOCPATH");
}

bool IsWine() { return false; }

std::vector<Byte> BytesOfFile(const std::string& path) {
  std::ifstream file(STRANDLINE_SOURCE_DIR "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace strandline::contract
