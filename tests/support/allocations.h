#pragma once

#include <cstddef>

namespace strandline {

// How many times the program has taken memory with operator new so far.
std::size_t AllocationsSoFar();

}  // namespace strandline
