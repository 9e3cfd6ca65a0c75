#include "rules/activity.h"

#include "data/range_table.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"
#include "rules/sort_orders.h"

namespace vexnumkr::basAllgemein {
namespace {

void activateStandardRange(HostContext& context, const std::string& user, const std::string& key) {
  const std::int32_t row = FoundInXArray(context, user, 0, key);
  context.XArray().set(row, column::Aktiviert, true);
}

void checkUser(HostContext& context, const std::string& user) {
  XArray& table = context.XArray();
  sortRows(table, treeOrder);
  const std::int32_t first = table.Find(table.LowerBound(1), column::Benutzer, user);
  if (first == -1) return;
  std::string key = table.toText(first, column::NSchl);
  bool seenActive = false;
  const std::int32_t last = table.UpperBound(1);
  for (std::int32_t row = first; row <= last; ++row) {
    if (!table.equals(row, column::NSchl, key)) {
      if (!seenActive) activateStandardRange(context, user, key);
      key = table.toText(row, column::NSchl);
      seenActive = false;
    }
    if (table.toBoolean(row, column::Aktiviert)) seenActive = true;
    if (row == last && !seenActive) activateStandardRange(context, user, key);
    if (!table.equals(row, column::Benutzer, user)) return;
  }
}

}  // namespace

void CheckActivity(HostContext& context) {
  reportingFailures(context, {moduleName, "CheckActivity"}, [&] {
    for (const std::string& user : context.colUser())
      if (user != alleBenutzer) checkUser(context, user);
    sortRows(context.XArray(), treeOrder);
  });
}

}  // namespace vexnumkr::basAllgemein
