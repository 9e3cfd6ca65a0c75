// Plays the user in the modal windows that a test expects.
#pragma once

#include <QDialog>
#include <QObject>
#include <deque>
#include <functional>
#include <set>
#include <string>

namespace vexnumkr::test {

/// Acts in modal windows as they come up, in the order in which they were announced. A window that
/// nobody announced, one that is still open when its act is over, and one that never came fail the
/// test.
class ExpectedWindows : public QObject {
 public:
  ExpectedWindows();
  /// Fails the test when a window that was announced has not come up.
  ~ExpectedWindows() override;

  /// `act` runs when the next window is up, which must have that object name, and has to close it.
  void expect(const std::string& objectName, std::function<void(QDialog&)> act);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Expectation {
    std::string objectName;
    std::function<void(QDialog&)> act;
  };

  void actIn(QDialog& window);

  std::deque<Expectation> expected_;
  std::set<QDialog*> waiting_;  // shown, but not active yet
};

/// A click with the left mouse button in the middle of the child `name`. Fails the test when there
/// is no such button in `window`, or when it cannot be clicked.
void click(QWidget& window, const char* name);

/// Selects all in the line edit `name` and types `text`.
void typeInto(QWidget& window, const char* name, const QString& text);

/// Types `text`, which may hold any letters, by key presses.
void typeText(QWidget& target, const QString& text);

/// The child of that kind and name. REQUIRES: it is there.
template <class Widget>
Widget& child(QWidget& window, const char* name) {
  auto* found = window.findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) qFatal("no child %s", name);
  return *found;
}

}  // namespace vexnumkr::test
