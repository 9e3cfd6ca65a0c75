#include "rules/saving/saving_in_sets.h"

#include <algorithm>
#include <set>
#include <span>

#include "data/sql/set_statements.h"
#include "data/sql/statements.h"
#include "rules/saving/assignment_changes.h"
#include "rules/saving/range_changes.h"
#include "rules/saving/saving.h"

namespace vexnumkr {
namespace {

// What a statement holds at most. Engines limit how deep conditions may be nested, and how long a
// statement is.
constexpr std::size_t rowsPerStatement = 500;
constexpr std::size_t textPerStatement = 1 << 19;
constexpr std::int64_t commit = 1;

// An update names a range's key for each of its columns.
std::size_t textLength(const RangeRow& row) {
  constexpr std::size_t timesKey = 9;
  return row.NBezeichnung.str().size() + row.IstNSchlVon.str().size() + row.Maske.toText().size() +
         timesKey * row.NSchl.str().size();
}

// The rows that go with the first one.
std::size_t batchSize(std::span<const RangeRow> rows, std::size_t atMost) {
  std::size_t text = 0;
  std::size_t size = 0;
  for (; size < std::min(rows.size(), atMost); ++size) {
    text += textLength(rows[size]);
    if (size > 0 && text > textPerStatement) break;
  }
  return size;
}

// Hands over all of them, at most so many at once, until that returns false.
template <class Item, class Work>
bool inBatches(std::span<const Item> items, std::size_t atMost, Work&& work) {
  while (!items.empty()) {
    const std::size_t size = std::min(items.size(), atMost);
    if (!work(items.first(size))) return false;
    items = items.subspan(size);
  }
  return true;
}

class RangeWriting {
 public:
  RangeWriting(StatementSource& source, Progress& progress)
      : source_(source),
        progress_(progress),
        rowsPerStatement_(source.takesSeveralRows() ? rowsPerStatement : 1) {}

  void remove(const std::vector<RangeId>& ranges) {
    inBatches(std::span(ranges), rowsPerStatement_, [&](std::span<const RangeId> batch) {
      removeBatch(batch);
      return true;
    });
  }

  void update(std::vector<RangeRow> ranges, const statement::RangeColumns& written) {
    std::ranges::stable_sort(ranges, {}, &RangeRow::Buchungskreis);
    forEachBatch(std::move(ranges), [&](std::span<const RangeRow> batch) {
      if (batch.size() == 1)
        basAllgemein::UpdateIntoNummernkreise(source_, batch.front());
      else
        source_.execute(statement::updateRanges(batch, written));
    });
  }

  void insert(const std::vector<RangeRow>& ranges) {
    forEachBatch(ranges, [&](std::span<const RangeRow> batch) {
      if (batch.size() == 1)
        basAllgemein::InsertIntoNummernkreise(source_, batch.front());
      else
        insertBatch(batch);
    });
  }

  void insertOneByOne(std::span<const RangeRow> ranges) {
    for (const RangeRow& range : ranges) basAllgemein::InsertIntoNummernkreise(source_, range);
  }

 private:
  // Ranges whose texts are not plain stand alone.
  template <class Write>
  void forEachBatch(std::vector<RangeRow> ranges, Write&& write) {
    const auto others =
        std::stable_partition(ranges.begin(), ranges.end(),
                              [](const RangeRow& range) { return statement::isPlain(range); });
    std::span<const RangeRow> left(ranges.begin(), others);
    while (!left.empty()) {
      const std::size_t size = batchSize(left, rowsPerStatement_);
      write(left.first(size));
      progress_.advance(static_cast<std::int64_t>(size));
      left = left.subspan(size);
    }
    for (const RangeRow& range : std::span<const RangeRow>(others, ranges.end())) {
      write(std::span(&range, 1));
      progress_.advance();
    }
  }

