// Making a database with sample data.
#pragma once

#include <string>

#include <vexnumkr/database.h>

#include "app/sample/company.h"

namespace vexnumkr::host {

/// Makes the tables of the number ranges on `connection`, where there must be none yet, and fills
/// them with `company`, all in one transaction. Errors: the engine's; nothing is left behind then.
void writeSample(Connection& connection, const SampleCompany& company);

/// Makes the new SQLite file `file` with the small company and returns what it holds, as a text for
/// the user (German). Errors: 58 when there is such a file already, 75 when it cannot be made, and
/// the engine's; the file is removed again then.
std::string createSampleFile(const std::string& file);

}  // namespace vexnumkr::host
