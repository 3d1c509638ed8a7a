#pragma once

// One suite of the seam's promises for the two worlds: the desk, and Windows with the real services. The world is the
// one that the suite is built with (world_desk.cpp, world_win32.cpp).

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/host.h"
#include "platform/platform.h"

namespace strandline::contract {

// What a module is to carry: resources of the type "CUSTOM" and strings, by number.
struct ModuleContents {
  std::map<Long, std::vector<Byte>> resources;
  std::map<Long, String> strings;
};

class World {
 public:
  virtual ~World() = default;

  virtual Platform Services() = 0;
  virtual HostWindows& Host() = 0;
  virtual HostCanvas& Canvas() = 0;
  virtual HostMouse& Mouse() = 0;
  virtual HostClock& Clock() = 0;
  // A new module, there as long as the world is: the path by which it can be loaded; empty where it can't be made.
  virtual String MakeModule(const ModuleContents& contents) = 0;
  // The same of a module's file as it is, which may be no module.
  virtual String MakeModuleFile(const std::vector<Byte>& file) = 0;
  // The host's own program file has one string, and this is it.
  virtual void GiveHostItsString() = 0;
  // Real time passes and nothing is pumped, as when the program computes. The desk's time stands still then.
  virtual void Compute(std::int64_t milliseconds) = 0;
};

std::unique_ptr<World> MakeWorld();

inline constexpr Long kHostString = 4711;
inline constexpr const char16_t* kHostText = u"the host's own";

// The C locale of the process is that of a language as long as this lives.
class HostLocale {
 public:
  enum class Language { kGerman, kTurkish };
  explicit HostLocale(Language language);
  ~HostLocale();
  HostLocale(const HostLocale&) = delete;
  HostLocale& operator=(const HostLocale&) = delete;
};

// Whether the Windows at hand is Wine; the desk isn't.
bool IsWine();

// A file of the source tree, by its path below the root; empty where it can't be read.
std::vector<Byte> BytesOfFile(const std::string& path);

// For what Wine does unlike Windows: the value to expect here. It fails on Wine once Wine does as Windows.
#define WINE_DIFFERS(expected, wine) (::strandline::contract::IsWine() ? (wine) : (expected))

// A test's world. While it lives, its services are also the library's own.
class Contract : public testing::Test {
 private:
  const std::unique_ptr<World> mWorld = MakeWorld();

 protected:
  Contract() { platform::current = mWorld->Services(); }
  ~Contract() override { platform::current = {}; }

  Platform Services() { return mWorld->Services(); }
  HostWindows& Host() { return mWorld->Host(); }
  HostCanvas& Canvas() { return mWorld->Canvas(); }
  HostMouse& Mouse() { return mWorld->Mouse(); }
  HostClock& Clock() { return mWorld->Clock(); }
  String MakeModule(const ModuleContents& contents) { return mWorld->MakeModule(contents); }
  String MakeModuleFile(const std::vector<Byte>& file) { return mWorld->MakeModuleFile(file); }
  void GiveHostItsString() { mWorld->GiveHostItsString(); }
  void Compute(std::int64_t milliseconds) { mWorld->Compute(milliseconds); }

  // Lets time pass until the condition holds; false where it still doesn't after five seconds.
  template <class Condition>
  bool Until(Condition condition) {
    const std::int64_t end = Clock().Milliseconds() + 5000;
    while (!condition()) {
      if (Clock().Milliseconds() >= end) return false;
      Clock().Wait(10);
    }
    return true;
  }

  Windows& windows = *mWorld->Services().windows;
  Graphics& graphics = *mWorld->Services().graphics;
  Pictures& pictures = *mWorld->Services().pictures;
  Modules& modules = *mWorld->Services().modules;
  Components& components = *mWorld->Services().components;
  RunTime& runTime = *mWorld->Services().runTime;
  Subclassers& subclassers = *mWorld->Services().subclassers;
};

inline constexpr Long kBlack = 0;  // COLORREF
inline constexpr Long kWhite = 0xFFFFFF;
inline constexpr Long kRed = 0x0000FF;
inline constexpr Long kGreen = 0x00FF00;
inline constexpr Long kBlue = 0xFF0000;

}  // namespace strandline::contract