  void removeBatch(std::span<const RangeId> ranges) {
    std::vector<statement::KeysOfCircle> circles;
    for (const RangeId& range : ranges) {
      if (circles.empty() || circles.back().Buchungskreis != range.Buchungskreis)
        circles.push_back({range.Buchungskreis, {}});
      circles.back().NSchl.push_back(range.NSchl);
    }
    source_.execute(ranges.size() == 1
                        ? statement::removeRange(ranges.front().Buchungskreis, ranges.front().NSchl)
                        : statement::removeRanges(circles));
    progress_.advance(static_cast<std::int64_t>(ranges.size()));
  }

  // Where one of them cannot be inserted, each counts for itself.
  void insertBatch(std::span<const RangeRow> batch) {
    try {
      source_.execute(statement::insertRanges(batch));
    } catch (const Error&) {
      insertOneByOne(batch);
    }
  }

  StatementSource& source_;
  Progress& progress_;
  const std::size_t rowsPerStatement_;
};

class AssignmentWriting {
 public:
  AssignmentWriting(StatementSource& source, Progress& progress)
      : source_(source),
        progress_(progress),
        Herkunft_(source.origin().Herkunft()),
        rowsPerStatement_(source.takesSeveralRows() ? rowsPerStatement : 1) {}

  void removeAll() { source_.execute(statement::deleteAssignments(Herkunft_)); }

  // Whether exactly the assignments went that were meant to: columns may take others for the same.
  bool remove(const AssignmentChanges& changes) {
    std::int64_t removed = 0;
    const auto removeBatch = [&](std::span<const StoredAssignment> batch) {
      const std::int32_t found = source_.execute(removal(batch));
      if (found < 0) return false;
      removed += found;
      progress_.advance(static_cast<std::int64_t>(batch.size()));
      return true;
    };
    return inBatches(std::span(changes.leaving), rowsPerStatement_, removeBatch) &&
           removed == changes.leavingRecords;
  }

  void insert(const std::vector<const RangeRow*>& rows) {
    std::vector<statement::UsersOfRange> batch;
    for (const RangeRow* const row : rows) {
      if (rowsPerStatement_ == 1 || !isPlain(*row)) {
        insertAlone(*row);
        continue;
      }
      batch.push_back({row->Buchungskreis, row->NSchl.str(), {storedUser(*row)}});
      if (batch.size() == rowsPerStatement_) send(batch);
    }
    send(batch);
  }

 private:
  static bool isPlain(const RangeRow& row) {
    return statement::isPlain(row.NSchl.str()) && statement::isPlain(row.Benutzer.str());
  }

  static std::string_view storedUser(const RangeRow& row) {
    return row.isCommon() ? std::string_view(basAllgemein::everybody) : row.Benutzer.str();
  }

  std::string removal(std::span<const StoredAssignment> assignments) const {
    const StoredAssignment& first = assignments.front();
    if (assignments.size() == 1)
      return statement::removeAssignment(first.Buchungskreis, first.NSchl, first.Benutzer,
                                         Herkunft_);
    std::vector<statement::UsersOfRange> ranges;
    for (const StoredAssignment& assignment : assignments) {
      if (ranges.empty() || ranges.back().Buchungskreis != assignment.Buchungskreis ||
          ranges.back().NSchl != assignment.NSchl)
        ranges.push_back({assignment.Buchungskreis, assignment.NSchl, {}});
      ranges.back().Benutzer.push_back(assignment.Benutzer);
    }
    return statement::removeAssignments(ranges, Herkunft_);
  }

  void insertAlone(const RangeRow& row) {
    basAllgemein::InsertIntoNummernkreis_Zuordnung(source_, row.Buchungskreis, row.NSchl.str(),
                                                   basAllgemein::ReplaceUser(row.Benutzer.str()));
    progress_.advance();
  }

  void send(std::vector<statement::UsersOfRange>& batch) {
    if (batch.empty()) return;
    source_.execute(statement::insertAssignments(batch, Herkunft_));
    progress_.advance(static_cast<std::int64_t>(batch.size()));
    batch.clear();
  }

