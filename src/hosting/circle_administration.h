// The host's administration of booking circles.
#pragma once

#include <string>

#include "hosting/session.h"

namespace vexnumkr::basAllgemein {

/// Has it shown for `origin`. False after a failure, which is reported; what the user did there
/// makes no difference.
bool CallBuchungskreise(Session& session, const std::string& origin);

}  // namespace vexnumkr::basAllgemein
