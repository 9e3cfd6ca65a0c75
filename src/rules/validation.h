// The rules that ranges must keep to be saved.
#pragma once

#include <string>

#include "hosting/host_context.h"

namespace vexnumkr::basAllgemein {

/// Rebuilds the grid for a booking-circle filter and a user.
using GridRefill = void (*)(HostContext& context, const std::string& filter,
                            const std::string& user);

/// Checks the active common ranges: the end lies above the start, the current value between them,
/// and ranges that draw on one sequence do not overlap. The first broken rule, in the order of
/// display, is shown in a message, and the editor opens on the offending value; where the grid may
/// not show it, it is refilled with everything and `viewReset` set. Returns whether all rules hold.
///
/// The table is sorted for display afterwards; no value changes. A failure while copying or sorting
/// returns False; one while checking (a value that is no number) is reported and counts as passed:
/// saving then stumbles over the same value and says so.
bool CheckValidity(HostContext& context, bool& viewReset, GridRefill SyncDataWithControl);

}  // namespace vexnumkr::basAllgemein
