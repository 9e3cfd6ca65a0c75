// The icons in the menu and of the windows are one picture.
#include "app/components/window_icon.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace vexnumkr::test {
namespace {

constexpr QImage::Format pixels = QImage::Format_ARGB32_Premultiplied;

/// How far apart two pixels are in the part in which they differ most.
int distance(QRgb first, QRgb second) {
  int largest = 0;
  for (const int shift : {0, 8, 16, 24}) {
    const int difference = int(first >> shift & 0xffU) - int(second >> shift & 0xffU);
    largest = std::max(largest, std::abs(difference));
  }
  return largest;
}

/// The pixels of a line, transparent ones by what is seen of them.
const QRgb* line(const QImage& image, int y) {
  return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

class InstalledIcon : public ::testing::TestWithParam<int> {};

TEST_P(InstalledIcon, IsThatOfTheWindows) {
  const int size = GetParam();
  const QString file = QStringLiteral(ICON_FOLDER "/vexnumkr-host-%1.png").arg(size);
  const QImage installed = QImage(file).convertToFormat(pixels);
  ASSERT_EQ(installed.size(), QSize(size, size)) << file.toStdString();
  const QImage painted = app::paintWindowIcon(size).convertToFormat(pixels);
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      // Edges that are not level are smoothed in more than one way.
      EXPECT_LT(distance(line(installed, y)[x], line(painted, y)[x]), 72) << x << ", " << y;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, InstalledIcon, ::testing::Values(16, 32, 48, 64, 128, 256));

}  // namespace
}  // namespace vexnumkr::test
