#include <algorithm>
#include <limits>

#include <vexnumkr/number_gaps.h>

#include "numbers/gaps/number_set.h"
#include "numbers/query.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::numbers {

struct UsedNumbers::Content {
  NumberSet once;
  NumberSet again;
  std::uint64_t count = 0;
};

UsedNumbers::UsedNumbers() : content_(std::make_unique<Content>()) {}
UsedNumbers::~UsedNumbers() = default;
UsedNumbers::UsedNumbers(UsedNumbers&&) noexcept = default;
UsedNumbers& UsedNumbers::operator=(UsedNumbers&&) noexcept = default;

void UsedNumbers::add(std::int32_t number) {
  ++content_->count;
  if (!content_->once.insert(number)) content_->again.insert(number);
}

std::uint64_t UsedNumbers::count() const { return content_->count; }

void addSelected(UsedNumbers& numbers, Connection& connection, const std::string& select,
                 const std::function<void(std::uint64_t)>& progress) {
  // The engine counts and sorts, where an index may help it; parts are found by their numbers, so
  // no cursor has to be kept open for the millions.
  constexpr std::int32_t atOnce = 50'000;
  std::optional<std::int64_t> above;
  for (bool isLast = false; !isLast;) {
    const auto rows = numbers::select(connection, statement::usedNumbers(select, above, atOnce));
    std::int32_t read = 0;
    for (; !rows->EndOfFile(); rows->MoveNext(), ++read) {
      const std::int32_t number = rows->Fields("Nummer").toLong();
      for (std::int32_t left = rows->Fields("Anzahl").toLong(); left > 0; --left)
        numbers.add(number);
      above = number;
    }
    rows->Close();
    isLast = read < atOnce;
    if (progress) progress(numbers.count());
  }
}

std::vector<const Range*> rangesToCompare(const Company& company, const std::string& key,
                                          const std::int32_t* circle) {
  std::vector<const Range*> found;
  for (const Range& range : company.ranges) {
    const bool isMeant = range.key == key && (circle == nullptr || range.circle == *circle);
    const bool isSound = range.start && range.current && range.end &&
                         *range.start <= *range.current && *range.current <= *range.end;
    if (isMeant && isSound && range.sharedKey.empty()) found.push_back(&range);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Range* a, const Range* b) { return *a->start < *b->start; });
  return found;
}

class GapSearch {
 public:
  GapSearch(const UsedNumbers& used, const std::function<void(const GapFinding&)>& found)
      : used_(*used.content_), found_(found) {}

  void compare(const Range& range) const {
    if (*range.current > *range.start)
      used_.once.forEachMissing({*range.start + 1, *range.current}, [&](Interval numbers) {
        found_({GapKind::gap, numbers, &range});
      });
    if (*range.end > *range.current)
      used_.once.forEachIn({*range.current + 1, *range.end}, [&](Interval numbers) {
        found_({GapKind::ahead, numbers, &range});
      });
  }

  void tellDuplicates() const {
    used_.again.forEachIn(all, [&](Interval numbers) {
      found_({GapKind::duplicate, numbers, nullptr});
    });
  }

  // REQUIRES: `ranges` by their start.
  void tellStrays(const std::vector<const Range*>& ranges) const {
    std::int64_t next = all.first;
    for (const Range* range : ranges) {
      tellStrays(next, std::int64_t{*range->start} - 1);
      next = std::max(next, std::int64_t{*range->end} + 1);
    }
    tellStrays(next, all.last);
  }

 private:
  static constexpr Interval all{std::numeric_limits<std::int32_t>::min(),
                                std::numeric_limits<std::int32_t>::max()};

  void tellStrays(std::int64_t first, std::int64_t last) const {
    if (first > last) return;
    used_.once.forEachIn({static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)},
                         [&](Interval numbers) {
                           found_({GapKind::stray, numbers, nullptr});
                         });
  }

  const UsedNumbers::Content& used_;
  const std::function<void(const GapFinding&)>& found_;
};

void findGaps(const UsedNumbers& used, const std::vector<const Range*>& ranges,
              const std::function<void(const GapFinding&)>& found) {
  const GapSearch search(used, found);
  for (const Range* range : ranges) search.compare(*range);
  search.tellDuplicates();
  search.tellStrays(ranges);
}

const char* nameOf(GapKind kind) {
  switch (kind) {
    case GapKind::gap:
      return "gap";
    case GapKind::ahead:
      return "ahead";
    case GapKind::duplicate:
      return "duplicate";
    case GapKind::stray:
      break;
  }
  return "stray";
}

}  // namespace vexnumkr::numbers
