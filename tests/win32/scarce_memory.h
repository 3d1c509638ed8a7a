#pragma once

#include <cstddef>

namespace strandline::win32test {

// As long as this lives, the program gets no memory in pieces of `limit` bytes or more.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t limit);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
};

}  // namespace strandline::win32test
