// A user who does anything in the component's dialogs, by mouse and keys.
#pragma once

#include <QDialog>
#include <QObject>
#include <functional>
#include <random>

class QMessageBox;

namespace vexnumkr::test {

/// Acts in every modal window that comes up: answers boxes in any way they offer, works in the main
/// dialog for a while and then closes it by OK, its close button or Cancel, ticks and confirms or
/// cancels the others. The same numbers make the same actions.
class RandomUser : public QObject {
 public:
  /// `random` is borrowed. `afterStep` is called after every step in a main dialog, and may do what
  /// happens around the user meanwhile.
  RandomUser(std::mt19937& random, std::function<void()> afterStep);

  /// Everything done so far, in all windows.
  long steps() const { return steps_; }

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
  bool chance(int percent) { return upTo(99) < percent; }
  void actIn(QDialog& dialog);
  void answer(QMessageBox& box);
  void workInMainDialog(QDialog& dialog);
  void step(QDialog& dialog);
  void keysInGrid(QDialog& dialog);
  void typeValue();
  void close(QDialog& dialog);
  void workInSpecialRanges(QDialog& dialog);
  void workInOptions(QDialog& dialog);
  static bool press(QDialog& dialog, const char* button);

  std::mt19937& random_;
  std::function<void()> afterStep_;
  long steps_ = 0;
};

}  // namespace vexnumkr::test
