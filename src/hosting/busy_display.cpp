#include "hosting/busy_display.h"

#include "platform/reporter.h"

namespace vexnumkr {

void BusyDisplay::point(MousePointer pointer) noexcept {
  ignoringFailures([&] { forms_.SetMousePointer(pointer); });
}

void BusyDisplay::Begin(const std::string& caption) noexcept {
  point(MousePointer::Hourglass);
  if (display_ != nullptr) display_->Begin(caption);
}

// The pointer changes last: what the host has queued may run while the display goes.
void BusyDisplay::End() noexcept {
  if (display_ != nullptr) display_->End();
  point(MousePointer::Default);
}

void BusyDisplay::Pause() noexcept {
  if (display_ != nullptr) display_->Pause();
  point(MousePointer::Default);
}

void BusyDisplay::Resume() noexcept {
  if (display_ != nullptr) display_->Resume();
  point(MousePointer::Hourglass);
}

}  // namespace vexnumkr
