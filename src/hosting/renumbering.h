// Numbering all ranges from their masks, when the user wants it.
#pragma once

#include "hosting/session.h"

namespace vexnumkr::basAllgemein {

/// Asks, and then numbers every range with a mask (numberFromMasks); sets the changed flag. False
/// when the user declined or a failure, which is reported, stopped it.
bool StartAutoNum(Session& session);

}  // namespace vexnumkr::basAllgemein
