// Special ranges: optional number keys that share another key's range and can be switched on.
#pragma once

#include "hosting/host_context.h"

namespace vexnumkr::basAllgemein {

/// Whether the origin has any special range. False after a failure, which is reported.
bool CheckSonderkreise(HostContext& context);

/// Adds the special ranges that are switched on and lacking to the range table, as standard range
/// of every user and in every booking circle, and removes the rows of those that are off. Running
/// it again changes nothing. Failures are reported. The changed flag stays as it is.
void RefreshSGroups(HostContext& context);

}  // namespace vexnumkr::basAllgemein
