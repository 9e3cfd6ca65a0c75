#include "bench/comparison.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <exception>
#include <memory>
#include <utility>

namespace vexnumkr::bench {
namespace {

using Clock = std::chrono::steady_clock;

struct Costs {
  double measured = 0;
  double reference = 0;
};

Costs measure(const Comparison& comparison, bool referenceFirst) {
  Costs costs;
  if (referenceFirst) costs.reference = comparison.reference();
  costs.measured = comparison.measured();
  if (!referenceFirst) costs.reference = comparison.reference();
  return costs;
}

}  // namespace

Measurement seconds(std::function<void()> work, std::function<void()> prepare) {
  return [work = std::move(work), prepare = std::move(prepare)] {
    prepare();
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
  };
}

void registerComparison(const Comparison& comparison, int repetitions) {
  auto run = [comparison, turn = std::make_shared<int>(0)](benchmark::State& state) {
    for ([[maybe_unused]] auto iteration : state) {
      Costs costs;
      try {
        costs = measure(comparison, ++*turn % 2 == 0);
      } catch (const std::exception& error) {
        state.SkipWithError(error.what());
        break;
      }
      state.SetIterationTime(costs.measured);
      state.counters[ratioCounter] = costs.measured / costs.reference;
      state.counters[measuredCounter] = costs.measured;
      state.counters[referenceCounter] = costs.reference;
    }
  };
  benchmark::RegisterBenchmark(comparison.name.c_str(), run)
      ->Iterations(1)
      ->Repetitions(repetitions)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace vexnumkr::bench
