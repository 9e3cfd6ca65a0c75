// The cells of a table, row after row, in blocks of equal size.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "data/table/cell.h"

namespace vexnumkr {

/// Blocks rather than one array: a growing table moves nothing and reserves little.
class RowStore {
 public:
  explicit RowStore(std::size_t columns = 0) : columns_(columns) {}
  RowStore(RowStore&&) = default;
  RowStore& operator=(RowStore&&) = default;

  std::size_t rows() const { return rows_; }
  std::size_t columns() const { return columns_; }

  /// Adds empty rows behind the last.
  void append(std::size_t rows);

  Cell* row(std::size_t slot) {
    return blocks_[slot / blockRows].get() + (slot % blockRows) * columns_;
  }
  const Cell* row(std::size_t slot) const {
    return blocks_[slot / blockRows].get() + (slot % blockRows) * columns_;
  }

  /// A store that holds the rows `slots` of this one, in that order.
  RowStore select(const std::vector<std::uint32_t>& slots) const;
  RowStore copy() const;

 private:
  static constexpr std::size_t blockRows = 1024;

  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::vector<std::unique_ptr<Cell[]>> blocks_;
};

}  // namespace vexnumkr
