// What SQLite does while somebody else holds a lock that it needs: it pauses and tries again.
#pragma once

#include <functional>
#include <thread>

namespace vexnumkr::test {

/// Stands in for the pauses of the thread that makes it, as long as it lives: instead of pausing,
/// `onPause` is called. So a test knows that the engine is waiting, and takes no time to wait.
///
/// One at a time. REQUIRES: the program exports its symbols (ENABLE_EXPORTS), so that the engine
/// finds the functions of engine_waits.cpp in place of the C library's.
class EngineWaits {
 public:
  explicit EngineWaits(std::function<void()> onPause = [] {});
  ~EngineWaits();
  EngineWaits(const EngineWaits&) = delete;
  EngineWaits& operator=(const EngineWaits&) = delete;

  /// All pauses so far, as long as they would have been.
  long milliseconds() const { return microseconds_ / 1000; }

  /// For the functions that pause: takes a pause of this thread; false when it is not ours.
  static bool take(long microseconds);

 private:
  const std::function<void()> onPause_;
  const std::thread::id thread_ = std::this_thread::get_id();
  long microseconds_ = 0;
};

}  // namespace vexnumkr::test
