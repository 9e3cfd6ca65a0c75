#include "adapters/qtforms/controls/check_list_control.h"

#include <QMouseEvent>

#include "adapters/qt/picture_art.h"
#include "adapters/qt/scroll_bar.h"

namespace vexnumkr::qtforms {
namespace {

constexpr int rowHeight = pictureSize + 5;

Qt::CheckState stateOf(bool checked) { return checked ? Qt::Checked : Qt::Unchecked; }

bool isChecked(const QModelIndex& index) {
  return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

bool isMouseEvent(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonRelease ||
         event.type() == QEvent::MouseButtonDblClick;
}

}  // namespace

QSize CheckDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, rowHeight));
}

void CheckDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->decorationSize = QSize(pictureSize, pictureSize);
  option->icon = pictureIcon(isChecked(index) ? PictureKind::CheckedBox : PictureKind::UncheckedBox,
                             option->palette);
}

bool CheckDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!isMouseEvent(*event)) {
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  }
  if (event->type() != QEvent::MouseButtonRelease ||
      static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
    return false;
  }
  // Anywhere in the row: the box alone is small to aim at.
  return model->setData(index, stateOf(!isChecked(index)), Qt::CheckStateRole);
}

CheckListControl::CheckListControl(const ControlDescription& description, QWidget& parent)
    : WidgetControl(description, parent) {
  widget_.setItemDelegate(&delegate_);
  widget_.setUniformItemSizes(true);
  widget_.setVerticalScrollBar(new ScrollBar(Qt::Vertical));
  widget_.setHorizontalScrollBar(new ScrollBar(Qt::Horizontal));
}

void CheckListControl::AddItem(const std::string& text) {
  widget_.addItem(toQt(text));
  QListWidgetItem& added = entry(ListCount() - 1);
  added.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
  added.setCheckState(Qt::Unchecked);
}

std::int32_t CheckListControl::ListCount() const { return widget_.count(); }

bool CheckListControl::Selected(std::int32_t index) const {
  return entry(index).checkState() == Qt::Checked;
}

void CheckListControl::Selected(std::int32_t index, bool selected) {
  entry(index).setCheckState(stateOf(selected));
}

QListWidgetItem& CheckListControl::entry(std::int32_t index) const {
  QListWidgetItem* found = widget_.item(index);
  if (found == nullptr) throw Error::invalidPropertyValue();
  return *found;
}

}  // namespace vexnumkr::qtforms
