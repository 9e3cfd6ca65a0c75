// A host in a process of its own that draws one number after the other, but no more than a few
// ahead of what the test has heard of: no engine promises a turn to whoever waits among hosts that
// never pause. The program that includes this is built with DRAWING_PROGRAM.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <cstdint>
#include <string>

namespace vexnumkr::test {

class DrawingProcess {
 public:
  /// What it has drawn at most without having been heard of: who has heard of more draws than that
  /// from now on has heard of one that was made from now on.
  static constexpr int ahead = 5;

  /// Begins to draw `count` numbers of application 1.
  DrawingProcess(const std::string& connectionString, const std::string& user,
                 const std::string& key, int count)
      : count_(count) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"),
                       QString::fromStdString(connectionString));
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(DRAWING_PROGRAM),
                   {QString::fromStdString(user), QString::fromStdString(key),
                    QString::number(count), QString::number(ahead)});
  }

  /// Blocks until it has told of that many numbers more, or of all; it fails the test where it has
  /// drawn none for long.
  void waitForMore(int draws) { waitFor(std::min(count_, drawn_ + draws)); }
  /// Blocks until it has drawn all of them and has ended.
  void waitForAll() {
    waitFor(count_);
    EXPECT_TRUE(process_.state() == QProcess::NotRunning ||
                process_.waitForFinished(longestWaitMilliseconds));
    EXPECT_EQ(process_.exitCode(), 0) << process_.readAllStandardError().toStdString();
  }

  bool isDone() const { return drawn_ == count_; }
  int drawn() const { return drawn_; }
  /// The highest number that it has told of.
  std::int32_t last() const { return last_; }

 private:
  static constexpr int longestWaitMilliseconds = 100'000;

  void waitFor(int draws) {
    while (drawn_ < draws) {
      ASSERT_TRUE(process_.canReadLine() || process_.waitForReadyRead(longestWaitMilliseconds))
          << process_.readAllStandardError().toStdString();
      while (process_.canReadLine()) {
        last_ = std::max(last_, process_.readLine().trimmed().toInt());
        ++drawn_;
        process_.write("\n");
      }
    }
  }

  const int count_;
  QProcess process_;
  int drawn_ = 0;
  std::int32_t last_ = 0;
};

}  // namespace vexnumkr::test
