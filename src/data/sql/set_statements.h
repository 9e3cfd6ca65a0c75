// The statements that read and write many rows at once.
//
// Those that write hold several rows' values, so a quote in one could make it look like several
// others. Therefore only plain texts may stand in them (isPlain); rows with any other go by a
// statement of their own. And each begins, up to its first value, as no statement of a single row
// does: no value can turn one of those into one of these.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/table/range_row.h"

namespace vexnumkr::statement {

/// All assignments of an origin: to know who draws from what, and to know every row that is there.
std::string assignments(const std::string& Herkunft);
std::string wholeAssignments(const std::string& Herkunft);
/// The values of all ranges whose booking circle exactly one other origin has registered.
std::string sharedRanges(const std::string& Herkunft);
/// The ranges that deleteRanges would remove.
std::string deletableRanges(const std::string& andereHerkunft);

/// Whether a text may stand in the statements below: it has no quotes, and no backslashes.
bool isPlain(std::string_view text);
/// Whether all texts of the range are plain.
bool isPlain(const RangeRow& range);

/// Several ranges of one booking circle. The texts are borrowed.
struct KeysOfCircle {
  std::int32_t Buchungskreis = 0;
  std::vector<std::string_view> NSchl;
};

/// An assignment, to one user or to several. The texts are borrowed; `Benutzer` as it is stored.
struct UsersOfRange {
  std::int32_t Buchungskreis = 0;
  std::string_view NSchl;
  std::vector<std::string_view> Benutzer;
};

/// Neighbours among the columns of a range besides its identity, from `first` to before `end`.
/// Their order is StartWert, AktuellerWert, EndWert, Aktiviert, SortierIndex, NBezeichnung,
/// IstNSchlVon, Maske.
struct RangeColumns {
  static constexpr std::size_t count = 8;

  std::size_t first = 0;
  std::size_t end = count;
};

// REQUIRES of all of these: at least one range or assignment, and plain texts.

std::string removeRanges(std::span<const KeysOfCircle> ranges);
std::string insertRanges(std::span<const RangeRow> ranges);
/// The same for some columns of stored ranges, whose booking circles and keys are all different.
/// REQUIRES: at least one column.
std::string updateRanges(std::span<const RangeRow> ranges, const RangeColumns& written);
std::string removeAssignments(std::span<const UsersOfRange> assignments,
                              const std::string& Herkunft);
std::string insertAssignments(std::span<const UsersOfRange> assignments,
                              const std::string& Herkunft);

// The same for a single row, with any texts.

std::string removeRange(std::int32_t Buchungskreis, std::string_view NSchl);
std::string removeAssignment(std::int32_t Buchungskreis, std::string_view NSchl,
                             std::string_view Benutzer, std::string_view Herkunft);

/// Where a statement of this file may go on with further values: behind `head`, any number of
/// `more`; both with a question mark for each value.
struct Repetition {
  std::string head;
  std::string more;
};

/// In the order in which they stand in each other, the innermost first.
std::vector<Repetition> repetitions();

}  // namespace vexnumkr::statement
