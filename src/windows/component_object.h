// The object that hosts create.
#pragma once

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::server {

/// A new object of the class VXNummernkreise as `wanted`.
HRESULT createComponentObject(REFIID wanted, void** object);

}  // namespace vexnumkr::server
