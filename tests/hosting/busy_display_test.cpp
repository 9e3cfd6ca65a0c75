#include "hosting/busy_display.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/progress.h"
#include "support/recording_forms.h"
#include "support/recording_progress.h"

namespace vexnumkr {
namespace {

using Log = std::vector<std::string>;
using Pointers = std::vector<MousePointer>;

class ProgressTest : public ::testing::Test {
 protected:
  Log log() { return display_.takeLog(); }
  Pointers pointers() { return forms_.takePointers(); }
  /// The positions shown since the last call.
  std::vector<int> positions() {
    std::vector<int> result;
    for (const std::string& entry : log())
      if (entry.find_first_not_of("0123456789") == std::string::npos)
        result.push_back(std::stoi(entry));
    return result;
  }

  test::RecordingForms forms_;
  test::RecordingProgress display_;
  BusyDisplay busy_{forms_, &display_};
  Progress progress{&busy_};
};

TEST_F(ProgressTest, EveryStepIsShownWhereThereAreFew) {
  {
    const Work work(progress, "Arbeit");
    progress.expect(4);
    for (int step = 0; step < 4; ++step) progress.advance();
  }
  EXPECT_EQ(log(), (Log{"begin Arbeit", "250", "500", "750", "1000", "end"}));
}

// A step may be a statement to a slow server, and the display waits for its time to come.
TEST_F(ProgressTest, TheDisplayHearsOfEveryStepUntilItIsFull) {
  const Work work(progress, "Arbeit");
  constexpr int steps = 123'457;
  progress.expect(steps);
  log();
  for (std::int64_t step = 1; step <= steps; ++step) {
    progress.advance();
    ASSERT_EQ(positions(), std::vector{static_cast<int>(step * 1000 / steps)});
  }
  progress.advance();
  EXPECT_EQ(log(), Log{});
}

TEST_F(ProgressTest, StepsCanBeTakenAtOnce) {
  const Work work(progress, "Arbeit");
  progress.expect(10'000);
  progress.advance(2'500);
  progress.advance(7'499);
  progress.advance();
  EXPECT_EQ(positions(), (std::vector{250, 999, 1000}));
}

TEST_F(ProgressTest, WhatIsLeftStandsForTheStepsExpectedAnew) {
  const Work work(progress, "Arbeit");
  progress.expect(10);
  progress.advance(4);
  progress.expect(3);
  for (int step = 0; step < 3; ++step) progress.advance();
  EXPECT_EQ(positions(), (std::vector{400, 600, 800, 1000}));
}

TEST_F(ProgressTest, MoreStepsThanExpectedShowNothingMore) {
  const Work work(progress, "Arbeit");
  progress.expect(2);
  progress.advance(5);
  progress.advance();
  progress.expect(5);
  progress.advance();
  EXPECT_EQ(positions(), std::vector{1000});
}

TEST_F(ProgressTest, WorkOfWhichNothingIsKnownShowsItsEnd) {
  const Work work(progress, "Arbeit");
  progress.advance();
  progress.expect(0);
  progress.advance();
  progress.expect(-1);
  progress.advance();
  progress.finish();
  EXPECT_EQ(positions(), std::vector{1000});
}

TEST_F(ProgressTest, WhateverIsExpectedThePositionOnlyRises) {
  const auto seed = std::random_device{}();
  std::mt19937 random(seed);
  const auto upTo = [&random](int most) {
    return std::uniform_int_distribution<std::int64_t>(0, most)(random);
  };
  for (int run = 0; run < 200; ++run) {
    {
      const Work work(progress, "Arbeit");
      for (auto expectations = upTo(20); expectations > 0; --expectations) {
        progress.expect(upTo(5'000));
        for (auto leaps = upTo(300); leaps > 0; --leaps) progress.advance(upTo(30));
      }
      progress.finish();
    }
    int before = 0;
    for (const int position : positions()) {
      ASSERT_GE(position, before) << "seed " << seed;
      before = position;
    }
    ASSERT_EQ(before, ProgressDisplay::full) << "seed " << seed;
  }
}

TEST_F(ProgressTest, AFailureEndsTheWork) {
  try {
    const Work work(progress, "Arbeit");
    progress.expect(2);
    progress.advance();
    throw Error::overflow();
  } catch (const Error&) {
  }
  EXPECT_EQ(log(), (Log{"begin Arbeit", "500", "end"}));
  EXPECT_EQ(pointers(), (Pointers{MousePointer::Hourglass, MousePointer::Default}));
  EXPECT_FALSE(progress.isWorking());
}

TEST_F(ProgressTest, WorkGoesOnUntilItsDisplayHasGone) {
  bool working = false;
  display_.onEnd = [&] { working = progress.isWorking(); };
  { const Work work(progress, "Arbeit"); }
  EXPECT_TRUE(working);
  EXPECT_FALSE(progress.isWorking());
}

TEST_F(ProgressTest, StepsOutsideOfWorkAreNotShown) {
  progress.expect(3);
  progress.advance();
  progress.finish();
  EXPECT_EQ(log(), Log{});
}

TEST_F(ProgressTest, EveryWorkBeginsAnew) {
  for (const char* caption : {"eins", "zwei"}) {
    const Work work(progress, caption);
    progress.expect(2);
    progress.advance();
  }
  EXPECT_EQ(log(), (Log{"begin eins", "500", "end", "begin zwei", "500", "end"}));
}

TEST_F(ProgressTest, APauseHidesWorkAndGivesThePointerBack) {
  const Work work(progress, "Arbeit");
  log();
  pointers();
  {
    const WorkPause pause(progress);
    EXPECT_EQ(log(), Log{"pause"});
    EXPECT_EQ(pointers(), Pointers{MousePointer::Default});
    const WorkPause inside(progress);
    EXPECT_EQ(log(), Log{});
  }
  EXPECT_EQ(log(), Log{"resume"});
  EXPECT_EQ(pointers(), Pointers{MousePointer::Hourglass});
}

TEST_F(ProgressTest, WithoutWorkThereIsNothingToPause) {
  { const WorkPause pause(progress); }
  EXPECT_EQ(log(), Log{});
  EXPECT_EQ(pointers(), Pointers{});
}

TEST_F(ProgressTest, WithoutADisplayThePointerTellsOfWork) {
  BusyDisplay busy(forms_, nullptr);
  Progress unseen(&busy);
  {
    const Work work(unseen, "Arbeit");
    unseen.expect(2);
    unseen.advance();
    EXPECT_TRUE(unseen.isWorking());
    const WorkPause pause(unseen);
    unseen.finish();
  }
  EXPECT_EQ(pointers(), (Pointers{MousePointer::Hourglass, MousePointer::Default,
                                  MousePointer::Hourglass, MousePointer::Default}));
}

}  // namespace
}  // namespace vexnumkr
