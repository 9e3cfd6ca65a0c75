// Statements of the host's own components.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <vexnumkr/database.h>

namespace vexnumkr::app {

/// `text` as a literal: between single quotes, those inside doubled.
std::string sqlText(std::string_view text);

/// Runs one statement; returns the rows changed. Errors: the engine's.
std::int32_t execute(Connection& connection, const std::string& statement);

/// Runs a select and calls `row` for each row of it. Errors: the engine's, and those of `row`.
void forEachRow(Connection& connection, const std::string& select,
                const std::function<void(const Recordset&)>& row);

/// A field's text; empty for NULL.
std::string textField(const Recordset& row, std::string_view name);

}  // namespace vexnumkr::app
