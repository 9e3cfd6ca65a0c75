#include "adapters/qtgrid/control/tree_grid_control.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>
#include <algorithm>

#include <vexnumkr/error.h>

#include "adapters/qt/fonts.h"
#include "adapters/qt/guarded.h"
#include "adapters/qt/key_codes.h"
#include "adapters/qt/text.h"
#include "adapters/qt/units.h"
#include "adapters/qtgrid/accessible/grid_accessible.h"
#include "adapters/qtgrid/control/row_menu.h"
#include "adapters/qtgrid/control/row_texts.h"

namespace vexnumkr {
namespace {

std::int16_t buttonNumber(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return 1;
  return button == Qt::RightButton ? 2 : 4;
}

}  // namespace

TreeGridControl::TreeGridControl(const ControlDescription& description, QWidget* parent)
    : view_(new GridView(description.columns, parent)),
      edit_(*view_),
      search_(new GridSearch(*view_, [this](int item) { ListIndex(item); })) {
  view_->setObjectName(toQt(description.name));
  view_->setAccessibleName(
      toQt(description.accessibleName.empty() ? description.caption : description.accessibleName));
  view_->setFocusPolicy(description.tabIndex < 0 ? Qt::ClickFocus : Qt::StrongFocus);
  view_->setHidden(!description.visible);
  Position(description.position);
  makeAccessible(*view_);
  view_->listen(this);
  auto* find = new QShortcut(QKeySequence::Find, view_);  // owned by the view
  QObject::connect(find, &QShortcut::activated, view_, [this] { openSearch(); });
}

TreeGridControl::~TreeGridControl() {
  if (search_) delete search_;
  if (!view_) return;
  view_->listen(nullptr);
  qDeleteAll(view_->findChildren<QShortcut*>(Qt::FindDirectChildrenOnly));
}

GridView& TreeGridControl::view() const {
  if (!view_) throw Error::objectNotSet();
  return *view_;
}

void TreeGridControl::requireItem(std::int32_t index) const {
  if (!items().contains(index)) throw Error::subscriptOutOfRange();
}

void TreeGridControl::requireColumn(std::int16_t column) const {
  if (!items().hasColumn(column)) throw Error::subscriptOutOfRange();
}

std::string TreeGridControl::Name() const { return view().objectName().toStdString(); }

bool TreeGridControl::Visible() const { return !view().isHidden(); }

void TreeGridControl::Visible(bool visible) { view().setVisible(visible); }

void TreeGridControl::Position(const Rect& position) {
  view().setGeometry(toPixels(position));
  position_ = position;
}

void TreeGridControl::SetFont(const Font& font) { view().setFont(withFont(view().font(), font)); }

void TreeGridControl::ToolTipText(const std::string& text) { view().setToolTip(toQt(text)); }

std::int32_t TreeGridControl::AddItem(std::string_view text) { return model().append(text); }

void TreeGridControl::Clear() {
  EndEdit(false);
  const Update update(*this);
  model().clear();
  current_ = -1;
}

std::int32_t TreeGridControl::ListCount() const { return items().count(); }

void TreeGridControl::ItemLevel(std::int32_t index, std::int16_t level) {
  if (level == 1 && index == ListCount() - 1) return model().setLevel(index, level);
  const Update update(*this);
  model().setLevel(index, level);
}

std::int16_t TreeGridControl::ItemLevel(std::int32_t index) const {
  return static_cast<std::int16_t>(items().level(index));
}

std::string TreeGridControl::List(std::int32_t index, std::int16_t column) const {
  return items().text(index, column);
}

void TreeGridControl::List(std::int32_t index, std::int16_t column, std::string_view text) {
  model().setText(index, column, text);
}

void TreeGridControl::List(std::int32_t index, std::int16_t column, std::int32_t number) {
  model().setNumber(index, column, number);
}

Font TreeGridControl::CellFont(std::int32_t index, std::int16_t column) const {
  const QFont font = view().font();
  return {font.family().toStdString(), pointSize(font),
          font.bold() || items().style(index, column).bold};
}

void TreeGridControl::CellFontBold(std::int32_t index, std::int16_t column, bool bold) {
  CellStyle style = items().style(index, column);
  style.bold = bold;
  model().setStyle(index, column, style);
}

void TreeGridControl::CellBackColor(std::int32_t index, std::int16_t column, GridColour colour) {
  CellStyle style = items().style(index, column);
  style.background = colour;
  model().setStyle(index, column, style);
}

PictureHandle TreeGridControl::ItemPicture(std::int32_t index) const {
  return items().picture(index);
}

void TreeGridControl::ItemPicture(std::int32_t index, PictureHandle picture) {
  model().setPicture(index, picture);
}

void TreeGridControl::ListIndex(std::int32_t index) {
  current_ = items().contains(index) ? index : -1;
  if (updateDepth_ == 0) makeCurrent();
}

void TreeGridControl::Selected(std::int32_t index, bool selected) {
  requireItem(index);
  view().selectItem(index, selected);
}

void TreeGridControl::ShowGroup(std::int32_t index) {
  requireItem(index);
  view().revealGroup(index);
}

std::int32_t TreeGridControl::FindString(std::int32_t start, std::int16_t column,
                                         std::string_view text) const {
  return items().find(start, column, text);
}

void TreeGridControl::AcceptsEntries(bool accepts) { view().acceptEntries(accepts); }

void TreeGridControl::AcceptsChoices(bool accepts) { view().acceptChoices(accepts); }

void TreeGridControl::ColTextLimit(std::int16_t column, std::int32_t characters) {
  requireColumn(column);
  edit_.limit(column, characters);
}

void TreeGridControl::StartEdit(std::int32_t index, std::int16_t column) {
  requireItem(index);
  requireColumn(column);
  if (!edit_.end(true)) return;
  requireItem(index);  // the end of another edit may have emptied the list
  ListIndex(index);
  if (model().sectionOf(column) < 0) return;
  view().reveal(index, column);
  edit_.open(index, column);
}

bool TreeGridControl::EndEdit(bool keepText) { return !view_ || edit_.end(keepText); }

void TreeGridControl::ItemEditFont(const Font& font) {
  edit_.useFont(withFont(view().font(), font));
}

void TreeGridControl::ColHeaderFont(const Font& font) {
  QHeaderView& header = *view().header();
  header.setFont(withFont(header.font(), font));
}

void TreeGridControl::RowHeaderFont(const Font&) {}

void TreeGridControl::CellButtonPicture(PictureHandle) {}

void TreeGridControl::DisplayStyle(std::int16_t) {}

double TreeGridControl::ColWidth(std::int16_t column) const {
  requireColumn(column);
  return view().widthOf(column);
}

void TreeGridControl::ColWidth(std::int16_t column, double width) {
  requireColumn(column);
  const Update update(*this);
  view().setWidthOf(column, width);
}

void TreeGridControl::BeginUpdate() {
  if (updateDepth_++ == 0) {
    currentBefore_ = current_;
    scrollBefore_ = view().scrollPosition();
    view().setUpdatesEnabled(false);
  }
  model().beginUpdate();
}

void TreeGridControl::EndUpdate() {
  const bool wasReset = model().endUpdate();
  if (--updateDepth_ > 0) return;
  if (wasReset) {
    restoreAfterReset();
  } else if (current_ != currentBefore_) {
    makeCurrent();
  }
  view().setUpdatesEnabled(true);
  edit_.layOut();
}

void TreeGridControl::makeCurrent() {
  view().setCurrentItem(current_);
  view().reveal(current_);
}

// A rebuilt list stays where it was scrolled to when its current item stands at the same position.
void TreeGridControl::restoreAfterReset() {
  view().restoreCurrentItem(current_);
  if (current_ == currentBefore_ && scrollBefore_) {
    view().scrollAtLayout(*scrollBefore_);
  } else {
    view().revealAtLayout(current_);
  }
  edit_.reveal();
  view().announceCurrent();
}

void TreeGridControl::Events(TreeGridEvents* events) {
  events_ = events;
  edit_.raiseTo(events);
}

void TreeGridControl::pressed(const GridHit& hit, Qt::MouseButton button) {
  if (edit_.isAt(hit.item, hit.column) && hit.area == GridArea::Cell) return edit_.takeFocus();
  if (!edit_.end(true)) return;
  if (!items().contains(hit.item)) return;
  ListIndex(hit.item);
  if (hit.onArrow) view().toggle(hit.item);
  if (events_ == nullptr) return;
  guarded("ItemClick", [&] {
    events_->ItemClick(hit.item, static_cast<std::int16_t>(hit.column), hit.area,
                       buttonNumber(button));
  });
}

bool TreeGridControl::keyPressed(const QKeyEvent& event) {
  if (isEditing()) return true;
  const std::int16_t key = keyCode(event);
  if (events_ != nullptr) guarded("KeyDown", [&] { events_->KeyDown(key); });
  // These two mean something to the form only, and what a handler opened must not see the key.
  if (key == key_code::space || key == key_code::f2 || isEditing()) return true;
  if (event.matches(QKeySequence::Copy)) {
    copyRow();
  } else if (event.matches(QKeySequence::Paste)) {
    pasteRow();
  } else {
    return false;
  }
  return true;
}

CellNote TreeGridControl::noteOf(int item, int column) {
  CellNote note;
  if (events_ != nullptr)
    guarded("DescribeCell",
            [&] { events_->DescribeCell(item, static_cast<std::int16_t>(column), note); });
  return note;
}

bool TreeGridControl::mayPaste() const {
  return current_ >= 0 && items().level(current_) > 0 && model().takesEntries(1) &&
         !QGuiApplication::clipboard()->text().isEmpty();
}

// The entries of the menu stand for keys, whose ways they go.
void TreeGridControl::menuWanted(const QPoint& position) {
  if (isEditing() || current_ < 0) return;
  const auto edit = [this] {
    if (events_ != nullptr) guarded("KeyDown", [&] { events_->KeyDown(key_code::f2); });
  };
  const bool mayEdit = items().level(current_) > 0 && model().takesEntries(1);
  openRowMenu(view(), position,
              {{"&Bearbeiten", "F2", mayEdit, edit},
               {"&Kopieren", "Strg+C", true, [this] { copyRow(); }},
               {"&Einfügen", "Strg+V", mayPaste(), [this] { pasteRow(); }},
               {},
               {"Alle &aufklappen", "", true, [this] { view().expandAll(); }},
               {"Alle &zuklappen", "", true, [this] { view().collapseAllGroups(); }}});
}

// What is being typed is kept first, as it is before anything else that the user turns to.
void TreeGridControl::openSearch() {
  if (view_ && search_ && edit_.end(true)) search_->open();
}

GridLook TreeGridControl::look() const {
  GridLook look;
  for (int section = 0; section < model().columnCount(); ++section)
    look.widths[model().columnOf(section)] = view().widthOf(model().columnOf(section));
  for (int item = 0; item < items().count(); ++item)
    if (view().hasChildren(item) && !view().isOpen(item))
      look.closedGroups.push_back(items().text(item, model().columnOf(0)));
  return look;
}

void TreeGridControl::look(const GridLook& look) {
  for (const auto& [column, width] : look.widths)
    if (model().sectionOf(column) >= 0 && width > 0) view().setWidthOf(column, width);
  for (int item = 0; item < items().count(); ++item) {
    const auto& closed = look.closedGroups;
    const bool isClosed = view().hasChildren(item) && view().isOpen(item) &&
                          std::find(closed.begin(), closed.end(),
                                    items().text(item, model().columnOf(0))) != closed.end();
    if (isClosed) view().toggle(item);
  }
}

void TreeGridControl::copyRow() const {
  if (current_ >= 0) QGuiApplication::clipboard()->setText(rowLine(model(), current_));
}

// As if the values were typed into the cells of the current range one after the other; a refused
// one stays open, and those behind it stay as they were.
void TreeGridControl::pasteRow() {
  const int item = current_;
  if (item < 0 || items().level(item) == 0) return;
  const QStringList values = rowValues(QGuiApplication::clipboard()->text(), model().columnCount());
  for (int section = 1; section <= values.size(); ++section) {
    if (section >= model().columnCount() || !model().takesEntries(section)) return;
    const int column = model().columnOf(section);
    StartEdit(item, static_cast<std::int16_t>(column));
    if (!edit_.isAt(item, column)) return;
    edit_.enter(values.at(section - 1));
    if (!edit_.end(true)) return;
  }
}

void TreeGridControl::currentItemChanged(int item) {
  if (updateDepth_ == 0) current_ = item;
}

QString TreeGridControl::toolTip(int column, const QString& proposal) {
  std::string text = proposal.toStdString();
  if (events_ != nullptr) {
    guarded("ToolTipText", [&] { events_->ToolTipText(static_cast<std::int16_t>(column), text); });
  }
  return toQt(text);
}

std::unique_ptr<QtTreeGrid> makeQtTreeGrid(const ControlDescription& description, QWidget* parent) {
  return std::make_unique<TreeGridControl>(description, parent);
}

}  // namespace vexnumkr
