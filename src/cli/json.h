// The JSON that the program writes and reads; members keep their order.
#pragma once

#include <nlohmann/json.hpp>

namespace vexnumkr::cli {

using Json = nlohmann::ordered_json;

}  // namespace vexnumkr::cli
