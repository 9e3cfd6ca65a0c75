// Sending statements through the shared command object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <vexnumkr/database.h>

namespace vexnumkr {

/// Runs a statement; returns its rows, and how many there are. The database's error is passed on,
/// here and below.
std::unique_ptr<Recordset> query(Command& command, const std::string& text);
std::unique_ptr<Recordset> query(Command& command, const std::string& text, std::int32_t& found);

/// Runs a statement whose rows are of no interest; returns the number of records that it reports.
std::int32_t execute(Command& command, const std::string& text);

}  // namespace vexnumkr
