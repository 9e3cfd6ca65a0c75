// What cells show besides their texts, and what is said of an entry while it is being made.
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QToolTip>

#include "adapters/qt/tool_tips.h"
#include "adapters/qtgrid/view/grid_colours.h"
#include "gui/grid/grid_fixture.h"
#include "gui/palettes.h"
#include "support/screen_reader.h"

namespace vexnumkr::test {
namespace {

constexpr int range = 2;
constexpr int current = column::Aktuell;

class GridNotesTest : public GridTest {
 protected:
  void TearDown() override { QToolTip::hideText(); }

  QImage painted(int item, int column) {
    view().viewport()->update();
    QCoreApplication::processEvents();
    return view().viewport()->grab(cellRect(item, column)).toImage();
  }
  /// How many pixels of the cell's middle column of pixels, from its lower edge up, are of that
  /// colour.
  static int pixelsOf(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y) == colour) ++count;
    return count;
  }
  QLabel& bubble() const { return *view().findChild<QLabel*>(QStringLiteral("entryNote")); }
  QString tipOf(int item, int column) {
    const QPoint position = textOf(item, column);
    QHelpEvent event(QEvent::ToolTip, position, view().viewport()->mapToGlobal(position));
    QApplication::sendEvent(view().viewport(), &event);
    return toolTipText(QToolTip::text());
  }
};

TEST_F(GridNotesTest, ABarIsAsLongAsARangeIsFull) {
  std::int32_t share = 0;
  FillStage stage = FillStage::Plenty;
  handler.onDescribe = [&](std::int32_t item, std::int16_t column, CellNote& note) {
    if (item == range && column == current) note.fill = CellFill{share, stage};
  };
  int before = 0;
  for (const std::int32_t thousandths : {100, 500, 1000}) {
    share = thousandths;
    const int now = pixelsOf(painted(range, current), fillColour(stage, view().palette()));
    EXPECT_GT(now, before) << thousandths;
    before = now;
  }
  stage = FillStage::Low;
  EXPECT_GE(pixelsOf(painted(range, current), fillColour(stage, view().palette())), before);
  stage = FillStage::Critical;
  EXPECT_GE(pixelsOf(painted(range, current), fillColour(stage, view().palette())), before);
}

TEST_F(GridNotesTest, AChangedCellHasACorner) {
  const QImage before = painted(range, column::Start);
  handler.onDescribe = [](std::int32_t item, std::int16_t column, CellNote& note) {
    note.changed = item == range && column == column::Start;
  };
  const QImage after = painted(range, column::Start);
  const QColor mark = changedColour(view().palette());
  EXPECT_EQ(pixelsOf(before, mark), 0);
  EXPECT_GT(pixelsOf(after, mark), 5);
  EXPECT_NE(after.pixelColor(after.width() - 2, 1), before.pixelColor(before.width() - 2, 1));
  EXPECT_EQ(after.pixelColor(2, after.height() / 2), before.pixelColor(2, before.height() / 2));
}

TEST_F(GridNotesTest, TheToolTipSaysWhatTheNoteSaysAndThenTheRest) {
  handler.onDescribe = [](std::int32_t, std::int16_t, CellNote& note) { note.text = "Geladen: 7"; };
  EXPECT_EQ(tipOf(range, column::Start), QStringLiteral("Geladen: 7"));
  handler.onToolTip = [](std::int16_t, std::string& text) { text = "Maske"; };
  EXPECT_EQ(tipOf(range, column::Maske), QStringLiteral("Geladen: 7\n\nMaske"));
}

TEST_F(GridNotesTest, ScreenReadersAreToldTheNote) {
  handler.onDescribe = [](std::int32_t, std::int16_t column, CellNote& note) {
    if (column == current) note.text = "noch 5 Nummern frei\nGeladen: 7";
  };
  QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&view());
  EXPECT_EQ(tree->tableInterface()
                ->cellAt(range, sectionOf(column::Aktuell))
                ->text(QAccessible::Description),
            QStringLiteral("Aktuell, Filiale 1, Gruppe 0, noch 5 Nummern frei, Geladen: 7"));
}

