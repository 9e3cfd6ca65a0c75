#include "scenario/windows/watchdog.h"

#include <gtest/gtest.h>

#include <future>

namespace vexnumkr::scenario {
namespace {

using namespace std::chrono_literals;

struct Bark {
  int line;
  std::string waitingFor;
};

TEST(Watchdog, BarksWithTheLineAndWhatItWaitsFor) {
  std::promise<Bark> promise;
  Watchdog watchdog(20ms, [&](int line, const std::string& what) {
    promise.set_value({line, what});
  });
  watchdog.begin(12, "one thing");
  watchdog.waitFor("another");
  const Bark bark = promise.get_future().get();
  EXPECT_EQ(bark.line, 12);
  EXPECT_EQ(bark.waitingFor, "another");
}

TEST(Watchdog, BarksOnceAndOnlyAtTheLastThingBegun) {
  std::promise<Bark> promise;
  int barks = 0;
  {
    Watchdog watchdog(1ms, [&](int line, const std::string& what) {
      if (++barks == 1) promise.set_value({line, what});
    });
    watchdog.begin(3, "the third line");
    EXPECT_EQ(promise.get_future().get().line, 3);
  }
  EXPECT_EQ(barks, 1);
}

TEST(Watchdog, StaysSilentAboutWhatHasEnded) {
  int barks = 0;
  {
    Watchdog watchdog(1h, [&](int, const std::string&) { ++barks; });
    watchdog.begin(1, "something");
    watchdog.end();
  }
  EXPECT_EQ(barks, 0);
}

}  // namespace
}  // namespace vexnumkr::scenario
