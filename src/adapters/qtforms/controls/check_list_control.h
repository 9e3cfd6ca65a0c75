// Lists whose entries have check boxes.
#pragma once

#include <QListWidget>
#include <QStyledItemDelegate>

#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// Draws the check boxes like those of the tree grid, and lets a click anywhere on an entry toggle
/// its box; Space does so by itself.
class CheckDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

class CheckListControl final : public WidgetControl<CheckList, QListWidget> {
 public:
  CheckListControl(const ControlDescription& description, QWidget& parent);

  void AddItem(const std::string& text) override;
  std::int32_t ListCount() const override;
  bool Selected(std::int32_t index) const override;
  void Selected(std::int32_t index, bool selected) override;

 private:
  QListWidgetItem& entry(std::int32_t index) const;

  CheckDelegate delegate_;
};

}  // namespace vexnumkr::qtforms
