// The edit of one cell, from opening the editor to taking over its text.
#pragma once

#include <QFont>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>

#include "adapters/qtgrid/edit/cell_editor.h"
#include "adapters/qtgrid/edit/entry_bubble.h"
#include "adapters/qtgrid/qt_tree_grid.h"
#include "adapters/qtgrid/view/grid_view.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// At most one edit is open. Handlers may do anything meanwhile: show boxes, fill the grid anew,
/// end this edit or open another. An edit that is being ended cannot be ended a second time.
class GridEdit : private CellEditorListener {
 public:
  /// Everything is borrowed.
  explicit GridEdit(GridView& view);
  ~GridEdit() override;
  GridEdit(const GridEdit&) = delete;
  GridEdit& operator=(const GridEdit&) = delete;

  void raiseTo(TreeGridEvents* events) { events_ = events; }
  void useFont(const QFont& font);

  /// How many characters the texts of a column have at most from now on; 0 for any number.
  void limit(std::int16_t column, int characters) { limits_[column] = characters; }

  bool isOpen() const { return session_.has_value(); }
  /// The cell being edited.
  std::optional<GridCell> cell() const;
  bool isAt(int item, int column) const;
  /// REQUIRES: none is open; the cell is shown.
  void open(int item, int column);
  /// Puts `text` in the place of the editor's. REQUIRES: one is open.
  void enter(const QString& text);
  /// See TreeGrid::EndEdit.
  bool end(bool keepText);
  /// Puts the editor where its cell is now.
  void layOut();
  /// Scrolls to the cell.
  void reveal();
  void takeFocus();

 private:
  struct Session {
    int item;
    std::int16_t column;
    QString openingText;
  };

  bool editorKeyPressed(const QKeyEvent& event) override;
  bool endByKey(std::int16_t key, std::int16_t shift);
  int limitOf(int column) const;
  void describeEntry();
  bool offerText();
  void refuse(const QString& text);
  void close();
  void leave();
  void announceFocus();

  GridView& view_;
  QPointer<CellEditor> editor_;   // owned by the viewport
  QPointer<EntryBubble> bubble_;  // likewise
  TreeGridEvents* events_ = nullptr;
  std::optional<Session> session_;
  std::map<std::int16_t, int> limits_;  // by column
  std::uint32_t serial_ =
      0;  // counts openings and closings, so that a handler's doings are noticed
  bool ending_ = false;
  bool handlingKey_ = false;
  bool layingOut_ = false;
};

}  // namespace vexnumkr
