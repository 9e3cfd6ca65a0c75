#include "bench/ratio_table.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <utility>

namespace vexnumkr::bench {
namespace {

double counter(const benchmark::BenchmarkReporter::Run& run, const char* name) {
  const auto found = run.counters.find(name);
  return found == run.counters.end() ? 0 : found->second.value;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double medianOf(const std::vector<benchmark::BenchmarkReporter::Run>& runs, const char* name) {
  std::vector<double> values;
  for (const auto& run : runs)
    if (run.run_type == benchmark::BenchmarkReporter::Run::RT_Iteration)
      values.push_back(counter(run, name));
  return median(std::move(values));
}

std::string limitText(double limit) {
  std::ostringstream text;
  if (limit != noLimit) text << limit;
  return text.str();
}

// With its unit. The times are no result, but say what a ratio is about.
std::string cost(double value, const Comparison& comparison) {
  std::ostringstream text;
  text << std::setprecision(3);
  if (comparison.unit == Unit::Bytes)
    text << value / 1e6 << " MB";
  else if (comparison.unit == Unit::Count)
    text << value;
  else
    text << value * 1e3 << " ms";
  return text.str();
}

}  // namespace

RatioTable::RatioTable(const Comparisons& comparisons, std::string sizes)
    : sizes_(std::move(sizes)) {
  for (const Comparison& comparison : comparisons) byName_[comparison.name] = &comparison;
}

bool RatioTable::ReportContext(const Context& context) {
  std::ostream& out = GetOutputStream();
  out << "Machine:    " << context.cpu_info.num_cpus << " CPUs at "
      << std::lround(context.cpu_info.cycles_per_second / 1e6) << " MHz\n"
      << "Build type: " << VEXNUMKR_BUILD_TYPE << "\n"
      << "Data:       " << sizes_ << "\n\n"
      << "| what | compared with | ratio (median) | lowest | highest | at most | each took |\n"
      << "|---|---|---:|---:|---:|---:|---:|\n"
      << std::flush;
  return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  // Called once more for the aggregates, which are none of this table's.
  if (runs.empty() || runs.front().run_type != Run::RT_Iteration) return;
  std::ostream& out = GetOutputStream();
  const std::string& name = runs.front().run_name.function_name;
  if (runs.front().error_occurred) {
    out << "| " << name << " | failed: " << runs.front().error_message << " |||||\n" << std::flush;
    anyFailed_ = true;
    return;
  }
  const Comparison& comparison = *byName_.at(name);
  const double ratio = medianOf(runs, ratioCounter);
  double lowest = ratio;
  double highest = ratio;
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration) continue;
    lowest = std::min(lowest, counter(run, ratioCounter));
    highest = std::max(highest, counter(run, ratioCounter));
  }
  const bool above = ratio > comparison.limit;
  if (above) missed_.push_back(name);
  out << std::setprecision(3) << "| " << comparison.what << " | " << comparison.yardstick << " | "
      << ratio << (above ? " (!)" : "") << " | " << lowest << " | " << highest << " | "
      << limitText(comparison.limit) << " | " << cost(medianOf(runs, measuredCounter), comparison)
      << " : " << cost(medianOf(runs, referenceCounter), comparison) << " |\n"
      << std::flush;
}

}  // namespace vexnumkr::bench