TEST_F(GridNotesTest, WhatIsSaidOfAnEntryFollowsTheTyping) {
  handler.onChange = [](const std::string& text, EntryNote& note) {
    if (text == "12") note = {"zu klein", true};
    if (text == "123") note = {"so ist es gut", false};
  };
  grid->StartEdit(range, column::Start);
  EXPECT_FALSE(bubble().isVisible());
  type("12");
  EXPECT_TRUE(bubble().isVisible());
  EXPECT_EQ(bubble().text(), QStringLiteral("zu klein"));
  EXPECT_EQ(editor()->accessibleDescription(), QStringLiteral("zu klein"));
  const QColor edge = editor()->grab().toImage().pixelColor(1, 1);
  EXPECT_EQ(edge, warningColour(view().palette()));
  type("3");
  EXPECT_EQ(bubble().text(), QStringLiteral("so ist es gut"));
  EXPECT_NE(editor()->grab().toImage().pixelColor(1, 1), edge);
  press(Qt::Key_Escape);
  EXPECT_FALSE(bubble().isVisible());
}

TEST_F(GridNotesTest, WhatIsSaidStandsInTheListBesideItsCell) {
  handler.onChange = [](const std::string&, EntryNote& note) {
    note = {"Überschneidet sich mit einer Zeile, die einen recht langen Namen hat", true};
  };
  for (const int item : {1, 2, 7}) {
    grid->StartEdit(item, column::Maske);
    const QRect place = bubble().geometry();
    EXPECT_TRUE(view().viewport()->rect().contains(place)) << item;
    EXPECT_FALSE(place.intersects(editor()->geometry())) << item;
    EXPECT_GE(bubble().height(), bubble().heightForWidth(bubble().width())) << item;
  }
}

TEST_F(GridNotesTest, WhatIsSaidLeavesTheRowInSightThatItIsAbout) {
  handler.onChange = [](const std::string&, EntryNote& note) { note = {"zu klein", true}; };
  int partner = 0;
  handler.onDescribe = [&](std::int32_t item, std::int16_t, CellNote& note) {
    note.involved = item == partner;
  };
  for (const auto& [item, against] :
       {std::pair(2, 3), {2, 1}, {2, 4}, {0, 1}, {0, 2}, {1, 0}, {7, 6}, {6, 7}, {5, 1}}) {
    partner = against;
    grid->StartEdit(item, column::Ende);
    const QRect place = bubble().geometry();
    EXPECT_TRUE(view().viewport()->rect().contains(place)) << item << ' ' << against;
    EXPECT_FALSE(place.intersects(editor()->geometry())) << item << ' ' << against;
    EXPECT_FALSE(place.intersects(cellRect(against, column::Ende))) << item << ' ' << against;
  }
}

TEST_F(GridNotesTest, AHandlerThatFailsSaysNothing) {
  handler.onChange = [](const std::string&, EntryNote&) { throw Error::objectNotSet(); };
  QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("CEChange: .*")));
  grid->StartEdit(range, column::Start);
  EXPECT_TRUE(grid->isEditing());
  EXPECT_FALSE(bubble().isVisible());
}

class GridNoteColoursTest : public testing::TestWithParam<int> {
 protected:
  static QPalette palette() {
    const QPalette palettes[] = {lightPalette(), darkPalette(), darkPaletteWithLightToolTips(),
                                 blackPalette()};
    return palettes[GetParam()];
  }
};

TEST_P(GridNoteColoursTest, BarsAndEdgesAreVisible) {
  const QColor ground = palette().color(QPalette::Base);
  EXPECT_GE(contrast(warningColour(palette()), ground), visibleContrast);
  for (const FillStage stage : {FillStage::Plenty, FillStage::Low, FillStage::Critical})
    EXPECT_GE(contrast(fillColour(stage, palette()), ground), visibleContrast);
  EXPECT_GE(contrast(changedColour(palette()), ground), visibleContrast);
  EXPECT_GE(contrast(involvedColours(palette()).background, involvedColours(palette()).text),
            legibleContrast);
}

INSTANTIATE_TEST_SUITE_P(Palettes, GridNoteColoursTest, testing::Range(0, 4));

}  // namespace
}  // namespace vexnumkr::test
