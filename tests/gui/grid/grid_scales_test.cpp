// The grid at the scale of the screen that the test is run on: lines of whole device pixels.
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>

#include "adapters/qtgrid/view/grid_colours.h"
#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

struct Line {
  int top = 0;
  int thickness = 0;
};

// Of any colour of any pixel.
int largestDifference(const QImage& one, const QImage& other) {
  int largest = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QColor here = one.pixelColor(x, y);
      const QColor there = other.pixelColor(x, y);
      largest =
          std::max({largest, std::abs(here.red() - there.red()),
                    std::abs(here.green() - there.green()), std::abs(here.blue() - there.blue())});
    }
  }
  return largest;
}

class GridScalesTest : public GridTest {
 protected:
  void SetUp() override {
    GridTest::SetUp();
    rebuild(12, 3, -1);
    QCoreApplication::processEvents();
  }

  qreal ratio() const { return view().devicePixelRatioF(); }
  /// The window as it is on the screen, in device pixels.
  QImage shot() {
    QCoreApplication::processEvents();
    return window.grab().toImage();
  }
  /// A place of the viewport in that picture.
  QPoint onShot(const QPoint& place) const {
    const QPointF point = view().viewport()->mapTo(&window, place);
    return (point * ratio()).toPoint();
  }

  /// The horizontal lines in a column of pixels where nothing else is.
  std::vector<Line> rules() {
    const QImage image = shot();
    const QPoint top = onShot({view().viewport()->width() - 4, 0});
    const QPoint end = onShot({view().viewport()->width() - 4, view().viewport()->height()});
    const QColor ground = view().palette().color(QPalette::Base);
    std::vector<Line> lines;
    for (int y = top.y() + 1; y < end.y() - 1; ++y) {
      if (image.pixelColor(top.x(), y) == ground) continue;
      const bool goesOn = !lines.empty() && lines.back().top + lines.back().thickness == y;
      if (!goesOn) lines.push_back({y, 0});
      ++lines.back().thickness;
    }
    return lines;
  }

  void expectEvenRules() {
    const std::vector<Line> lines = rules();
    ASSERT_GT(lines.size(), 5U);
    const int pitch = lines[1].top - lines[0].top;
    EXPECT_EQ(pitch, qRound(view().visualRect(cell(2, column::Beschreibung)).height() * ratio()));
    for (std::size_t i = 1; i < lines.size(); ++i) {
      EXPECT_EQ(lines[i].top - lines[i - 1].top, pitch) << "rule " << i;
    }
    for (const Line& line : lines) EXPECT_EQ(line.thickness, static_cast<int>(ratio()));
  }
};

TEST_F(GridScalesTest, RowsAreWholeDevicePixelsHigh) {
  const qreal height = view().visualRect(cell(2, column::Beschreibung)).height() * ratio();
  EXPECT_DOUBLE_EQ(height, qRound(height));
}

TEST_F(GridScalesTest, RulesAreEvenlySpaced) { expectEvenRules(); }

TEST_F(GridScalesTest, RulesAreEvenlySpacedWhereverTheGridStands) {
  for (const int left : {9, 10, 11}) {
    for (const int top : {11, 12, 13}) {
      view().move(left, top);
      expectEvenRules();
    }
  }
}

TEST_F(GridScalesTest, RulesAreEvenlySpacedWhereverTheListIsScrolledTo) {
  for (const int position : {1, 7, 30}) {
    view().verticalScrollBar()->setValue(position);
    expectEvenRules();
  }
}

TEST_F(GridScalesTest, RulesAreEvenlySpacedInEveryFontSize) {
  for (const double points : {8.25, 9.0, 10.0, 12.0}) {
    grid->SetFont({"Tahoma", points});
    QCoreApplication::processEvents();
    expectEvenRules();
  }
}

TEST_F(GridScalesTest, ASelectedRowLeavesNoGap) {
  grid->ListIndex(2);
  const QImage image = shot();
  const QRect row = cellRect(2, column::Maske);
  const int x = onShot({view().viewport()->width() - 4, 0}).x();
  const int top = onShot(row.topLeft()).y();
  const int end = onShot({0, row.top() + row.height()}).y() - static_cast<int>(ratio());
  const QColor selection = selectionColours(view().palette()).background;
  for (int y = top; y < end; ++y) EXPECT_EQ(image.pixelColor(x, y), selection) << y - top;
}

TEST_F(GridScalesTest, AllCheckBoxesLookAlike) {
  const QImage image = shot();
  const int edge = qRound(20 * ratio());
  const auto boxOf = [&](int item) {
    const QPoint corner =
        onShot(QPoint(pictureOf(item).x() - 10, cellRect(item, column::Beschreibung).top()));
    return image.copy(QRect(corner, QSize(edge, edge)));
  };
  for (const int item : {2, 3, 5, 6, 7}) {
    EXPECT_LE(largestDifference(boxOf(1), boxOf(item)), 4) << "item " << item;  // of 255
  }
}

TEST_F(GridScalesTest, TheFrameOfTheEditorIsEvenAllAround) {
  grid->StartEdit(2, column::Start);
  editor()->clear();
  const QImage image = editor()->grab().toImage();
  const QColor frame = editor()->palette().color(QPalette::Highlight);
  const int thickness = static_cast<int>(ratio());
  const QPoint middle = image.rect().center();
  const auto isFrame = [&](int x, int y) { return image.pixelColor(x, y) == frame; };
  for (int depth = 0; depth < 3; ++depth) {
    const bool inside = depth >= thickness;
    EXPECT_NE(isFrame(depth, middle.y()), inside) << "left " << depth;
    EXPECT_NE(isFrame(image.width() - 1 - depth, middle.y()), inside) << "right " << depth;
    EXPECT_NE(isFrame(image.width() / 4, depth), inside) << "top " << depth;
    EXPECT_NE(isFrame(image.width() / 4, image.height() - 1 - depth), inside) << "bottom " << depth;
  }
}

}  // namespace
}  // namespace vexnumkr::test
