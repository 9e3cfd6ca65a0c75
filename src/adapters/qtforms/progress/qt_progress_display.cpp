#include "adapters/qtforms/progress/qt_progress_display.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <optional>
#include <utility>

#include "adapters/qt/guarded.h"
#include "adapters/qtforms/progress/input_shield.h"
#include "adapters/qtforms/progress/progress_window.h"

namespace vexnumkr {
namespace {

using namespace qtforms;

constexpr std::chrono::milliseconds repaintInterval{100};
constexpr int rounds = 4;  // input goes from the window system's queue to Qt's, and from there on

// What concerns the windows; the host's own affairs wait where they can.
constexpr QEventLoop::ProcessEventsFlags windowEvents{QEventLoop::ExcludeSocketNotifiers |
                                                      QEventLoop::X11ExcludeTimers};

class QtProgressDisplay final : public ProgressDisplay {
 public:
  explicit QtProgressDisplay(ProgressClock now) : now_(std::move(now)) {}

  void Begin(const std::string& caption) noexcept override {
    guarded("Begin", [&] {
      caption_ = caption;
      begun_ = now_();
    });
  }

  void Show(int thousandths) noexcept override {
    guarded("Show", [&] { show(thousandths); });
  }

  void OfferCancel(bool offered) noexcept override {
    isCancellable_ = offered;
    isCancelled_ = false;
  }

  bool IsCancelled() const noexcept override { return isCancelled_; }

  void End() noexcept override {
    guarded("End", [this] { close(); });
  }

  void Pause() noexcept override {
    guarded("Pause", [this] {
      pausedAt_ = now_();
      close();
    });
  }

  void Resume() noexcept override {
    guarded("Resume", [this] { begun_ += now_() - pausedAt_; });
  }

 private:
  void show(int thousandths) {
    const auto now = now_();
    if (!window_) {
      // Work that is done shows no window, which would only flash.
      if (thousandths == full || now - begun_ < progressDelay) return;
      open();
    } else if (now - painted_ < repaintInterval) {
      return;
    }
    painted_ = now;
    window_->show(thousandths);
    // The shield is in the way of all input but what gives the work up.
    QCoreApplication::processEvents(
        isCancellable_ ? windowEvents : windowEvents | QEventLoop::ExcludeUserInputEvents);
    notice();
  }

  // It stays noticed as long as the offer stands: the next work ends with its first step.
  void notice() { isCancelled_ = isCancelled_ || window_->isCancelled(); }

  // Nobody's input is kept from him without a window that says why.
  void open() {
    auto window = std::make_unique<ProgressWindow>(caption_, isCancellable_);
    shield_.emplace();
    if (isCancellable_) shield_->spare(*window, [&given = *window] { given.cancel(); });
    window_ = std::move(window);
  }

  // What the user has done while the window was up is meant for nobody.
  void close() {
    if (window_) {
      dropInput();
      notice();
    }
    window_.reset();
    shield_.reset();
  }

  static void dropInput() {
    for (int round = 0; round < rounds; ++round) {
      QAbstractEventDispatcher::instance()->wakeUp();  // input passed over before counts as new
      QCoreApplication::processEvents(windowEvents);
    }
  }

  using TimePoint = std::chrono::steady_clock::time_point;

  const ProgressClock now_;
  std::string caption_;
  TimePoint begun_;
  TimePoint pausedAt_;
  TimePoint painted_;
  bool isCancellable_ = false;
  bool isCancelled_ = false;
  std::optional<InputShield> shield_;
  std::unique_ptr<ProgressWindow> window_;
};

}  // namespace

std::unique_ptr<ProgressDisplay> makeQtProgressDisplay(ProgressClock now) {
  return std::make_unique<QtProgressDisplay>(std::move(now));
}

}  // namespace vexnumkr
