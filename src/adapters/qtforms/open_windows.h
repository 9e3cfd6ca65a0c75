// The modal windows of one toolkit that are open.
#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace vexnumkr::qtforms {

/// Closes them all at once when what they belong to goes. Each window is on the stack of whoever
/// has shown it, so it is only hidden here and returns when the handlers running in it have.
class OpenWindows {
 public:
  OpenWindows() = default;
  OpenWindows(const OpenWindows&) = delete;
  OpenWindows& operator=(const OpenWindows&) = delete;

  /// While one of these lives its window is open. REQUIRES: those made later go earlier.
  class Entry {
   public:
    /// `close` hides the window and ends its event loop; it raises nothing.
    Entry(OpenWindows& windows, std::function<void()> close);
    ~Entry();
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

   private:
    OpenWindows& windows_;
  };

  /// Closes what is open, the newest first.
  void closeAll() noexcept;
  /// Whether that has happened: nothing is to be shown any more.
  bool areClosed() const { return areClosed_; }

 private:
  std::vector<std::function<void()>> close_;
  bool areClosed_ = false;
};

/// Closes the menus and drop-down lists that belong to `window` or to something in it.
void closePopups(const QWidget& window);

}  // namespace vexnumkr::qtforms
