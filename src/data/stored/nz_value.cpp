#include "data/stored/nz_value.h"

namespace vexnumkr::basAllgemein {

Value NzValue(const Value& value, const Value& replacement) {
  if (value.isNull() || value.isEmpty() || value == Value("")) return replacement;
  return value;
}

}  // namespace vexnumkr::basAllgemein
