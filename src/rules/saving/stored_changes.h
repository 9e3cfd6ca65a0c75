// What others have stored since the ranges were read, and what becomes of it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "data/range_data.h"
#include "data/stored/range_values.h"
#include "rules/saving/range_content.h"

namespace vexnumkr {

/// The ranges of a table as they are stored at one moment, and the stored ranges that are none of
/// it.
struct StoredRanges {
  /// Those that a statement finds by their booking circle and key, in the order of the records.
  std::vector<StoredRecord> records;
  /// There are others: what can be no range of a table, and keys that are stored as numbers.
  bool hasOthers = false;
  std::map<RangeId, RangeValues> ofTable;
  /// Ranges that the dialog has never read and that the table does not hold, in the order of the
  /// records; with all columns as they are stored.
  std::vector<RangeRow> unknown;
};

/// Whether the unknown ranges are wanted as well.
enum class Others { passOver, read };

/// Reads the records of the loading statement. Errors 6, 13 and 94 for a value of a range of the
/// table, or of an unknown range that is wanted, that does not convert; other records are not
/// looked at.
StoredRanges readStoredRanges(Recordset& records, const RangeData& data, Others others);

/// A range that the user and somebody else have changed.
struct Conflict {
  RangeId range;
  std::string NBezeichnung;
  std::string Gruppe;
  RangeValues known;
  RangeValues stored;
};

/// What comparing has found.
struct StoredChanges {
  bool replaced = false;            ///< Rows that the user had left alone took stored values over.
  std::vector<Conflict> conflicts;  ///< In the table's order; nothing is done about them.
};

/// Takes over what others have stored in ranges that the user has left alone: into the rows of all
/// users, and as what is known. What the user has entered and what is stored the same is known from
/// then on.
StoredChanges takeStoredChanges(const RangeData& data, const StoredRanges& stored);

/// What the user is asked about conflicts; ten of them at most are told one by one.
std::string conflictQuestion(const std::vector<Conflict>& conflicts);

/// The user's values are to be saved: what is stored is known now, and overwritten.
void keepUsersValues(KnownRanges& known, const std::vector<Conflict>& conflicts);
/// The user's values are given up for the stored ones.
void takeStoredValues(const RangeData& data, const std::vector<Conflict>& conflicts);

/// Compares two readings, the later one under lock. A range that has only drawn numbers since, and
/// that the user has left alone, takes them over. Error 3023 for any other difference: somebody has
/// changed a range that the user has changed too, or in another way; no row is replaced then.
/// Returns whether one was.
bool takeDrawnNumbers(const RangeData& data, const StoredRanges& before,
                      const StoredRanges& underLock);

/// All of the table has been stored: its values are known from then on.
void knowAsStored(const RangeData& data);

}  // namespace vexnumkr
