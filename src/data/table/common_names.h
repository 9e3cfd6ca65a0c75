// The names by which the range table knows what is everybody's.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr {

/// The name of the common view and of the common rows, which hold the ranges as they are stored.
inline constexpr const char* alleBenutzer = "Alle Benutzer";

/// The caption of booking circle 0.
inline constexpr const char* standardGroup = "Standard";

/// "Alle Benutzer" first, then the host's users in ascending order.
using Users = std::vector<std::string>;

}  // namespace vexnumkr
