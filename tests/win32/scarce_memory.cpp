#include "tests/win32/scarce_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
thread_local std::size_t theLimit = kNoLimit;

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = size < theLimit ? std::malloc(size == 0 ? 1 : size) : nullptr;
  if (!memory) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace strandline::win32test {

ScarceMemory::ScarceMemory(std::size_t limit) { theLimit = limit; }
ScarceMemory::~ScarceMemory() { theLimit = kNoLimit; }

}  // namespace strandline::win32test
