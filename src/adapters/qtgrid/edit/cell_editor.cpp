#include "adapters/qtgrid/edit/cell_editor.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

#include "adapters/qt/device_pixels.h"
#include "adapters/qtgrid/edit/edit_menu.h"
#include "adapters/qtgrid/view/cell_layout.h"
#include "adapters/qtgrid/view/grid_colours.h"

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

void CellEditor::useSelectionOf(const QPalette& palette) {
  const CellColours colours = selectionColours(palette);
  QPalette own;
  own.setColor(QPalette::Highlight, colours.background);
  own.setColor(QPalette::HighlightedText, colours.text);
  setPalette(own);
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
  const QColor colour = palette().color(QPalette::Highlight);
  const QRectF frame = onDevicePixels(painter, rect());
  const qreal line = thinLine(painter);
  // Filled, because a thin pen loses edges at fractional device pixel ratios.
  const QRectF across(0, 0, frame.width(), line);
  const QRectF down(0, 0, line, frame.height());
  painter.fillRect(across.translated(frame.topLeft()), colour);
  painter.fillRect(across.translated(frame.left(), frame.bottom() - line), colour);
  painter.fillRect(down.translated(frame.topLeft()), colour);
  painter.fillRect(down.translated(frame.right() - line, frame.top()), colour);
}

void CellEditor::contextMenuEvent(QContextMenuEvent* event) {
  openEditMenu(*this, event->globalPos());
}

}  // namespace vexnumkr
