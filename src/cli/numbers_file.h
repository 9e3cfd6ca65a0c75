// Files of numbers, one a line.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <string>

namespace vexnumkr::cli {

/// Who is told what stands in the lines; called in their order.
struct NumberLines {
  std::function<void(std::int32_t)> number;
  /// The line, from 1, and its text without blanks around it; of a long one the beginning.
  std::function<void(std::uint64_t, const std::string&)> unreadable;
  /// Now and then: how many lines have been read.
  std::function<void(std::uint64_t)> progress;
};

/// Reads `lines` to the end. A line holds a 32-bit number, with a sign or without, and blanks or
/// tabs around it; empty lines count for nothing, nor does a byte order mark in front. Whatever the
/// file is, a line longer than 256 bytes is not kept, and is no number. Error: UsageError where the
/// end cannot be reached.
void readNumbers(std::istream& lines, const NumberLines& told);

}  // namespace vexnumkr::cli
