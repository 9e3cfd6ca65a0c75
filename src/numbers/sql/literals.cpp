#include "numbers/sql/literals.h"

#include <vexnumkr/error.h>

namespace vexnumkr::numbers {

std::string Literals::text(std::string_view value) const {
  std::string result = "'";
  for (const char c : value) {
    if (c == '\0')
      throw Error(error_number::invalidCall, "vexnumkr", "Ein Text enthält ein Nullzeichen.");
    if (c == '\'' || (c == '\\' && backslashEscapes_)) result += c;
    result += c;
  }
  return result + "'";
}

}  // namespace vexnumkr::numbers
