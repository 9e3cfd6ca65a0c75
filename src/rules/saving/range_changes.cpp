#include "rules/saving/range_changes.h"

#include <algorithm>
#include <map>
#include <set>

#include "data/stored/hosts_keys.h"
#include "data/table/loose_text.h"

namespace vexnumkr {
namespace {

// What is stored of a range and what is to be.
struct Range {
  const StoredRecord* stored = nullptr;
  bool isStoredTwice = false;
  const RangeRow* wanted = nullptr;

  bool isUncertain(const RangeId& id) const {
    return isStoredTwice || (wanted != nullptr && isHostsKey(id.NSchl));
  }
};

class Comparison {
 public:
  Comparison(const XArray& table, const std::vector<RangeRow>& others,
             const std::vector<StoredRecord>& stored) {
    for (const StoredRecord& record : stored) addStored(record);
    for (const RangeRow& row : table)
      if (row.isCommon()) addWanted(row);
    for (const RangeRow& row : others) addWanted(row);
  }

  RangeChanges changes() {
    findEntangled();
    RangeChanges changes;
    for (const auto& [id, range] : ranges_)
      if (range.stored != nullptr && (range.wanted == nullptr || isEntangled(id)))
        changes.leaving.push_back(id);
    for (const RangeRow* row : wanted_) addChange(changes, *row);
    return changes;
  }

 private:
  void addStored(const StoredRecord& record) {
    Range& range = ranges_[record.range];
    range.isStoredTwice = range.stored != nullptr;
    range.stored = &record;
  }

  void addWanted(const RangeRow& row) {
    ranges_[RangeId::of(row)].wanted = &row;
    wanted_.push_back(&row);
  }

  // Where one of those with the same loose key is not stored, it may meet another of them.
  void findEntangled() {
    for (const auto& [id, range] : ranges_) allAreLoose_ = allAreLoose_ && looseText(id.NSchl);
    struct Group {
      std::int32_t size = 0;
      bool isUncertain = false;
    };
    std::map<RangeId, Group> groups;
    for (const auto& [id, range] : ranges_) {
      Group& group = groups[looseId(id)];
      ++group.size;
      if (range.stored == nullptr || range.isStoredTwice) group.isUncertain = true;
      if (range.isUncertain(id)) entangled_.insert(looseId(id));
    }
    for (const auto& [id, group] : groups)
      if (group.size > 1 && group.isUncertain) entangled_.insert(id);
  }

  // Where one key may be the same as any other, all of them are taken for similar.
  RangeId looseId(const RangeId& id) const {
    return {id.Buchungskreis, allAreLoose_ ? *looseText(id.NSchl) : std::string()};
  }

  bool isEntangled(const RangeId& id) const {
    return !entangled_.empty() && entangled_.contains(looseId(id));
  }

  void addChange(RangeChanges& changes, const RangeRow& row) const {
    const RangeId id = RangeId::of(row);
    const Range& range = ranges_.at(id);
    const RangeContent written = writtenContent(row);
    if (isEntangled(id))
      changes.entangled.push_back(row);
    else if (range.wanted != &row)
      return;  // another row of the range comes behind this one
    else if (range.stored == nullptr)
      changes.lacking.push_back(row);
    else if (range.stored->content != written)
      addDifferent(changes, row, *range.stored, written);
  }

  static void addDifferent(RangeChanges& changes, const RangeRow& row, const StoredRecord& stored,
                           const RangeContent& written) {
    changes.different.push_back(row);
    statement::RangeColumns& all = changes.differentColumns;
    const auto of =
        stored.content ? differentColumns(*stored.content, written) : statement::RangeColumns();
    all = {std::min(all.first, of.first), std::max(all.end, of.end)};
  }

  std::map<RangeId, Range> ranges_;
  std::vector<const RangeRow*> wanted_;
  bool allAreLoose_ = true;
  std::set<RangeId> entangled_;  // by their loose keys
};

}  // namespace

RangeChanges compareRanges(const XArray& table, const std::vector<RangeRow>& others,
                           const std::vector<StoredRecord>& stored) {
  return Comparison(table, others, stored).changes();
}

}  // namespace vexnumkr
