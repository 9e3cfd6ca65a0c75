// The windows that the component has open.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

class QMessageBox;
class QWidget;

namespace vexnumkr::scenario {

/// Watches forms come up and go. Boxes are no forms.
///
/// REQUIRES: a QApplication, whose thread this is.
class Windows : public QObject {
 public:
  /// `onChange` is told "opened" or "closed" and the form's name, when it is up and when it is
  /// gone.
  explicit Windows(std::function<void(const char* change, const std::string& form)> onChange);

  /// The number of forms that are open.
  std::size_t formCount() const { return forms_.size(); }
  /// The form opened last. Error: CannotDo when none is open.
  QWidget& activeForm() const;
  /// The message box that waits for an answer, or null.
  QMessageBox* box() const;

  /// Gives the focus to the modal window in front when no window has it, as window managers do and
  /// platforms without one do not. Whether there was something to do.
  bool handBackFocus();

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void opened(QWidget& form);
  void closed(QWidget& form);

  std::function<void(const char*, const std::string&)> onChange_;
  bool hasTriedFocus_ = false;
  std::vector<QWidget*> forms_;  // each is hidden, and so taken out, before it goes
};

}  // namespace vexnumkr::scenario
