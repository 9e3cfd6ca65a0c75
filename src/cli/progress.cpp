#include "cli/progress.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

std::int64_t milliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

}  // namespace

Progress::Progress(std::string what)
    : what_(std::move(what)), isTerminal_(isatty(STDERR_FILENO) != 0), shownAt_(milliseconds()) {}

Progress::~Progress() {
  if (isTerminal_) std::cerr << "\r\033[K" << std::flush;
}

void Progress::show() {
  if (isTerminal_) std::cerr << '\r' << what_ << "\033[K" << std::flush;
}

void Progress::show(std::uint64_t done) {
  constexpr std::int64_t pause = 200;
  if (!isTerminal_ || milliseconds() - shownAt_ < pause) return;
  shownAt_ = milliseconds();
  std::cerr << '\r' << what_ << ' ' << grouped(static_cast<std::int64_t>(done)) << "\033[K"
            << std::flush;
}

bool coloursWanted() {
  const char* const refused = std::getenv("NO_COLOR");
  return isatty(STDOUT_FILENO) != 0 && (refused == nullptr || *refused == '\0');
}

}  // namespace vexnumkr::cli
