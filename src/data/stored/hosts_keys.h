// The number keys that belong to the host.
#pragma once

#include <string_view>

namespace vexnumkr {

/// Whether the host administers the ranges of that key itself: they are neither read nor purged.
constexpr bool isHostsKey(std::string_view NSchl) { return NSchl == "LM" || NSchl == "AF"; }

}  // namespace vexnumkr
