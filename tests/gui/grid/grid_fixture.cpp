#include "gui/grid/grid_fixture.h"

#include <QApplication>
#include <QScrollBar>
#include <utility>

namespace vexnumkr::test {
namespace {

std::string words(std::initializer_list<std::string> parts) {
  std::string line;
  for (const std::string& part : parts) line += (line.empty() ? "" : " ") + part;
  return line;
}

std::string nameOf(GridArea area) {
  if (area == GridArea::Picture) return "picture";
  return area == GridArea::Cell ? "cell" : "other";
}

bool isModifier(std::int16_t key) { return key >= 16 && key <= 18; }

ColumnDescription textColumn(const char* header, double width, Alignment alignment) {
  return {header, width, alignment};
}

ColumnDescription valueColumn(const char* header, Alignment alignment) {
  return {header, 87, alignment, true};
}

}  // namespace

void GridEvents::ItemClick(std::int32_t index, std::int16_t col, GridArea area,
                           std::int16_t button) {
  lines.push_back(words(
      {"click", std::to_string(index), std::to_string(col), nameOf(area), std::to_string(button)}));
  if (onClick) onClick();
}

void GridEvents::KeyDown(std::int16_t key) {
  if (isModifier(key)) return;
  lines.push_back(words({"key", std::to_string(key)}));
  if (onKey) onKey(key);
}

void GridEvents::CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                           std::int16_t col) {
  if (isModifier(key)) return;
  lines.push_back(words({"editor key", std::to_string(key), std::to_string(shift),
                         std::to_string(index), std::to_string(col)}));
  if (onEditorKey) onEditorKey(key, shift);
}

void GridEvents::AfterEdit(std::int32_t index, std::int16_t col, bool& cancel, std::string& text) {
  lines.push_back(words({"edited", std::to_string(index), std::to_string(col), text}));
  if (onAfterEdit) onAfterEdit(cancel, text);
}

void GridEvents::ToolTipText(std::int16_t col, std::string& text) {
  lines.push_back(words({"tip", std::to_string(col), text}));
  if (onToolTip) onToolTip(col, text);
}

ControlDescription gridDescription() {
  ControlDescription grid;
  grid.kind = ControlKind::TreeGrid;
  grid.name = "sftGrid";
  grid.accessibleName = "Nummernkreise";
  grid.position = {150, 150, 8400, 3900};
  grid.tabIndex = 0;
  grid.columns = {
      textColumn("", 0, Alignment::Left),      textColumn("Beschreibung", 133, Alignment::Left),
      valueColumn("Start", Alignment::Right),  valueColumn("Aktuell", Alignment::Right),
      valueColumn("Ende", Alignment::Right),   valueColumn("Maske", Alignment::Left),
      textColumn("NSchl", 0, Alignment::Left), textColumn("Type", 0, Alignment::Left)};
  return grid;
}

GridTest::GridTest() {
  window.resize(600, 320);
  grid = makeQtTreeGrid(gridDescription(), &window);
  ok = new QPushButton(QStringLiteral("OK"), &window);
  ok->setDefault(true);
  ok->move(10, 285);
  other = new QPushButton(QStringLiteral("Automatisch"), &window);
  other->setAutoDefault(false);
  other->move(150, 285);
  grid->Events(&handler);
}

void GridTest::SetUp() {
  rebuild(2, groupSize - 1, -1);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  grid->widget()->setFocus();
  ASSERT_TRUE(grid->widget()->hasFocus());
}

void GridTest::addGroup(const std::string& caption, int children) {
  const auto group = grid->AddItem("");
  grid->List(group, column::Beschreibung, caption);
  grid->List(group, column::Type, "Group");
  for (int child = 0; child < children; ++child) {
    const auto item = grid->AddItem("");
    grid->ItemLevel(item, 1);
    grid->List(item, column::Beschreibung, "Filiale " + std::to_string(child));
    grid->List(item, column::Start, 1000 + item);
    grid->List(item, column::Maske, " ");
    grid->List(item, column::Type, "Pos");
    grid->ItemPicture(item, pictureHandle(PictureKind::UncheckedBox));
  }
}

void GridTest::fill(int groups, int children) {
  for (int group = 0; group < groups; ++group)
    addGroup("Gruppe " + std::to_string(group), children);
}

void GridTest::rebuild(int groups, int children, int current) {
  grid->BeginUpdate();
  grid->Clear();
  fill(groups, children);
  grid->ListIndex(current);
  grid->EndUpdate();
}

QModelIndex GridTest::cell(int item, int column) const {
  const auto* model = view().model();
  for (int top = 0, number = 0; top < model->rowCount(); ++top) {
    const QModelIndex group = model->index(top, 0);
    const int children = model->rowCount(group);
    if (item == number) return group.siblingAtColumn(column - 1);
    if (item <= number + children) return model->index(item - number - 1, column - 1, group);
    number += children + 1;
  }
  return {};
}

QRect GridTest::cellRect(int item, int column) const {
  const QModelIndex index = cell(item, column);
  const QRect row = view().visualRect(index);
  return {view().columnViewportPosition(index.column()), row.top(),
          view().columnWidth(index.column()), row.height()};
}

bool GridTest::inSight(int item) const {
  const QRect row = view().visualRect(cell(item, column::Beschreibung));
  return row.isValid() && view().viewport()->rect().contains(row.center());
}

QPoint GridTest::textOf(int item, int column) const {
  const QRect rect = cellRect(item, column);
  return {rect.right() - 12, rect.center().y()};
}

QPoint GridTest::pictureOf(int item) const {
  const QRect rect = cellRect(item, column::Beschreibung);
  return {rect.left() + 33, rect.center().y()};
}

QPoint GridTest::arrowOf(int item) const {
  const QRect rect = cellRect(item, column::Beschreibung);
  return {rect.left() + 7, rect.center().y()};
}

void GridTest::click(const QPoint& position, Qt::MouseButton button) {
  QWidget* target = view().viewport()->childAt(position);
  QWidget* receiver = target != nullptr && target->isVisible() ? target : view().viewport();
  QTest::mouseClick(receiver, button, {}, receiver->mapFrom(view().viewport(), position));
}

void GridTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* receiver = QApplication::focusWidget();
  ASSERT_NE(receiver, nullptr);
  QTest::keyClick(receiver, key, modifiers);
}

void GridTest::type(const char* text) {
  for (const char* letter = text; *letter != '\0'; ++letter) {
    QTest::keyClick(QApplication::focusWidget(), *letter);
  }
}

QLineEdit* GridTest::editor() const {
  if (!grid->isEditing()) return nullptr;
  return view().viewport()->findChild<QLineEdit*>();
}

bool GridTest::editorHasFocus() const {
  return editor() != nullptr && QApplication::focusWidget() == editor();
}

Lines GridTest::events() { return std::exchange(handler.lines, {}); }

}  // namespace vexnumkr::test
