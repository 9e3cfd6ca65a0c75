#include "cli/text_table.h"

#include <algorithm>
#include <ostream>

namespace vexnumkr::cli {

std::string grouped(std::int64_t number) {
  std::string digits = std::to_string(number);
  const std::ptrdiff_t sign = number < 0 ? 1 : 0;
  for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > sign; at -= 3)
    digits.insert(static_cast<std::size_t>(at), 1, '.');
  return digits;
}

std::string counted(std::int64_t number, const std::string& one, const std::string& many) {
  return grouped(number) + " " + (number == 1 ? one : many);
}

std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

TextTable::TextTable(std::vector<std::string> headings) : headings_(std::move(headings)) {
  for (std::string& heading : headings_) {
    toTheRight_.push_back(heading.starts_with(' '));
    if (toTheRight_.back()) heading.erase(0, 1);
  }
}

std::vector<std::size_t> TextTable::widths() const {
  std::vector<std::size_t> widths;
  for (std::size_t i = 0; i < headings_.size(); ++i) {
    std::size_t width = widthOf(headings_[i]);
    for (const auto& row : rows_) width = std::max(width, widthOf(row[i]));
    widths.push_back(width);
  }
  return widths;
}

void TextTable::print(std::ostream& out) const {
  const std::vector<std::size_t> columns = widths();
  const auto printLine = [&](const std::vector<std::string>& row) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string gap(columns[i] - widthOf(row[i]), ' ');
      line += (i == 0 ? "" : "  ") + (toTheRight_[i] ? gap + row[i] : row[i] + gap);
    }
    // Lines that end in blanks break in a narrow terminal, and are a nuisance when they are copied.
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  };
  printLine(headings_);
  for (const auto& row : rows_) printLine(row);
}

}  // namespace vexnumkr::cli
