#include <QPainter>
#include <set>

#include "adapters/qtgrid/view/grid_colours.h"
#include "gui/grid/grid_fixture.h"
#include "gui/palettes.h"

namespace vexnumkr::test {
namespace {

QImage shot(const QTreeView& view) {
  QCoreApplication::processEvents();
  return view.viewport()->grab().toImage();
}

bool contains(const QImage& image, const QRect& area, const QColor& colour) {
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (image.pixelColor(x, y) == colour) return true;
    }
  }
  return false;
}

double luminance(const QColor& colour) {
  return 0.299 * colour.redF() + 0.587 * colour.greenF() + 0.114 * colour.blueF();
}

TEST_F(GridTest, ACellBackgroundCoversItsCellAlone) {
  grid->CellBackColor(0, column::Beschreibung, 0xF0D0E0);
  const QImage image = shot(view());
  const QRect rect = cellRect(0, column::Beschreibung);
  EXPECT_EQ(image.pixelColor(rect.left() + 1, rect.top() + 2), QColor(0xF0, 0xD0, 0xE0));
  EXPECT_EQ(image.pixelColor(rect.right() - 1, rect.top() + 2), QColor(0xF0, 0xD0, 0xE0));
  EXPECT_EQ(image.pixelColor(rect.right() + 3, rect.top() + 2),
            view().palette().color(QPalette::Base));
  EXPECT_EQ(image.pixelColor(rect.right() - 1, rect.bottom() + 3),
            view().palette().color(QPalette::Base));
}

TEST_F(GridTest, TheToolTipColourFollowsThePalette) {
  grid->CellBackColor(0, column::Beschreibung, toolTipBackground);
  for (const QPalette& palette : {QPalette(), darkPalette()}) {
    view().setPalette(palette);
    const QImage image = shot(view());
    const QRect rect = cellRect(0, column::Beschreibung);
    EXPECT_EQ(image.pixelColor(rect.right() - 1, rect.top() + 2),
              palette.color(QPalette::ToolTipBase));
    EXPECT_TRUE(contains(image, rect, palette.color(QPalette::ToolTipText)));
  }
}

TEST_F(GridTest, ALightGroundGlaresOnNoDarkPalette) {
  view().setPalette(darkPalette());
  for (const GridColour colour : {0xF0F0F0U, 0xFFFFFFU, 0xFFFFE1U}) {
    grid->CellBackColor(0, column::Beschreibung, colour);
    const QRect rect = cellRect(0, column::Beschreibung);
    const QColor ground = shot(view()).pixelColor(rect.right() - 1, rect.top() + 2);
    const float shade = contrast(ground, darkPalette().color(QPalette::Base));
    EXPECT_NEAR(shade, contrast(QColor::fromRgb(colour), Qt::white), 0.03) << std::hex << colour;
  }
}

TEST_F(GridTest, ALightGroundIsPaintedToTheLetterOnALightPalette) {
  grid->CellBackColor(0, column::Beschreibung, 0xF0F0F0U);
  const QRect rect = cellRect(0, column::Beschreibung);
  EXPECT_EQ(shot(view()).pixelColor(rect.right() - 1, rect.top() + 2), QColor(0xF0, 0xF0, 0xF0));
}

TEST_F(GridTest, AFittedShadeKeepsItsTint) {
  view().setPalette(darkPalette());
  grid->CellBackColor(0, column::Beschreibung, 0xFFFF80U);
  const QRect rect = cellRect(0, column::Beschreibung);
  const QColor ground = shot(view()).pixelColor(rect.right() - 1, rect.top() + 2);
  EXPECT_EQ(ground.red(), ground.green());
  EXPECT_GT(ground.red(), ground.blue());
}

