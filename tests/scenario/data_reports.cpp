// Commands that print what the component and its database hold.
#include "data/table/xarray.h"
#include "scenario/stage.h"

namespace vexnumkr::scenario {
namespace {

std::string printedRow(const XArray& table, std::int32_t row) {
  std::vector<std::string> cells = {"row " + std::to_string(row)};
  for (std::int32_t column = table.LowerBound(2); column <= table.UpperBound(2); ++column)
    cells.push_back(printedValue(table.get(row, column)));
  return joined(cells);
}

void printRows(Stage& stage, const XArray& table) {
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    stage.print(printedRow(table, row));
}

void table(Stage& stage, const Command&) {
  const HostContext& context = stage.session.context();
  const XArray& ranges = context.XArray();
  const std::int32_t rows = ranges.UpperBound(1) - ranges.LowerBound(1) + 1;
  stage.print("table: rows=" + std::to_string(rows) +
              " changed=" + printedFlag(context.blnChanged()));
  printRows(stage, ranges);
}

void circles(Stage& stage, const Command&) {
  printRows(stage, stage.session.context().Buchungskreise());
}

void database(Stage& stage, const Command&) {
  for (const std::string& name : ScenarioDatabase::tableNames()) {
    stage.print("table " + name);
    for (const PrintedRow& row : stage.session.database().rows(name)) stage.print("row: " + row);
  }
}

void statements(Stage& stage, const Command&) {
  for (const std::string& entry : stage.session.connections().takeStatements())
    stage.print(printedText(entry));
}

}  // namespace

Handlers dataReportHandlers() {
  return {
      {"table", table}, {"circles", circles}, {"database", database}, {"statements", statements}};
}

}  // namespace vexnumkr::scenario
