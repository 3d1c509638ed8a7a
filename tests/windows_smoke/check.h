#pragma once

// Tests of the Windows back-end, run under Wine or on Windows. A test that fails says where and goes on.

#include <cstdio>
#include <sstream>
#include <string>

#include "platform/text.h"

namespace strandline::smoke {

struct Test {
  Test(const char* testName, void (*testBody)()) : name(testName), body(testBody), next(first) { first = this; }
  const char* const name;
  void (*const body)();
  Test* const next;
  static inline Test* first = nullptr;
  static inline int failures = 0;  // of the running test
};

template <class T>
std::string Shown(const T& value) {
  if constexpr (std::is_convertible_v<T, TextView>) {
    return '"' + ToUtf8(value) + '"';
  } else {
    std::ostringstream text;
    text << value;
    return text.str();
  }
}

inline void CheckTrue(bool ok, const char* text, const char* file, int line) {
  if (ok) return;
  ++Test::failures;
  std::printf("  %s:%d: not true: %s\n", file, line, text);
}

template <class A, class B>
void CheckEqual(const A& actual, const B& expected, const char* text, const char* file, int line) {
  if (actual == expected) return;
  ++Test::failures;
  std::printf("  %s:%d: %s is %s, not %s\n", file, line, text, Shown(actual).c_str(), Shown(expected).c_str());
}

}  // namespace strandline::smoke

#define SMOKE_TEST(name)                                            \
  static void name();                                               \
  static const ::strandline::smoke::Test test_##name(#name, &name); \
  static void name()
#define CHECK(condition) ::strandline::smoke::CheckTrue(condition, #condition, __FILE__, __LINE__)
#define CHECK_EQUAL(actual, expected) ::strandline::smoke::CheckEqual(actual, expected, #actual, __FILE__, __LINE__)