TEST_F(GridTest, AnUnknownSystemColourLeavesTheGridsOwn) {
  grid->CellBackColor(0, column::Beschreibung, 0x800000FF);
  const QRect rect = cellRect(0, column::Beschreibung);
  EXPECT_EQ(shot(view()).pixelColor(rect.right() - 1, rect.top() + 2),
            view().palette().color(QPalette::Base));
}

TEST_F(GridTest, BoldCellsAreBolder) {
  const QRect rect = cellRect(0, column::Beschreibung);
  const auto inkedPixels = [&] {
    const QImage image = shot(view()).copy(rect);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += luminance(image.pixelColor(x, y)) < 0.5;
    }
    return count;
  };
  const int plain = inkedPixels();
  grid->CellFontBold(0, column::Beschreibung, true);
  EXPECT_GT(inkedPixels(), plain);
}

TEST_F(GridTest, TheSelectionCoversTheWholeRow) {
  grid->ListIndex(2);
  const QImage image = shot(view());
  const QColor selection = selectionColours(view().palette()).background;
  const int y = cellRect(2, column::Beschreibung).top() + 2;
  EXPECT_EQ(image.pixelColor(1, y), selection);
  EXPECT_EQ(image.pixelColor(image.width() - 2, y), selection);
}

TEST_F(GridTest, TheSelectionIsQuietWhileTheKeysGoElsewhere) {
  grid->ListIndex(2);
  other->setFocus();
  const QColor tint = shot(view()).pixelColor(1, cellRect(2, column::Beschreibung).top() + 2);
  EXPECT_NE(tint, selectionColours(view().palette()).background);
  EXPECT_NE(tint, view().palette().color(QPalette::Base));
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(shot(view()).pixelColor(1, cellRect(2, column::Beschreibung).top() + 2), tint);
}

TEST_F(GridTest, AStateIsSeenInThePicture) {
  std::set<QByteArray> looks;
  for (const auto kind : {PictureKind::CheckedBox, PictureKind::UncheckedBox, PictureKind::OptionOn,
                          PictureKind::OptionOff, PictureKind::NotFound, PictureKind::None}) {
    grid->ItemPicture(2, pictureHandle(kind));
    EXPECT_EQ(grid->ItemPicture(2), pictureHandle(kind));
    const QImage image = shot(view()).copy(QRect(pictureOf(2) - QPoint(8, 8), QSize(17, 17)));
    looks.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()),
                            static_cast<int>(image.sizeInBytes())));
  }
  EXPECT_EQ(looks.size(), 6U);
}

TEST(PictureArt, OutlinesCoverWholePixelsAtEveryRatio) {
  const QPalette palette;
  for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    const QImage image =
        picturePixmap(PictureKind::UncheckedBox, pictureSize, palette, ratio).toImage();
    const int middle = image.height() / 2;
    EXPECT_EQ(image.width(), qRound(pictureSize * ratio));
    // From the left edge inwards: outline, then ground, with no blurred pixel between or outside.
    std::vector<QColor> colours;
    for (int x = 0; x < image.width() / 2; ++x) {
      const QColor colour = image.pixelColor(x, middle);
      if (colours.empty() || colours.back() != colour) colours.push_back(colour);
    }
    ASSERT_EQ(colours.size(), 2U) << ratio;
    EXPECT_EQ(colours[1], palette.color(QPalette::Base));
  }
}

