#include "soak/random_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QListWidget>
#include <QMessageBox>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <utility>

namespace vexnumkr::test {
namespace {

constexpr int mostSteps = 6;  // longer work hardly ever ends in a save

// What is typed over a value: numbers that fit and do not, masks, and what no cell takes.
const std::array<const char*, 12> typed = {"1",   "5000", "77",     "123456", "-3", "99999999999",
                                           "JNN", "NNNN", "JJMMNN", "x'",     "",   "1.000"};

QWidget& target(QDialog& dialog) {
  QWidget* const focused = QApplication::focusWidget();
  return focused == nullptr ? static_cast<QWidget&>(dialog) : *focused;
}

}  // namespace

RandomUser::RandomUser(std::mt19937& random, std::function<void()> afterStep)
    : random_(random), afterStep_(std::move(afterStep)) {
  QApplication::instance()->installEventFilter(this);
}

bool RandomUser::eventFilter(QObject* receiver, QEvent* event) {
  auto* dialog = qobject_cast<QDialog*>(receiver);
  if (dialog != nullptr && event->type() == QEvent::Show && !event->spontaneous())
    QTimer::singleShot(0, dialog, [this, dialog] {
      if (dialog->isVisible()) actIn(*dialog);
    });
  return false;
}

void RandomUser::actIn(QDialog& dialog) {
  const QString name = dialog.objectName();
  if (auto* box = qobject_cast<QMessageBox*>(&dialog)) return answer(*box);
  if (name == QLatin1String("frmNummernkreise")) return workInMainDialog(dialog);
  if (name == QLatin1String("frmSonderkreise")) return workInSpecialRanges(dialog);
  if (name == QLatin1String("frmOptionen")) return workInOptions(dialog);
}

void RandomUser::answer(QMessageBox& box) {
  ++steps_;
  // Mostly they want to save what they have asked to.
  if (QAbstractButton* const yes = box.button(QMessageBox::Yes); yes != nullptr && chance(60))
    return yes->click();
  const auto buttons = box.buttons();
  buttons.at(upTo(static_cast<int>(buttons.size()) - 1))->click();
}

void RandomUser::workInMainDialog(QDialog& dialog) {
  for (int left = 1 + upTo(mostSteps - 1); left > 0 && dialog.isVisible(); --left) {
    step(dialog);
    ++steps_;
    afterStep_();
  }
  // A user's patience with what keeps the dialog open.
  for (int tries = 3; tries > 0 && dialog.isVisible(); --tries) {
    close(dialog);
    ++steps_;
    afterStep_();
  }
  while (dialog.isVisible()) {
    QTest::keyClick(&target(dialog), Qt::Key_Escape);
    press(dialog, "cmdCancel");
  }
}

void RandomUser::step(QDialog& dialog) {
  static const std::array<const char*, 4> buttons = {"cmdAuto", "cmdSonderkreise",
                                                     "cmdBuchungskreise", "cmdOptionen"};
  static const std::array<const char*, 2> combos = {"cboUser", "cboBuchungskreis"};
  switch (upTo(9)) {
    case 0:
    case 1:
      press(dialog, buttons[static_cast<std::size_t>(upTo(3))]);
      break;
    case 2:
      QTest::keyClick(&target(dialog), chance(50) ? Qt::Key_F7 : Qt::Key_F8);
      break;
    case 3: {
      auto* combo =
          dialog.findChild<QComboBox*>(QLatin1String(combos[static_cast<std::size_t>(upTo(1))]));
      if (combo == nullptr || !combo->isVisible()) break;
      combo->setFocus();
      QTest::keyClick(combo, chance(50) ? Qt::Key_Down : Qt::Key_Up);
      break;
    }
    default:
      keysInGrid(dialog);
  }
}

void RandomUser::keysInGrid(QDialog& dialog) {
  auto* grid = dialog.findChild<QWidget*>(QStringLiteral("sftNummernkreise"));
  if (grid == nullptr) return;
  grid->setFocus();
  for (int i = upTo(6); i > 0 && dialog.isVisible(); --i)
    QTest::keyClick(&target(dialog), chance(70) ? Qt::Key_Down : Qt::Key_Up);
  if (!dialog.isVisible()) return;
  if (chance(70)) {
    QTest::keyClick(&target(dialog), Qt::Key_Space);
    return;
  }
  QTest::keyClick(&target(dialog), Qt::Key_F2);
  for (int i = upTo(3); i > 0 && dialog.isVisible(); --i)
    QTest::keyClick(&target(dialog), Qt::Key_Right, Qt::ControlModifier);
  if (dialog.isVisible()) typeValue();
}

void RandomUser::typeValue() {
  QWidget* const editor = QApplication::focusWidget();
  if (editor == nullptr || !editor->inherits("QLineEdit")) return;
  QTest::keyClicks(editor, QLatin1String(typed[static_cast<std::size_t>(upTo(11))]));
  static const std::array<Qt::Key, 3> ends = {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape};
  if (QApplication::focusWidget() != nullptr)
    QTest::keyClick(QApplication::focusWidget(), ends[static_cast<std::size_t>(upTo(2))]);
}

void RandomUser::close(QDialog& dialog) {
  if (chance(75)) {
    // So that there is something to save.
    if (chance(60)) press(dialog, "cmdAuto");
    if (dialog.isVisible()) press(dialog, "cmdOK");
  } else if (chance(50)) {
    dialog.close();
  } else {
    press(dialog, "cmdCancel");
  }
}

void RandomUser::workInSpecialRanges(QDialog& dialog) {
  ++steps_;
  if (auto* list = dialog.findChild<QAbstractItemView*>(QStringLiteral("lstSonderkreise"))) {
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
  }
  press(dialog, chance(70) ? "cmdOK" : "cmdCancel");
  if (dialog.isVisible()) press(dialog, "cmdCancel");
}

void RandomUser::workInOptions(QDialog& dialog) {
  ++steps_;
  const auto choices = dialog.findChildren<QRadioButton*>();
  if (!choices.isEmpty()) choices.at(upTo(static_cast<int>(choices.size()) - 1))->click();
  press(dialog, chance(70) ? "cmdOK" : "cmdCancel");
  if (dialog.isVisible()) press(dialog, "cmdCancel");
}

bool RandomUser::press(QDialog& dialog, const char* button) {
  auto* found = dialog.findChild<QAbstractButton*>(QLatin1String(button));
  if (found == nullptr || !found->isVisible()) return false;
  found->click();
  return true;
}

}  // namespace vexnumkr::test
