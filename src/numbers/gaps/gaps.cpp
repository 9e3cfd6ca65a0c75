#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include <vexnumkr/error.h>
#include <vexnumkr/number_gaps.h>

#include "numbers/gaps/number_set.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::numbers {
namespace {

// Of engines that keep numbers as texts, or with decimals, what is a whole number.
std::optional<std::int32_t> wholeNumber(const Value& value) {
  if (value.isLong()) return value.asLong();
  const std::string whole = value.toText();
  std::string_view text = whole;
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const char* const end = text.data() + text.size();
  std::int32_t number = 0;
  const auto read = std::from_chars(text.data(), end, number);
  const std::string_view rest(read.ptr, static_cast<std::size_t>(end - read.ptr));
  const bool isWhole = rest.find_first_not_of(" ") == std::string_view::npos ||
                       (rest.size() > 1 && rest.front() == '.' &&
                        rest.find_first_not_of('0', 1) == std::string_view::npos);
  return read.ec == std::errc() && isWhole ? std::optional(number) : std::nullopt;
}

bool isSound(const Range& range) {
  return range.start && range.current && range.end && *range.start <= *range.current &&
         *range.current <= *range.end;
}

std::vector<const Range*> rangesOf(const Company& company, const std::string& key,
                                   const std::int32_t* circle, bool sound) {
  std::vector<const Range*> found;
  for (const Range& range : company.ranges) {
    const bool isMeant = range.key == key && (circle == nullptr || range.circle == *circle);
    if (isMeant && range.sharedKey.empty() && isSound(range) == sound) found.push_back(&range);
  }
  return found;
}

}  // namespace

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
                 const SelectedTold& told) {
  constexpr std::uint64_t often = 65'536;
  const auto rows = connection.createRecordset();
  if (rows == nullptr) throw Error::objectNotSet();
  rows->CursorLocation(ado::useServer);
  rows->Open(statement::usedNumbers(select), connection, ado::openForwardOnly, ado::lockReadOnly,
             ado::commandText);
  std::uint64_t at = 0;
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    ++at;
    const Value value = rows->Fields("Nummer");
    const auto number = value.isNull() ? std::nullopt : wholeNumber(value);
    if (number) numbers.add(*number);
    if (!number && !value.isNull() && told.unreadable) told.unreadable(at, value.toText());
    if (at % often == 0 && told.progress) told.progress(at);
  }
  rows->Close();
}

std::vector<const Range*> rangesToCompare(const Company& company, const std::string& key,
                                          const std::int32_t* circle) {
  std::vector<const Range*> found = rangesOf(company, key, circle, true);
  std::stable_sort(found.begin(), found.end(),
                   [](const Range* a, const Range* b) { return *a->start < *b->start; });
  return found;
}

std::vector<const Range*> rangesNotToCompare(const Company& company, const std::string& key,
                                             const std::int32_t* circle) {
  return rangesOf(company, key, circle, false);
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
