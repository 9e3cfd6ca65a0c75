// Giving up on what never ends.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace vexnumkr::scenario {

/// Calls back, on a thread of its own, when something that was begun has not ended in time; also
/// when the thread that does it is blocked.
class Watchdog {
 public:
  using Bark = std::function<void(int line, const std::string& waitingFor)>;

  Watchdog(std::chrono::milliseconds patience, Bark bark);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  /// The command in that line has begun; time runs from now.
  void begin(int line, const std::string& waitingFor);
  /// What the command is waiting for has changed; time runs on.
  void waitFor(const std::string& waitingFor);
  /// Nothing is going on any more.
  void end();

 private:
  using Clock = std::chrono::steady_clock;

  void watch();
  void waitABit(std::unique_lock<std::mutex>& lock);

  const std::chrono::milliseconds patience_;
  const Bark bark_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isWatching_ = false;
  bool isClosing_ = false;
  Clock::time_point deadline_;
  int line_ = 0;
  std::string waitingFor_;
  std::thread thread_;
};

}  // namespace vexnumkr::scenario
