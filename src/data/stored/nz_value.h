// Reading columns that may be NULL.
#pragma once

#include <vexnumkr/value.h>

namespace vexnumkr::basAllgemein {

/// `replacement` for Null, nothing and an empty text, else `value`.
Value NzValue(const Value& value, const Value& replacement);

}  // namespace vexnumkr::basAllgemein
