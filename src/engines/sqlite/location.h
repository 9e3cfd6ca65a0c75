// How SQLite is told which file to open.
#pragma once

#include <string>

namespace vexnumkr::engines::sqlite_location {

/// A URI that opens `database` only where it is there: a path, ":memory:", or a URI of its own.
/// Plainly named, a missing file would be created by opening it.
std::string uriOf(const std::string& database);

}  // namespace vexnumkr::engines::sqlite_location
