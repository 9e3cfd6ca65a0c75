#include "cli/progress.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

std::int64_t milliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

bool isSmartTerminal(int file) {
  const char* const kind = std::getenv("TERM");
  return isatty(file) != 0 && (kind == nullptr || std::string_view(kind) != "dumb");
}

}  // namespace

Progress::Progress(std::string what)
    : what_(std::move(what)),
      isTerminal_(isSmartTerminal(STDERR_FILENO)),
      shownAt_(milliseconds()) {}

Progress::~Progress() { clear(); }

void Progress::clear() {
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
  return isSmartTerminal(STDOUT_FILENO) && (refused == nullptr || *refused == '\0');
}

}  // namespace vexnumkr::cli
