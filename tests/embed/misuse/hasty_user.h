// A user who is through with every window at once.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vexnumkr::test {

/// Answers every box (Ja, else OK) and, in every other dialog of the component that comes up,
/// presses the buttons named in `presses` one after the other, then cancels what is still open. The
/// special ranges and the options are confirmed as they are.
class HastyUser : public QObject {
 public:
  HastyUser() { QApplication::instance()->installEventFilter(this); }

  /// What is done in the main dialog.
  std::vector<std::string> presses;
  /// Called when a window is up, with its object name, before anything is done in it.
  std::function<void(const std::string& name)> whenUp;

  /// The prompts of the boxes since the last call, behind their titles.
  std::vector<std::string> takeBoxes() { return std::exchange(boxes_, {}); }
  /// How many windows have come up.
  int windows() const { return windows_; }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    auto* dialog = qobject_cast<QDialog*>(receiver);
    if (dialog != nullptr && event->type() == QEvent::Show && !event->spontaneous()) {
      ++windows_;
      QTimer::singleShot(0, dialog, [this, dialog] { workIn(*dialog); });
    }
    return false;
  }

 private:
  void workIn(QDialog& dialog) {
    if (!dialog.isVisible()) return;
    const std::string name = dialog.objectName().toStdString();
    if (auto* box = qobject_cast<QMessageBox*>(&dialog))
      boxes_.push_back(box->windowTitle().toStdString() + ": " + box->text().toStdString());
    if (whenUp) whenUp(name);
    if (name == "msgBox") return answer(dialog);
    if (name == "frmNummernkreise")
      for (const std::string& button : presses)
        if (dialog.isVisible()) press(dialog, button.c_str());
    if (name == "frmSonderkreise" || name == "frmOptionen") press(dialog, "cmdOK");
    if (dialog.isVisible()) press(dialog, "cmdCancel");
  }

  static void answer(QDialog& box) {
    for (const char* button : {"yes", "ok"})
      if (box.isVisible()) press(box, button);
  }

  static void press(QDialog& dialog, const char* name) {
    if (auto* button = dialog.findChild<QAbstractButton*>(QLatin1String(name))) button->click();
  }

  std::vector<std::string> boxes_;
  int windows_ = 0;
};

}  // namespace vexnumkr::test
