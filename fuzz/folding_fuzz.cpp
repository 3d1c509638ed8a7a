// Any bytes as Rich Text on the clipboard: what is read is what the second account says, with errors ignored and not.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/folding_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static strandline::folding::Check check;
  const std::string wrong = check.Wrong({data, size});
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s\n", wrong.c_str());
  std::abort();
}
