// Sending the number library's statements.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <vexnumkr/database.h>

namespace vexnumkr::numbers {

/// The rows of a select, on the first of them. Errors: the engine's, here and below; 91 where the
/// host hands back no recordset.
std::unique_ptr<Recordset> select(Connection& connection, const std::string& text);

/// Runs a statement; returns the number of records that it reports.
std::int32_t execute(Connection& connection, const std::string& text);

/// A field's text without trailing blanks, with which some hosts fill their columns; empty for
/// NULL.
std::string textOf(const Recordset& row, std::string_view field);

}  // namespace vexnumkr::numbers
