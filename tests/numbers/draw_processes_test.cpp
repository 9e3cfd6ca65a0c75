// Many hosts draw from one range at the same time, and some of them are killed.
//
// VEXNUMKR_TEST_DRAWS says how many numbers each of them draws; tools/test-draws.sh sets it to
// 2,000.
#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <vector>

#include "numbers/numbers_database.h"

namespace vexnumkr::test {
namespace {

constexpr int processes = 8;
constexpr int longestRunMilliseconds = 3'000'000;

int drawsEach() {
  const int asked = qEnvironmentVariableIntValue("VEXNUMKR_TEST_DRAWS");
  return asked > 0 ? asked : 25;
}

// One host and the numbers it has told of.
class Drawer {
 public:
  Drawer(const std::string& connection, int count) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"), QString::fromStdString(connection));
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(DRAWING_PROGRAM),
                   {QStringLiteral("Anna"), QStringLiteral("RE"), QString::number(count)});
  }

  void finish() {
    ASSERT_TRUE(process_.waitForFinished(longestRunMilliseconds));
    readLines();
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process_.exitCode(), 0) << process_.readAllStandardError().toStdString();
  }

  // At whatever step of a draw it is by then: it may go on for so long after it has told of so many
  // numbers.
  void killAfter(int count, int milliseconds) {
    while (static_cast<int>(numbers_.size()) < count) {
      ASSERT_TRUE(process_.waitForReadyRead(longestRunMilliseconds))
          << process_.readAllStandardError().toStdString();
      readLines();
    }
    const bool hasDrawnAll = process_.waitForFinished(milliseconds);
    process_.kill();
    ASSERT_TRUE(hasDrawnAll || process_.waitForFinished());
    readLines();
  }

  const std::vector<int>& numbers() const { return numbers_; }

 private:
  // What a killed process has not written to its end is no number it has told of.
  void readLines() {
    while (process_.canReadLine()) numbers_.push_back(process_.readLine().trimmed().toInt());
  }

  QProcess process_;
  std::vector<int> numbers_;
};

class DrawProcessesTest : public NumbersDatabase {
 protected:
  DrawProcessesTest() {
    circle(1, "Werk");
    range(1, "RE", 1000, 1000, 1000000);
    assign("Anna", 1, "RE");
    for (int i = 0; i < processes; ++i)
      drawers_.push_back(std::make_unique<Drawer>(database().connectionString(), drawsEach()));
  }

  std::vector<int> allNumbers() const {
    std::vector<int> all;
    for (const auto& drawer : drawers_)
      all.insert(all.end(), drawer->numbers().begin(), drawer->numbers().end());
    std::sort(all.begin(), all.end());
    return all;
  }
  Drawer& drawer(int i) { return *drawers_[static_cast<std::size_t>(i)]; }

 private:
  std::vector<std::unique_ptr<Drawer>> drawers_;
};

TEST_F(DrawProcessesTest, NoNumberIsDrawnTwiceAndNoneIsLeftOut) {
  for (int i = 0; i < processes; ++i) drawer(i).finish();
  const std::vector<int> all = allNumbers();
  ASSERT_EQ(static_cast<int>(all.size()), processes * drawsEach());
  for (std::size_t i = 0; i < all.size(); ++i) ASSERT_EQ(all[i], 1001 + static_cast<int>(i));
  EXPECT_EQ(current(1, "RE"), 1000 + processes * drawsEach());
}

TEST_F(DrawProcessesTest, KilledHostsLeaveGapsAtMost) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr int killed = processes / 2;
  for (int i = 0; i < killed; ++i)
    drawer(i).killAfter(std::uniform_int_distribution(1, std::max(1, drawsEach() / 2))(random),
                        std::uniform_int_distribution(0, 5)(random));
  for (int i = killed; i < processes; ++i) drawer(i).finish();
  const std::vector<int> all = allNumbers();
  EXPECT_EQ(std::set<int>(all.begin(), all.end()).size(), all.size()) << "a number came twice";
  EXPECT_GE(all.front(), 1001);
  EXPECT_LE(all.back(), current(1, "RE"));
  // A host may be killed between its commit and its word of it, with one number in its hand.
  EXPECT_LE(current(1, "RE") - 1000 - static_cast<int>(all.size()), killed);
}

}  // namespace
}  // namespace vexnumkr::test
