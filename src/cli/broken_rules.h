// The rules that a change would break, as the commands tell them that refuse it.
#pragma once

#include <vector>

#include <vexnumkr/number_check.h>

#include "cli/json.h"
#include "cli/session.h"

namespace vexnumkr::cli {

/// An array with an object for each, as docs/json.md describes "broken".
Json describedRules(const std::vector<numbers::Finding>& broken);

/// A line for each.
void printRules(Session& session, const std::vector<numbers::Finding>& broken);

}  // namespace vexnumkr::cli
