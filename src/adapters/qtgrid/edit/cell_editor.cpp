#include "adapters/qtgrid/edit/cell_editor.h"

#include <QKeyEvent>
#include <QPainter>

#include "adapters/qtgrid/view/cell_layout.h"

namespace vexnumkr {
namespace {

constexpr int ownMargin = 2;  // what a line edit leaves beside its text by itself

bool isEditorKey(int key) {
  return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
         key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Left ||
         key == Qt::Key_Right;
}

}  // namespace

CellEditor::CellEditor(QWidget* viewport) : QLineEdit(viewport) {
  setFrame(false);
  setTextMargins(cellPadding - ownMargin, 0, cellPadding - ownMargin, 0);
  setFocusPolicy(Qt::ClickFocus);
  setAutoFillBackground(true);
  hide();
}

bool CellEditor::event(QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress;
  const bool asksForKey = event->type() == QEvent::ShortcutOverride;
  if (!isKey && !asksForKey) return QLineEdit::event(event);
  auto& key = *static_cast<QKeyEvent*>(event);
  if (asksForKey) {
    if (!isEditorKey(key.key()) || key.modifiers().testFlag(Qt::AltModifier)) {
      return QLineEdit::event(event);
    }
  } else if (listener_ == nullptr || !listener_->editorKeyPressed(key)) {
    QLineEdit::keyPressEvent(&key);
  }
  event->accept();
  return true;
}

void CellEditor::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  const QColor frame = palette().color(QPalette::Highlight);
  const QRect inside = rect().adjusted(1, 1, -1, -1);
  // Filled, because a thin pen loses edges at fractional device pixel ratios.
  for (const QRect& edge : QRegion(rect()) - QRegion(inside)) painter.fillRect(edge, frame);
}

}  // namespace vexnumkr
