#include "data/table/xarray.h"

#include <algorithm>

#include <vexnumkr/error.h>

namespace vexnumkr {

XArray XArray::created() {
  XArray table;
  table.create();
  return table;
}

void XArray::create() { content_ = std::make_unique<Content>(); }

void XArray::release() { content_.reset(); }

XArray::Content& XArray::content() const {
  if (content_ == nullptr) throw Error::objectNotSet();
  return *content_;
}

std::int32_t XArray::size() const { return static_cast<std::int32_t>(content().live.count()); }

XArray::Iterator XArray::begin() const {
  const Content& own = content();
  return {own.rows.begin(), own.live, 0, own.rows.size()};
}

XArray::Iterator XArray::end() const {
  const Content& own = content();
  return {own.rows.end(), own.live, own.rows.size(), own.rows.size()};
}

std::size_t XArray::slotOf(std::int32_t row) const {
  if (row < 0 || row >= size()) throw Error::subscriptOutOfRange();
  return content().live.slotAt(static_cast<std::size_t>(row));
}

std::int32_t XArray::rowOf(std::size_t slot) const {
  return static_cast<std::int32_t>(content().live.positionOf(slot));
}

const RangeRow& XArray::at(std::int32_t row) const { return content().rows[slotOf(row)]; }

RangeRow& XArray::rowAt(std::int32_t row) { return content().rows[slotOf(row)]; }

std::optional<Text> XArray::knownText(std::string_view text) const {
  static_cast<void>(content());  // a table that is not there has no rows to be searched
  if (text.empty()) return Text();
  const PooledText* entry = texts_->find(text);
  return entry == nullptr ? std::nullopt : std::optional(Text(*entry));
}

// Takes the rows as they stand now; whatever knew their places has to learn them anew.
void XArray::Content::place(std::deque<RangeRow> moved) {
  rows = std::move(moved);
  live.reset(rows.size());
  finder.reset();
}

// Stores the remaining rows without the removed ones between them.
void XArray::Content::compact() {
  if (live.allLive()) return;
  std::deque<RangeRow> remaining;
  for (std::size_t slot = 0; slot < rows.size(); ++slot)
    if (live.isLive(slot)) remaining.push_back(rows[slot]);
  place(std::move(remaining));
}

void XArray::append(const RangeRow& row) {
  Content& own = content();
  const RangeRow kept = row;  // it may be a row of this table, which compacting moves
  own.compact();
  own.rows.push_back(kept);
  own.live.append(1);
  own.order = RowOrder::none;
}

void XArray::remove(std::int32_t row) { content().live.remove(slotOf(row)); }

void XArray::setValue(std::int32_t row, ValueColumn column, const Value& value) {
  Cell& cell = rowAt(row).*column;
  if (value.isText())
    cell = text(value.asText());
  else if (value.isEmpty())
    cell = Cell();
  else
    cell = value.toLong();
}

void XArray::setNumber(std::int32_t row, ValueColumn column, std::int32_t number) {
  rowAt(row).*column = number;
}

void XArray::setGruppe(std::int32_t row, std::string_view caption) {
  rowAt(row).Gruppe = text(caption);
}

void XArray::setAktiviert(std::int32_t row, bool active) { rowAt(row).Aktiviert = active; }

void XArray::sort(RowOrder order) {
  Content& own = content();
  if (own.order == order) return;
  own.compact();
  const auto positions = sortedPositions(own.rows, order);
  if (!std::is_sorted(positions.begin(), positions.end())) {
    std::deque<RangeRow> sorted;
    for (const std::uint32_t position : positions) sorted.push_back(own.rows[position]);
    own.place(std::move(sorted));
  }
  own.order = order;
}

RowFinder& XArray::finder() const {
  Content& own = content();
  if (!own.finder) own.finder.emplace(own.rows, own.live);
  return *own.finder;
}

std::int32_t XArray::findRange(std::string_view user, std::int32_t circle,
                               std::string_view numberKey) const {
  const auto userText = knownText(user);
  if (!userText) return -1;
  auto found = finder().first({userText->id(), circle, 0});
  if (const auto key = knownText(numberKey); key && !key->empty()) {
    const auto exact = finder().first({userText->id(), circle, key->id()});
    if (exact && (!found || *exact < *found)) found = exact;
  }
  return found ? rowOf(*found) : -1;
}

std::vector<std::int32_t> XArray::rangeRows(std::string_view user, std::int32_t circle,
                                            std::string_view numberKey) const {
  std::vector<std::int32_t> rows;
  const auto userText = knownText(user);
  const auto key = knownText(numberKey);
  if (!userText || !key) return rows;
  for (const std::size_t slot : finder().all({userText->id(), circle, key->id()}))
    rows.push_back(rowOf(slot));
  return rows;
}

template <class Fits>
std::int32_t XArray::findIf(std::int32_t from, const Fits& fits) const {
  const Content& own = content();
  if (from >= size()) return -1;
  for (std::size_t slot = slotOf(from); slot < own.rows.size(); ++slot)
    if (own.live.isLive(slot) && fits(own.rows[slot])) return rowOf(slot);
  return -1;
}

// The rules walk user after user over a table that is sorted by them.
std::int32_t XArray::findUser(std::string_view user) const {
  const auto wanted = knownText(user);
  if (!wanted) return -1;
  const auto is = [&wanted](const RangeRow& row) { return row.Benutzer == *wanted; };
  const RowOrder order = content().order;
  if (order != RowOrder::display && order != RowOrder::tree) return findIf(0, is);
  std::int32_t low = 0;
  std::int32_t high = size();
  while (low < high) {
    const std::int32_t middle = low + (high - low) / 2;
    if (at(middle).Benutzer.str() < user)
      low = middle + 1;
    else
      high = middle;
  }
  return low < size() && is(at(low)) ? low : -1;
}

std::int32_t XArray::findCircle(std::int32_t circle, std::int32_t from) const {
  return findIf(from, [circle](const RangeRow& row) { return row.Buchungskreis == circle; });
}

std::int32_t XArray::findNumberKey(std::string_view numberKey, std::int32_t from) const {
  const auto wanted = knownText(numberKey);
  if (!wanted) return -1;
  return findIf(from, [&wanted](const RangeRow& row) { return row.NSchl == *wanted; });
}

std::int32_t XArray::findCaption(std::string_view user, std::string_view caption,
                                 std::string_view numberKey) const {
  const auto wantedUser = knownText(user);
  const auto wantedCaption = knownText(caption);
  const auto wantedKey = knownText(numberKey);
  if (!wantedUser || !wantedCaption || !wantedKey) return -1;
  return findIf(0, [&](const RangeRow& row) {
    return row.NSchl == *wantedKey && row.Benutzer == *wantedUser && row.Gruppe == *wantedCaption;
  });
}

void XArray::copyFrom(const XArray& source) {
  if (&source == this) return;
  const Content& other = source.content();
  auto copy = std::make_unique<Content>();
  copy->rows = other.rows;
  copy->live = other.live;
  copy->order = other.order;
  texts_ = source.texts_;
  content_ = std::move(copy);
}

}  // namespace vexnumkr
