// What the shape of a procedure costs: the frame over a bare call, a Log with a constant text, a message that the hook
// doesn't know over the bare virtual call that delivers it.

#include <benchmark/benchmark.h>

#include "foundation/CommonLogger.h"
#include "foundation/procedure.h"
#include "toolbar/Toolbar.h"

namespace strandline::bench {
namespace {

constexpr ModuleInfo kModuleInfo{u"Bench", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

void TraceOn() { vbwProtector::variables.vbwTraceProc = true; }

[[gnu::noinline]] Long Bare(Long value) {
  benchmark::DoNotOptimize(value);
  return value;
}

[[gnu::noinline]] Long Framed(Long value) {
  PROCEDURE(Long, u"Framed");
  benchmark::DoNotOptimize(value);
  return here.result = value;
}

[[gnu::noinline]] Long FramedWithTwoSteps(Long value) {
  PROCEDURE(Long, u"FramedWithTwoSteps", value);
  STEP(benchmark::DoNotOptimize(value));
  STEP(here.result = value);
  return here.Leave();
}

class BareSink final : public MessageSink {
 public:
  [[gnu::noinline]] void BeforeMessage(Long uMsg, Long, Long, Long&, Boolean&) override {
    benchmark::DoNotOptimize(uMsg);
  }
};

void Deliver(benchmark::State& state, MessageSink* sink) {
  benchmark::DoNotOptimize(sink);
  Long retValue = 0;
  Boolean cancel = false;
  for (auto _ : state) {
    sink->BeforeMessage(1234, 5, 6, retValue, cancel);
    benchmark::DoNotOptimize(cancel);
  }
}

void BareCall(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Bare(1));
}
void FrameAroundACall(benchmark::State& state) {
  TraceOn();
  for (auto _ : state) benchmark::DoNotOptimize(Framed(1));
}
void FrameWithTwoSteps(benchmark::State& state) {
  TraceOn();
  for (auto _ : state) benchmark::DoNotOptimize(FramedWithTwoSteps(1));
}
void LogWithAConstantText(benchmark::State& state) {
  TraceOn();
  for (auto _ : state) {
    Log(u"HandleMouseMove");
    benchmark::ClobberMemory();
  }
}
void BareVirtualCall(benchmark::State& state) {
  BareSink sink;
  Deliver(state, &sink);
}
void MessageOutsideTheTable(benchmark::State& state) {
  TraceOn();
  // Never initialised, and so never terminated: no window is touched.
  static Toolbar* const toolbar = [] {
    auto* made = new Toolbar;
    made->AddRef();
    return made;
  }();
  Deliver(state, toolbar);
}

BENCHMARK(BareCall);
BENCHMARK(FrameAroundACall);
BENCHMARK(FrameWithTwoSteps);
BENCHMARK(LogWithAConstantText);
BENCHMARK(BareVirtualCall);
BENCHMARK(MessageOutsideTheTable);

}  // namespace
}  // namespace strandline::bench
