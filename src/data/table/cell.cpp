#include "data/table/cell.h"

namespace vexnumkr {
namespace {

// The empty text has no entry in a pool, and is something else than nothing.
const PooledText& emptyText() {
  static const PooledText entry;
  return entry;
}

}  // namespace

Cell::Cell(Text text)
    : bits_(reinterpret_cast<std::uintptr_t>(text.empty() ? &emptyText() : text.entry_)) {}

const std::string& Cell::text() const {
  return reinterpret_cast<const PooledText*>(static_cast<std::uintptr_t>(bits_))->text;
}

std::int32_t Cell::textToNumber() const { return isEmpty() ? 0 : textToLong(text()); }

std::string Cell::toText() const {
  if (isNumber()) return std::to_string(number());
  return isEmpty() ? std::string() : text();
}

Value Cell::toValue() const {
  if (isNumber()) return number();
  if (isEmpty()) return {};
  return text();
}

}  // namespace vexnumkr
