#include "adapters/qtgrid/edit/cell_editor.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QRegularExpression>
#include <QToolTip>
#include <algorithm>

#include "adapters/qt/device_pixels.h"
#include "adapters/qt/tool_tips.h"
#include "adapters/qtgrid/edit/edit_menu.h"
#include "adapters/qtgrid/view/cell_layout.h"
#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr int unlimited = 32767;  // as line edits are by themselves
constexpr int ownMargin = 2;      // what a line edit leaves beside its text by itself

bool isEditorKey(int key) {
  return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
         key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Left ||
         key == Qt::Key_Right;
}

QString clipboardText(QClipboard::Mode mode) { return QGuiApplication::clipboard()->text(mode); }

// What the keys of X11 paste: the selection with both modifiers, else the clipboard.
QClipboard::Mode pastedBy(const QKeyEvent& key) {
  const bool both = key.modifiers().testFlags(Qt::ControlModifier | Qt::ShiftModifier);
  return both && QGuiApplication::clipboard()->supportsSelection() ? QClipboard::Selection
                                                                   : QClipboard::Clipboard;
}

}  // namespace

CellEditor::CellEditor(QWidget* viewport) : QLineEdit(viewport) {
  setFrame(false);
  setTextMargins(cellPadding - ownMargin, 0, cellPadding - ownMargin, 0);
  setFocusPolicy(Qt::ClickFocus);
  setAutoFillBackground(true);
  connect(this, &QLineEdit::inputRejected, this, &CellEditor::tellLimit);
  hide();
}

void CellEditor::start(const QString& text, int limit) {
  const int most = limit > 0 ? std::min(limit, unlimited) : unlimited;
  setMaxLength(std::max(most, static_cast<int>(text.size())));
  limitNote_ = limit > 0 ? QStringLiteral("höchstens %1 Zeichen").arg(maxLength()) : QString();
  setText(text);
}

// Nothing is lost silently. Below the editor stands what is said of the entry.
void CellEditor::tellLimit() {
  if (limitNote_.isEmpty()) return;
  QToolTip::showText(mapToGlobal(rect().topRight()), toolTipMarkup(limitNote_, font()), this);
}

void CellEditor::tell(const QString& note, bool refuses) {
  setAccessibleDescription(note.isEmpty() ? limitNote_ : note);
  isRefused_ = refuses;
  update();
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
    if (key.matches(QKeySequence::Paste)) {
      pasteLine(clipboardText(pastedBy(key)));
    } else {
      QLineEdit::keyPressEvent(&key);
    }
  }
  event->accept();
  return true;
}

// Whoever copies a cell of a table or a line of a letter takes its line end along.
void CellEditor::pasteLine(const QString& copied) {
  static const QRegularExpression breaks(
      QStringLiteral("[ \\t]*[\\r\\n\\t\\x{2028}\\x{2029}]+[ \\t]*"));
  beginUndoStep();
  insert(copied.trimmed().replace(breaks, QStringLiteral(" ")));
  beginUndoStep();
}

// Nothing else but these ends a step of what Undo takes back without changing the text.
void CellEditor::beginUndoStep() {
  if (text().isEmpty()) return clear();
  if (hasSelectedText()) return;  // replacing it is a step of its own
  const int caret = cursorPosition();
  setCursorPosition(caret == 0 ? 1 : 0);
  setCursorPosition(caret);
}

void CellEditor::mouseReleaseEvent(QMouseEvent* event) {
  const bool pastes =
      event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
  if (!pastes) return QLineEdit::mouseReleaseEvent(event);
  setCursorPosition(cursorPositionAt(event->position().toPoint()));
  pasteLine(clipboardText(QClipboard::Selection));
}

void CellEditor::dropEvent(QDropEvent* event) {
  if (event->source() == this) return QLineEdit::dropEvent(event);
  setCursorPosition(cursorPositionAt(event->position().toPoint()));
  pasteLine(event->mimeData()->text());
  event->acceptProposedAction();
}

void CellEditor::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  const QColor usual = palette().color(QPalette::Highlight);
  const QColor colour = isRefused_ ? warningColour(palette()) : usual;
  paintFrame(painter, rect(), (isRefused_ ? 2 : 1) * thinLine(painter), colour);
}

void CellEditor::contextMenuEvent(QContextMenuEvent* event) {
  openEditMenu(*this, event->globalPos());
}

}  // namespace vexnumkr
