#include "scenario/windows/grid_access.h"

#include <QHeaderView>
#include <QLineEdit>

#include "scenario/windows/failure.h"

namespace vexnumkr::scenario {
namespace {

constexpr std::int32_t captionColumn = 1;

QtTreeGrid* gridOf(Form* form) {
  if (form == nullptr) return nullptr;
  for (Control* control : form->Controls())
    if (auto* grid = dynamic_cast<QtTreeGrid*>(control)) return grid;
  return nullptr;
}

[[noreturn]] void failAt(const char* noun, std::int32_t number, const char* why) {
  throw CannotDo(noun + (" " + std::to_string(number)) + " " + why);
}

}  // namespace

bool GridAccess::isIn(QWidget& form) { return gridOf(dynamic_cast<Form*>(&form)) != nullptr; }

GridAccess::GridAccess(QWidget& form) : form_(dynamic_cast<Form*>(&form)), grid_(gridOf(form_)) {
  if (grid_ == nullptr)
    throw CannotDo("the dialog " + form.objectName().toStdString() + " has no grid");
  view_ = qobject_cast<GridView*>(grid_->widget());
}

void GridAccess::requireItem(std::int32_t item) const {
  if (item < 0 || item >= grid_->ListCount()) failAt("item", item, "does not exist");
}

QRect GridAccess::cellRect(std::int32_t item, std::int32_t column) const {
  requireItem(item);
  const int section = view_->gridModel().sectionOf(column);
  if (section < 0) failAt("column", column, "is not shown");
  const QModelIndex index = view_->gridModel().indexOf(item, section);
  const QModelIndex group = index.parent();
  if (group.isValid() && !view_->isExpanded(group))
    failAt("item", item, "stands in a collapsed group");
  view_->scrollTo(index);
  const QRect row = view_->visualRect(index);
  return {view_->columnViewportPosition(section), row.top(), view_->header()->sectionSize(section),
          row.height()};
}

QPoint GridAccess::cellCentre(std::int32_t item, std::int32_t column) const {
  return cellRect(item, column).center();
}

QPoint GridAccess::pictureCentre(std::int32_t item) const {
  const QRect cell = cellRect(item, captionColumn);
  const auto* delegate = qobject_cast<const GridDelegate*>(view_->itemDelegate());
  const QModelIndex index = view_->gridModel().indexOf(item);
  const QRect picture = delegate->layout(index, cell, view_->fontMetrics()).picture;
  if (picture.isEmpty()) failAt("item", item, "has no picture");
  return picture.center();
}

QLineEdit& GridAccess::editor() const {
  if (grid_->isEditing())
    for (auto* editor : view_->viewport()->findChildren<QLineEdit*>())
      if (editor->isVisible()) return *editor;
  throw CannotDo("no cell editor is open");
}

std::string GridAccess::pictureName(std::int32_t item) const {
  const PictureHandle picture = grid_->ItemPicture(item);
  for (Control* control : form_->Controls()) {
    const auto* holder = dynamic_cast<PictureHolder*>(control);
    if (picture != noPicture && holder != nullptr && holder->Picture() == picture)
      return holder->Name();
  }
  return "-";
}

CellStyle GridAccess::captionStyle(std::int32_t item) const {
  return view_->gridModel().items().style(item, captionColumn);
}

}  // namespace vexnumkr::scenario
