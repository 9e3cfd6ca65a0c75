// What a run of the benchmark prints: the machine, and a line per comparison.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include "bench/comparison.h"

namespace vexnumkr::bench {

/// Prints the median of each comparison's ratios as a row of a Markdown table, once it is known,
/// and keeps count of those above their limit.
class RatioTable final : public benchmark::BenchmarkReporter {
 public:
  /// `sizes` says what data is measured.
  RatioTable(const Comparisons& comparisons, std::string sizes);

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

  /// The comparisons whose median lies above the limit.
  const std::vector<std::string>& missed() const { return missed_; }
  /// Whether one could not be measured.
  bool anyFailed() const { return anyFailed_; }

 private:
  std::map<std::string, const Comparison*> byName_;
  std::string sizes_;
  std::vector<std::string> missed_;
  bool anyFailed_ = false;
};

}  // namespace vexnumkr::bench
