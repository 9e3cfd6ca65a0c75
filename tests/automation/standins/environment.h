// What a test tells the stand-ins.
#pragma once

#include <string>

namespace vexnumkr::standins {

/// The environment variable as UTF-8; empty where it is not set.
std::string environment(const wchar_t* name);

}  // namespace vexnumkr::standins
