#include "scenario/windows/watchdog.h"

#include <algorithm>
#include <utility>

namespace vexnumkr::scenario {

Watchdog::Watchdog(std::chrono::milliseconds patience, Bark bark)
    : patience_(patience), bark_(std::move(bark)), thread_([this] { watch(); }) {}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    isClosing_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void Watchdog::begin(int line, const std::string& waitingFor) {
  {
    const std::lock_guard lock(mutex_);
    isWatching_ = true;
    deadline_ = Clock::now() + patience_;
    line_ = line;
    waitingFor_ = waitingFor;
  }
  changed_.notify_all();
}

void Watchdog::waitFor(const std::string& waitingFor) {
  const std::lock_guard lock(mutex_);
  waitingFor_ = waitingFor;
}

void Watchdog::end() {
  {
    const std::lock_guard lock(mutex_);
    isWatching_ = false;
  }
  changed_.notify_all();
}

void Watchdog::watch() {
  std::unique_lock lock(mutex_);
  while (!isClosing_) {
    if (!isWatching_) {
      changed_.wait(lock);
    } else if (Clock::now() >= deadline_) {
      isWatching_ = false;
      bark_(line_, waitingFor_);
    } else {
      waitABit(lock);
    }
  }
}

// Time in which the whole machine stood still is none that the command has taken.
void Watchdog::waitABit(std::unique_lock<std::mutex>& lock) {
  constexpr std::chrono::seconds bit{1};
  const Clock::time_point before = Clock::now();
  changed_.wait_until(lock, std::min(deadline_, before + bit));
  const auto waited = Clock::now() - before;
  if (waited > 2 * bit) deadline_ += waited - bit;
}

}  // namespace vexnumkr::scenario
