#include "scenario/windows/idle_pump.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace vexnumkr::scenario {
namespace {

TEST(IdlePump, WaitsForEverythingThatFollowsFromAnEvent) {
  int left = 20;
  std::function<void()> again = [&] {
    if (--left > 0) QTimer::singleShot(0, again);
  };
  QTimer::singleShot(0, again);
  QEventLoop loop;
  int leftWhenIdle = -1;
  IdlePump pump([&] {
    leftWhenIdle = left;
    pump.stop();
    loop.quit();
  });
  pump.start();
  loop.exec();
  EXPECT_EQ(leftWhenIdle, 0);
}

TEST(IdlePump, RunsInsideEventLoopsThatItsCallbackOpens) {
  QEventLoop outer;
  QEventLoop inner;
  QEventLoop innermost;
  std::vector<QString> order;
  int calls = 0;
  IdlePump pump([&] {
    switch (++calls) {
      case 1:
        inner.exec();
        order.push_back(QStringLiteral("inner"));
        break;
      case 2:
        innermost.exec();
        order.push_back(QStringLiteral("innermost"));
        break;
      case 3:
        innermost.quit();
        break;
      case 4:
        inner.quit();
        break;
      default:
        pump.stop();
        outer.quit();
    }
  });
  pump.start();
  outer.exec();
  EXPECT_EQ(order, (std::vector<QString>{QStringLiteral("innermost"), QStringLiteral("inner")}));
}

}  // namespace
}  // namespace vexnumkr::scenario
