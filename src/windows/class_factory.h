// Makes the objects of the one class.
#pragma once

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::server {

/// A new class factory as `wantedInterface`.
HRESULT createClassFactory(REFIID wantedInterface, void** object);

}  // namespace vexnumkr::server
