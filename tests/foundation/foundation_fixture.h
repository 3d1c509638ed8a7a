#pragma once

// The foundation alone, loaded on a desk whose error component is the script.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "foundation/procedure.h"
#include "platform/desk/desk.h"
#include "platform/platform.h"
#include "tests/foundation/error_component.h"

namespace strandline {

class FoundationTest : public testing::Test {
 protected:
  FoundationTest() {
    desk.Components().Register(kErrorComponent, [this] { return script.Create(); });
    desk.RunTime().SetStart(desk::MakeDate(2009, 3, 2, 9, 30, 0));
    Load(desk.Services());
  }
  ~FoundationTest() override {
    vbwProtector::procedureObserver = nullptr;
    vbwProtector::variables = {};
    platform::current = {};
  }

  // The start routine, on a library that knows nothing yet.
  void Load(const Platform& services) {
    platform::current = services;
    vbwProtector::variables = {};
    vbwProtector::lastError = {};
    vbwProtector::vbwInitializeProtector();
  }
  void LoadWithTrace() {
    desk.RunTime().SetCommandLine(u"winword.exe /trace");
    Load(desk.Services());
  }

  static constexpr const char16_t* kErrorComponent = u"QuillmereError.Main2";
  vbwProtector::Variables& variables = vbwProtector::variables;
  ErrorScript script;
  desk::Desk desk;
};

// The statements of a test's procedures: they write down that they ran, and fail as often as they are told to.
class Statements {
 public:
  void Fail(const std::string& name, int times, Long number = 1000) { mFailures[name] = {times, number}; }
  void Do(const std::string& name) {
    ran += (ran.empty() ? "" : " ") + name;
    const auto failure = mFailures.find(name);
    if (failure == mFailures.end() || failure->second.times == 0) return;
    --failure->second.times;
    Raise(failure->second.number, FromUtf8("failure of " + name));
  }
  template <class T>
  T Value(const std::string& name, T value) {
    Do(name);
    return value;
  }
  // For failures without end.
  static constexpr int kAlways = 1'000'000;

  std::string ran;  // the names of the statements in the order of their running

 private:
  struct Failure {
    int times;
    Long number;
  };
  std::map<std::string, Failure> mFailures;
};

// One line for each entry, so that a mismatch of two logs can be read.
inline std::string Lines(const LogLines& log) {
  std::string lines;
  for (const std::string& line : log) lines += line + "\n";
  return lines;
}

}  // namespace strandline
