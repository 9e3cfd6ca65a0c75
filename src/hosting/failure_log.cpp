#include "hosting/failure_log.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vexnumkr {
namespace {

// The procedures of the general module whose failure leaves the table short of rows, or with rows
// that the database does not have.
bool fillsTheTable(const Procedure& procedure) {
  static constexpr std::array<std::string_view, 10> names{
      "LoadItems",      "AktiviertDB",          "AddDataGroup",
      "RefreshSGroups", "AddDataBuchungskreis", "GetBuchungskreisData",
      "RefreshCombo",   "RefreshInXArray",      "AddInXArray",
      "DeleteInXArray"};
  return std::ranges::find(names, procedure.name) != names.end();
}

}  // namespace

void FailureLog::failed(const Procedure& procedure, const Error& failure) noexcept {
  if (fillsTheTable(procedure)) tableIsPartial_ = true;
  bool isNew = true;
  // Where memory has run out the user is rather told twice than not at all.
  ignoringFailures([&] {
    if (actions_ > 0)
      isNew = told_.emplace(std::string(procedure.module) + '.' + procedure.name, failure.number())
                  .second;
  });
  if (isNew) shown_.failed(procedure, failure);
}

UserAction::UserAction(FailureLog& log) : log_(log) {
  if (log_.actions_++ == 0) log_.told_.clear();
}

UserAction::~UserAction() { --log_.actions_; }

}  // namespace vexnumkr
