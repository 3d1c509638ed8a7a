#include "tests/support/allocations.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;
std::size_t failingSize = 0;
}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (failingSize != 0 && size == failingSize) {
    failingSize = 0;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace strandline {

std::size_t AllocationsSoFar() { return allocations; }

void FailNextAllocationOf(std::size_t size) { failingSize = size; }

}  // namespace strandline
