#include "automation/standins/environment.h"

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::standins {

std::string environment(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return automation::toUtf8(std::wstring_view(value));
}

}  // namespace vexnumkr::standins
