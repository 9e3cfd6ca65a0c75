// Taking over a reference that somebody else has counted.
#pragma once

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::standins {

/// Owns the one reference that `object` comes with. (The compiler's ComPtr::Attach counts another.)
template <typename Object>
automation::ComPtr<Object> adopt(Object* object) {
  automation::ComPtr<Object> result(object);
  if (object != nullptr) object->Release();
  return result;
}

}  // namespace vexnumkr::standins
