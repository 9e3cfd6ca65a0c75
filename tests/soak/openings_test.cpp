// A host that opens the dialog all day long needs no more memory and no more handles in the
// evening. VEXNUMKR_OPENINGS says how often (300).
#include <gtest/gtest.h>

#include <QDialog>
#include <QPixmapCache>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <vexnumkr/component.h>

#include "app/sample_database.h"
#include "embed/misuse/hasty_user.h"
#include "support/heap_in_use.h"

namespace vexnumkr::test {
namespace {

constexpr int warmUp = 200;  // what is kept for the next time is kept by then
constexpr long mostGrowth = 2L * 1024 * 1024;

// Without Qt's store of pictures, which is full at 10 MiB and then grows no more.
long allocated() {
  QPixmapCache::clear();
  return heapInUse();
}

long handles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

TEST(OpeningsTest, NeedNoMoreMemoryAndHandles) {
  const char* given = std::getenv("VEXNUMKR_OPENINGS");
  const int openings = std::max(warmUp + 1, given == nullptr ? 300 : std::atoi(given));
  const SampleDatabase database;
  HastyUser user;
  user.presses = {"cmdOptionen"};
  long bytes = 0;
  long files = 0;
  for (int i = 1; i <= openings; ++i) {
    const auto component = createVXNummernkreise(emptyHost());
    ASSERT_TRUE(component->Init(database.connect(), 2, "Becker", "20270115"));
    component->ShowDialog();
    user.takeBoxes();
    if (i != warmUp) continue;
    bytes = allocated();
    files = handles();
  }
  const long grown = allocated() - bytes;
  std::printf("%d openings: %ld bytes more than after %d, %ld handles\n", openings, grown, warmUp,
              handles());
  EXPECT_LE(grown, mostGrowth);
  EXPECT_LE(handles(), files);
  EXPECT_GE(user.windows(), openings);
}

}  // namespace
}  // namespace vexnumkr::test
