#include "data/table/range_index.h"

namespace vexnumkr {
namespace {

constexpr std::size_t userColumn = 0;
constexpr std::size_t circleColumn = 1;
constexpr std::size_t numberKeyColumn = 3;
constexpr std::size_t smallestSize = 64;

std::size_t hashOf(const RangeKey& key) {
  std::uint64_t h = (std::uint64_t{key.user} << 32) ^ key.numberKey;
  h ^= std::uint64_t{static_cast<std::uint32_t>(key.circle)} << 20;
  h *= 0x9E3779B97F4A7C15U;
  h ^= h >> 29;
  h *= 0xBF58476D1CE4E5B9U;
  return static_cast<std::size_t>(h ^ (h >> 32));
}

}  // namespace

std::optional<RangeKey> rangeKeyOf(const Cell* row) {
  const Cell& user = row[userColumn];
  const Cell& circle = row[circleColumn];
  const Cell& key = row[numberKeyColumn];
  if (!user.isText() || !circle.isLong()) return std::nullopt;
  if (key.kind == Cell::Kind::Empty) return RangeKey{user.textId(), circle.number(), emptyTextId};
  if (!key.isText()) return std::nullopt;
  return RangeKey{user.textId(), circle.number(), key.textId()};
}

void RangeIndex::clear() {
  chains_.clear();
  next_.clear();
  used_ = 0;
}

RangeIndex::Chain* RangeIndex::find(const RowStore& store, const RangeKey& key) {
  if (chains_.empty()) return nullptr;
  const std::size_t mask = chains_.size() - 1;
  for (std::size_t i = hashOf(key) & mask;; i = (i + 1) & mask) {
    Chain& chain = chains_[i];
    if (chain.head == none) return nullptr;
    if (chain.head != deleted && rangeKeyOf(store.row(chain.head)) == key) return &chain;
  }
}

RangeIndex::Chain& RangeIndex::findOrAdd(const RowStore& store, const RangeKey& key) {
  const std::size_t mask = chains_.size() - 1;
  for (std::size_t i = hashOf(key) & mask;; i = (i + 1) & mask) {
    Chain& chain = chains_[i];
    if (chain.head == none) {
      ++used_;
      return chain;
    }
    if (chain.head != deleted && rangeKeyOf(store.row(chain.head)) == key) return chain;
  }
}

// Doubles the table before it is two thirds full, and leaves deleted chains behind.
void RangeIndex::grow(const RowStore& store) {
  if (!chains_.empty() && (used_ + 1) * 3 < chains_.size() * 2) return;
  std::vector<Chain> old(chains_.empty() ? smallestSize : chains_.size() * 2);
  old.swap(chains_);
  used_ = 0;
  for (const Chain& chain : old) {
    if (chain.head == none || chain.head == deleted) continue;
    findOrAdd(store, *rangeKeyOf(store.row(chain.head))) = chain;
  }
}

void RangeIndex::insert(Chain& chain, std::uint32_t slot) {
  next_[slot] = none;
  if (chain.head == none) {
    chain = {slot, slot};
  } else if (slot > chain.tail) {
    next_[chain.tail] = slot;
    chain.tail = slot;
  } else if (slot < chain.head) {
    next_[slot] = chain.head;
    chain.head = slot;
  } else {
    std::uint32_t before = chain.head;
    while (next_[before] < slot) before = next_[before];
    next_[slot] = next_[before];
    next_[before] = slot;
  }
}

void RangeIndex::link(const RowStore& store, std::size_t slot) {
  const auto key = rangeKeyOf(store.row(slot));
  if (!key) return;
  grow(store);
  insert(findOrAdd(store, *key), static_cast<std::uint32_t>(slot));
}

void RangeIndex::unlink(const RowStore& store, std::size_t slot) {
  const auto key = rangeKeyOf(store.row(slot));
  if (!key) return;
  Chain& chain = *find(store, *key);
  if (chain.head == slot) {
    chain.head = next_[slot];
    if (chain.head == none) chain.head = deleted;
    return;
  }
  std::uint32_t before = chain.head;
  while (next_[before] != slot) before = next_[before];
  next_[before] = next_[slot];
  if (chain.tail == slot) chain.tail = before;
}

void RangeIndex::extend(const RowStore& store) {
  for (std::size_t slot = next_.size(); slot < store.rows(); ++slot) {
    next_.push_back(none);
    link(store, slot);
  }
}

std::optional<std::size_t> RangeIndex::first(const RowStore& store, const LiveRows& live,
                                             const RangeKey& key) {
  Chain* chain = find(store, key);
  if (chain == nullptr) return std::nullopt;
  // The last row of a chain stays, removed or not, because the chain is known by its head's key.
  while (!live.isLive(chain->head) && next_[chain->head] != none) chain->head = next_[chain->head];
  if (!live.isLive(chain->head)) return std::nullopt;
  return chain->head;
}

std::vector<std::size_t> RangeIndex::all(const RowStore& store, const LiveRows& live,
                                         const RangeKey& key) {
  std::vector<std::size_t> slots;
  const Chain* chain = find(store, key);
  if (chain == nullptr) return slots;
  for (std::uint32_t slot = chain->head; slot != none; slot = next_[slot])
    if (live.isLive(slot)) slots.push_back(slot);
  return slots;
}

}  // namespace vexnumkr
