// Making a database with sample data.
#pragma once

#include <string>

#include <vexnumkr/database.h>

#include "app/sample/company.h"

namespace vexnumkr::app {

/// Makes the tables of the number ranges on `connection`, where there must be none yet, on servers
/// that of the settings too, and fills them with `company`. Errors: the engine's; what was made is
/// dropped again then.
void writeSample(Connection& connection, const SampleCompany& company);

/// Makes the new SQLite file `file` with the sample company of that scale and returns what it
/// holds, as a text for the user (German). Errors: 58 when there is such a file already, 75 when it
/// cannot be made, and the engine's; the file is removed again then.
std::string createSampleFile(const std::string& file, int scale = 0);

/// The same in a database that exists. Errors: the engine's.
std::string createSampleTables(const std::string& connectionText, int scale = 0);

}  // namespace vexnumkr::app
