#include "cli/transfer/company_csv.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>
#include <set>

#include "cli/transfer/csv_rows.h"
#include "cli/transfer/faults.h"
#include "cli/transfer/file_content.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::ChangedTable;
using numbers::Company;
using Headings = std::vector<std::string>;

// One file, with a current row.
class CsvTable {
 public:
  CsvTable(const std::string& folder, const std::string& name, Faults& faults)
      : file_(name + ".csv"), faults_(faults) {
    try {
      rows_ = csvRows(contentOf((std::filesystem::path(folder) / file_).string()), file_);
      if (rows_.empty()) faults_.add(file_, "hat keine Überschriften.");
    } catch (const UsageError& error) {
      faults_.add(error.what());
    }
  }

  /// Calls `read` at each row that has a cell for each heading, where the file has all columns of
  /// `needed` and no others but those of `possible`.
  template <class Read>
  void forEachRow(const Headings& needed, const Headings& possible, Read&& read) {
    if (rows_.empty() || !hasColumns(needed, possible)) return;
    for (at_ = 1; at_ < rows_.size(); ++at_) {
      if (row().cells.size() == rows_.front().cells.size()) {
        read();
      } else {
        fault("hat " + std::to_string(row().cells.size()) + " Zellen statt " +
              std::to_string(rows_.front().cells.size()) + ".");
      }
    }
  }

  bool has(const char* heading) const { return columnOf(heading).has_value(); }
  /// Of the current row, for messages.
  std::string place() const { return file_ + ", Zeile " + std::to_string(row().line); }

  /// REQUIRES: the file has a column of that heading, here and below.
  std::string text(const char* heading) const {
    return withoutTrailingBlanks(writtenText(cell(heading)));
  }
  std::optional<std::int32_t> optionalNumber(const char* heading) {
    const std::string& digits = cell(heading);
    if (digits.empty()) return std::nullopt;
    std::int32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end) return number;
    fault(std::string(heading) + " ist keine Zahl mit 32 Bit: \"" + digits + "\".");
    return std::nullopt;
  }
  std::int32_t number(const char* heading) {
    if (cell(heading).empty()) fault(std::string(heading) + " fehlt.");
    return optionalNumber(heading).value_or(0);
  }
  bool flag(const char* heading) {
    const std::string& word = cell(heading);
    if (word != "ja" && word != "nein")
      fault(std::string(heading) + " muss ja oder nein sein, nicht \"" + word + "\".");
    return word == "ja";
  }

 private:
  const CsvRow& row() const { return rows_[at_]; }
  const std::string& cell(const char* heading) const { return row().cells[*columnOf(heading)]; }
  void fault(const std::string& what) { faults_.add(place(), what); }

  std::optional<std::size_t> columnOf(const std::string& heading) const {
    const auto& headings = rows_.front().cells;
    const auto found = std::find(headings.begin(), headings.end(), heading);
    if (found == headings.end()) return std::nullopt;
    return static_cast<std::size_t>(found - headings.begin());
  }

  bool hasColumns(const Headings& needed, const Headings& possible) {
    const auto& headings = rows_.front().cells;
    if (headings.size() == 1 && headings.front().find(',') != std::string::npos) {
      faults_.add(file_, "Die Zellen sind durch Kommas getrennt; erwartet werden Semikolons.");
      return false;
    }
    bool isSound = true;
    const auto tell = [&](const std::string& what) {
      faults_.add(file_, what);
      isSound = false;
    };
    for (const std::string& heading : needed)
      if (!columnOf(heading)) tell("Es fehlt die Spalte " + heading + ".");
    std::set<std::string> known;
    for (const std::string& heading : headings) {
      const auto isIn = [&](const Headings& some) {
        return std::find(some.begin(), some.end(), heading) != some.end();
      };
      if (!isIn(needed) && !isIn(possible)) tell("Die Spalte \"" + heading + "\" kennt niemand.");
      if (!known.insert(heading).second) tell("Die Spalte " + heading + " gibt es zweimal.");
    }
    return isSound;
  }

  std::string file_;
  std::vector<CsvRow> rows_;
  Faults& faults_;
  std::size_t at_ = 0;
};

class FolderReader {
 public:
  explicit FolderReader(const std::string& folder) : folder_(folder) {}

  WantedCompany read() {
    readApplication();
    readRanges();
    readCircles();
    readAssignments();
    readSpecialRanges();
    faults_.raise();
    return std::move(wanted_);
  }

 private:
  void readApplication() {
    CsvTable table(folder_, "Anwendung", faults_);
    int rows = 0;
    table.forEachRow({"Anwendung"}, {}, [&] {
      company().application = table.number("Anwendung");
      ++rows;
    });
    if (faults_.isEmpty() && rows != 1) faults_.add("Anwendung.csv", "muss eine Zeile haben.");
  }

  void readRanges() {
    CsvTable table(folder_, "Nummernkreise", faults_);
    table.forEachRow({"NSchl", "NBezeichnung", "Buchungskreis", "StartWert", "EndWert", "Aktiviert",
                      "SortierIndex", "IstNSchlVon", "Maske"},
                     {"AktuellerWert"}, [&] {
                       company().ranges.push_back(rangeIn(table));
                       note(ChangedTable::ranges, table);
                     });
  }

  static numbers::Range rangeIn(CsvTable& table) {
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
    return range;
  }

  void readCircles() {
    CsvTable table(folder_, "Buchungskreise", faults_);
    table.forEachRow({"Buchungskreis", "Beschreibung"}, {}, [&] {
      company().circles.push_back({table.number("Buchungskreis"), table.text("Beschreibung")});
      note(ChangedTable::circles, table);
    });
  }

  void readAssignments() {
    CsvTable table(folder_, "Zuordnungen", faults_);
    table.forEachRow({"Buchungskreis", "NSchl", "Benutzer"}, {}, [&] {
      company().assignments.push_back(
          {table.number("Buchungskreis"), table.text("NSchl"), table.text("Benutzer")});
      note(ChangedTable::assignments, table);
    });
  }

  void readSpecialRanges() {
    CsvTable table(folder_, "Sonderkreise", faults_);
    table.forEachRow({"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert"}, {}, [&] {
      company().specialRanges.push_back({table.text("U_NSchl"), table.text("NSchl"),
                                         table.text("NBezeichnung"), table.flag("Aktiviert")});
      note(ChangedTable::specialRanges, table);
    });
  }

  Company& company() { return wanted_.company; }
  void note(ChangedTable table, const CsvTable& at) {
    wanted_.placesIn(table).push_back(at.place());
  }

  const std::string& folder_;
  Faults faults_;
  WantedCompany wanted_;
};

}  // namespace

WantedCompany companyInFolder(const std::string& folder) { return FolderReader(folder).read(); }

}  // namespace vexnumkr::cli
