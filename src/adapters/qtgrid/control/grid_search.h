// Finding items of a grid by their captions.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <functional>

#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {

/// A small field over the upper right corner of a grid. What is typed into it is looked for
/// anywhere in the captions of all items, in any case, from the current item on and round the end;
/// Enter, F3 and the arrow keys go to the next or the previous match. Nothing is hidden or changed.
/// Escape, and turning to something else, close it.
class GridSearch final : public QFrame {
  Q_OBJECT

 public:
  /// `view` is borrowed; its parent owns this, so that assistive technology finds the field beside
  /// the list. `choose` makes an item the current one.
  GridSearch(GridView& view, std::function<void(int item)> choose);

  /// Shows the field, its text selected, and gives it the focus.
  void open();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool keyPressed(const QKeyEvent& key);
  void place();
  void leave();
  void tell();
  void find(int from, int step);
  bool matches(int item) const;

  GridView& view_;
  const std::function<void(int item)> choose_;
  QLineEdit field_;
  QLabel result_;
};

}  // namespace vexnumkr
