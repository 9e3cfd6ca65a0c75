// The numbers that documents really carry, compared with what the ranges have issued.
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

  void add(std::int32_t number);
  /// All that were added.
  std::uint64_t count() const;

 private:
  friend class GapSearch;
  struct Content;
  std::unique_ptr<Content> content_;
};

/// Adds the numbers that a select of the host's finds in its column `Nummer`, a part of them at a
/// time. `progress` is told how many have been added. Errors: the engine's; 6 for a number outside
/// of 32 bits.
VEXNUMKR_API void addSelected(UsedNumbers& numbers, Connection& connection,
                              const std::string& select,
                              const std::function<void(std::uint64_t)>& progress = {});

/// Numbers that follow each other.
struct Interval {
  std::int32_t first = 0;
  std::int32_t last = 0;

  std::int64_t count() const { return std::int64_t{last} - first + 1; }
  friend bool operator==(const Interval&, const Interval&) = default;
};

enum class GapKind {
  gap,        ///< issued by the range, used by nobody
  ahead,      ///< used, but not issued yet
  duplicate,  ///< used more than once
  stray,      ///< used, and in none of the ranges
};

struct GapFinding {
  GapKind kind = GapKind::gap;
  Interval numbers;
  /// For gaps and numbers ahead, whose; otherwise null.
  const Range* range = nullptr;
};

/// The ranges of a key whose numbers documents of this key carry, by their start; of one circle
/// where it is named. Ranges that share another key's numbers, and those whose values contradict
/// each other, are left out.
VEXNUMKR_API std::vector<const Range*> rangesToCompare(const Company& company,
                                                       const std::string& key,
                                                       const std::int32_t* circle = nullptr);

/// Compares: `found` is told the gaps and the numbers ahead of each range, ascending; then all
/// numbers that came more than once, then all that are in none of the ranges.
///
/// A range has issued the numbers above its `StartWert` up to its `AktuellerWert`; its start itself
/// may be used or not.
VEXNUMKR_API void findGaps(const UsedNumbers& used, const std::vector<const Range*>& ranges,
                           const std::function<void(const GapFinding&)>& found);

}  // namespace vexnumkr::numbers
