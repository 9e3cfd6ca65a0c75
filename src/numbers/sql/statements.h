// Every statement that the number library sends. Values come through Literals, so that they stay
// what they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/number_company.h>

#include "numbers/sql/literals.h"

namespace vexnumkr::numbers::statement {

/// The assignments of a key to a user and to everybody, in the circles of the origin and in the
/// standard circle, each with its range where that is stored: Kreis, Benutzer, Schluessel, and of
/// the range Bereich (its key, NULL where there is none), Aktiviert, IstNSchlVon, and where it is
/// one of a special range Sonderkreis (its key) and Eingeschaltet; the same of the range of
/// IstNSchlVon: Gemeinsam, GemeinsamAktiviert, GemeinsamSonderkreis, GemeinsamEingeschaltet.
std::string assignedRanges(const Literals& literals, const std::string& origin,
                           const std::string& user, const std::string& key,
                           std::optional<std::int32_t> circle);

/// Changes nothing, but an engine with one writer per file lets its transaction write from then on.
std::string takeWriteLock();

/// Issues the next `count` numbers of a range that has them and whose values are in order.
std::string issueNumbers(const Literals& literals, std::int32_t circle, const std::string& key,
                         std::int32_t count);

/// StartWert, AktuellerWert and EndWert of one range.
std::string rangeValues(const Literals& literals, std::int32_t circle, const std::string& key);

/// Each table as one application sees it; which ranges those are, the circles tell.
std::string ranges();
std::string circles(const Literals& literals, const std::string& origin);
std::string assignments(const Literals& literals, const std::string& origin);
std::string specialRanges(const Literals& literals, const std::string& origin);
std::string users();

/// What `select` finds in its column Nummer, and nothing of what else it selects.
std::string usedNumbers(const std::string& select);

/// Fails where there is no journal to read.
std::string journalProbe();

/// The lines of the journal behind that of number `last`, in order, at most `count` of them: Nr
/// (the number), and its columns by their names. Times as texts; an empty one does not matter.
std::string journal(const Literals& literals, const std::string& since, const std::string& before,
                    const std::string& last, std::int32_t count);

/// The circles of other applications.
std::string circlesOfOthers(const Literals& literals, const std::string& origin);

/// Gives a range other values where it still has those of `range`.
std::string renumberRange(const Literals& literals, const Range& range, std::int32_t start,
                          std::int32_t current, std::int32_t end);

/// Single rows, by the key of their table. An update sets what differs from the stored row, which
/// has to be another one; updates and deletes find a range only where it still has the stored
/// numbers.
std::string insertRow(const Literals& literals, const std::string& origin, const Circle& row);
std::string insertRow(const Literals& literals, const std::string& origin, const Range& row);
std::string insertRow(const Literals& literals, const std::string& origin, const Assignment& row);
std::string insertRow(const Literals& literals, const std::string& origin, const SpecialRange& row);
std::string updateRow(const Literals& literals, const std::string& origin, const Circle& stored,
                      const Circle& wanted);
std::string updateRow(const Literals& literals, const std::string& origin, const Range& stored,
                      const Range& wanted);
std::string updateRow(const Literals& literals, const std::string& origin, const Assignment& stored,
                      const Assignment& wanted);
std::string updateRow(const Literals& literals, const std::string& origin,
                      const SpecialRange& stored, const SpecialRange& wanted);
std::string deleteRow(const Literals& literals, const std::string& origin, const Circle& row);
std::string deleteRow(const Literals& literals, const std::string& origin, const Range& row);
std::string deleteRow(const Literals& literals, const std::string& origin, const Assignment& row);
std::string deleteRow(const Literals& literals, const std::string& origin, const SpecialRange& row);

}  // namespace vexnumkr::numbers::statement
