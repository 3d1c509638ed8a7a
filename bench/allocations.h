#pragma once

#include <cstdint>

namespace strandline::bench {

// How often this program has asked for memory so far.
std::int64_t Allocations();

}  // namespace strandline::bench