TEST(PictureArt, PicturesTakeTheColoursOfThePalette) {
  const QImage image = picturePixmap(PictureKind::CheckedBox, 26, darkPalette(), 1.0).toImage();
  EXPECT_EQ(image.pixelColor(4, 4), darkPalette().color(QPalette::Base));
  EXPECT_TRUE(contains(image, image.rect(), darkPalette().color(QPalette::Text)));
  EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

TEST(PictureArt, PaintingLeavesThePainterAsItWas) {
  QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setPen(Qt::red);
  paintPicture(painter, QRectF(0, 0, 20, 20), PictureKind::OptionOn, QPalette(), 0.5);
  EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
  EXPECT_EQ(painter.opacity(), 1.0);
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST(PictureArt, IconsAreSharpAtTheSizeAskedFor) {
  const QIcon icon = pictureIcon(PictureKind::CheckedBox, QPalette());
  EXPECT_EQ(icon.pixmap(QSize(16, 16), 2.0).size(), QSize(32, 32));
  EXPECT_TRUE(pictureIcon(PictureKind::None, QPalette()).isNull());
  EXPECT_EQ(pictureKind(pictureHandle(PictureKind::NotFound)), PictureKind::NotFound);
  EXPECT_EQ(pictureKind(99), PictureKind::None);
  EXPECT_EQ(pictureHandle(PictureKind::None), noPicture);
}

TEST_F(GridTest, AFrameShowsTheFocusAlsoWhileNoItemIsCurrent) {
  const QColor frame = selectionColours(view().palette()).background;
  const auto edge = [this] {
    QCoreApplication::processEvents();
    return view().grab().toImage().pixelColor(0, view().height() / 2);
  };
  EXPECT_EQ(edge(), frame);
  other->setFocus();
  EXPECT_NE(edge(), frame);
  view().setFocus();
  EXPECT_EQ(edge(), frame);
  grid->StartEdit(2, column::Start);
  EXPECT_NE(edge(), frame);
}

TEST_F(GridTest, ValuesThatTakeNoEntriesAreMuted) {
  for (const QPalette& palette : {QPalette(), darkPalette()}) {
    view().setPalette(palette);
    const QColor text = palette.color(QPalette::Text);
    const QRect value = cellRect(2, column::Start);
    const QRect caption = cellRect(2, column::Beschreibung).adjusted(55, 0, 0, 0);
    EXPECT_TRUE(contains(shot(view()), value, text));
    grid->AcceptsEntries(false);
    const QImage image = shot(view());
    EXPECT_FALSE(contains(image, value, text));
    EXPECT_TRUE(contains(image, caption, text));
    const QColor muted = mutedText(text, palette.color(QPalette::Base));
    EXPECT_TRUE(contains(image, value, muted));
    EXPECT_GE(contrast(muted, palette.color(QPalette::Base)), legibleContrast);
    grid->AcceptsEntries(true);
  }
}

TEST_F(GridTest, OptionButtonsThatCannotBeChosenArePale) {
  grid->ItemPicture(2, pictureHandle(PictureKind::OptionOn));
  const QRect place(pictureOf(2) - QPoint(8, 8), QSize(17, 17));
  const QImage before = shot(view()).copy(place);
  const QImage boxBefore = shot(view()).copy(place.translated(
      0, cellRect(3, column::Beschreibung).top() - cellRect(2, column::Beschreibung).top()));
  grid->AcceptsChoices(false);
  const QImage after = shot(view());
  EXPECT_FALSE(contains(after, place, view().palette().color(QPalette::Text)));
  EXPECT_NE(after.copy(place), before);
  EXPECT_EQ(after.copy(place.translated(0, cellRect(3, column::Beschreibung).top() -
                                               cellRect(2, column::Beschreibung).top())),
            boxBefore);
}

TEST_F(GridTest, TextsBehindNumbersStandClearOfThem) {
  grid->List(2, column::Ende, "88888888");
  grid->List(2, column::Maske, "MMM");
  const QImage image = shot(view());
  const QColor base = view().palette().color(QPalette::Base);
  const QRect mask = cellRect(2, column::Maske);
  const auto isEmpty = [&](int x) {
    for (int y = mask.top() + 2; y < mask.bottom() - 1; ++y)
      if (image.pixelColor(x, y) != base) return false;
    return true;
  };
  int left = mask.left();
  while (isEmpty(left - 1)) --left;
  int right = mask.left();
  while (isEmpty(right)) ++right;
  EXPECT_GE(right - left, 16);
}

}  // namespace
}  // namespace vexnumkr::test
