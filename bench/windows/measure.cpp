#include "bench/windows/measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace strandline::bench {

namespace {

constexpr int kRounds = 41;

double NanosecondsOf(const Workload& workload, int times) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) workload.once();
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / times;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

void Compare(const char* title, const std::vector<Workload>& workloads, int timesARound) {
  std::vector<std::vector<double>> taken(workloads.size());
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < workloads.size(); ++i) taken[i].push_back(NanosecondsOf(workloads[i], timesARound));
  }
  std::printf("%s\n", title);
  const double first = Median(taken[0]);
  for (std::size_t i = 0; i < workloads.size(); ++i) {
    const double median = Median(taken[i]);
    std::printf("  %-58s %9.1f ns  %5.2f\n", workloads[i].name.c_str(), median, median / first);
  }
}

}  // namespace strandline::bench
