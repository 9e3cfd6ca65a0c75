#include <QHeaderView>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridColumnsTest : public GridTest {
 protected:
  int section(int number) const { return view().header()->sectionSize(number); }
};

TEST_F(GridColumnsTest, OnlyColumnsWithAWidthAreShown) {
  EXPECT_EQ(view().header()->count(), 5);
  EXPECT_EQ(grid->ColWidth(0), 0);
  EXPECT_EQ(grid->ColWidth(column::Beschreibung), 133);
  EXPECT_EQ(grid->ColWidth(column::Maske), 87);
  EXPECT_EQ(grid->ColWidth(column::NSchl), 0);
}

TEST_F(GridColumnsTest, WidthsKeepTheirFractions) {
  grid->ColWidth(column::Aktuell, 99.25);
  EXPECT_EQ(grid->ColWidth(column::Aktuell), 99.25);
  EXPECT_EQ(section(2), 99);
}

TEST_F(GridColumnsTest, TheFirstColumnTakesWhatTheOthersLeave) {
  EXPECT_EQ(view().header()->length(), view().viewport()->width());
  grid->ColWidth(column::Ende, 47);
  EXPECT_EQ(section(3), 47);
  EXPECT_EQ(view().header()->length(), view().viewport()->width());
  EXPECT_EQ(grid->ColWidth(column::Beschreibung), 133);
  grid->ColWidth(column::Ende, 900);
  EXPECT_EQ(section(0), 133);
}

TEST_F(GridColumnsTest, AWiderGridWidensTheFirstColumn) {
  const int before = section(0);
  grid->Position({150, 150, 8400 + 1500, 3900});
  QCoreApplication::processEvents();
  EXPECT_EQ(section(0), before + 100);
  EXPECT_EQ(section(1), 87);
}

TEST_F(GridColumnsTest, AWidthOfZeroHidesAndAnotherShowsAgain) {
  grid->List(2, column::NSchl, "AN");
  grid->ListIndex(2);
  grid->ColWidth(column::Ende, 0);
  EXPECT_EQ(view().header()->count(), 4);
  grid->ColWidth(column::NSchl, 50);
  EXPECT_EQ(view().header()->count(), 5);
  EXPECT_EQ(view().model()->headerData(4, Qt::Horizontal).toString(), QStringLiteral("NSchl"));
  EXPECT_EQ(section(4), 50);
  EXPECT_EQ(section(1), 87);
  EXPECT_EQ(cell(2, 5).data().toString(), QStringLiteral("AN"));
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_TRUE(view().visualRect(cell(7, column::Beschreibung)).isValid());
}

TEST_F(GridColumnsTest, ADraggedWidthCounts) {
  QHeaderView& header = *view().header();
  const QPoint edge(header.sectionViewportPosition(2) - 1, header.height() / 2);
  QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
  QTest::mouseMove(header.viewport(), edge + QPoint(20, 0));
  QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge + QPoint(20, 0));
  EXPECT_GT(grid->ColWidth(column::Start), 100);
  EXPECT_EQ(grid->ColWidth(column::Start), section(1));
  EXPECT_EQ(grid->ColWidth(column::Aktuell), 87);
  const double dragged = grid->ColWidth(column::Start);
  rebuild(3, 3, -1);
  EXPECT_EQ(grid->ColWidth(column::Start), dragged);
}

TEST_F(GridColumnsTest, TheGridIsAControlLikeOthers) {
  EXPECT_EQ(grid->Name(), "sftGrid");
  EXPECT_EQ(view().objectName(), QStringLiteral("sftGrid"));
  EXPECT_EQ(view().accessibleName(), QStringLiteral("Nummernkreise"));
  EXPECT_EQ(view().geometry(), QRect(10, 10, 560, 260));
  EXPECT_TRUE(grid->Visible());
  grid->Visible(false);
  EXPECT_FALSE(grid->Visible());
  EXPECT_FALSE(view().isVisible());
  grid->Position({300, 450, 3000, 1500});
  EXPECT_EQ(view().geometry(), QRect(20, 30, 200, 100));
  EXPECT_EQ(grid->Position().left, 300);
  EXPECT_EQ(grid->Position().height, 1500);
}

TEST_F(GridColumnsTest, FontsWithoutASizeKeepTheGrids) {
  grid->SetFont({"Liberation Sans", 9, false});
  grid->SetFont({"Liberation Serif", 0, false});
  const Font font = grid->CellFont(1, column::Beschreibung);
  EXPECT_EQ(font.name, "Liberation Serif");
  EXPECT_EQ(font.size, 9);
  EXPECT_FALSE(font.bold);
  grid->CellFontBold(1, column::Beschreibung, true);
  EXPECT_TRUE(grid->CellFont(1, column::Beschreibung).bold);
  EXPECT_FALSE(grid->CellFont(1, column::Start).bold);
  grid->ColHeaderFont({"Liberation Sans", 0, true});
  EXPECT_TRUE(view().header()->font().bold());
  EXPECT_EQ(view().header()->font().pixelSize(), 12);
}

TEST_F(GridColumnsTest, RowsAreHighEnoughForTheirFont) {
  const int before = view().visualRect(cell(0, column::Beschreibung)).height();
  EXPECT_GT(before, view().fontMetrics().height());
  grid->SetFont({"Liberation Sans", 20, false});
  QCoreApplication::processEvents();
  EXPECT_GT(view().visualRect(cell(0, column::Beschreibung)).height(), before);
  EXPECT_GT(view().visualRect(cell(0, column::Beschreibung)).height(),
            view().fontMetrics().height());
}

TEST_F(GridColumnsTest, PropertiesWithoutEffectChangeNothingThatIsSeen) {
  const QImage before = view().grab().toImage();
  grid->RowHeaderFont({"Liberation Serif", 20, true});
  grid->CellButtonPicture(pictureHandle(PictureKind::CellButton));
  grid->DisplayStyle(3);
  EXPECT_EQ(view().grab().toImage(), before);
  grid->SetFont({"Liberation Serif", 20, true});
  EXPECT_NE(view().grab().toImage(), before);
}

}  // namespace
}  // namespace vexnumkr::test
