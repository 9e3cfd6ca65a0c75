// CSV for `vexnumkr import`: cells come out as they were written, and whatever else is read can be
// written and read again.
#include <string>
#include <vector>

#include "cli/transfer/csv_rows.h"
#include "cli/usage_error.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

using cli::CsvRow;
using Cells = std::vector<std::string>;

std::string quoted(const std::string& cell) {
  std::string text = "\"";
  for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

std::string lineOf(const Cells& cells) {
  std::string line;
  for (const std::string& cell : cells) line += (line.empty() ? "" : ";") + quoted(cell);
  return line + "\r\n";
}

std::vector<Cells> cellsOf(const std::vector<CsvRow>& rows) {
  std::vector<Cells> cells;
  for (const CsvRow& row : rows) cells.push_back(row.cells);
  return cells;
}

void attackFile(const std::string& content) {
  const std::vector<CsvRow> rows = cli::csvRows(content, "datei.csv");
  std::string written;
  std::size_t line = 0;
  for (const CsvRow& row : rows) {
    require(row.line > line, "lines come one behind the other", {content});
    line = row.line;
    require(row.cells.size() > 1 || !row.cells.at(0).empty(), "no row is empty", {content});
    written += lineOf(row.cells);
  }
  require(cellsOf(cli::csvRows(written, "datei.csv")) == cellsOf(rows),
          "what is read can be written and read again", {content, written});
}

void attackCells(Input& input) {
  std::vector<Cells> rows;
  std::string written;
  while (!input.isAtEnd()) {
    const bool isFirst = rows.empty() || input.flag();
    if (isFirst) rows.push_back({"x"});
    const std::string text = input.text();
    const std::string harmless = cli::harmlessText(text);
    require(harmless.empty() || std::string("=+-@\t\r").find(harmless[0]) == std::string::npos,
            "no cell begins a formula", {text});
    require(cli::writtenText(harmless) == text, "texts come out of their cells", {text, harmless});
    rows.back().push_back(harmless);
  }
  for (const Cells& row : rows) written += lineOf(row);
  require(cellsOf(cli::csvRows(written, "datei.csv")) == rows, "cells come out as they were",
          {written});
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  try {
    input.flag() ? attackCells(input) : attackFile(input.rest());
  } catch (const vexnumkr::cli::UsageError& error) {
    require(std::string_view(error.what()).find("datei.csv") != std::string_view::npos,
            "a refusal names the file", {error.what()});
  }
  return 0;
}
