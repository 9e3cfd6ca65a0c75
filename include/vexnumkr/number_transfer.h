// Moving the settings of one database to another.
//
// What has been tried out in a test database goes to the one in use, or one company's settings to
// the next. Rows are compared by their keys, so doing it twice does no harm.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/number_check.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::numbers {

/// What becomes of a row, and in which table it stands. The order of tables is that of writing.
enum class ChangeKind { added, changed, removed };
enum class ChangedTable { circles, ranges, assignments, specialRanges };

/// One row that differs.
struct Change {
  ChangeKind kind = ChangeKind::added;
  ChangedTable table = ChangedTable::circles;
  std::string what{};                 ///< the row's key, for people: "RE, Buchungskreis 1"
  std::vector<std::string> fields{};  ///< of a change, "Endwert 199 -> 299" each
};

/// What counts as a setting, and whose word is the last.
struct TransferOptions {
  /// Current values are settings, too. Otherwise a range keeps its own, and a new one begins with
  /// its start value. A current value below one that is stored issues numbers again: right for a
  /// company that is made anew, wrong for one in use.
  bool withCurrent = false;
  /// What is not wanted goes. The standard ranges of circle 0 that are no special ranges stay, and
  /// so do the ranges of circles that the other application has, too: others need them.
  bool removeOthers = false;
  /// A range may get values with which it issues numbers again that it has issued. Otherwise that
  /// is told among what would be broken, unless the current value itself is wanted (withCurrent).
  bool reissue = false;
};

/// What makes `stored` into `wanted`, by table and key; nothing where they agree. Users are the
/// host's and are not compared. Plain computation: which circles the other application has is not
/// known here, so with `removeOthers` their ranges are told as removed, which storeCompany keeps.
VEXNUMKR_API std::vector<Change> differences(const Company& stored, const Company& wanted,
                                             const TransferOptions& options);

/// A row that the database could not hold, or in which it would mean nothing: with a key that is
/// empty, too long or the host's own, or a circle, key or user that there will not be.
struct ImportFault {
  ChangedTable table = ChangedTable::circles;
  std::size_t row = 0;  ///< of the company asked for, from 0
  std::string text{};   ///< for people (German)
};

/// What storing would do, and what speaks against it.
struct ImportPlan {
  std::vector<Change> changes;
  /// The rules that would be broken afterwards, then the ranges that would issue numbers again.
  std::vector<Finding> broken;
  /// Of the rows that would change. What is stored already is not judged: assignments, for one,
  /// outlive what they point to.
  std::vector<ImportFault> faults;

  bool isPossible() const { return broken.empty() && faults.empty(); }
};

/// What storeCompany would do, as the database is now. Changes nothing. REQUIRES: no transaction
/// runs on `connection`. Errors: 5 for an application other than 1 and 2; the engine's.
VEXNUMKR_API ImportPlan planImport(Connection& connection, const Company& wanted,
                                   const TransferOptions& options);

/// Stores the circles, ranges, assignments and special ranges of `wanted` for its application, in
/// one transaction, and reads them back before it commits. Nothing changes where the plan is not
/// possible. Stored once more it changes nothing. Numbers drawn meanwhile stay drawn: a range that
/// is to change and from which one was drawn fails the whole of it.
///
/// REQUIRES: no transaction runs on `connection`. Errors: 3022 when the database has not stored
/// what was sent; 3023 for a range that was changed meanwhile; 5 for an application other than 1
/// and 2; the engine's. Nothing has changed after any of them.
VEXNUMKR_API ImportPlan storeCompany(Connection& connection, const Company& wanted,
                                     const TransferOptions& options);

}  // namespace vexnumkr::numbers
