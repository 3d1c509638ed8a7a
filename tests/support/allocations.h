#pragma once

#include <cstddef>

namespace strandline {

// How many times the program has taken memory with operator new so far.
std::size_t AllocationsSoFar();

// How many pieces of that memory it hasn't given back.
std::size_t AllocationsAlive();

// The next time the program takes exactly that many bytes with operator new, there are none to be had. 0: no failure.
void FailNextAllocationOf(std::size_t size);

// As long as this lives, the program gets no memory in pieces of `limit` bytes or more.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t limit);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
};

}  // namespace strandline
