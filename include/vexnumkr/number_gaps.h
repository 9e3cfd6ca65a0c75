// The numbers that documents really carry, compared with what the ranges have issued.
//
// Auditors ask for it: a number that was issued and stands on no document has to be explained, and
// one on two documents even more so. Threads: as in numbers.h.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::numbers {

/// Numbers in any order, each as often as it comes. Ten million of them take some twenty
/// megabytes, and all that there are never more than a gigabyte.
class VEXNUMKR_API UsedNumbers {
 public:
  UsedNumbers();
  ~UsedNumbers();
  UsedNumbers(UsedNumbers&&) noexcept;
  UsedNumbers& operator=(UsedNumbers&&) noexcept;

  /// In no particular order, though ascending numbers are taken in fastest.
  void add(std::int32_t number);
  /// All that were added, those counted that came more than once as often as they came.
  std::uint64_t count() const;

 private:
  friend class GapSearch;
  struct Content;
  std::unique_ptr<Content> content_;
};

/// Who is told what a select finds; each may be empty.
struct SelectedTold {
  /// The row, from 1, and the value in it that is no 32-bit number.
  std::function<void(std::uint64_t row, const std::string& text)> unreadable{};
  /// Now and then: how many rows have been read.
  std::function<void(std::uint64_t rows)> progress{};
};

/// Adds the numbers that a select of the host's finds in its column `Nummer`, in one pass; NULL
/// counts as no number, and what is no number is told. The adapter keeps some of the rows at a time
/// (ado::useServer); on PostgreSQL that is while a transaction runs, so best in readAtOneMoment
/// with what the numbers are compared with. `select` becomes a part of the statement as it stands,
/// so it is for the host to write and must not end in a semicolon.
///
/// Errors: the engine's. What was added until then stays.
VEXNUMKR_API void addSelected(UsedNumbers& numbers, Connection& connection,
                              const std::string& select, const SelectedTold& told = {});

/// Numbers that follow each other, both ends included.
struct Interval {
  std::int32_t first = 0;
  std::int32_t last = 0;

  std::int64_t count() const { return std::int64_t{last} - first + 1; }
  friend bool operator==(const Interval&, const Interval&) = default;
};

/// What is wrong with numbers.
enum class GapKind {
  /// Issued by the range, used by nobody: a document was abandoned or has been deleted.
  gap,
  /// Used, but not issued yet: they will be issued again, and then stand on two documents.
  ahead,
  /// Used more than once.
  duplicate,
  /// Used, and in none of the ranges: typed by hand, or of a range that has been moved.
  stray,
};

/// The longest run of numbers of which the same is to be said.
struct GapFinding {
  GapKind kind = GapKind::gap;
  Interval numbers;
  /// For gaps and numbers ahead, whose; otherwise null.
  const Range* range = nullptr;
};

/// The ranges of a key whose numbers documents of this key carry, by their start; of one circle
/// where it is named. Ranges that share another key's numbers are left out, and so are those of
/// rangesNotToCompare. They point into `company`; none where nothing matches.
VEXNUMKR_API std::vector<const Range*> rangesToCompare(const Company& company,
                                                       const std::string& key,
                                                       const std::int32_t* circle = nullptr);

/// Those that belong to them and whose values are missing or contradict each other: nobody can say
/// what they have issued.
VEXNUMKR_API std::vector<const Range*> rangesNotToCompare(const Company& company,
                                                          const std::string& key,
                                                          const std::int32_t* circle = nullptr);

/// Compares: `found` is told the gaps and the numbers ahead of each range, ascending; then all
/// numbers that came more than once, then all that are in none of the ranges.
///
/// A range has issued the numbers above its `StartWert` up to its `AktuellerWert`; its start itself
/// may be used or not. What `found` raises ends the search and is passed on.
///
/// REQUIRES: `ranges` are in the order of rangesToCompare, and none is null or lacks a value.
VEXNUMKR_API void findGaps(const UsedNumbers& used, const std::vector<const Range*>& ranges,
                           const std::function<void(const GapFinding&)>& found);

/// The name of a kind in English, as JSON has it: "gap". It stays the same from version to version.
VEXNUMKR_API const char* nameOf(GapKind kind);

}  // namespace vexnumkr::numbers
