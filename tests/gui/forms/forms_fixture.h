// Shows forms made from short descriptions, plays a user's steps in them and records their events.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QObject>
#include <QPushButton>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/forms.h"

namespace vexnumkr::test {

using Log = std::vector<std::string>;

/// Writes every event into a log that it may share with others, then runs what the test has hung
/// in.
class RecordingEvents final : public FormEvents {
 public:
  RecordingEvents() : log_(std::make_shared<Log>()) {}
  explicit RecordingEvents(std::shared_ptr<Log> log) : log_(std::move(log)) {}

  Log& log() { return *log_; }
  const std::shared_ptr<Log>& sharedLog() const { return log_; }

  std::function<void()> onLoad;
  std::function<void()> onShown;
  std::function<void(bool& cancel)> onQueryUnload;
  std::function<void()> onUnload;
  std::function<void(std::int16_t keyCode, std::int16_t shift)> onKeyDown;
  std::function<void()> onResize;

  void Form_Load() override;
  void Form_Shown() override;
  void Form_QueryUnload(bool& Cancel, std::int16_t UnloadMode) override;
  void Form_Unload() override;
  void Form_KeyDown(std::int16_t KeyCode, std::int16_t Shift) override;
  void Form_Resize() override;

 private:
  std::shared_ptr<Log> log_;
};

/// Answers message boxes as they come up, in order, by pressing a button of theirs. A box that
/// nobody has announced, an answer that a box does not offer and an answer left over fail the test.
class BoxAnswers final : public QObject {
 public:
  BoxAnswers();
  ~BoxAnswers() override;

  /// `look` sees the box before the button of that object name is pressed.
  void expect(const std::string& button, std::function<void(QDialog& box)> look = {});
  /// `act` has to close the box itself.
  void expectAndAct(std::function<void(QDialog& box)> act);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void answer(QDialog& box);

  std::vector<std::function<void(QDialog& box)>> pending_;
};

/// A control description with what most tests need; the rest keeps its default.
ControlDescription described(ControlKind kind, const std::string& name, const Rect& position,
                             const std::string& caption = {}, int tabIndex = -1);
ControlDescription button(const std::string& name, const Rect& position, const std::string& caption,
                          int tabIndex, ButtonRole role = ButtonRole::None);

/// Clicks the middle of a widget with the left mouse button.
void click(QWidget& widget);

class FormsTest : public testing::Test {
 protected:
  FormsTest();
  ~FormsTest() override;

  /// Makes `form` from the controls: 300 by 200 pixels, "Tahoma", not resizable.
  void make(std::vector<ControlDescription> controls);
  void make(const FormDescription& description);

  /// Shows `form`, runs `steps` as soon as its event loop does, and unloads it unless they have.
  void show(std::function<void()> steps);

  /// The window is activated some time after another has been closed.
  void waitUntilActive() const;

  QDialog& window() const;
  /// The widget of that object name in the window.
  QWidget& widget(const char* name) const;
  template <class W>
  W& widget(const char* name) const {
    auto* found = qobject_cast<W*>(&widget(name));
    if (found == nullptr) throw std::runtime_error(std::string("no widget of that kind: ") + name);
    return *found;
  }

  static FormDescription formDescription(std::vector<ControlDescription> controls);

  std::unique_ptr<FormsToolkit> toolkit;
  RecordingEvents events;
  BoxAnswers boxes;
  std::unique_ptr<Form> form;
};

}  // namespace vexnumkr::test
