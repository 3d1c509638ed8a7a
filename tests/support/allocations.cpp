#include "tests/support/allocations.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
std::size_t allocations = 0;
std::size_t returned = 0;
std::size_t limit = kNoLimit;
std::size_t failingSize = 0;

void* Allocated(std::size_t size) {
  ++allocations;
  if (failingSize != 0 && size == failingSize) {
    failingSize = 0;
    ++returned;
    return nullptr;
  }
  void* const memory = size < limit ? std::malloc(size == 0 ? 1 : size) : nullptr;
  returned += memory == nullptr;
  return memory;
}

void GiveBack(void* memory) {
  returned += memory != nullptr;
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* memory = Allocated(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocated(size); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { GiveBack(memory); }
void operator delete(void* memory) noexcept { GiveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { GiveBack(memory); }

namespace strandline {

std::size_t AllocationsSoFar() { return allocations; }

std::size_t AllocationsAlive() { return allocations - returned; }

void FailNextAllocationOf(std::size_t size) { failingSize = size; }

ScarceMemory::ScarceMemory(std::size_t most) { limit = most; }
ScarceMemory::~ScarceMemory() { limit = kNoLimit; }

}  // namespace strandline
