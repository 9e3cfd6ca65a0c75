// Which error something raises.
#pragma once

#include <cstdint>

#include <vexnumkr/error.h>

namespace vexnumkr::test {

/// The number of the error that `function` raises, or 0.
template <class Function>
std::int32_t errorOf(Function&& function) {
  try {
    function();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace vexnumkr::test
