#include "app/components/host_texts.h"

#include <gtest/gtest.h>

#include <QIcon>
#include <QImage>

#include <vexnumkr/error.h>

#include "app/components/booking_circle_administration.h"
#include "app/components/offered_components.h"
#include "app/components/settings_store.h"
#include "app/components/window_icon.h"

namespace vexnumkr::app {
namespace {

TEST(HostTexts, FillTheProcedureIn) {
  TextCatalogue texts;
  EXPECT_EQ(texts.Text(10055, {Value("Save")}), "Save: ");
  EXPECT_EQ(texts.Text(10055, {Value("%1"), Value("mehr")}), "%1: ");
  EXPECT_EQ(texts.Text(10055, {}), ": ");
}

TEST(HostTexts, FailForUnknownEntries) {
  TextCatalogue texts;
  EXPECT_THROW(texts.Text(1, {}), Error);
  EXPECT_THROW(texts.Text(10055, {Null()}), Error);
  EXPECT_THROW(texts.Picture(268), Error);
}

TEST(HostTexts, HoldTheWindowIconAsAPng) {
  const std::string bytes = TextCatalogue().Picture(267).bytes;
  const QImage image = QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
  EXPECT_EQ(image.size(), QSize(256, 256));
  EXPECT_EQ(image, paintWindowIcon(256).convertToFormat(image.format()));
}

class WindowIconSize : public testing::TestWithParam<int> {};

TEST_P(WindowIconSize, ShowsASheetOnTransparentGround) {
  const int size = GetParam();
  const QImage image = paintWindowIcon(size);
  ASSERT_EQ(image.size(), QSize(size, size));
  EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
  EXPECT_EQ(qAlpha(image.pixel(size - 1, 0)), 0);
  EXPECT_EQ(qAlpha(image.pixel(size / 2, size / 2)), 255);
}

TEST_P(WindowIconSize, IsSharpOnTheGrid) {
  const int size = GetParam();
  if (size % 16 != 0) return;
  // Every edge but those of the folded corner lies between two pixels: below it no colour is mixed.
  const QImage image = paintWindowIcon(size);
  std::set<QRgb> colours;
  for (int y = size * 5 / 16; y < size; ++y) {
    for (int x = 0; x < size; ++x) colours.insert(image.pixel(x, y));
  }
  EXPECT_EQ(colours.size(), 5U);
}

INSTANTIATE_TEST_SUITE_P(Sizes, WindowIconSize, testing::Values(16, 20, 24, 32, 48, 64, 128, 256));

TEST(WindowIcon, ComesInManySizes) { EXPECT_EQ(windowIcon().availableSizes().size(), 10); }

TEST(StandAloneHost, CreatesItsComponentsByName) {
  StandAloneHost host;
  EXPECT_NE(
      dynamic_cast<BookingCircleAdministration*>(host.CreateObject("vxtComDlg.WWSDialog").get()),
      nullptr);
  EXPECT_NE(dynamic_cast<TableSettings*>(host.CreateObject("VEXSetting.VXSettings").get()),
            nullptr);
  EXPECT_NE(dynamic_cast<TableSettings*>(host.CreateObject("vexsetting.vxsettings").get()),
            nullptr);
  EXPECT_NE(host.Texts(), nullptr);
  EXPECT_NE(host.Messages(), nullptr);
}

TEST(StandAloneHost, KnowsNoOtherComponents) {
  StandAloneHost host;
  for (const char* name : {"", "vxtComDlg", "vxKitCtl.Frame"}) {
    try {
      host.CreateObject(name);
      ADD_FAILURE() << name;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 429);
    }
  }
}

}  // namespace
}  // namespace vexnumkr::app