  StatementSource& source_;
  Progress& progress_;
  const std::string Herkunft_;
  const std::size_t rowsPerStatement_;
};

bool allPlain(const AssignmentChanges& changes) {
  return std::ranges::all_of(changes.leaving, [](const StoredAssignment& assignment) {
    return statement::isPlain(assignment.NSchl) && statement::isPlain(assignment.Benutzer);
  });
}

// One save.
class Differences {
 public:
  Differences(const XArray& table, const StoredRanges& underLock, StatementSource& source,
              Progress& progress)
      : table_(table), underLock_(underLock), source_(source), progress_(progress) {}

  WrittenInSets write() {
    RangeChanges ranges = compareRanges(table_, underLock_.unknown, underLock_.records);
    AssignmentChanges assignments = assignmentChanges();
    expect(ranges, assignments);
    WrittenInSets written;
    written.removed = writeRanges(ranges);
    written.assignments = writeAssignments(assignments);
    return written;
  }

 private:
  AssignmentChanges assignmentChanges() {
    const std::string Herkunft = source_.origin().Herkunft();
    const auto records = source_.query(statement::wholeAssignments(Herkunft));
    AssignmentChanges changes = compareAssignments(table_, *records, Herkunft);
    // What cannot be named in a statement can go with all the others.
    return allPlain(changes) ? changes : allAssignments(table_);
  }

  void expect(const RangeChanges& ranges, const AssignmentChanges& assignments) {
    progress_.expect(commit + static_cast<std::int64_t>(
                                  ranges.leaving.size() + ranges.different.size() +
                                  ranges.lacking.size() + ranges.entangled.size() +
                                  assignments.leaving.size() + assignments.lacking.size()));
  }

  // Returns what had to go.
  std::vector<RangeId> writeRanges(RangeChanges& changes) {
    RangeWriting writing(source_, progress_);
    std::vector<RangeId> removed;
    if (underLock_.hasOthers || !changes.leaving.empty()) removed = removeRanges(writing, changes);
    writing.update(std::move(changes.different), changes.differentColumns);
    writing.insert(changes.lacking);
    writing.insertOneByOne(changes.entangled);
    return removed;
  }

  std::vector<RangeId> removeRanges(RangeWriting& writing, RangeChanges& changes) {
    const std::set<RangeId> deletable = deletableRanges();
    std::erase_if(changes.leaving, [&](const RangeId& id) { return !deletable.contains(id); });
    const bool allPlain = std::ranges::all_of(
        changes.leaving, [](const RangeId& id) { return statement::isPlain(id.NSchl); });
    if (!underLock_.hasOthers && allPlain) {
      writing.remove(changes.leaving);
      return changes.leaving;
    }
    source_.execute(statement::deleteRanges(source_.origin().andereHerkunft()));
    std::vector<StoredRecord> left = underLock_.records;
    std::erase_if(left,
                  [&](const StoredRecord& record) { return deletable.contains(record.range); });
    changes = compareRanges(table_, underLock_.unknown, left);
    return {deletable.begin(), deletable.end()};
  }

  std::set<RangeId> deletableRanges() {
    std::set<RangeId> deletable;
    const auto records =
        source_.query(statement::deletableRanges(source_.origin().andereHerkunft()));
    for (; !records->EndOfFile(); records->MoveNext())
      if (const auto range = rangeIdOf(*records)) deletable.insert(*range);
    records->Close();
    return deletable;
  }

  // Returns whether there was anything to do.
  bool writeAssignments(AssignmentChanges& changes) {
    AssignmentWriting writing(source_, progress_);
    if (!changes.anew && !writing.remove(changes)) changes = allAssignments(table_);
    if (changes.anew) writing.removeAll();
    writing.insert(changes.lacking);
    return changes.anew || !changes.leaving.empty() || !changes.lacking.empty();
  }

  const XArray& table_;
  const StoredRanges& underLock_;
  StatementSource& source_;
  Progress& progress_;
};

}  // namespace

WrittenInSets writeDifferences(const XArray& table, const StoredRanges& underLock,
                               StatementSource& source, Progress& progress) {
  return Differences(table, underLock, source, progress).write();
}

}  // namespace vexnumkr
