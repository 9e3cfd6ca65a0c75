#include "adapters/qtgrid/items/grid_texts.h"

#include <algorithm>
#include <functional>

namespace vexnumkr {
namespace {

constexpr std::size_t initialSlots = 256;  // a power of two, as every later size

}  // namespace

GridTexts::GridTexts() : ends_{0, 0}, slots_(initialSlots, emptyText) {}

GridTexts::Id GridTexts::add(std::string_view text) {
  if (text.empty()) return emptyText;
  const std::size_t slot = slotOf(text);
  if (slots_[slot] != emptyText) return slots_[slot];
  const Id id = append(text);
  slots_[slot] = id;
  if (ends_.size() * 2 > slots_.size()) grow();
  return id;
}

std::string_view GridTexts::text(Id id) const {
  return std::string_view(buffer_).substr(ends_[id], ends_[id + 1] - ends_[id]);
}

void GridTexts::clear() {
  buffer_.clear();
  ends_.assign(2, 0);
  std::fill(slots_.begin(), slots_.end(), emptyText);
}

std::size_t GridTexts::slotOf(std::string_view sought) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = std::hash<std::string_view>{}(sought)&mask;
  while (slots_[slot] != emptyText && text(slots_[slot]) != sought) slot = (slot + 1) & mask;
  return slot;
}

GridTexts::Id GridTexts::append(std::string_view text) {
  buffer_.append(text);
  ends_.push_back(buffer_.size());
  return static_cast<Id>(ends_.size() - 2);
}

void GridTexts::grow() {
  slots_.assign(slots_.size() * 4, emptyText);
  for (Id id = 1; id + 1 < ends_.size(); ++id) slots_[slotOf(text(id))] = id;
}

}  // namespace vexnumkr
