#include "adapters/qtgrid/accessible/cell_accessible.h"

#include <QKeySequence>

#include "adapters/qt/text.h"
#include "adapters/qtgrid/accessible/picture_accessible.h"

namespace vexnumkr {
namespace {

using Actions = QAccessibleActionInterface;

QString nativeKey(Qt::Key key) { return QKeySequence(key).toString(QKeySequence::NativeText); }

}  // namespace

bool CellAccessible::isValid() const {
  return grid().isValid() && model().indexOf(item_, section_).isValid();
}

void* CellAccessible::interface_cast(QAccessible::InterfaceType type) {
  switch (type) {
    case QAccessible::TableCellInterface:
      return static_cast<QAccessibleTableCellInterface*>(this);
    case QAccessible::ActionInterface:
      return static_cast<QAccessibleActionInterface*>(this);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    case QAccessible::AttributesInterface:
      return static_cast<QAccessibleAttributesInterface*>(this);
#endif
    default:
      return nullptr;
  }
}

bool CellAccessible::isGroup() const { return isFirst() && view().hasChildren(item_); }

int CellAccessible::level() const { return model().items().level(item_) + 1; }

// Screen readers tell levels and what is expanded of tree items alone.
QAccessible::Role CellAccessible::role() const {
  return isFirst() ? QAccessible::TreeItem : QAccessible::Cell;
}

QAccessible::State CellAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid) return state;
  state.selectable = true;
  state.focusable = true;
  state.selected = isSelected();
  const bool current = view().currentIndex() == model().indexOf(item_, section_);
  state.focused = current && view().hasKeys();
  state.invisible = rowIndex() < 0;
  state.offscreen = !view().viewport()->rect().intersects(view().cellArea(item_, section_));
  state.editable = view().takesEntries(section_);
  state.readOnly = !state.editable;
  if (isFirst()) addItemState(state);
  return state;
}

void CellAccessible::addItemState(QAccessible::State& state) const {
  const QVariant check = model().checkState(item_);
  state.checkable = check.isValid();
  state.checked = check.toInt() == Qt::Checked;
  state.expandable = isGroup();
  state.expanded = isGroup() && view().isOpen(item_);
  state.collapsed = isGroup() && !view().isOpen(item_);
}

QString CellAccessible::text(QAccessible::Text kind) const {
  if (!isValid()) return {};
  switch (kind) {
    case QAccessible::Name:
      return textOf(item_, section_);
    case QAccessible::Value:
      // The caption is the name already, and would be read twice.
      return isFirst() ? QString() : textOf(item_, section_);
    case QAccessible::Description:
      return description();
    case QAccessible::Help:
      return view().toolTipOf(section_);
    default:
      return {};
  }
}

QString CellAccessible::description() const {
  if (!isFirst()) {
    const QString note = toQt(view().noteOf(item_, section_).text);
    const QString path = view().pathOf(item_, section_);
    return note.isEmpty() ? path
                          : path + QStringLiteral(", ") +
                                QString(note).replace(QLatin1Char('\n'), QStringLiteral(", "));
  }
  // Whoever walks the tree down hears of each range all that others see in its row.
  QStringList words;
  const QString picture = model().pictureText(item_);
  if (!picture.isEmpty()) words << picture;
  for (int section = 1; section < model().columnCount(); ++section) {
    const QString text = textOf(item_, section);
    if (!text.isEmpty()) words << grid().columnDescription(section) + QLatin1Char(' ') + text;
  }
  words << QStringLiteral("Ebene %1").arg(level());
  return words.join(QStringLiteral(", "));
}

QRect CellAccessible::rect() const { return onScreen(view().cellArea(item_, section_)); }

QAccessibleInterface* CellAccessible::picture() const {
  return isFirst() ? grid().picture(item_) : nullptr;
}

QAccessibleInterface* CellAccessible::child(int index) const {
  return index == 0 ? picture() : nullptr;
}

int CellAccessible::childCount() const { return picture() == nullptr ? 0 : 1; }

int CellAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && child == picture() ? 0 : -1;
}

bool CellAccessible::isSelected() const {
  return view().selectionModel()->isSelected(model().indexOf(item_, section_));
}

QList<QAccessibleInterface*> CellAccessible::columnHeaderCells() const {
  return {grid().header(section_)};
}

QList<QAccessibleInterface*> CellAccessible::rowHeaderCells() const {
  return isFirst() ? QList<QAccessibleInterface*>() : QList{grid().cell(item_, 0)};
}

int CellAccessible::rowIndex() const { return view().rowOf(item_); }

QStringList CellAccessible::actionNames() const {
  if (!isValid()) return {};
  QStringList names;
  if (isGroup()) names << Actions::pressAction() << Actions::showMenuAction();
  if (const auto* state = dynamic_cast<PictureAccessible*>(picture())) names << state->action();
  if (view().takesEntries(section_)) names << Actions::pressAction();
  return names << Actions::setFocusAction();
}

QString CellAccessible::localizedActionName(const QString& name) const {
  if (name == Actions::setFocusAction()) return QStringLiteral("Auswählen");
  if (isGroup())
    return view().isOpen(item_) ? QStringLiteral("Zuklappen") : QStringLiteral("Aufklappen");
  if (const auto* state = dynamic_cast<PictureAccessible*>(picture())) {
    return state->localizedActionName(name);
  }
  return QStringLiteral("Bearbeiten");
}

// As a click of the mouse, so that the dialog answers to both in one place.
void CellAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name) || !takesActions()) return;
  if (name == Actions::setFocusAction()) {
    view().choose(item_);
    view().setFocus(Qt::OtherFocusReason);
  } else if (isGroup()) {
    click(item_, section_, GridArea::Other, true);
  } else {
    click(item_, section_, isFirst() ? GridArea::Picture : GridArea::Cell);
  }
}

QStringList CellAccessible::keyBindingsForAction(const QString& name) const {
  if (!actionNames().contains(name) || name == Actions::setFocusAction()) return {};
  if (isGroup()) return {nativeKey(view().isOpen(item_) ? Qt::Key_Minus : Qt::Key_Plus)};
  if (isFirst()) return {nativeKey(Qt::Key_Space)};
  const bool byF2 = section_ == 1 && model().items().level(item_) > 0;  // not on a group
  return byF2 ? QStringList{nativeKey(Qt::Key_F2)} : QStringList();
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
QList<QAccessible::Attribute> CellAccessible::attributeKeys() const {
  return isFirst() ? QList{QAccessible::Attribute::Level} : QList<QAccessible::Attribute>();
}

QVariant CellAccessible::attributeValue(QAccessible::Attribute key) const {
  return isFirst() && isValid() && key == QAccessible::Attribute::Level ? level() : QVariant();
}
#endif

}  // namespace vexnumkr
