// The window that shows progress.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>
#include <string>

namespace vexnumkr::qtforms {

/// A caption above a bar, with a button below where the work may be given up, over the modal window
/// that is active, or else over the active one. It takes no focus; where the platform activates it
/// all the same, the other one is active again when it goes.
class ProgressWindow final : public QWidget {
 public:
  ProgressWindow(const std::string& caption, bool cancellable);
  ~ProgressWindow() override;

  void show(int thousandths);

  /// The user gives the work up, by the button or the window's close button.
  void cancel();
  bool isCancelled() const { return isCancelled_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void placeOverOwner();

  const QPointer<QWidget> owner_;
  QLabel caption_;
  QProgressBar bar_;
  QPushButton cancel_;
  bool isCancelled_ = false;
};

}  // namespace vexnumkr::qtforms
