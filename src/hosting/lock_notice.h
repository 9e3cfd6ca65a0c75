// What the user sees while the database waits for somebody else.
#pragma once

#include <optional>

#include <vexnumkr/database.h>

#include "platform/progress.h"

namespace vexnumkr {

/// Lets time pass for the work that is going on. A statement that waits outside of any work is work
/// of its own.
class LockNotice final : public LockWait {
 public:
  /// `progress` is borrowed.
  explicit LockNotice(Progress& progress) : progress_(progress) {}

  void Begins() override {
    if (!progress_.isWorking()) own_.emplace(progress_, "Die Datenbank ist gerade gesperrt…");
  }
  /// Raises WorkCancelled where the user has given up.
  void Lasts() override { progress_.pass(); }
  void Ends() noexcept override { own_.reset(); }

 private:
  Progress& progress_;
  std::optional<Work> own_;
};

}  // namespace vexnumkr
