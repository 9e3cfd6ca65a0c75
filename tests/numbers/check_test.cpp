// What the check finds: each kind by itself, and all of it against a model that compares every
// range and assignment with every other.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include <vexnumkr/number_check.h>
#include <vexnumkr/number_masks.h>

namespace vexnumkr::numbers {
namespace {

using Lines = std::vector<std::string>;

Range range(std::int32_t circle, const std::string& key, std::int32_t start, std::int32_t current,
            std::int32_t end) {
  Range made;
  made.circle = circle;
  made.key = key;
  made.start = start;
  made.current = current;
  made.end = end;
  made.active = true;
  return made;
}

Company companyOf(std::vector<Range> ranges) {
  Company company;
  company.application = 1;
  company.circles = {{1, "Werk"}, {2, "Handel"}, {3, ""}};
  company.ranges = std::move(ranges);
  return company;
}

const CheckOptions options{.date = "20261121"};

std::string shown(const Finding& finding) {
  std::string line = std::string(finding.severity == Severity::critical ? "! " : "? ") +
                     nameOf(finding.kind) + " " + std::to_string(finding.circle) + finding.key;
  if (!finding.user.empty()) line += " " + finding.user;
  for (const std::string& key : finding.keys) line += " " + key;
  return line;
}

Lines findings(const Company& company, const CheckOptions& asked = options) {
  Lines lines;
  for (const Finding& finding : check(company, asked).findings) lines.push_back(shown(finding));
  return lines;
}

TEST(CheckTest, SoundRangesAreFine) {
  const Company company = companyOf({range(1, "RE", 1, 1, 2), range(2, "RE", 3, 3, 100)});
  EXPECT_EQ(findings(company), Lines{});
  EXPECT_EQ(check(company, options).levels.size(), 2U);
}

TEST(CheckTest, EveryBrokenRuleIsTold) {
  Company company = companyOf({range(0, "AN", 100, 100, 100), range(0, "AB", 10, 9, 20),
                               range(0, "LS", 10, 21, 20), range(0, "RE", 1, 1, 9)});
  company.ranges[3].current.reset();
  EXPECT_EQ(findings(company), (Lines{"! endNotAboveStart 0AN", "! currentOutsideRange 0AB",
                                      "! currentOutsideRange 0LS", "! valueMissing 0RE"}));
  for (Range& one : company.ranges) {
    one.circle = 1;
    one.active = false;
  }
  EXPECT_EQ(findings(company), Lines{});
}

TEST(CheckTest, EveryPairThatOverlapsIsTold) {
  Company company = companyOf({range(1, "RE", 1, 1, 100), range(2, "RE", 100, 100, 200),
                               range(3, "RE", 50, 60, 60), range(1, "RX", 200, 200, 300),
                               range(1, "AN", 1, 1, 1000)});
  company.ranges[3].sharedKey = "RE";
  const auto found = check(company, options).findings;
  ASSERT_GE(found.size(), 3U);
  EXPECT_EQ(shown(found[0]), "! overlapsOtherCircle 1RE");
  EXPECT_EQ(found[0].text, "RE, Werk (1–100) überschneidet sich mit RE, Buchungskreis 3 (50–60).");
  EXPECT_EQ(shown(found[1]), "! overlapsOtherCircle 1RE");
  EXPECT_EQ(shown(found[2]), "! overlapsOtherKey 2RE");
  EXPECT_EQ(brokenRules(company).size(), 3U);
}

TEST(CheckTest, FillLevelsHaveTwoLimits) {
  const auto at = [](std::int32_t current) {
    return findings(companyOf({range(1, "RE", 0, current, 100)}));
  };
  EXPECT_EQ(at(79), Lines{});
  EXPECT_EQ(at(80), Lines{"? nearlyFull 1RE"});
  EXPECT_EQ(at(94), Lines{"? nearlyFull 1RE"});
  EXPECT_EQ(at(95), Lines{"! nearlyFull 1RE"});
  EXPECT_EQ(at(100), Lines{"! exhausted 1RE"});
  const Range full = range(1, "RE", -2147483647 - 1, 2147483647, 2147483647);
  EXPECT_EQ(findings(companyOf({full})), (Lines{"! exhausted 1RE", "? aboutToCollide 1RE"}));
}

TEST(CheckTest, ARangeThatCannotGrowIsToldInTime) {
  EXPECT_EQ(findings(companyOf({range(1, "RE", 100, 190, 200), range(2, "RE", 300, 300, 400)})),
            (Lines{"? nearlyFull 1RE", "? aboutToCollide 1RE"}));
  EXPECT_EQ(findings(companyOf({range(1, "RE", 100, 190, 200), range(2, "RE", 301, 301, 400)})),
            Lines{"? nearlyFull 1RE"});
  EXPECT_EQ(findings(companyOf({range(1, "RE", 100, 190, 200), range(2, "AN", 201, 201, 400)})),
            Lines{"? nearlyFull 1RE"});
}

TEST(CheckTest, NumbersOfAnotherYearOrMonthAreTold) {
  const auto with = [](const std::string& mask, std::int32_t start, std::int32_t end) {
    Range made = range(1, "RE", start, start, end);
    made.mask = mask;
    return companyOf({made});
  };
  EXPECT_EQ(findings(with("1JJNNNN", 1260000, 1269999)), Lines{});
  EXPECT_EQ(findings(with("1JJNNNN", 1250000, 1259999)), Lines{"? maskOfOtherDate 1RE"});
  EXPECT_EQ(findings(with("1JJNNNN", 1111, 2222)), Lines{});
  EXPECT_EQ(findings(with("JJMMNNN", 2610000, 2610999)), Lines{"? maskOfOtherDate 1RE"});
  EXPECT_EQ(findings(with("1NNN", 2000, 2999)), Lines{});
  EXPECT_EQ(findings(with("RE-", 1, 9)), Lines{"? maskUnreadable 1RE"});
  EXPECT_EQ(findings(with("NNNNNNNNNN", 1, 9)), Lines{"? maskUnreadable 1RE"});
  EXPECT_EQ(check(with("1JJNNNN", 1250000, 1259999), options).findings[0].text,
            "RE, Werk: Die Nummern 1250000–1259999 sind nach der Maske \"1JJNNNN\" von 2025; "
            "jetzt wären es 1260000–1269999.");
}

TEST(CheckTest, SpecialRangesAreLookedAtWhileTheyAreOn) {
  Company company = companyOf({range(0, "RX", 5, 5, 5)});
  company.ranges[0].sharedKey = "RE";
  company.specialRanges = {{"RX", "RE", "Export", false}, {"RZ", "RE", "Zoll", true}};
  EXPECT_EQ(findings(company), Lines{"? specialRangeUnused 0RZ"});
  company.specialRanges[0].active = true;
  EXPECT_EQ(findings(company), (Lines{"! endNotAboveStart 0RX", "? sharedRangeMissing 0RX",
                                      "? specialRangeUnused 0RZ"}));
}

TEST(CheckTest, RangesThatNobodyUsesIssueNothingToOthersEither) {
  Company company = companyOf({range(1, "RE", 1, 1, 100), range(1, "RX", 101, 101, 200)});
  company.ranges[1].sharedKey = "RE";
  company.users = {"Anna"};
  company.assignments = {{1, "RX", "ALL"}};
  EXPECT_EQ(findings(company), Lines{"? userWithoutRange 0 Anna RE"});
  company.ranges[0].active = false;
  EXPECT_EQ(findings(company),
            (Lines{"? sharedRangeInactive 1RX", "? userWithoutRange 0 Anna RX"}));
  EXPECT_EQ(check(company, options).findings[0].text,
            "RX, Werk: Der Nummernkreis RE, aus dem gezogen wird, ist in diesem Buchungskreis "
            "nicht aktiviert.");
  company.specialRanges = {{"RX", "RE", "Export", false}};
  EXPECT_EQ(findings(company), Lines{"? assignmentOfInactiveRange 1RX ALL"});
  EXPECT_EQ(check(company, options).findings[0].text,
            "Zuordnung von ALL zu RX, Werk: Dieser Sonderkreis ist ausgeschaltet.");
}

TEST(CheckTest, AssignmentsNeedARangeAndAUser) {
  Company company = companyOf({range(1, "RE", 1, 1, 100), range(2, "RE", 101, 101, 200)});
  company.ranges[1].active = false;
  company.users = {"Anna"};
  company.assignments = {{1, "RE", "ALL"},  {1, "RE", "Anna"}, {1, "RE", "Max"},
                         {1, "ZZ", "Anna"}, {2, "RE", "ALL"},  {9, "RE", "Anna"}};
  EXPECT_EQ(findings(company),
            (Lines{"? assignmentWithoutUser 1RE Max", "? assignmentWithoutRange 1ZZ Anna",
                   "? assignmentOfInactiveRange 2RE ALL", "? assignmentWithoutRange 9RE Anna"}));
}

TEST(CheckTest, EveryUserNeedsOneRangeOfEachKey) {
  Company company = companyOf(
      {range(0, "AN", 1, 1, 100), range(1, "RE", 1, 1, 100), range(2, "RE", 101, 101, 200)});
  company.users = {"Anna", "Max"};
  company.assignments = {{0, "AN", "ALL"}, {1, "RE", "Anna"}, {2, "RE", "Anna"}};
  EXPECT_EQ(findings(company), (Lines{"? userAmbiguous 0 Anna RE", "? userWithoutRange 0 Max RE"}));
}

// The model: plain loops, and everything looked up by going through all of it.
class NaiveCheck {
 public:
  explicit NaiveCheck(const Company& company) : company_(company) {}

