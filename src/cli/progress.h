// How far long work is, on a terminal.
#pragma once

#include <cstdint>
#include <string>

namespace vexnumkr::cli {

/// A line on standard error that is written over as the work goes on, and wiped out at its end.
/// Nothing is written where standard error is no terminal, or one that writes over nothing (TERM is
/// "dumb").
class Progress {
 public:
  explicit Progress(std::string what);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Says what goes on, without a number.
  void show();
  /// So much is done; written a few times a second at most.
  void show(std::uint64_t done);
  /// Makes room for lines on standard output, which may be the same terminal.
  void clear();

 private:
  std::string what_;
  bool isTerminal_;
  std::int64_t shownAt_ = 0;
};

/// Whether standard output is a terminal that takes colours, and the user wants them (NO_COLOR).
bool coloursWanted();

}  // namespace vexnumkr::cli
