// The order of many numbers, found without comparing them.
#pragma once

#include <cstdint>
#include <vector>

namespace vexnumkr {

/// The positions of `keys` in ascending order of the keys; stable. Only the lowest `bits` bits
/// count. Costs one pass over the keys per eleven bits.
std::vector<std::uint32_t> radixOrder(const std::vector<std::uint64_t>& keys, unsigned bits);

}  // namespace vexnumkr