  std::multiset<std::string> findings() {
    for (const Range& one : company_.ranges) rules(one);
    for (const Assignment& one : company_.assignments) assignment(one);
    for (const std::string& user : company_.users) drawing(user);
    return found_;
  }

 private:
  bool usable(const Range& one) const {
    for (const SpecialRange& special : company_.specialRanges)
      if (special.ownKey == one.key && !special.active) return false;
    return one.active;
  }
  bool drawable(const Range& one) const {
    if (!usable(one) || one.sharedKey.empty()) return usable(one);
    const Range* const shared = find(one.circle, one.sharedKey);
    return shared != nullptr && usable(*shared);
  }
  static bool sound(const Range& one) { return *one.start < *one.end; }

  void rules(const Range& one) {
    if (!usable(one)) return;
    const std::string place = std::to_string(one.circle) + one.key;
    if (*one.end <= *one.start) found_.insert("! endNotAboveStart " + place);
    const bool outside = *one.current < *one.start || *one.current > *one.end;
    if (sound(one) && outside) found_.insert("! currentOutsideRange " + place);
    if (sound(one) && !outside && one.sharedKey.empty()) level(one, place);
    for (const Range& other : company_.ranges) overlap(one, other);
    if (one.sharedKey.empty()) return;
    const Range* const shared = find(one.circle, one.sharedKey);
    if (shared == nullptr) found_.insert("? sharedRangeMissing " + place);
    if (shared != nullptr && !usable(*shared)) found_.insert("? sharedRangeInactive " + place);
  }

