#include "rules/activity.h"

#include "data/range_table.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"
#include "rules/sort_orders.h"

namespace vexnumkr::basAllgemein {
namespace {

void activateStandardRange(HostContext& context, const std::string& user, TextId key) {
  XArray& table = context.XArray();
  const std::int32_t row = FoundInXArray(context, user, 0, table.text(key));
  table.set(row, column::Aktiviert, true);
}

void checkUser(HostContext& context, const std::string& user) {
  XArray& table = context.XArray();
  sortRows(table, treeOrder);
  const std::int32_t first = table.Find(table.LowerBound(1), column::Benutzer, user);
  if (first == -1) return;
  const TextId userId = table.at(first).toTextId(column::Benutzer);
  TextId key = table.at(first).toTextId(column::NSchl);
  bool seenActive = false;
  const std::int32_t last = table.UpperBound(1);
  for (std::int32_t i = first; i <= last; ++i) {
    const TableRow row = table.at(i);
    if (!row.equals(column::NSchl, key)) {
      if (!seenActive) activateStandardRange(context, user, key);
      key = row.toTextId(column::NSchl);
      seenActive = false;
    }
    if (row.toBoolean(column::Aktiviert)) seenActive = true;
    if (i == last && !seenActive) activateStandardRange(context, user, key);
    if (!row.equals(column::Benutzer, userId)) return;
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
