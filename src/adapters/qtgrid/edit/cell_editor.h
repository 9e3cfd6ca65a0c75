// The line edit that opens in a cell.
#pragma once

#include <QLineEdit>

namespace vexnumkr {

class CellEditorListener {
 public:
  virtual ~CellEditorListener() = default;
  /// Whether the key is used up; otherwise it is the editor's.
  virtual bool editorKeyPressed(const QKeyEvent& event) = 0;

 protected:
  CellEditorListener() = default;
  CellEditorListener(const CellEditorListener&) = default;
  CellEditorListener& operator=(const CellEditorListener&) = default;
};

/// Every key pressed in it goes to the listener first, and none goes on to the widgets around it:
/// no key moves the focus, chooses an item or presses a default button. Losing the focus leaves it
/// open.
class CellEditor : public QLineEdit {
  Q_OBJECT

 public:
  explicit CellEditor(QWidget* viewport);
  /// Null for nobody; borrowed.
  void listen(CellEditorListener* listener) { listener_ = listener; }
  /// Begins with `text`. From then on it takes so many characters, 0 for any number, but never cuts
  /// the text that it began with; whoever enters more is told.
  void start(const QString& text, int limit);
  /// Shows that something speaks against the text, and describes the editor by it; empty texts show
  /// and say nothing.
  void tell(const QString& note, bool refuses);
  /// Makes selected text legible on the selection of `palette`; all else follows the grid by
  /// itself.
  void useSelectionOf(const QPalette& palette);
  /// Inserts a copied text as one line: without blanks around it, line breaks and tabs in it as
  /// blanks.
  void pasteLine(const QString& copied);

 protected:
  bool event(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void beginUndoStep();
  void tellLimit();

  CellEditorListener* listener_ = nullptr;
  QString limitNote_;
  bool isRefused_ = false;
};

}  // namespace vexnumkr
