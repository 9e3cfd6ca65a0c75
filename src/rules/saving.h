// Writing the range table back.
#pragma once

#include <cstdint>
#include <string>

#include "data/sql/statements.h"
#include "hosting/host_context.h"
#include "rules/validation.h"

namespace vexnumkr::basAllgemein {

/// Ends the dialog's transaction. Nothing changed, or the user answers No: rolled back, True. The
/// user cancels, or the ranges are not valid: the transaction stays open, False. Otherwise the
/// ranges and assignments of the origin are deleted, written anew in the order of display, and
/// committed: True.
///
/// A failure on the way is reported; then everything is rolled back, a new transaction begins, and
/// False is returned. The range table keeps the user's values. `askFirst` says whether the user is
/// asked; `viewReset` is CheckValidity's.
bool Save(HostContext& context, bool& viewReset, bool askFirst, GridRefill SyncDataWithControl);

/// Inserts a range; when that fails, for whatever reason, updates the stored one.
void InsertIntoNummernkreise(HostContext& context, const statement::Range& range);

/// Raises the database's error. No error: an update that matches no row.
void UpdateIntoNummernkreise(HostContext& context, const statement::Range& range);

/// Raises the database's error. `Benutzer` is mapped by ReplaceUser already.
void InsertIntoNummernkreis_Zuordnung(HostContext& context, std::int32_t Buchungskreis,
                                      const std::string& NSchl, const std::string& Benutzer);

/// The name under which assignments of a user are stored: "ALL" for "Alle Benutzer".
std::string ReplaceUser(const std::string& text);

}  // namespace vexnumkr::basAllgemein
