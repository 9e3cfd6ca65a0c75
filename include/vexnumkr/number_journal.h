// What has been changed, by whom and when, read from the journal that triggers write.
//
// The triggers and their table are made by the scripts protokoll.sql of the engines, or by
// "vexnumkr journal install".
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/number_transfer.h>

namespace vexnumkr::numbers {

/// One row that is not what it was.
struct JournalChange {
  std::int32_t application = 0;  ///< 1 or 2; 0 for ranges, which belong to their circles
  Change change{};
};

/// What somebody has changed at a time: a save, an import, a number drawn.
struct JournalEntry {
  std::string time{};   ///< of its last statement, UTC: "2026-11-22T09:30:00.123Z"
  std::string login{};  ///< under which name the database knows them; empty where it knows none
  std::string user{};   ///< whom the host has named to the database; mostly empty
  std::vector<JournalChange> changes{};  ///< never empty; by table and key
};

struct JournalOptions {
  /// The first time that counts, as in JournalEntry or the beginning of such a text ("2026-11"),
  /// since times are compared as texts; empty for all.
  std::string since{};
  /// The first that does not count any more, likewise.
  std::string before{};
  /// 1 or 2 leaves out what belongs to the other one alone; 0 leaves out nothing.
  std::int32_t application = 0;
};

/// Whether the database has a journal that `connection` may read. Raises nothing of the engine's:
/// with a connection that is lost there is none, either.
VEXNUMKR_API bool hasJournal(Connection& connection);

/// Tells the changes in the order in which they were begun, reading a part of the journal at a
/// time.
///
/// A save may delete rows and insert them again; what is told is what was different afterwards, and
/// what was the same is not told at all: neither is how an empty text, a truth value or trailing
/// blanks were stored. On PostgreSQL that is the difference which a transaction has made, elsewhere
/// the one which a session has made without pausing for two seconds. A change of nothing but the
/// current value stands by itself.
///
/// What `found` raises ends the reading and is passed on.
///
/// Errors: the engine's; 6 and 13 for an entry with a number that is none.
VEXNUMKR_API void readJournal(Connection& connection, const JournalOptions& options,
                              const std::function<void(const JournalEntry&)>& found);

}  // namespace vexnumkr::numbers
