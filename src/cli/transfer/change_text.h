// Changes of rows, as commands print them.
#pragma once

#include <string>

#include <vexnumkr/number_transfer.h>

#include "cli/json.h"

namespace vexnumkr::cli {

/// "~ Nummernkreis (RE, Buchungskreis 1): Endwert 199 -> 299"
std::string textOf(const numbers::Change& change);

/// For programs, as docs/json.md has it.
Json described(const numbers::Change& change);

}  // namespace vexnumkr::cli
