// Commands on the tree grid: what a user does to it and what it shows.
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <cstdio>

#include "adapters/qt/tool_tips.h"
#include "scenario/driver/stage.h"
#include "scenario/windows/grid_access.h"
#include "scenario/windows/input.h"

namespace vexnumkr::scenario {
namespace {

constexpr std::int16_t firstColumn = 1;
constexpr std::int16_t typeColumn = 10;
constexpr std::int16_t lastColumn = 11;
constexpr GridColour systemColour = 0x80000000;

void clickCell(Stage& stage, const Command& command, Qt::MouseButton button) {
  const GridAccess access(stage.form());
  const QPoint centre = access.cellCentre(command.number(0), command.number(1));
  clickAt(*access.view().viewport(), centre, button);
}

void click(Stage& stage, const Command& command) { clickCell(stage, command, Qt::LeftButton); }

// Whoever only clicks has no use for the menu that it opens.
void rightClick(Stage& stage, const Command& command) {
  clickCell(stage, command, Qt::RightButton);
  stage.rest.push_back([] {
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  });
}

void clickPicture(Stage& stage, const Command& command) {
  const GridAccess access(stage.form());
  clickAt(*access.view().viewport(), access.pictureCentre(command.number(0)));
}

void goTo(Stage& stage, const Command& command) {
  const GridAccess access(stage.form());
  const std::int32_t item = command.number(0);
  access.requireItem(item);
  if (!access.grid().EndEdit(true)) return;
  access.grid().ListIndex(item);
  access.view().setFocus();
}

void type(Stage& stage, const Command& command) {
  QLineEdit& editor = GridAccess(stage.form()).editor();
  editor.selectAll();
  const QString text = QString::fromStdString(command.argument(0));
  if (text.isEmpty())
    pressKey(*readChord("Delete"));
  else
    typeText(text);
}

std::string printedColour(GridColour colour) {
  if (colour == gridDefaultColour) return "-";
  if (colour & systemColour) return "system" + std::to_string(colour & ~systemColour);
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(colour & 0xFFFFFF));
  return text;
}

std::string printedItem(const GridAccess& access, std::int32_t item) {
  const TreeGrid& grid = access.grid();
  const CellStyle style = access.captionStyle(item);
  std::vector<std::string> cells = {
      "item " + std::to_string(item) + " level=" + std::to_string(grid.ItemLevel(item)) +
      " type=" + printedText(grid.List(item, typeColumn)) +
      " picture=" + printedText(access.pictureName(item)) + " bold=" + (style.bold ? "1" : "0") +
      " back=" + printedColour(style.background)};
  for (std::int16_t column = firstColumn; column <= lastColumn; ++column)
    cells.push_back(printedText(grid.List(item, column)));
  return joined(cells);
}

void grid(Stage& stage, const Command&) {
  const GridAccess access(stage.form());
  const std::int32_t count = access.grid().ListCount();
  stage.print("grid: count=" + std::to_string(count) +
              " listindex=" + std::to_string(access.grid().ListIndex()));
  for (std::int32_t item = 0; item < count; ++item) stage.print(printedItem(access, item));
}

void editor(Stage& stage, const Command&) {
  if (!GridAccess::isIn(stage.form())) return stage.print("editor: none");
  const GridAccess access(stage.form());
  const std::optional<GridCell> cell = access.grid().editedCell();
  if (!cell) return stage.print("editor: none");
  stage.print("editor: item=" + std::to_string(cell->item) +
              " column=" + std::to_string(cell->column) +
              " text=" + printedText(access.editor().text().toStdString()));
}

// A tip lingers after the mouse has left; it must not be taken for the next one.
void hideToolTips() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->inherits("QTipLabel")) window->hide();
}

// The text that the shown tip stands for, without what its first part notes of the cell.
std::string shownToolTip(const QString& note) {
  if (!QToolTip::isVisible()) return {};
  QString text = toolTipText(QToolTip::text());
  if (!note.isEmpty() && text.startsWith(note)) text = text.mid(note.size()).trimmed();
  return text.replace(QLatin1Char('\n'), QLatin1String("\r\n")).toStdString();
}

void cellToolTip(Stage& stage, const Command& command) {
  const GridAccess access(stage.form());
  const QPoint centre = access.cellCentre(command.number(0), command.number(1));
  QWidget& viewport = *access.view().viewport();
  hideToolTips();
  QHelpEvent wanted(QEvent::ToolTip, centre, viewport.mapToGlobal(centre));
  QApplication::sendEvent(&viewport, &wanted);
  GridModel& model = access.view().gridModel();
  const CellNote note = access.view().noteOf(command.number(0), model.sectionOf(command.number(1)));
  stage.print("tooltip: " + printedText(shownToolTip(QString::fromStdString(note.text))));
  hideToolTips();
}

}  // namespace

Handlers gridHandlers() {
  return {{"click", click},
          {"rightclick", rightClick},
          {"click picture", clickPicture},
          {"goto", goTo},
          {"type", type},
          {"grid", grid},
          {"editor", editor},
          {"tooltip cell", cellToolTip}};
}

}  // namespace vexnumkr::scenario
