#include "cli/transfer/csv_rows.h"

#include <QUtf8StringView>
#include <algorithm>

#include "cli/byte_order_mark.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

// Whether a spreadsheet computes what begins so.
bool beginsFormula(char c) {
  return std::string_view("=+-@\t\r").find(c) != std::string_view::npos;
}

// An apostrophe that is one of ours, or would be taken for one.
bool isEscaped(std::string_view cell) {
  return cell.size() > 1 && cell[0] == '\'' && (cell[1] == '\'' || beginsFormula(cell[1]));
}

class CsvReader {
 public:
  CsvReader(std::string_view content, const std::string& file) : content_(content), file_(file) {}

  std::vector<CsvRow> read() {
    std::vector<CsvRow> rows;
    while (at_ < content_.size()) {
      CsvRow row{line_, readCells()};
      // Empty lines are left behind by people, at the end above all.
      if (row.cells.size() > 1 || !row.cells.front().empty()) rows.push_back(std::move(row));
    }
    return rows;
  }

 private:
  std::vector<std::string> readCells() {
    std::vector<std::string> cells = {readCell()};
    while (takes(';')) cells.push_back(readCell());
    takes('\r');
    takes('\n');
    ++line_;
    return cells;
  }

  std::string readCell() {
    if (takes('"')) return readQuoted();
    const std::size_t end = std::min(content_.find_first_of(";\r\n", at_), content_.size());
    const std::string cell(content_.substr(at_, end - at_));
    at_ = end;
    return cell;
  }

  // Behind the opening quote.
  std::string readQuoted() {
    const std::size_t begun = line_;
    std::string cell;
    for (; at_ < content_.size(); ++at_) {
      if (content_[at_] == '"') {
        ++at_;
        if (at_ == content_.size() || content_[at_] != '"') return cell + readCell();
      }
      if (content_[at_] == '\n') ++line_;
      cell += content_[at_];
    }
    throw UsageError("Die Datei " + file_ + " ist so nicht zu verwenden: Zeile " +
                     std::to_string(begun) + " beginnt einen Text, der nicht endet.");
  }

  bool takes(char c) {
    if (at_ == content_.size() || content_[at_] != c) return false;
    ++at_;
    return true;
  }

  std::string_view content_;
  const std::string& file_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

std::string harmlessText(const std::string& text) {
  const bool isFormula = !text.empty() && beginsFormula(text.front());
  return isFormula || isEscaped(text) ? "'" + text : text;
}

std::string writtenText(const std::string& cell) { return isEscaped(cell) ? cell.substr(1) : cell; }

std::vector<CsvRow> csvRows(std::string_view content, const std::string& file) {
  if (!QUtf8StringView(content.data(), static_cast<qsizetype>(content.size())).isValidUtf8())
    throw UsageError("Die Datei " + file +
                     " ist nicht in UTF-8; Tabellenprogramme nennen das \"CSV UTF-8\".");
  if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
  return CsvReader(content, file).read();
}

}  // namespace vexnumkr::cli
