// A progress display that shows nothing: it records what it is told.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/progress_display.h"

namespace vexnumkr::test {

class RecordingProgress final : public ProgressDisplay {
 public:
  void Begin(const std::string& caption) noexcept override { log_.push_back("begin " + caption); }
  void Show(int thousandths) noexcept override {
    log_.push_back(std::to_string(thousandths));
    if (onShow) onShow(thousandths);
  }
  void End() noexcept override {
    log_.emplace_back("end");
    if (onEnd) onEnd();
  }
  void Pause() noexcept override { log_.emplace_back("pause"); }
  void Resume() noexcept override { log_.emplace_back("resume"); }

  /// What it was told since the last call: "begin CAPTION", the positions, "pause", "resume",
  /// "end".
  std::vector<std::string> takeLog() { return std::exchange(log_, {}); }

  std::function<void(int thousandths)> onShow;
  std::function<void()> onEnd;

 private:
  std::vector<std::string> log_;
};

}  // namespace vexnumkr::test
