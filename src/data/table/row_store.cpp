#include "data/table/row_store.h"

#include <algorithm>

namespace vexnumkr {

void RowStore::append(std::size_t rows) {
  rows_ += rows;
  while (blocks_.size() * blockRows < rows_)
    blocks_.push_back(std::make_unique<Cell[]>(blockRows * columns_));
}

RowStore RowStore::select(const std::vector<std::uint32_t>& slots) const {
  RowStore result(columns_);
  result.append(slots.size());
  for (std::size_t i = 0; i < slots.size(); ++i)
    std::copy_n(row(slots[i]), columns_, result.row(i));
  return result;
}

RowStore RowStore::copy() const {
  RowStore result(columns_);
  result.append(rows_);
  for (std::size_t i = 0; i < blocks_.size(); ++i)
    std::copy_n(blocks_[i].get(), blockRows * columns_, result.blocks_[i].get());
  return result;
}

}  // namespace vexnumkr
