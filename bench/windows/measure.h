#pragma once

// Side by side measuring for the cross-built programs, which Google Benchmark's package doesn't serve: the workloads of
// one comparison take turns, so that what disturbs the machine disturbs them alike, and medians are told as ratios.

#include <functional>
#include <string>
#include <vector>

namespace strandline::bench {

struct Workload {
  std::string name;
  std::function<void()> once;
};

// Prints each workload's median nanoseconds and its ratio to the first one.
void Compare(const char* title, const std::vector<Workload>& workloads, int timesARound);

}  // namespace strandline::bench
