#include <algorithm>
#include <tuple>
#include <unordered_set>

#include <vexnumkr/number_company.h>

#include "data/stored/hosts_keys.h"
#include "numbers/company_rows.h"
#include "numbers/origin.h"
#include "numbers/query.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::numbers {
namespace {

template <class Row>
void forEachRow(Connection& connection, const std::string& text, Row&& row) {
  const auto rows = select(connection, text);
  for (; !rows->EndOfFile(); rows->MoveNext()) row(*rows);
  rows->Close();
}

std::vector<Circle> readCircles(Connection& connection, const std::string& origin) {
  std::vector<Circle> circles;
  forEachRow(connection, statement::circles(Literals(connection), origin),
             [&](const Recordset& row) { circles.push_back(circleIn(row)); });
  std::sort(circles.begin(), circles.end(),
            [](const Circle& a, const Circle& b) { return a.number < b.number; });
  return circles;
}

std::vector<Range> readRanges(Connection& connection, const std::vector<Circle>& circles) {
  std::unordered_set<std::int32_t> known = {0};
  for (const Circle& circle : circles) known.insert(circle.number);
  std::vector<Range> ranges;
  forEachRow(connection, statement::ranges(), [&](const Recordset& row) {
    Range range = rangeIn(row);
    const bool isHosts = isHostsKey(range.key);
    if (known.contains(range.circle) && !isHosts) ranges.push_back(std::move(range));
  });
  std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) {
    return std::tie(a.sortIndex, a.key, a.circle) < std::tie(b.sortIndex, b.key, b.circle);
  });
  return ranges;
}

std::vector<Assignment> readAssignments(Connection& connection, const std::string& origin) {
  std::vector<Assignment> assignments;
  forEachRow(connection, statement::assignments(Literals(connection), origin),
             [&](const Recordset& row) { assignments.push_back(assignmentIn(row)); });
  const auto inOrder = [](const Assignment& a, const Assignment& b) {
    return std::tie(a.circle, a.key, a.user) < std::tie(b.circle, b.key, b.user);
  };
  // An engine that reads its index finds a great many of them in order.
  if (!std::is_sorted(assignments.begin(), assignments.end(), inOrder))
    std::sort(assignments.begin(), assignments.end(), inOrder);
  return assignments;
}

std::vector<SpecialRange> readSpecialRanges(Connection& connection, const std::string& origin) {
  std::vector<SpecialRange> ranges;
  forEachRow(connection, statement::specialRanges(Literals(connection), origin),
             [&](const Recordset& row) { ranges.push_back(specialRangeIn(row)); });
  std::sort(ranges.begin(), ranges.end(),
            [](const SpecialRange& a, const SpecialRange& b) { return a.ownKey < b.ownKey; });
  return ranges;
}

std::vector<std::string> readUsers(Connection& connection) {
  std::vector<std::string> users;
  forEachRow(connection, statement::users(),
             [&](const Recordset& row) { users.push_back(textOf(row, "strUserName_PK")); });
  std::sort(users.begin(), users.end());
  return users;
}

}  // namespace

std::string Company::circleName(std::int32_t circle) const {
  if (circle == 0) return "Standard";
  const auto found =
      std::lower_bound(circles.begin(), circles.end(), circle,
                       [](const Circle& a, std::int32_t number) { return a.number < number; });
  const bool isNamed =
      found != circles.end() && found->number == circle && !found->description.empty();
  return isNamed ? found->description : "Buchungskreis " + std::to_string(circle);
}

const Range* Company::find(std::int32_t circle, const std::string& key) const {
  const auto found = std::find_if(ranges.begin(), ranges.end(), [&](const Range& range) {
    return range.circle == circle && range.key == key;
  });
  return found == ranges.end() ? nullptr : &*found;
}

Company readCompany(Connection& connection, std::int32_t application) {
  const std::string origin = requiredOrigin(application);
  Company company;
  company.application = application;
  company.circles = readCircles(connection, origin);
  company.ranges = readRanges(connection, company.circles);
  company.assignments = readAssignments(connection, origin);
  company.specialRanges = readSpecialRanges(connection, origin);
  company.users = readUsers(connection);
  return company;
}

}  // namespace vexnumkr::numbers
