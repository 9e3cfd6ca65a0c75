#include "adapters/qtgrid/items/grid_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <random>

#include "adapters/qt/picture_art.h"

namespace vexnumkr {
namespace {

std::vector<ColumnDescription> columns() {
  return {{"", 0, Alignment::Left},
          {"Beschreibung", 133, Alignment::Left},
          {"Start", 87, Alignment::Right},
          {"Type", 0, Alignment::Left}};
}

class GridModelTest : public testing::Test {
 protected:
  int child() {
    const int item = model.append("");
    model.setLevel(item, 1);
    return item;
  }

  GridModel model{columns(), nullptr};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
  QSignalSpy inserts{&model, &QAbstractItemModel::rowsInserted};
  QSignalSpy moves{&model, &QAbstractItemModel::rowsMoved};
  QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
};

TEST_F(GridModelTest, ShowsOnlyShownColumns) {
  EXPECT_EQ(model.columnCount(), 2);
  EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
            QStringLiteral("Beschreibung"));
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
            static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
  EXPECT_EQ(model.sectionOf(3), -1);
  model.setShown(3, true);
  EXPECT_EQ(model.columnCount(), 3);
  EXPECT_EQ(model.columnOf(2), 3);
  model.setShown(1, false);
  EXPECT_EQ(model.columnOf(0), 2);
}

TEST_F(GridModelTest, BuildsItemByItemWithoutAReset) {
  model.append("");
  child();
  child();
  model.append("");
  child();
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(inserts.count(), 5);
  EXPECT_EQ(moves.count(), 3);
  EXPECT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.rowCount(model.index(0, 0)), 2);
  EXPECT_EQ(GridModel::itemOf(model.index(0, 0, model.index(1, 0))), 4);
}

TEST_F(GridModelTest, IndexAndItemLeadToEachOther) {
  for (int group = 0; group < 3; ++group) {
    model.append("");
    for (int i = 0; i < group; ++i) child();
  }
  for (int item = 0; item < model.items().count(); ++item) {
    const QModelIndex index = model.indexOf(item, 1);
    EXPECT_EQ(GridModel::itemOf(index), item);
    EXPECT_EQ(model.index(index.row(), 1, index.parent()), index);
  }
  EXPECT_FALSE(model.indexOf(-1).isValid());
  EXPECT_FALSE(model.indexOf(6).isValid());
  EXPECT_FALSE(model.indexOf(0, 2).isValid());
}

TEST_F(GridModelTest, AChangedCellIsSignalledOnceAndOnlyWhenItChanges) {
  model.append("");
  model.setText(0, 2, "5");
  EXPECT_EQ(changes.count(), 1);
  model.setText(0, 2, "5");
  model.setText(0, 3, "hidden");
  EXPECT_EQ(changes.count(), 1);
  model.setPicture(0, pictureHandle(PictureKind::CheckedBox));
  EXPECT_EQ(changes.count(), 2);
  EXPECT_EQ(changes.last().at(0).toModelIndex(), model.index(0, 0));
}

TEST_F(GridModelTest, AnUpdateIsSilentAndEndsWithOneReset) {
  model.append("");
  inserts.clear();
  model.beginUpdate();
  model.beginUpdate();
  model.clear();
  for (int group = 0; group < 10; ++group) {
    model.append("");
    for (int i = 0; i < 3; ++i) model.setText(child(), 1, "x");
  }
  EXPECT_FALSE(model.endUpdate());
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_TRUE(model.endUpdate());
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(inserts.count() + moves.count() + changes.count(), 0);
  EXPECT_EQ(model.rowCount(), 10);
}

TEST_F(GridModelTest, CellsChangedInAnUpdateAreSignalledByGroup) {
  for (int group = 0; group < 2; ++group) {
    model.append("");
    child();
    child();
  }
  model.beginUpdate();
  model.setText(1, 1, "a");
  model.setText(5, 2, "b");
  EXPECT_EQ(changes.count(), 0);
  EXPECT_FALSE(model.endUpdate());
  ASSERT_EQ(changes.count(), 3);
  EXPECT_EQ(changes[0][0].toModelIndex(), model.indexOf(1));
  EXPECT_EQ(changes[0][1].toModelIndex(), model.indexOf(2, 1));
  EXPECT_EQ(changes[1][0].toModelIndex(), model.indexOf(3));
  EXPECT_EQ(changes[2][1].toModelIndex(), model.indexOf(5, 1));
  EXPECT_EQ(resets.count(), 0);
}

TEST_F(GridModelTest, AChildWithoutAGroupIsATopItem) {
  child();
  child();
  model.append("");
  child();
  EXPECT_EQ(model.rowCount(), 3);
  EXPECT_FALSE(model.hasChildren(model.index(0, 0)));
  EXPECT_TRUE(model.hasChildren(model.index(2, 0)));
}

TEST_F(GridModelTest, ALevelChangedInTheMiddleMovesTheItemsAfterIt) {
  model.append("");
  child();
  model.append("");
  child();
  model.setLevel(2, 1);
  EXPECT_EQ(model.rowCount(), 1);
  EXPECT_EQ(model.rowCount(model.index(0, 0)), 3);
  model.setLevel(1, 0);
  EXPECT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.rowCount(model.index(1, 0)), 2);
}

TEST_F(GridModelTest, RandomChangesKeepTheModelSound) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int depth = 0;
  for (int step = 0; step < 300; ++step) {
    const int count = model.items().count();
    switch (random() % 8) {
      case 0:
        model.beginUpdate();
        ++depth;
        break;
      case 1:
        if (depth > 0) model.endUpdate();
        depth = std::max(0, depth - 1);
        break;
      case 2:
        if (random() % 20 == 0) model.clear();
        break;
      case 3:
        if (count > 0) model.setLevel(static_cast<int>(random() % static_cast<unsigned>(count)), 0);
        break;
      case 4:
        if (count > 0) model.setNumber(count - 1, 2, step);
        break;
      case 5:
        child();
        break;
      default:
        model.append("");
    }
  }
  while (depth-- > 0) model.endUpdate();
  int rows = model.rowCount();
  for (int top = 0; top < model.rowCount(); ++top) rows += model.rowCount(model.index(top, 0));
  EXPECT_EQ(rows, model.items().count());
}

TEST_F(GridModelTest, TellsPicturesAsCheckStates) {
  model.append("");
  EXPECT_FALSE(model.index(0, 0).data(Qt::CheckStateRole).isValid());
  model.setPicture(0, pictureHandle(PictureKind::OptionOn));
  EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
  EXPECT_FALSE(model.index(0, 1).data(Qt::CheckStateRole).isValid());
  model.setPicture(0, pictureHandle(PictureKind::UncheckedBox));
  EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
  EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleDescriptionRole).toString(),
            QStringLiteral("nicht aktiviert"));
}

}  // namespace
}  // namespace vexnumkr
