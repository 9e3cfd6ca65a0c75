#include "platform/progress.h"

#include <algorithm>

namespace vexnumkr {

void Progress::begin(const std::string& caption) {
  working_ = true;
  base_ = shown_ = 0;
  expect(0);
  if (display_ != nullptr) display_->Begin(caption);
}

// What the host has queued may run while the display goes: still in the middle of work.
void Progress::end() {
  isShown_ = false;
  if (display_ != nullptr) display_->End();
  working_ = false;
}

void Progress::pause() {
  paused_ = true;
  if (display_ != nullptr) display_->Pause();
}

void Progress::resume() {
  paused_ = false;
  if (display_ != nullptr) display_->Resume();
}

void Progress::expect(std::int64_t steps) {
  base_ = shown_;
  steps_ = steps;
  done_ = 0;
  isShown_ = working_ && display_ != nullptr && steps > 0 && base_ < ProgressDisplay::full;
}

void Progress::finish() {
  expect(1);
  advance();
}

int Progress::position() const {
  const std::int64_t left = ProgressDisplay::full - base_;
  return base_ + static_cast<int>(left * std::min(done_, steps_) / steps_);
}

void Progress::show() {
  shown_ = position();
  isShown_ = shown_ < ProgressDisplay::full;
  tellDisplay();
}

void Progress::pass() {
  if (working_ && !paused_ && display_ != nullptr && shown_ < ProgressDisplay::full) tellDisplay();
}

void Progress::tellDisplay() {
  display_->Show(shown_);
  if (display_->IsCancelled()) throw WorkCancelled{};
}

Work::~Work() {
  ignoringFailures([this] { progress_.end(); });
}

WorkPause::WorkPause(Progress& progress)
    : progress_(progress), pauses_(progress.working_ && !progress.paused_) {
  if (pauses_) ignoringFailures([this] { progress_.pause(); });
}

WorkPause::~WorkPause() {
  if (pauses_) ignoringFailures([this] { progress_.resume(); });
}

}  // namespace vexnumkr
