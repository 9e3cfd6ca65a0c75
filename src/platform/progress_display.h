// Telling the user how far long work has come.
#pragma once

#include <string>

namespace vexnumkr {

/// Shows the progress of one piece of work at a time, once it has lasted for a while. No member
/// fails: work goes on whether it is shown or not.
///
/// From the moment that work is shown to its end no input of the user reaches a dialog: not while
/// the work goes on, and what was pressed and clicked meanwhile not afterwards either. Input ahead
/// of work too short to be shown is kept.
class ProgressDisplay {
 public:
  /// What Show tells of finished work.
  static constexpr int full = 1000;

  virtual ~ProgressDisplay() = default;
  /// Work begins. REQUIRES: none is going on.
  virtual void Begin(const std::string& caption) noexcept = 0;
  /// One more step is done, so many thousandths of the work by now; never fewer than Show said
  /// before. Steps are many: what shows nothing new costs a look at the clock.
  virtual void Show(int thousandths) noexcept = 0;
  /// Whether the user may give up the work that begins next; not unless this is said.
  virtual void OfferCancel(bool /*offered*/) noexcept {}
  /// Whether the user has given up the work that is going on.
  virtual bool IsCancelled() const noexcept { return false; }
  /// The work is done or has failed.
  virtual void End() noexcept = 0;
  /// Between these two the user is told or asked something: nothing is shown, and input goes where
  /// it belongs. Calls do not nest; the time between them does not count as work.
  virtual void Pause() noexcept = 0;
  virtual void Resume() noexcept = 0;

 protected:
  ProgressDisplay() = default;
  ProgressDisplay(const ProgressDisplay&) = default;
  ProgressDisplay& operator=(const ProgressDisplay&) = default;
};

}  // namespace vexnumkr
