// What a test run tells the programs under Wine.
#pragma once

#include <string>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::test {

/// The environment variable; empty where it is not set.
inline std::wstring environment(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

}  // namespace vexnumkr::test
