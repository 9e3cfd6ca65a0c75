#include "cli/transfer/company_tables.h"

#include <xlsxwriter.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "cli/byte_order_mark.h"
#include "cli/transfer/csv_rows.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::Company;

std::string number(const std::optional<std::int32_t>& value) {
  return value ? std::to_string(*value) : std::string();
}

std::string flag(bool value) { return value ? "ja" : "nein"; }

CompanyTable rangeTable(const Company& company, bool withCurrent) {
  CompanyTable table{"Nummernkreise",
                     {"NSchl", "NBezeichnung", "Buchungskreis", "StartWert", "EndWert", "Aktiviert",
                      "SortierIndex", "IstNSchlVon", "Maske"},
                     {false, false, true, true, true, false, true, false, false},
                     {}};
  if (withCurrent) {
    table.headings.insert(table.headings.begin() + 4, "AktuellerWert");
    table.isNumber.insert(table.isNumber.begin() + 4, true);
  }
  for (const auto& range : company.ranges) {
    std::vector<std::string> row = {
        range.key,         range.description,  std::to_string(range.circle),    number(range.start),
        number(range.end), flag(range.active), std::to_string(range.sortIndex), range.sharedKey,
        range.mask};
    if (withCurrent) row.insert(row.begin() + 4, number(range.current));
    table.rows.push_back(std::move(row));
  }
  return table;
}

// Whose settings these are; nothing else says so.
CompanyTable applicationTable(const Company& company) {
  return {"Anwendung", {"Anwendung"}, {true}, {{std::to_string(company.application)}}};
}

CompanyTable circleTable(const Company& company) {
  CompanyTable table{"Buchungskreise", {"Buchungskreis", "Beschreibung"}, {true, false}, {}};
  for (const auto& circle : company.circles)
    table.rows.push_back({std::to_string(circle.number), circle.description});
  return table;
}

CompanyTable assignmentTable(const Company& company) {
  CompanyTable table{
      "Zuordnungen", {"Benutzer", "NSchl", "Buchungskreis"}, {false, false, true}, {}};
  for (const auto& assignment : company.assignments)
    table.rows.push_back({assignment.user, assignment.key, std::to_string(assignment.circle)});
  return table;
}

CompanyTable specialTable(const Company& company) {
  CompanyTable table{"Sonderkreise",
                     {"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert"},
                     {false, false, false, false},
                     {}};
  for (const auto& special : company.specialRanges)
    table.rows.push_back({special.ownKey, special.key, special.description, flag(special.active)});
  return table;
}

std::string csvCell(const std::string& text) {
  if (text.find_first_of(";\"\r\n") == std::string::npos) return text;
  std::string cell = "\"";
  for (const char c : text) cell.append(c == '"' ? 2 : 1, c);
  return cell + "\"";
}

void writeLine(std::ostream& out, const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) out << (i == 0 ? "" : ";") << csvCell(cells[i]);
  out << "\r\n";
}

void writeTable(std::ostream& out, const CompanyTable& table) {
  out << byteOrderMark;
  writeLine(out, table.headings);
  for (std::vector<std::string> row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      if (!table.isNumber[i]) row[i] = harmlessText(row[i]);
    writeLine(out, row);
  }
}

void writeSheet(lxw_worksheet* sheet, lxw_format* bold, const CompanyTable& table) {
  for (std::size_t column = 0; column < table.headings.size(); ++column)
    worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(column), table.headings[column].c_str(),
                           bold);
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const auto row = static_cast<lxw_row_t>(i + 1);
    for (std::size_t column = 0; column < table.rows[i].size(); ++column) {
      const std::string& cell = table.rows[i][column];
      if (cell.empty()) continue;
      const auto at = static_cast<lxw_col_t>(column);
      if (table.isNumber[column]) {
        worksheet_write_number(sheet, row, at, std::strtod(cell.c_str(), nullptr), nullptr);
      } else {
        worksheet_write_string(sheet, row, at, cell.c_str(), nullptr);
      }
    }
  }
  worksheet_freeze_panes(sheet, 1, 0);
  worksheet_autofilter(sheet, 0, 0, static_cast<lxw_row_t>(table.rows.size()),
                       static_cast<lxw_col_t>(table.headings.size() - 1));
  worksheet_set_column(sheet, 0, static_cast<lxw_col_t>(table.headings.size() - 1), 16, nullptr);
}

}  // namespace

std::vector<CompanyTable> tablesOf(const Company& company, bool withCurrent) {
  return {applicationTable(company), rangeTable(company, withCurrent), circleTable(company),
          assignmentTable(company), specialTable(company)};
}

void writeCsv(const std::string& folder, const std::vector<CompanyTable>& tables) {
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  for (const CompanyTable& table : tables) {
    const std::string file = (std::filesystem::path(folder) / (table.name + ".csv")).string();
    std::ofstream out(file, std::ios::binary);
    writeTable(out, table);
    out.close();
    if (!out) throw UsageError("Die Datei " + file + " ist nicht zu schreiben.");
  }
}

void writeXlsx(const std::string& file, const std::vector<CompanyTable>& tables) {
  lxw_workbook* const workbook = workbook_new(file.c_str());
  if (workbook == nullptr) throw UsageError("Die Datei " + file + " ist nicht zu schreiben.");
  lxw_format* const bold = workbook_add_format(workbook);
  format_set_bold(bold);
  for (const CompanyTable& table : tables)
    writeSheet(workbook_add_worksheet(workbook, table.name.c_str()), bold, table);
  if (workbook_close(workbook) != LXW_NO_ERROR)
    throw UsageError("Die Datei " + file + " ist nicht zu schreiben.");
}

}  // namespace vexnumkr::cli
