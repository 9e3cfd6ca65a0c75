// CSV taken apart, as writeCsv writes it and spreadsheets save it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::cli {

/// A line with its cells. A text in quotes may have line breaks, so lines are counted as an editor
/// counts them.
struct CsvRow {
  std::size_t line = 1;
  std::vector<std::string> cells;
};

/// A text as a cell: one that a spreadsheet would take for a formula stands behind an apostrophe,
/// which writtenText takes away again.
std::string harmlessText(const std::string& text);
std::string writtenText(const std::string& cell);

/// The rows of `content` but for empty lines: cells between semicolons, texts in double quotes
/// where they need them, quotes inside doubled. A byte order mark is passed over. Error: UsageError
/// for a quote that does not end and for what is no UTF-8, named by `file`.
std::vector<CsvRow> csvRows(std::string_view content, const std::string& file);

}  // namespace vexnumkr::cli
