// Runs every test, in the folder in which images.dll lies; the last line counts them.

#include <algorithm>
#include <cstring>
#include <vector>

#include "check.h"
#include "platform/error.h"
#include "windows_api.h"

int main() {
  using strandline::smoke::Test;
  std::setvbuf(stdout, nullptr, _IOLBF, 4096);
  if (FAILED(::OleInitialize(nullptr))) {
    std::puts("OLE can't be started");
    return 1;
  }
  std::vector<const Test*> tests;
  for (const Test* test = Test::first; test; test = test->next) tests.push_back(test);
  std::sort(tests.begin(), tests.end(), [](const Test* a, const Test* b) { return std::strcmp(a->name, b->name) < 0; });

  int failed = 0;
  for (const Test* test : tests) {
    Test::failures = 0;
    try {
      test->body();
    } catch (const strandline::Error& error) {
      ++Test::failures;
      std::printf("  raised %d: %s\n", static_cast<int>(error.number), strandline::ToUtf8(error.description).c_str());
    }
    if (Test::failures > 0) ++failed;
    std::printf("%s %s\n", Test::failures > 0 ? "FAIL" : "ok  ", test->name);
  }
  ::OleUninitialize();
  std::printf("%d passed, %d failed\n", static_cast<int>(tests.size()) - failed, failed);
  return failed > 0 ? 1 : 0;
}
