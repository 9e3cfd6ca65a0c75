// Gaps, duplicates and strays, against a model that looks at every number.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <limits>
#include <map>
#include <random>

#include <vexnumkr/number_gaps.h>

namespace vexnumkr::numbers {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

Range range(std::int32_t circle, std::int32_t start, std::int32_t current, std::int32_t end) {
  Range made;
  made.circle = circle;
  made.key = "RE";
  made.start = start;
  made.current = current;
  made.end = end;
  return made;
}

std::string shown(GapKind kind, std::int64_t first, std::int64_t last, const Range* range) {
  return std::string(nameOf(kind)) + " " + std::to_string(first) + "-" + std::to_string(last) +
         (range == nullptr ? "" : " of " + std::to_string(range->circle));
}

using Lines = std::vector<std::string>;

Lines findings(const std::vector<std::int32_t>& numbers, const Company& company) {
  UsedNumbers used;
  for (const std::int32_t number : numbers) used.add(number);
  Lines found;
  findGaps(used, rangesToCompare(company, "RE"), [&](const GapFinding& finding) {
    found.push_back(
        shown(finding.kind, finding.numbers.first, finding.numbers.last, finding.range));
  });
  return found;
}

// Looks at each number from `from` to `to`, one after the other.
template <class Belongs>
void naiveIntervals(Lines& lines, GapKind kind, std::int64_t from, std::int64_t to,
                    const Range* range, Belongs&& belongs) {
  for (std::int64_t at = from; at <= to; ++at) {
    if (!belongs(at)) continue;
    const std::int64_t first = at;
    while (at < to && belongs(at + 1)) ++at;
    lines.push_back(shown(kind, first, at, range));
  }
}

Lines naive(const std::vector<std::int32_t>& numbers, const Company& company) {
  std::map<std::int64_t, int> times;
  for (const std::int32_t number : numbers) ++times[number];
  const auto isUsed = [&](std::int64_t number) { return times.count(number) != 0; };
  Lines lines;
  const auto ranges = rangesToCompare(company, "RE");
  for (const Range* range : ranges) {
    naiveIntervals(lines, GapKind::gap, *range->start + 1, *range->current, range,
                   [&](std::int64_t number) { return !isUsed(number); });
    naiveIntervals(lines, GapKind::ahead, *range->current + 1, *range->end, range, isUsed);
  }
  naiveIntervals(lines, GapKind::duplicate, -20, 400, nullptr,
                 [&](std::int64_t number) { return isUsed(number) && times[number] > 1; });
  naiveIntervals(lines, GapKind::stray, -20, 400, nullptr, [&](std::int64_t number) {
    for (const Range* range : ranges)
      if (*range->start <= number && number <= *range->end) return false;
    return isUsed(number);
  });
  return lines;
}

TEST(GapsTest, TellsEachKindOfFinding) {
  Company company;
  company.ranges = {range(1, 100, 110, 199)};
  EXPECT_EQ(findings({101, 102, 105, 105, 106, 107, 108, 109, 110, 112, 99, 200, 201}, company),
            (Lines{"gap 103-104 of 1", "ahead 112-112 of 1", "duplicate 105-105", "stray 99-99",
                   "stray 200-201"}));
}

TEST(GapsTest, TheStartMayBeUsedOrNot) {
  Company company;
  company.ranges = {range(1, 100, 101, 199)};
  EXPECT_EQ(findings({100, 101}, company), Lines{});
  EXPECT_EQ(findings({101}, company), Lines{});
}

TEST(GapsTest, RangesThatIssueNothingThemselvesAreLeftOut) {
  Company company;
  company.ranges = {range(1, 100, 100, 199), range(2, 300, 200, 400), range(3, 500, 510, 599)};
  company.ranges[2].sharedKey = "AN";
  company.ranges.push_back(range(4, 600, 610, 699));
  company.ranges[3].key = "AB";
  company.ranges.push_back(range(5, 700, 710, 799));
  company.ranges[4].current.reset();
  ASSERT_EQ(rangesToCompare(company, "RE").size(), 1U);
  const std::int32_t other = 2;
  EXPECT_TRUE(rangesToCompare(company, "RE", &other).empty());
}

TEST(GapsTest, TheOutermostNumbersAreNumbersToo) {
  Company company;
  company.ranges = {range(1, highest - 2, highest, highest),
                    range(2, lowest, lowest + 2, lowest + 2)};
  EXPECT_EQ(findings({highest, lowest, highest - 1}, company),
            (Lines{"gap -2147483647--2147483646 of 2"}));
  company.ranges = {range(1, lowest, highest, highest)};
  EXPECT_EQ(findings({0}, company), (Lines{"gap -2147483647--1 of 1", "gap 1-2147483647 of 1"}));
  company.ranges.clear();
  EXPECT_EQ(findings({lowest, -1, 0, highest}, company),
            (Lines{"stray -2147483648--2147483648", "stray -1-0", "stray 2147483647-2147483647"}));
}

TEST(GapsTest, AgreesWithLookingAtEveryNumber) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto pick = [&](std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution(from, to)(random);
  };
  for (int round = 0; round < 100; ++round) {
    Company company;
    for (int i = pick(0, 4); i > 0; --i) {
      const std::int32_t start = pick(0, 300);
      const std::int32_t end = start + pick(0, 60);
      company.ranges.push_back(range(i, start, pick(start, end), end));
    }
    std::vector<std::int32_t> numbers;
    for (int i = pick(0, 500); i > 0; --i) numbers.push_back(pick(-10, 380));
    ASSERT_EQ(findings(numbers, company), naive(numbers, company)) << "round " << round;
  }
}

TEST(GapsTest, DenseAndSparseNumbersAreKeptAlike) {
  Company company;
  company.ranges = {range(1, 0, 300000, 300000)};
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = 300000; number >= 1; --number)
    if (number % 1000 != 0 || number == 300000) numbers.push_back(number);
  Lines expected;
  for (int i = 1000; i < 300000; i += 1000)
    expected.push_back("gap " + std::to_string(i) + "-" + std::to_string(i) + " of 1");
  EXPECT_EQ(findings(numbers, company), expected);
}

long peakKilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(GapsTest, TenMillionNumbersFitIntoLittleMemory) {
  constexpr std::int64_t count = 10'000'000;
  const long before = peakKilobytes();
  UsedNumbers used;
  // As far apart as they can be.
  for (std::int64_t i = 0; i < count; ++i) used.add(static_cast<std::int32_t>(i * 200));
  EXPECT_EQ(used.count(), 10'000'000U);
  std::int64_t strays = 0;
  findGaps(used, {}, [&](const GapFinding& finding) { strays += finding.numbers.count(); });
  EXPECT_EQ(strays, count);
  EXPECT_LT(peakKilobytes() - before, 200'000);
}

}  // namespace
}  // namespace vexnumkr::numbers
