#include "cli/transfer/company_csv.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>

#include "cli/transfer/csv_rows.h"
#include "cli/transfer/file_content.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::Company;

constexpr std::size_t notThere = static_cast<std::size_t>(-1);

// What is wrong, all of it.
class Faults {
 public:
  void add(const std::string& file, std::size_t line, const std::string& what) {
    text_ += "\n" + file + ", Zeile " + std::to_string(line) + ": " + what;
  }
  void raise() const {
    if (!text_.empty()) throw UsageError("Die Dateien sind so nicht zu verwenden:" + text_);
  }

 private:
  std::string text_;
};

// One file, with a current row.
class CsvTable {
 public:
  CsvTable(const std::string& folder, const std::string& name, Faults& faults)
      : file_(name + ".csv"),
        rows_(csvRows(contentOf((std::filesystem::path(folder) / file_).string()), file_)),
        faults_(faults) {
    if (rows_.empty()) throw UsageError("Die Datei " + file_ + " hat keine Überschriften.");
  }

  /// Calls `read` at each row that has a cell for each heading.
  template <class Read>
  void forEachRow(Read&& read) {
    for (at_ = 1; at_ < rows_.size(); ++at_) {
      if (row().cells.size() == rows_.front().cells.size()) {
        read();
      } else {
        fault("hat " + std::to_string(row().cells.size()) + " Zellen statt " +
              std::to_string(rows_.front().cells.size()) + ".");
      }
    }
  }

  bool has(const char* heading) const { return columnOf(heading) != notThere; }

  const std::string& text(const char* heading) const {
    const std::size_t column = columnOf(heading);
    if (column == notThere)
      throw UsageError("In der Datei " + file_ + " fehlt die Spalte " + heading + ".");
    return row().cells[column];
  }
  std::optional<std::int32_t> optionalNumber(const char* heading) {
    const std::string& cell = text(heading);
    if (cell.empty()) return std::nullopt;
    std::int32_t number = 0;
    const char* const end = cell.data() + cell.size();
    const auto read = std::from_chars(cell.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end) return number;
    fault(std::string(heading) + " ist keine Zahl mit 32 Bit: \"" + cell + "\".");
    return std::nullopt;
  }
  std::int32_t number(const char* heading) {
    if (text(heading).empty()) fault(std::string(heading) + " fehlt.");
    return optionalNumber(heading).value_or(0);
  }
  bool flag(const char* heading) {
    const std::string& cell = text(heading);
    if (cell != "ja" && cell != "nein")
      fault(std::string(heading) + " muss ja oder nein sein, nicht \"" + cell + "\".");
    return cell == "ja";
  }

 private:
  const CsvRow& row() const { return rows_[at_]; }
  void fault(const std::string& what) { faults_.add(file_, row().line, what); }

  std::size_t columnOf(const char* heading) const {
    const auto& headings = rows_.front().cells;
    const auto found = std::find(headings.begin(), headings.end(), heading);
    return found == headings.end() ? notThere : static_cast<std::size_t>(found - headings.begin());
  }

  std::string file_;
  std::vector<CsvRow> rows_;
  Faults& faults_;
  std::size_t at_ = 0;
};

void readRanges(CsvTable table, Company& company) {
  table.forEachRow([&] {
    numbers::Range range;
    range.circle = table.number("Buchungskreis");
    range.key = table.text("NSchl");
    range.description = table.text("NBezeichnung");
    range.start = table.optionalNumber("StartWert");
    if (table.has("AktuellerWert")) range.current = table.optionalNumber("AktuellerWert");
    range.end = table.optionalNumber("EndWert");
    range.active = table.flag("Aktiviert") || range.circle == 0;
    range.sortIndex = table.number("SortierIndex");
    range.sharedKey = table.text("IstNSchlVon");
    range.mask = table.text("Maske");
    company.ranges.push_back(std::move(range));
  });
}

void readCircles(CsvTable table, Company& company) {
  table.forEachRow([&] {
    company.circles.push_back({table.number("Buchungskreis"), table.text("Beschreibung")});
  });
}

void readAssignments(CsvTable table, Company& company) {
  table.forEachRow([&] {
    company.assignments.push_back(
        {table.number("Buchungskreis"), table.text("NSchl"), table.text("Benutzer")});
  });
}

void readSpecialRanges(CsvTable table, Company& company) {
  table.forEachRow([&] {
    company.specialRanges.push_back({table.text("U_NSchl"), table.text("NSchl"),
                                     table.text("NBezeichnung"), table.flag("Aktiviert")});
  });
}

}  // namespace

Company companyInFolder(const std::string& folder, std::int32_t application) {
  Company company;
  company.application = application;
  Faults faults;
  readRanges(CsvTable(folder, "Nummernkreise", faults), company);
  readCircles(CsvTable(folder, "Buchungskreise", faults), company);
  readAssignments(CsvTable(folder, "Zuordnungen", faults), company);
  readSpecialRanges(CsvTable(folder, "Sonderkreise", faults), company);
  faults.raise();
  return company;
}

}  // namespace vexnumkr::cli
