// Plays the user in the modal windows that the component opens.
#pragma once

#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "support/recording_forms.h"

class QDialog;
class QMessageBox;

namespace vexnumkr::test {

/// Acts in dialogs as they come up and answers message boxes, in whatever event loop is running.
///
/// A dialog that nobody announced or that is left open, one that never came, a question without an
/// answer, an answer that the box does not offer and one that was not needed fail the test. Boxes
/// that only tell something are closed with OK; all boxes are recorded.
///
/// REQUIRES: a QApplication, whose thread this is.
class ModalUser : public QObject {
 public:
  ModalUser();
  /// Fails the test over whatever is still expected or has not been looked at.
  ~ModalUser() override;

  /// `act` runs when the next dialog is up and active; it has that name, and `act` closes it.
  void expectDialog(const std::string& name, std::function<void()> act);
  /// The same, but `act` leaves it open and the application ends.
  void expectDialogToTheEnd(const std::string& name, std::function<void()> act);
  /// Answers the next question: "ok", "yes", "no" or "cancel"; with "nothing" it is left as it is,
  /// and something else has to close it.
  void answer(const std::string& button) { answers_.push_back(button); }
  /// Runs when the next box is up, before it is answered.
  void whenBoxComes(std::function<void()> act) { whenBoxComes_ = std::move(act); }
  /// The boxes since the last call.
  std::vector<Box> takeBoxes() { return std::exchange(boxes_, {}); }
  /// What came up and went since the last call: "box TITLE", "open NAME", "close NAME".
  std::vector<std::string> takeLog() { return std::exchange(log_, {}); }

  /// The dialog in front, or null.
  QDialog* front() const;
  /// Windows become active some time after they have come up, or after the one over them has gone.
  static void waitUntilActive(const QDialog& dialog);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Expected {
    std::string name;
    std::function<void()> act;
    bool endsApplication;
  };

  void opened(QDialog& window);
  void closed(QDialog& window);
  void actIn(QDialog& dialog);
  void answerBox(QMessageBox& box);
  std::string answerFor(const QMessageBox& box);

  std::deque<Expected> expected_;
  std::deque<std::string> answers_;
  std::function<void()> whenBoxComes_;
  std::vector<Box> boxes_;
  std::vector<std::string> log_;
  std::vector<QPointer<QDialog>> dialogs_;
};

}  // namespace vexnumkr::test
