#include "adapters/qtgrid/accessible/picture_accessible.h"

#include <QKeySequence>

#include "adapters/qt/picture_art.h"

namespace vexnumkr {

bool PictureAccessible::isValid() const {
  return grid().isValid() && model().items().contains(item_) && model().checkState(item_).isValid();
}

void* PictureAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

bool PictureAccessible::isChecked() const {
  return model().checkState(item_).toInt() == Qt::Checked;
}

bool PictureAccessible::isOption() const {
  const PictureKind kind = pictureKind(model().items().picture(item_));
  return kind == PictureKind::OptionOn || kind == PictureKind::OptionOff;
}

QAccessible::Role PictureAccessible::role() const {
  return isValid() && isOption() ? QAccessible::RadioButton : QAccessible::CheckBox;
}

QAccessible::State PictureAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid) return state;
  state.checkable = true;
  state.checked = isChecked();
  state.disabled = model().isInert(item_);
  state.offscreen = !view().viewport()->rect().intersects(view().pictureArea(item_));
  return state;
}

QString PictureAccessible::text(QAccessible::Text kind) const {
  if (!isValid()) return {};
  if (kind == QAccessible::Name) return textOf(item_, 0);
  return kind == QAccessible::Description ? model().pictureText(item_) : QString();
}

QString PictureAccessible::action() const { return isOption() ? pressAction() : toggleAction(); }

QString PictureAccessible::localizedActionName(const QString&) const {
  if (isOption()) return QStringLiteral("Wählen");
  return isChecked() ? QStringLiteral("Deaktivieren") : QStringLiteral("Aktivieren");
}

void PictureAccessible::doAction(const QString& name) {
  if (isValid() && name == action() && takesActions()) click(item_, 0, GridArea::Picture);
}

QStringList PictureAccessible::keyBindingsForAction(const QString& name) const {
  if (!isValid() || name != action()) return {};
  return {QKeySequence(Qt::Key_Space).toString(QKeySequence::NativeText)};
}

}  // namespace vexnumkr
