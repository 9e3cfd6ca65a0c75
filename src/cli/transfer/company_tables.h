// The settings of a company as four tables, for spreadsheets.
#pragma once

#include <string>
#include <vector>

#include <vexnumkr/number_company.h>

namespace vexnumkr::cli {

/// A table with headings; cells of numbers hold nothing else.
struct CompanyTable {
  std::string name;
  std::vector<std::string> headings;
  std::vector<bool> isNumber;
  std::vector<std::vector<std::string>> rows;
};

/// Anwendung, with its number, Nummernkreise, Buchungskreise, Zuordnungen and Sonderkreise.
std::vector<CompanyTable> tablesOf(const numbers::Company& company, bool withCurrent);

/// Writes each table as NAME.csv into `folder`, which is made where it is missing: UTF-8 behind a
/// byte order mark, semicolons, texts in double quotes where they need them, and none that a
/// spreadsheet would compute (csv_rows.h). Error: UsageError.
void writeCsv(const std::string& folder, const std::vector<CompanyTable>& tables);

/// Writes the tables as the sheets of one workbook. Error: UsageError.
void writeXlsx(const std::string& file, const std::vector<CompanyTable>& tables);

}  // namespace vexnumkr::cli
