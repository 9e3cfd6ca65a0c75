#include "automation/standins/environment.h"

#include "adapters/automation/com/bstr.h"
#include "automation/environment.h"

namespace vexnumkr::standins {

std::string environment(const wchar_t* name) {
  return automation::toUtf8(std::wstring_view(test::environment(name)));
}

}  // namespace vexnumkr::standins
