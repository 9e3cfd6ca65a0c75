// The transcript of a scenario.
#pragma once

#include <cstdint>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/value.h>

namespace vexnumkr::scenario {

/// `text` as transcripts show it, on one line: \r for a carriage return, \n for a line feed, \\ for
/// a backslash and \| for a vertical bar.
std::string printedText(std::string_view text);
/// "True" or "False".
std::string printedFlag(bool flag);
/// A cell: texts as above, numbers in decimal, booleans in words, Empty and Null as nothing.
std::string printedValue(const Value& value);

/// `cells`, which are printed forms already, with " | " between them.
std::string joined(const std::vector<std::string>& cells);

/// Writes lines, each at once, so that what happened is told even when the program cannot go on.
/// May be written to by several threads.
class Transcript {
 public:
  /// `out` is borrowed.
  explicit Transcript(std::ostream& out) : out_(out) {}

  void line(const std::string& text);
  /// The last line of a scenario that could not be carried out; nothing is written after it.
  void failed(int line, const std::string& why);

 private:
  std::ostream& out_;
  std::mutex mutex_;
  bool isClosed_ = false;
};

}  // namespace vexnumkr::scenario
