// Commands that print what the controls of a dialog show.
#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVariant>

#include "scenario/driver/stage.h"
#include "scenario/windows/controls.h"

namespace vexnumkr::scenario {
namespace {

std::string printedText(const QString& text) {
  return scenario::printedText(std::string_view(text.toStdString()));
}

QString withoutMnemonic(QString caption) {
  for (qsizetype i = caption.indexOf(u'&'); i >= 0; i = caption.indexOf(u'&', i + 1))
    caption.remove(i, 1);
  return caption;
}

QString shownText(const QWidget& control) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
    return withoutMnemonic(button->text());
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
  if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
  if (const auto* group = qobject_cast<const QGroupBox*>(&control)) return group->title();
  return {};
}

void controls(Stage& stage, const Command&) {
  const QWidget& form = stage.form();
  stage.print("form " + printedText(form.objectName()) + " caption=" +
              printedText(form.windowTitle()) + " font=" + printedText(form.font().family()));
  for (const QWidget* control : controlsOf(form))
    stage.print("control " + printedText(control->objectName()) +
                " visible=" + printedFlag(control->isVisible()) + " enabled=" +
                printedFlag(control->isEnabled()) + " text=" + printedText(shownText(*control)) +
                " font=" + printedText(control->font().family()));
}

void combo(Stage& stage, const Command& command) {
  const auto& combo = controlOf<QComboBox>(stage.form(), command.argument(0), "drop-down list");
  stage.print("combo: " + printedText(combo.objectName()) + " listindex=" +
              std::to_string(combo.currentIndex()) + " text=" + printedText(combo.currentText()));
  for (int i = 0; i < combo.count(); ++i)
    stage.print("entry " + std::to_string(i) + " | " + printedText(combo.itemText(i)));
}

void checklist(Stage& stage, const Command& command) {
  const auto& list = controlOf<QListWidget>(stage.form(), command.argument(0), "check list");
  for (int i = 0; i < list.count(); ++i) {
    const QListWidgetItem* entry = list.item(i);
    stage.print("entry " + std::to_string(i) +
                " checked=" + printedFlag(entry->checkState() == Qt::Checked) + " | " +
                printedText(entry->text()));
  }
}

struct OptionPair {
  QString name;
  QString selected = QStringLiteral("-");
};

// The pair that an option button belongs to: its name without the index in brackets.
OptionPair& pairOf(std::vector<OptionPair>& pairs, const QString& name) {
  for (OptionPair& pair : pairs)
    if (pair.name == name) return pair;
  return pairs.emplace_back(OptionPair{name});
}

void options(Stage& stage, const Command&) {
  std::vector<OptionPair> pairs;
  for (const QWidget* control : controlsOf(stage.form())) {
    const auto* option = qobject_cast<const QRadioButton*>(control);
    if (option == nullptr) continue;
    OptionPair& pair = pairOf(pairs, option->objectName().section(u'(', 0, 0));
    if (option->isChecked())
      pair.selected = option->objectName().section(u'(', 1).section(u')', 0, 0);
  }
  for (const OptionPair& pair : pairs)
    stage.print("pair " + printedText(pair.name) + " selected=" + printedText(pair.selected));
}

void tooltip(Stage& stage, const Command& command) {
  const QWidget& control = controlOf(stage.form(), command.argument(0));
  stage.print("tooltip: " + printedText(control.toolTip()));
}

void screenshot(Stage& stage, const Command& command) {
  const QString file = QString::fromStdString(command.argument(0));
  if (!stage.form().grab().save(file, "PNG"))
    throw CannotDo("the picture cannot be written to " + command.argument(0));
}

}  // namespace

Handlers dialogReportHandlers() {
  return {{"controls", controls}, {"combo", combo},     {"checklist", checklist},
          {"options", options},   {"tooltip", tooltip}, {"screenshot", screenshot}};
}

}  // namespace vexnumkr::scenario
