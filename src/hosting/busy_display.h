// The mouse pointer during work.
#pragma once

#include <string>

#include "platform/forms.h"
#include "platform/progress_display.h"

namespace vexnumkr {

/// Keeps the mouse pointer busy while work goes on, and has a display show how far it has come.
class BusyDisplay final : public ProgressDisplay {
 public:
  /// Both are borrowed; `display` may be null.
  BusyDisplay(FormsToolkit& forms, ProgressDisplay* display) : forms_(forms), display_(display) {}

  void Begin(const std::string& caption) noexcept override;
  void Show(int thousandths) noexcept override {
    if (display_ != nullptr) display_->Show(thousandths);
  }
  void OfferCancel(bool offered) noexcept override {
    if (display_ != nullptr) display_->OfferCancel(offered);
  }
  bool IsCancelled() const noexcept override {
    return display_ != nullptr && display_->IsCancelled();
  }
  void End() noexcept override;
  void Pause() noexcept override;
  void Resume() noexcept override;

 private:
  void point(MousePointer pointer) noexcept;

  FormsToolkit& forms_;
  ProgressDisplay* display_;
};

}  // namespace vexnumkr
