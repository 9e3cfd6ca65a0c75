// Commands that print what the component and its database hold.
#include <array>
#include <span>

#include "data/table/xarray.h"
#include "scenario/driver/stage.h"

namespace vexnumkr::scenario {
namespace {

std::string printedRow(std::int32_t row, std::span<const Value> columns) {
  std::vector<std::string> cells = {"row " + std::to_string(row)};
  for (const Value& column : columns) cells.push_back(printedValue(column));
  return joined(cells);
}

void table(Stage& stage, const Command&) {
  auto& session = stage.session.core();
  const XArray& ranges = session.XArray();
  stage.print("table: rows=" + std::to_string(ranges.size()) +
              " changed=" + printedFlag(session.blnChanged()));
  std::int32_t row = 0;
  for (const RangeRow& range : ranges) stage.print(printedRow(row++, range.columns()));
}

void circles(Stage& stage, const Command&) {
  std::int32_t row = 0;
  for (const BookingCircle& circle : stage.session.core().Buchungskreise())
    stage.print(printedRow(row++, std::array<Value, 2>{circle.Buchungskreis, circle.Beschreibung}));
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
