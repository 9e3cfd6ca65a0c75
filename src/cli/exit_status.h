// How the program ends; documented in docs/verwaltung.md.
#pragma once

namespace vexnumkr::cli::exit_status {

inline constexpr int fine = 0;
inline constexpr int findings = 1;   ///< it ran, and found something that somebody has to see to
inline constexpr int wrongCall = 2;  ///< the command line, or a file named on it
inline constexpr int database = 3;
inline constexpr int unknown = 3;  ///< of a plugin (check --format nagios): it could not check

}  // namespace vexnumkr::cli::exit_status
