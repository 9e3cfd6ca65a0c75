#include "support/faults/engine_waits.h"

#include <time.h>
#include <unistd.h>

#include <atomic>
#include <utility>

namespace vexnumkr::test {
namespace {

std::atomic<EngineWaits*> current = nullptr;  // the functions below have no other way to it

int pause(const timespec& time, timespec* rest) {
  if (EngineWaits::take(time.tv_sec * 1'000'000 + time.tv_nsec / 1000)) return 0;
  return clock_nanosleep(CLOCK_MONOTONIC, 0, &time, rest);
}

}  // namespace

EngineWaits::EngineWaits(std::function<void()> onPause) : onPause_(std::move(onPause)) {
  current = this;
}

EngineWaits::~EngineWaits() { current = nullptr; }

bool EngineWaits::take(long microseconds) {
  EngineWaits* const waits = current;
  if (waits == nullptr || waits->thread_ != std::this_thread::get_id()) return false;
  waits->microseconds_ += microseconds;
  waits->onPause_();
  return true;
}

}  // namespace vexnumkr::test

// The C library's functions of these names, replaced: nothing sleeps here. Which of them an engine
// uses is its own affair.
extern "C" {

int usleep(useconds_t microseconds) {
  return vexnumkr::test::pause({microseconds / 1'000'000, (microseconds % 1'000'000) * 1000L},
                               nullptr);
}

int nanosleep(const timespec* time, timespec* rest) { return vexnumkr::test::pause(*time, rest); }

}  // extern "C"
