// vexnumkr-bench: what the component's work costs, as ratios.
//
//   vexnumkr-bench                                all comparisons, on the large company
//   vexnumkr-bench --benchmark_filter=REGEX       those whose names match
//   vexnumkr-bench --benchmark_list_tests         the names
//   vexnumkr-bench --quick                        all of them on a tiny company, once: shows that
//                                                 they work, not what they cost
//   vexnumkr-bench --check                        ends with 1 when a ratio lies above its limit
//   vexnumkr-bench --benchmark_out=FILE           every single measurement as JSON
//   tools/bench.sh [OPTION...]                    the same, with servers for PostgreSQL and MariaDB
//
// The operations:
//
//   load            the range table filled from the database row by row: LoadItems, RefreshSGroups
//   save            everything written back in one transaction, the check of the ranges included
//   load_sets       the range table filled in sets, with the lists that are read before it
//   save_sets       one changed value saved in sets
//   network         opened, one value changed, OK, over a network; told in round trips
//   trips           the round trips of that, counted
//   open, ok        what a user waits for, over networks of 0, 2 and 10 ms and for three companies
//   check           CheckValidity over the active common ranges
//   activity        CheckActivity over every user's ranges
//   autonum         StartAutoNum: all ranges numbered from their masks
//   sort            the range table put into the order of display
//   find            FoundInXArray: a range by user, booking circle and number key
//   setall          SetValueAll: one column of one range, for every user
//   circles         RefreshInXArray after one booking circle was added and one removed
//   memory          what the range table takes
//   grid            the tree grid filled, painted, scrolled through, and edited
//   dialog          from Init to the window on the screen
//   editor          the sample company loaded, a hundred rows changed, saved
//   numbers         a company read and checked, and reported on; a number drawn
//   dialog_least    the statements of the dialog through the bare driver, and Qt's plain controls
//   editor_least    the statements of that task through the bare driver
//
// Each is held against a yardstick that does the least that any program would have to do, measured
// in the same run in turns. A figure is the median of the ratios. Run it on a release build.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/cases.h"
#include "bench/company.h"
#include "bench/ratio_table.h"

namespace vexnumkr::bench {
namespace {

constexpr Scale fullScale{50, 23, 100'000, 100'000, 7};
constexpr Scale quickScale{5, 3, 1'000, 1'000, 1};

// Takes an option of this program's own out of the arguments.
bool takeOption(std::vector<char*>& arguments, std::string_view option) {
  return std::erase_if(arguments, [&](const char* argument) { return argument == option; }) > 0;
}

std::string described(const CompanySize& size) {
  return std::to_string(size.circles) + " booking circles, " + std::to_string(size.keys) +
         " document types, " + std::to_string(size.users) +
         " users: " + std::to_string(size.ranges()) + " ranges, " + std::to_string(size.rows()) +
         " rows";
}

Comparisons allComparisons(const Scale& scale) {
  Comparisons all;
  addDatabaseCases(all, scale);
  addRuleCases(all, scale);
  addTableCases(all, scale);
  addGridCases(all, scale);
  addDialogCases(all, scale);
  addEditorCases(all, scale);
  addNumbersCases(all, scale);
  addNetworkCases(all, scale);
  return all;
}

int run(std::vector<char*> arguments) {
  const bool quick = takeOption(arguments, "--quick");
  const bool check = takeOption(arguments, "--check");
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  const Scale& scale = quick ? quickScale : fullScale;
  const Comparisons comparisons = allComparisons(scale);
  for (const Comparison& comparison : comparisons)
    registerComparison(comparison, scale.repetitions);

  RatioTable table(comparisons, described(CompanySize(scale.company)) +
                                    "; a tenth: " + described(CompanySize(scale.smallerCompany)));
  const std::size_t measured = benchmark::RunSpecifiedBenchmarks(&table);
  benchmark::ClearRegisteredBenchmarks();  // what they keep must go before the application does
  std::printf("\n%zu comparisons, %zu above their limits\n", measured, table.missed().size());
  if (table.anyFailed()) return 1;
  return check && !table.missed().empty() ? 1 : 0;
}

}  // namespace
}  // namespace vexnumkr::bench

int main(int argc, char** argv) {
  // No window is to come up, and none to wait for a display.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  return vexnumkr::bench::run(std::vector<char*>(argv, argv + argc));
}
