// The window that shows progress.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QWidget>
#include <string>

namespace vexnumkr::qtforms {

/// A caption above a bar, over the modal window that is active, or else over the active one. It
/// takes no focus; where the platform activates it all the same, the other one is active again when
/// it goes.
class ProgressWindow final : public QWidget {
 public:
  explicit ProgressWindow(const std::string& caption);
  ~ProgressWindow() override;

  void show(int thousandths);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void placeOverOwner();

  const QPointer<QWidget> owner_;
  QLabel caption_;
  QProgressBar bar_;
};

}  // namespace vexnumkr::qtforms
