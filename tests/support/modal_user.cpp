#include "support/modal_user.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <exception>

#include "scenario/windows/input.h"

namespace vexnumkr::test {
namespace {

constexpr int patience = 60'000;  // milliseconds; a busy machine is no failure

// A step that cannot be taken fails the test; the exception must not pass through Qt.
void guarded(const std::function<void()>& act) {
  try {
    act();
  } catch (const std::exception& failure) {
    ADD_FAILURE() << failure.what();
  }
}

Box recorded(const QMessageBox& box) {
  return {box.windowTitle().toStdString(), box.property("prompt").toString().toStdString(),
          box.property("buttons").toInt()};
}

bool isNamed(const QDialog& dialog) {
  return dialog.isWindow() && dialog.property("formName").isValid();
}

}  // namespace

ModalUser::ModalUser() { QApplication::instance()->installEventFilter(this); }

ModalUser::~ModalUser() {
  EXPECT_EQ(boxes_, std::vector<Box>{}) << "nobody expected these boxes";
  for (const std::string& answer : answers_) ADD_FAILURE() << "no box needed the answer " << answer;
  for (const Expected& missing : expected_) ADD_FAILURE() << missing.name << " has not come up";
}

void ModalUser::expectDialog(const std::string& name, std::function<void()> act) {
  expected_.push_back({name, std::move(act), false});
}

void ModalUser::expectDialogToTheEnd(const std::string& name, std::function<void()> act) {
  expected_.push_back({name, std::move(act), true});
}

QDialog* ModalUser::front() const { return dialogs_.empty() ? nullptr : dialogs_.back().data(); }

bool ModalUser::eventFilter(QObject* receiver, QEvent* event) {
  const bool shown = event->type() == QEvent::Show;
  if ((shown || event->type() == QEvent::Hide) && !event->spontaneous()) {
    if (auto* window = qobject_cast<QDialog*>(receiver)) shown ? opened(*window) : closed(*window);
  }
  return false;
}

void ModalUser::opened(QDialog& window) {
  if (auto* box = qobject_cast<QMessageBox*>(&window)) {
    QTimer::singleShot(0, box, [this, box] { answerBox(*box); });
  } else if (isNamed(window)) {
    log_.push_back("open " + window.objectName().toStdString());
    dialogs_.emplace_back(&window);
    QTimer::singleShot(0, &window, [this, &window] { actIn(window); });
  }
}

void ModalUser::closed(QDialog& window) {
  const auto found = std::find(dialogs_.begin(), dialogs_.end(), &window);
  if (found == dialogs_.end()) return;
  dialogs_.erase(found);
  log_.push_back("close " + window.objectName().toStdString());
}

void ModalUser::waitUntilActive(const QDialog& dialog) {
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }, patience))
      << dialog.objectName().toStdString() << " does not become active";
}

void ModalUser::actIn(QDialog& dialog) {
  const std::string name = dialog.objectName().toStdString();
  if (expected_.empty() || expected_.front().name != name) {
    ADD_FAILURE() << name << " has come up unexpectedly";
  } else {
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    waitUntilActive(dialog);
    guarded(expected.act);
    if (expected.endsApplication) return QCoreApplication::exit();
    if (dialog.isVisible()) ADD_FAILURE() << name << " has been left open";
  }
  if (dialog.isVisible()) dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
}

std::string ModalUser::answerFor(const QMessageBox& box) {
  if (box.buttons().size() == 1) return "ok";
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody answers: " << recorded(box).prompt;
    return "cancel";
  }
  const std::string answer = answers_.front();
  answers_.pop_front();
  return answer;
}

void ModalUser::answerBox(QMessageBox& box) {
  boxes_.push_back(recorded(box));
  log_.push_back("box " + boxes_.back().title);
  if (whenBoxComes_) guarded(std::exchange(whenBoxComes_, {}));
  const std::string answer = answerFor(box);
  if (answer == "nothing") return;
  auto* button = box.findChild<QPushButton*>(QString::fromStdString(answer));
  if (button == nullptr) {
    ADD_FAILURE() << "the box does not offer " << answer;
    box.done(0);
    return;
  }
  scenario::clickAt(*button, button->rect().center());
}

}  // namespace vexnumkr::test
