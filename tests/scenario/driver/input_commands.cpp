// Commands that do what a user does to the controls and windows of a dialog.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLayout>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>
#include <QWindow>

#include "scenario/driver/stage.h"
#include "scenario/windows/controls.h"
#include "scenario/windows/grid_access.h"
#include "scenario/windows/input.h"

namespace vexnumkr::scenario {
namespace {

template <class Kind>
Kind& usable(const Stage& stage, const std::string& name, const char* kind) {
  Kind& control = controlOf<Kind>(stage.form(), name, kind);
  requireUsable(control);
  return control;
}

void press(Stage& stage, const Command& command) {
  auto& button = usable<QPushButton>(stage, command.argument(0), "button");
  clickAt(button, button.rect().center());
}

int entryOf(const QComboBox& combo, const std::string& text) {
  const int entry =
      combo.findText(QString::fromStdString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (entry < 0)
    throw CannotDo("the drop-down list " + combo.objectName().toStdString() + " has no entry '" +
                   text + "'");
  return entry;
}

// The middle of an entry, scrolled into view. Scrolling shows or hides the arrows at the ends of a
// long list, which moves its entries, and the entry at an end may have to be scrolled to once more.
QPoint entryCentre(QAbstractItemView& list, const QModelIndex& entry) {
  constexpr int ends = 2;
  for (int i = 0; i <= ends; ++i) {
    list.scrollTo(entry);
    if (QLayout* layout = list.window()->layout()) layout->activate();
  }
  return list.visualRect(entry).center();
}

// Whether an entry that was refused still stands in its cell, with or without a word about it.
bool isStillEditing(QWidget& form) {
  return GridAccess::isIn(form) && GridAccess(form).grid().isEditing();
}

// A list that did not open because the user was told something first, or an entry was refused, is
// no failure: then the choice does not take place.
void chooseFromOpenList(const Stage& stage, QComboBox& combo, int entry, int boxesBefore) {
  QAbstractItemView& list = *combo.view();
  if (!list.isVisible()) {
    if (stage.boxesAnswered == boxesBefore && !isStillEditing(*combo.window()))
      throw CannotDo("the drop-down list does not open");
    return;
  }
  const QModelIndex index =
      combo.model()->index(entry, combo.modelColumn(), combo.rootModelIndex());
  clickAt(*list.viewport(), entryCentre(list, index));
}

void select(Stage& stage, const Command& command) {
  auto& combo = usable<QComboBox>(stage, command.argument(0), "drop-down list");
  const int entry = entryOf(combo, command.argument(1));
  const int boxesBefore = stage.boxesAnswered;
  stage.rest.push_back([&stage, target = QPointer<QComboBox>(&combo), entry, boxesBefore] {
    if (target != nullptr) chooseFromOpenList(stage, *target, entry, boxesBefore);
  });
  clickAt(combo, combo.rect().center());
}

void key(Stage& stage, const Command& command) {
  static_cast<void>(stage.form());
  pressKey(*readChord(command.argument(0)));
}

void tick(Stage& stage, const Command& command) {
  auto& list = usable<QListWidget>(stage, command.argument(0), "check list");
  QListWidgetItem* entry = list.item(command.number(1));
  if (entry == nullptr) throw CannotDo("the check list has no entry " + command.argument(1));
  list.scrollToItem(entry);
  QStyleOptionViewItem option;
  option.initFrom(&list);
  option.rect = list.visualItemRect(entry);
  option.features = QStyleOptionViewItem::HasCheckIndicator;
  const QRect box =
      list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list);
  clickAt(*list.viewport(), box.center());
}

void choose(Stage& stage, const Command& command) {
  const std::string name = command.argument(0) + "(" + command.argument(1) + ")";
  auto& button = usable<QRadioButton>(stage, name, "option button");
  QStyleOptionButton option;
  option.initFrom(&button);
  clickAt(
      button,
      button.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &button).center());
}

void close(Stage& stage, const Command&) { stage.form().windowHandle()->close(); }

void resize(Stage& stage, const Command& command) {
  stage.form().resize(command.number(0), command.number(1));
}

}  // namespace

Handlers inputHandlers() {
  return {{"press", press},   {"select", select}, {"key", key},      {"tick", tick},
          {"choose", choose}, {"close", close},   {"resize", resize}};
}

}  // namespace vexnumkr::scenario
