// The tree grid that the dialogs use, over a grid widget.
#pragma once

#include <QPointer>
#include <optional>

#include "adapters/qtgrid/control/grid_search.h"
#include "adapters/qtgrid/edit/grid_edit.h"
#include "adapters/qtgrid/qt_tree_grid.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {

class TreeGridControl final : public QtTreeGrid, private GridViewListener {
 public:
  /// See makeQtTreeGrid.
  TreeGridControl(const ControlDescription& description, QWidget* parent);
  ~TreeGridControl() override;
  TreeGridControl(const TreeGridControl&) = delete;
  TreeGridControl& operator=(const TreeGridControl&) = delete;

  QWidget* widget() const override { return view_; }
  GridLook look() const override;
  void look(const GridLook& look) override;
  bool isEditing() const override { return view_ && edit_.isOpen(); }
  std::optional<GridCell> editedCell() const override { return edit_.cell(); }

  std::string Name() const override;
  bool Visible() const override;
  void Visible(bool visible) override;
  Rect Position() const override { return position_; }
  void Position(const Rect& position) override;
  void SetFont(const Font& font) override;
  void ToolTipText(const std::string& text) override;

  std::int32_t AddItem(std::string_view text) override;
  void Clear() override;
  std::int32_t ListCount() const override;
  void ItemLevel(std::int32_t index, std::int16_t level) override;
  std::int16_t ItemLevel(std::int32_t index) const override;
  std::string List(std::int32_t index, std::int16_t column) const override;
  void List(std::int32_t index, std::int16_t column, std::string_view text) override;
  void List(std::int32_t index, std::int16_t column, std::int32_t number) override;
  Font CellFont(std::int32_t index, std::int16_t column) const override;
  void CellFontBold(std::int32_t index, std::int16_t column, bool bold) override;
  void CellBackColor(std::int32_t index, std::int16_t column, GridColour colour) override;
  PictureHandle ItemPicture(std::int32_t index) const override;
  void ItemPicture(std::int32_t index, PictureHandle picture) override;
  std::int32_t ListIndex() const override { return current_; }
  void ListIndex(std::int32_t index) override;
  void Selected(std::int32_t index, bool selected) override;
  void ShowGroup(std::int32_t index) override;
  std::int32_t FindString(std::int32_t start, std::int16_t column,
                          std::string_view text) const override;
  void AcceptsEntries(bool accepts) override;
  void AcceptsChoices(bool accepts) override;
  void ColTextLimit(std::int16_t column, std::int32_t characters) override;
  void StartEdit(std::int32_t index, std::int16_t column) override;
  bool EndEdit(bool keepText) override;
  void ItemEditFont(const Font& font) override;
  void ColHeaderFont(const Font& font) override;
  /// Without effect: there are no row headers.
  void RowHeaderFont(const Font& font) override;
  /// Without effect: no cell offers a button.
  void CellButtonPicture(PictureHandle picture) override;
  /// Without effect: the grid looks as the desktop does.
  void DisplayStyle(std::int16_t style) override;
  double ColWidth(std::int16_t column) const override;
  void ColWidth(std::int16_t column, double width) override;
  void BeginUpdate() override;
  void EndUpdate() override;
  void Events(TreeGridEvents* events) override;

 private:
  void pressed(const GridHit& hit, Qt::MouseButton button) override;
  bool keyPressed(const QKeyEvent& event) override;
  void currentItemChanged(int item) override;
  QString toolTip(int column, const QString& proposal) override;
  void cellsMoved() override { edit_.layOut(); }
  CellNote noteOf(int item, int column) override;
  void menuWanted(const QPoint& position) override;

  // Silent from its making to its end, whatever happens in between.
  class Update {
   public:
    explicit Update(TreeGridControl& grid) : grid_(grid) { grid_.BeginUpdate(); }
    ~Update() { grid_.EndUpdate(); }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

   private:
    TreeGridControl& grid_;
  };

  GridView& view() const;
  GridModel& model() const { return view().gridModel(); }
  const GridItems& items() const { return model().items(); }
  void requireItem(std::int32_t index) const;
  void requireColumn(std::int16_t column) const;
  void makeCurrent();
  bool mayPaste() const;
  void copyRow() const;
  void pasteRow();
  void openSearch();
  void restoreAfterReset();

  QPointer<GridView> view_;
  GridEdit edit_;
  QPointer<GridSearch> search_;  // owned by the view's parent
  TreeGridEvents* events_ = nullptr;
  Rect position_;
  int current_ = -1;
  int updateDepth_ = 0;
  // As the outermost update found it.
  int currentBefore_ = -1;
  std::optional<int> scrollBefore_;
};

}  // namespace vexnumkr
