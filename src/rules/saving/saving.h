// Writing the range table back.
#pragma once

#include <cstdint>
#include <string>

#include "data/statement_source.h"
#include "data/table/xarray.h"
#include "platform/progress.h"

namespace vexnumkr::basAllgemein {

/// Deletes the ranges and assignments of the origin and writes those of the table anew, in its
/// order: a range per common row, an assignment per active row. One step of progress per
/// statement, and one that is left for the commit, which is the caller's. Errors: the database's,
/// and 6 and 13 for a value that does not convert, before its row is written; the caller rolls
/// back.
void writeTable(const XArray& table, StatementSource& source, Progress& progress);

/// Inserts a range; when that fails, for whatever reason, updates the stored one. Where there is
/// none to update, the insert's failure is raised: the database refuses the range. Errors 6 and 13
/// for a value that does not convert; nothing is sent then.
void InsertIntoNummernkreise(StatementSource& source, const RangeRow& range);

/// Raises the database's error. False when it has found no such range; a layer that cannot tell has
/// found it.
bool UpdateIntoNummernkreise(StatementSource& source, const RangeRow& range);

/// Raises the database's error. `Benutzer` is mapped by ReplaceUser already.
void InsertIntoNummernkreis_Zuordnung(StatementSource& source, std::int32_t Buchungskreis,
                                      const std::string& NSchl, const std::string& Benutzer);

/// The user for whom assignments of "Alle Benutzer" are stored.
inline constexpr const char* everybody = "ALL";

/// The name under which assignments of a user are stored: "ALL" for "Alle Benutzer".
std::string ReplaceUser(const std::string& text);

}  // namespace vexnumkr::basAllgemein
