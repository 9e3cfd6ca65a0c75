// How far the component's long work has come.
#pragma once

#include <cstdint>
#include <string>

#include "platform/progress_display.h"
#include "platform/reporter.h"

namespace vexnumkr {

/// Turns the steps of a piece of work into what a display shows: a position that only ever rises
/// and is full when the last step is done.
///
/// The display hears of every step until it is full, so that time passes for it however slowly the
/// position rises. Steps outside of any work count for nothing.
class Progress {
 public:
  /// `display` is borrowed. Without one nobody is told of the work.
  explicit Progress(ProgressDisplay* display) : display_(display) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  bool isWorking() const { return working_; }

  /// The work takes so many steps from here on: what is left of the bar stands for them. May be
  /// said again as soon as more is known.
  void expect(std::int64_t steps);
  void advance(std::int64_t steps = 1) {
    done_ += steps;
    if (isShown_) show();
  }
  /// Time passes without a step being done.
  void pass();
  /// The work is done, also where it took fewer steps than expected.
  void finish();

 private:
  friend class Work;
  friend class WorkPause;
  friend class CancelOffer;

  void begin(const std::string& caption);
  void tellDisplay();
  void end();
  void pause();
  void resume();
  void show();
  int position() const;

  ProgressDisplay* display_;
  bool working_ = false;
  bool paused_ = false;
  int base_ = 0;            // the position when the steps were last told
  int shown_ = 0;           // the position that the display shows
  std::int64_t steps_ = 0;  // from base_ to full
  std::int64_t done_ = 0;
  bool isShown_ = false;  // whether there is more to show to a display
};

/// While one of these lives, the user may give up the work that begins: its steps then raise
/// WorkCancelled.
class CancelOffer {
 public:
  explicit CancelOffer(Progress& progress) : progress_(progress) { offer(true); }
  ~CancelOffer() { offer(false); }
  CancelOffer(const CancelOffer&) = delete;
  CancelOffer& operator=(const CancelOffer&) = delete;

 private:
  void offer(bool offered) {
    if (progress_.display_ != nullptr) progress_.display_->OfferCancel(offered);
  }

  Progress& progress_;
};

/// A piece of work, from its making to its end, by success or failure. REQUIRES: no other work is
/// going on.
class Work {
 public:
  Work(Progress& progress, const std::string& caption) : progress_(progress) {
    progress_.begin(caption);
  }
  ~Work();
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

 private:
  Progress& progress_;
};

/// While one of these lives, the user is told or asked something in the middle of work. Without
/// effect where no work is going on, and inside of another one.
class WorkPause {
 public:
  explicit WorkPause(Progress& progress);
  ~WorkPause();
  WorkPause(const WorkPause&) = delete;
  WorkPause& operator=(const WorkPause&) = delete;

 private:
  Progress& progress_;
  bool pauses_;
};

}  // namespace vexnumkr
