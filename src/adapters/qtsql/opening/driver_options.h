// The options in a connection string, before Qt's driver gets them.
#pragma once

#include <string>
#include <string_view>

#include "adapters/qtsql/opening/driver.h"

namespace vexnumkr::qtsql {

/// Error: 3001 where an entry is none that the driver knows, or, for drivers that take any pairs,
/// is no pair. Qt would write it to its log, or the engine into its message, and either may be half
/// of a password. The text tells the entry's number and no more.
void requireKnownOptions(std::string_view options, const Driver& driver);

/// Those entries that the driver knows.
std::string withKnownOptions(std::string_view options, const Driver& driver);

}  // namespace vexnumkr::qtsql
