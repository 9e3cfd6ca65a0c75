// Texts of the grid are legible, as the WCAG reckons it, whatever the desktop's colours are.
#include <QApplication>

#include "adapters/qtgrid/view/grid_colours.h"
#include "gui/grid/grid_fixture.h"
#include "gui/palettes.h"

namespace vexnumkr::test {
namespace {

constexpr int groupCaption = 0;
constexpr int range = 2;

class GridContrastTest : public GridTest, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    GridTest::SetUp();
    const QPalette palettes[] = {lightPalette(), darkPalette(), darkPaletteWithLightToolTips(),
                                 blackPalette()};
    window.setPalette(palettes[GetParam()]);
  }

  /// The highest contrast between a pixel of the area and its first: that of text and ground.
  static float inkContrast(const QImage& image, const QRect& area) {
    const QColor ground = image.pixelColor(area.topLeft());
    float highest = 1;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        highest = std::max(highest, contrast(image.pixelColor(x, y), ground));
      }
    }
    return highest;
  }

  /// Of the text in a cell; the picture and the arrow of a group are no text.
  float textContrast(int item, int column) {
    QCoreApplication::processEvents();
    const QImage image = view().viewport()->grab().toImage();
    const int left = column > 1 ? 3 : item == groupCaption ? 18 : 42;
    return inkContrast(image, cellRect(item, column).adjusted(left, 2, -2, -3));
  }
};

TEST_P(GridContrastTest, GroupCaptions) {
  for (const GridColour colour :
       {0xF0F0F0U, toolTipBackground, 0xFFFFFFU, 0x808080U, 0x101010U, 0x000080U, 0xFFFF00U}) {
    for (const bool bold : {false, true}) {
      grid->CellBackColor(groupCaption, column::Beschreibung, colour);
      grid->CellFontBold(groupCaption, column::Beschreibung, bold);
      EXPECT_GE(textContrast(groupCaption, 1), legibleContrast) << std::hex << colour;
    }
  }
}

TEST_P(GridContrastTest, Ranges) {
  EXPECT_GE(textContrast(range, 1), legibleContrast);
  EXPECT_GE(textContrast(range, 2), legibleContrast);
}

TEST_P(GridContrastTest, TheSelectedRow) {
  for (const int item : {groupCaption, range}) {
    grid->CellBackColor(groupCaption, column::Beschreibung, 0xF0F0F0U);
    grid->ListIndex(item);
    view().setFocus();
    EXPECT_GE(textContrast(item, 1), legibleContrast) << "with the keys";
    other->setFocus();
    EXPECT_GE(textContrast(item, 1), legibleContrast) << "without";
  }
}

TEST_P(GridContrastTest, TheEditor) {
  grid->StartEdit(range, column::Start);
  const auto ofEditor = [this] {
    QCoreApplication::processEvents();
    const QImage image = editor()->grab().toImage();
    // From within the text's own ground to the cursor behind it.
    const QRect text = editor()->rect().adjusted(editor()->width() - 28, 4, -8, -5);
    return inkContrast(image, text);
  };
  EXPECT_GE(ofEditor(), legibleContrast) << "selected";
  editor()->deselect();
  EXPECT_GE(ofEditor(), legibleContrast);
}

INSTANTIATE_TEST_SUITE_P(Palettes, GridContrastTest, testing::Range(0, 4));

TEST(GridColours, ContrastIsThatOfTheWcag) {
  EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
  EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 0.001);
  EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(GridColours, EveryGroundGetsLegibleText) {
  for (const QPalette& palette : {lightPalette(), darkPalette(), blackPalette()}) {
    for (GridColour grey = 0; grey <= 0xFF; ++grey) {
      const auto colours = cellColours(grey * 0x010101U, palette);
      ASSERT_TRUE(colours.has_value());
      EXPECT_GE(contrast(colours->background, colours->text), legibleContrast) << grey;
    }
  }
}

TEST(GridColours, EverySelectionGetsLegibleText) {
  QPalette palette = lightPalette();
  for (int grey = 0; grey <= 0xFF; ++grey) {
    for (const QColor text : {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128)}) {
      palette.setColor(QPalette::Highlight, QColor(grey, grey, grey));
      palette.setColor(QPalette::HighlightedText, text);
      const CellColours colours = selectionColours(palette);
      EXPECT_GE(contrast(colours.background, colours.text), legibleContrast) << grey;
    }
  }
}

TEST(GridColours, StylesStoreWhatLooksLikeTheApplicationsByItsPalette) {
  const QPalette usual = QApplication::palette();
  QPalette alike = usual;
  alike.setColor(QPalette::Highlight, Qt::red);
  ASSERT_NE(alike.cacheKey(), usual.cacheKey());
  EXPECT_EQ(storablePalette(alike).cacheKey(), usual.cacheKey());
  QPalette other = usual;
  other.setColor(QPalette::Text, Qt::red);
  EXPECT_EQ(storablePalette(other).cacheKey(), other.cacheKey());
}

TEST(GridColours, ALegibleSelectionIsThePalettesOwn) {
  EXPECT_EQ(selectionColours(blackPalette()).background, QColor(Qt::yellow));
  EXPECT_EQ(selectionColours(blackPalette()).text, QColor(Qt::black));
}

}  // namespace
}  // namespace vexnumkr::test
