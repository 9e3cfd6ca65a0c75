// Results for people: tables and numbers.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace vexnumkr::cli {

/// 12345678 as "12.345.678".
std::string grouped(std::int64_t number);

/// "1 Lücke", "2 Lücken".
std::string counted(std::int64_t number, const std::string& one, const std::string& many);

/// The characters of a UTF-8 text.
std::size_t widthOf(const std::string& text);

/// Columns as wide as their widest cell.
class TextTable {
 public:
  /// A heading that begins with a blank is one of numbers, which stand to the right.
  explicit TextTable(std::vector<std::string> headings);
  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  bool isEmpty() const { return rows_.empty(); }
  void print(std::ostream& out) const;

 private:
  std::vector<std::size_t> widths() const;

  std::vector<std::string> headings_;
  std::vector<bool> toTheRight_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace vexnumkr::cli
