// How full a range is, for people and programs.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/number_check.h>

namespace vexnumkr::cli {

/// In percent, with one decimal behind `point`; rounded down, so that what has numbers left is not
/// called full.
inline std::string percentOf(const numbers::RangeLevel& level, char point) {
  const std::int64_t tenths = level.used * 1000 / level.capacity;
  return std::to_string(tenths / 10) + point + std::to_string(tenths % 10);
}

}  // namespace vexnumkr::cli