  void overlap(const Range& one, const Range& other) {
    if (&one >= &other || !usable(other) || !sound(one) || !sound(other)) return;
    if (one.sequence() != other.sequence()) return;
    const bool apart = *one.end < *other.start || *other.end < *one.start;
    if (apart) return;
    const Range& first = *other.start < *one.start ? other : one;
    found_.insert(std::string("! ") +
                  (one.key == other.key ? "overlapsOtherCircle " : "overlapsOtherKey ") +
                  std::to_string(first.circle) + first.key);
  }

  void level(const Range& one, const std::string& place) {
    const int used = *one.current - *one.start;
    const int capacity = *one.end - *one.start;
    if (used == capacity) {
      found_.insert("! exhausted " + place);
    } else if (used * 100 >= 95 * capacity) {
      found_.insert("! nearlyFull " + place);
    } else if (used * 100 >= 80 * capacity) {
      found_.insert("? nearlyFull " + place);
    } else {
      return;
    }
    for (int number = *one.end + 1; number <= *one.end + capacity; ++number) {
      for (const Range& other : company_.ranges) {
        if (!usable(other) || !sound(other) || other.sequence() != one.sequence()) continue;
        if (*other.start != number) continue;
        found_.insert("? aboutToCollide " + place);
        return;
      }
    }
  }

  const Range* find(std::int32_t circle, const std::string& key) const {
    for (const Range& one : company_.ranges)
      if (one.circle == circle && one.key == key) return &one;
    return nullptr;
  }
  bool knowsCircle(std::int32_t circle) const {
    for (const Circle& one : company_.circles)
      if (one.number == circle) return true;
    return circle == 0;
  }

