// What spreadsheets take for UTF-8.
#pragma once

#include <string_view>

namespace vexnumkr::cli {

/// At the beginning of a file, and nowhere else.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace vexnumkr::cli
