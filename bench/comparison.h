// Two things measured in one run, one after the other, and told as a ratio.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace vexnumkr::bench {

enum class Unit { Seconds, Bytes, Count };

/// What something cost.
using Measurement = std::function<double()>;

/// Of a comparison that is of interest, but has no limit.
inline constexpr double noLimit = std::numeric_limits<double>::infinity();

/// A measured thing and the yardstick that it is held against.
struct Comparison {
  std::string name;       ///< short and unique, for --benchmark_filter
  std::string what;       ///< for the table
  std::string yardstick;  ///< for the table
  double limit = 0;       ///< the ratio that shall not be exceeded
  Measurement measured;
  Measurement reference;
  Unit unit = Unit::Seconds;
};

using Comparisons = std::vector<Comparison>;

/// Measures the seconds that `work` takes; `prepare` runs before it, unmeasured.
Measurement seconds(
    std::function<void()> work, std::function<void()> prepare = [] {});

/// Registers the comparison as a benchmark of that many repetitions. Each measures both sides;
/// which of them goes first changes from one to the next, so that neither profits from the other.
void registerComparison(const Comparison& comparison, int repetitions);

/// The counters that a repetition leaves.
inline constexpr const char* ratioCounter = "ratio";
inline constexpr const char* measuredCounter = "measured";
inline constexpr const char* referenceCounter = "reference";

}  // namespace vexnumkr::bench
