#include "fuzz/support/own_statements.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "data/sql/set_statements.h"
#include "data/sql/statements.h"

namespace vexnumkr::fuzz {
namespace {

constexpr std::string OwnValues::*texts[] = {&OwnValues::key,       &OwnValues::description,
                                             &OwnValues::sharedKey, &OwnValues::mask,
                                             &OwnValues::user,      &OwnValues::origin};

RangeRow rangeOf(const OwnValues& values, TextPool& pool) {
  RangeRow row;
  row.Buchungskreis = values.circle;
  row.NSchl = pool.add(values.key);
  row.NBezeichnung = pool.add(values.description);
  row.StartWert = values.start;
  row.AktuellerWert = values.current;
  row.EndWert = values.end;
  row.Aktiviert = values.active;
  row.SortierIndex = values.sortIndex;
  row.IstNSchlVon = pool.add(values.sharedKey);
  row.Maske = pool.add(values.mask);
  return row;
}

std::string rangeStatement(bool isInsertion, const OwnValues& values) {
  TextPool pool;
  const RangeRow row = rangeOf(values, pool);
  return isInsertion ? statement::insertRange(row) : statement::updateRange(row);
}

// Another row beside that of `values`, of the same booking circle for every other input.
OwnValues another(const OwnValues& values) {
  OwnValues other = values;
  std::swap(other.key, other.description);
  std::swap(other.mask, other.sharedKey);
  std::swap(other.start, other.end);
  if (!values.active) std::swap(other.circle, other.sortIndex);
  return other;
}

// Of two rows.
std::string rangesStatement(std::size_t kind, const OwnValues& values) {
  TextPool pool;
  const OwnValues other = another(values);
  const std::vector<RangeRow> rows = {rangeOf(values, pool), rangeOf(other, pool)};
  switch (kind) {
    case 20:
      return statement::insertRanges(rows);
    case 21:
      return statement::updateRanges(rows, {});
    case 22:
      return statement::updateRanges(rows, {0, 3});
    default:
      return statement::removeRanges(std::vector<statement::KeysOfCircle>{
          {values.circle, {values.key, values.user}}, {other.circle, {other.key}}});
  }
}

std::string assignmentsStatement(bool isInsertion, const OwnValues& values) {
  const OwnValues other = another(values);
  const std::vector<statement::UsersOfRange> assignments = {
      {values.circle, values.key, {values.user, values.mask}},
      {other.circle, other.key, {values.description}}};
  return isInsertion ? statement::insertAssignments(assignments, values.origin)
                     : statement::removeAssignments(assignments, values.origin);
}

}  // namespace

OwnValues OwnValues::read(Input& input) {
  OwnValues values;
  values.active = input.flag();
  for (const auto text : texts) values.*text = input.text();
  for (std::int32_t* const number :
       {&values.circle, &values.start, &values.current, &values.end, &values.sortIndex})
    *number = input.number();
  return values;
}

bool OwnValues::isHarmless() const {
  static constexpr std::string_view quoteAndZero("'\0", 2);
  return std::all_of(std::begin(texts), std::end(texts), [this](const auto text) {
    return (this->*text).find_first_of(quoteAndZero) == std::string::npos;
  });
}

bool isMade(std::size_t kind, const OwnValues& values) {
  if (kind < 20) return true;
  const OwnValues other = another(values);
  const bool isOneRange = values.circle == other.circle && values.key == other.key;
  return !isOneRange && std::all_of(std::begin(texts), std::end(texts), [&](const auto text) {
    return statement::isPlain(values.*text);
  });
}

std::string ownStatement(std::size_t kind, const OwnValues& values) {
  switch (kind) {
    case 0:
      return rangeStatement(true, values);
    case 1:
      return rangeStatement(false, values);
    case 2:
      return statement::insertAssignment(values.circle, values.key, values.user, values.origin);
    case 3:
      return statement::deleteRanges(values.origin);
    case 4:
      return statement::deleteAssignments(values.origin);
    case 5:
      return statement::assignment(values.circle, values.key, values.user, values.origin);
    case 6:
      return statement::storedRange(values.key, values.circle);
    case 7:
      return statement::bookingCircles(values.origin);
    case 8:
      return statement::specialRangeCount(values.origin);
    case 9:
      return statement::specialRangesByKey(values.origin);
    case 10:
      return statement::specialRangesByDescription(values.origin);
    case 11:
      return statement::otherOriginsOfCircle(values.circle, values.origin);
    case 12:
      return statement::assignmentCount(values.origin);
    case 13:
      return statement::removeRange(values.circle, values.key);
    case 14:
      return statement::removeAssignment(values.circle, values.key, values.user, values.origin);
    case 15:
      return statement::assignments(values.origin);
    case 16:
      return statement::wholeAssignments(values.origin);
    case 17:
      return statement::sharedRanges(values.origin);
    case 18:
      return statement::deletableRanges(values.origin);
    case 19:
      return statement::ranges();
    case 24:
      return assignmentsStatement(true, values);
    case 25:
      return assignmentsStatement(false, values);
    default:
      return rangesStatement(kind, values);
  }
}

BoundStatement boundOwnStatement(std::size_t kind, const OwnValues& values) {
  OwnValues marked = values;
  Binding binding;
  for (const auto text : texts) marked.*text = binding.mark(values.*text);
  return binding.bind(ownStatement(kind, marked));
}

}  // namespace vexnumkr::fuzz