  void assignment(const Assignment& one) {
    const std::string line = " " + std::to_string(one.circle) + one.key + " " + one.user;
    const Range* const assigned = find(one.circle, one.key);
    if (assigned == nullptr) found_.insert("? assignmentWithoutRange" + line);
    if (assigned != nullptr && !usable(*assigned))
      found_.insert("? assignmentOfInactiveRange" + line);
    const auto& users = company_.users;
    if (one.user != "ALL" && std::find(users.begin(), users.end(), one.user) == users.end())
      found_.insert("? assignmentWithoutUser" + line);
  }

  // As a draw would find it.
  void drawing(const std::string& user) {
    std::set<std::string> keys;
    for (const Range& one : company_.ranges)
      if (usable(one)) keys.insert(one.key);
    std::string without;
    std::string ambiguous;
    for (const std::string& key : keys) {
      std::vector<std::int32_t> circles = circlesOf(user, key);
      if (circles.empty()) circles = circlesOf("ALL", key);
      std::erase_if(circles, [&](std::int32_t circle) {
        const Range* const one = find(circle, key);
        return one == nullptr || !drawable(*one);
      });
      if (circles.size() > 1) {
        ambiguous += " " + key;
      } else if (circles.empty()) {
        without += " " + key;
      }
    }
    if (!without.empty()) found_.insert("? userWithoutRange 0 " + user + without);
    if (!ambiguous.empty()) found_.insert("? userAmbiguous 0 " + user + ambiguous);
  }

  std::vector<std::int32_t> circlesOf(const std::string& user, const std::string& key) const {
    std::vector<std::int32_t> circles;
    for (const Assignment& one : company_.assignments)
      if (one.user == user && one.key == key && knowsCircle(one.circle))
        circles.push_back(one.circle);
    return circles;
  }

  const Company& company_;
  std::multiset<std::string> found_;
};

class RandomCompany {
 public:
  explicit RandomCompany(std::mt19937& random) : random_(random) {}

  Company make() {
    Company company = companyOf({});
    company.users = {"Anna", "Max", "Zoe"};
    for (const std::string& key : keys())
      if (oneIn(4)) company.specialRanges.push_back({key, "RE", "Sonder", oneIn(2)});
    for (std::int32_t circle = 0; circle <= 3; ++circle)
      for (const std::string& key : keys()) {
        if (!oneIn(3)) company.ranges.push_back(randomRange(circle, key));
        for (const char* user : {"ALL", "Anna", "Fremd", "Max", "Zoe"})
          if (oneIn(4)) company.assignments.push_back({oneIn(20) ? 9 : circle, key, user});
      }
    const auto order = [](const Assignment& a, const Assignment& b) {
      return std::tie(a.circle, a.key, a.user) < std::tie(b.circle, b.key, b.user);
    };
    const auto same = [](const Assignment& a, const Assignment& b) {
      return a.circle == b.circle && a.key == b.key && a.user == b.user;
    };
    auto& assignments = company.assignments;
    std::sort(assignments.begin(), assignments.end(), order);
    assignments.erase(std::unique(assignments.begin(), assignments.end(), same), assignments.end());
    return company;
  }

 private:
  static const std::vector<std::string>& keys() {
    static const std::vector<std::string> all = {"AB", "AN", "LS", "RE"};
    return all;
  }
  bool oneIn(int times) { return pick(1, times) == 1; }
  std::int32_t pick(std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution(from, to)(random_);
  }
  Range randomRange(std::int32_t circle, const std::string& key) {
    const std::int32_t start = pick(0, 400);
    const std::int32_t end = start + pick(oneIn(6) ? -5 : 1, 40);
    Range made =
        range(circle, key, start, pick(start - (oneIn(6) ? 3 : 0), std::max(start, end)), end);
    made.active = circle == 0 || !oneIn(4);
    if (oneIn(5)) made.sharedKey = keys()[static_cast<std::size_t>(pick(0, 3))];
    if (made.sharedKey == key) made.sharedKey.clear();
    return made;
  }

  std::mt19937& random_;
};

TEST(CheckTest, AgreesWithComparingEverythingWithEverything) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::size_t total = 0;
  for (int round = 0; round < 300; ++round) {
    const Company company = RandomCompany(random).make();
    std::multiset<std::string> found;
    for (const Finding& finding : check(company, options).findings)
      if (finding.kind != FindingKind::specialRangeUnused) found.insert(shown(finding));
    ASSERT_EQ(found, NaiveCheck(company).findings()) << "round " << round;
    total += found.size();
  }
  EXPECT_GT(total, 3000U);
}

}  // namespace
}  // namespace vexnumkr::numbers
