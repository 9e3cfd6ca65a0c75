// The host killed before, in and after a save: the database holds either all of it or nothing.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>
#include <ostream>
#include <set>

#include "app/sample_database.h"
#include "app/saving_host.h"

namespace vexnumkr::test {
namespace {

// Every row of every table, after the engine has put the file in order again.
std::string contentsOf(const std::string& file) {
  std::string contents;
  for (const Row& table : rowsOf(file, "SELECT name FROM sqlite_master WHERE type='table'")) {
    const std::string columns =
        rowsOf(file,
               "SELECT group_concat('quote(' || name || ')', '||'' ''||') FROM "
               "pragma_table_info('" +
                   table[0] + "')")[0][0];
    contents += table[0] + ":\n" +
                rowsOf(file, "SELECT group_concat(line, char(10)) FROM (SELECT " + columns +
                                 " AS line FROM " + table[0] + " ORDER BY line)")[0][0] +
                '\n';
  }
  return contents;
}

QByteArray bytesOf(const std::string& file) {
  QFile opened(QString::fromStdString(file));
  EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
  return opened.readAll();
}

// How the engine keeps the database while it is changed.
struct Keeping {
  const char* name;
  const char* pragma;  // stays in the file
  int kills;
  int leastTorn;  // of the kills that leave a file which is neither the old nor the new one
};

void PrintTo(const Keeping& keeping, std::ostream* out) { *out << keeping.name; }

class KilledSaveTest : public testing::TestWithParam<Keeping> {
 protected:
  void SetUp() override {
    createLargeCompany(original_);
    rowsOf(original_, GetParam().pragma);
    oldState_ = contentsOf(original_);
    oldBytes_ = bytesOf(original_);
  }

  // The file operations of a whole save.
  int measure() {
    SavingHost host(original_);
    host.start();
    host.finish();
    newBytes_ = bytesOf(host.file());
    newState_ = contentsOf(host.file());
    return static_cast<int>(host.operations().size());
  }

  // Spread over all operations, from opening the database on, and each of the last ones: the end of
  // the commit, and closing the database.
  std::set<int> moments(int operations) const {
    constexpr int last = 9;
    const int spread = GetParam().kills - last;
    std::set<int> chosen;
    for (int i = 0; i < spread; ++i)
      chosen.insert(1 + static_cast<int>(std::int64_t{operations - last - 1} * i / (spread - 1)));
    for (int i = 0; i < last; ++i) chosen.insert(operations - i);
    return chosen;
  }

  void killAll(const std::set<int>& moments) {
    for (auto moment = moments.begin(); moment != moments.end();) {
      std::vector<std::pair<int, std::unique_ptr<SavingHost>>> running;  // two are faster than one
      for (; running.size() < 2 && moment != moments.end(); ++moment) {
        running.emplace_back(*moment, std::make_unique<SavingHost>(original_));
        running.back().second->start(*moment);
      }
      for (const auto& [killedAt, host] : running) {
        SCOPED_TRACE("killed at operation " + std::to_string(killedAt));
        host->finish();
        examine(*host);
      }
    }
  }

  void examine(const SavingHost& host) {
    if (host.unfinished() > 0) ++unfinished_;
    const QByteArray bytes = bytesOf(host.file());
    if (bytes != oldBytes_ && bytes != newBytes_) ++torn_;
    const std::vector<Row> found = rowsOf(host.file(), "PRAGMA integrity_check(1)");
    ASSERT_EQ(found, (std::vector<Row>{{"ok"}}));
    const std::string state = contentsOf(host.file());
    const bool isOld = state == oldState_;
    EXPECT_TRUE(isOld || state == newState_) << "half a save";
    EXPECT_FALSE(isOld && newSeen_ > 0) << "an earlier moment had it saved";
    ++(isOld ? oldSeen_ : newSeen_);
  }

  QTemporaryDir folder_;
  const std::string original_ = folder_.filePath(QStringLiteral("original.db")).toStdString();
  std::string oldState_;
  std::string newState_;
  QByteArray oldBytes_;
  QByteArray newBytes_;
  int oldSeen_ = 0;
  int newSeen_ = 0;
  int unfinished_ = 0;
  int torn_ = 0;
};

TEST_P(KilledSaveTest, LeavesTheOldOrTheNewState) {
  const int operations = measure();
  ASSERT_NE(oldState_, newState_);
  const std::set<int> chosen = moments(operations);
  ASSERT_EQ(static_cast<int>(chosen.size()), GetParam().kills) << operations << " operations";
  killAll(chosen);
  EXPECT_GT(oldSeen_, 0);
  EXPECT_GT(newSeen_, 0);
  EXPECT_GT(unfinished_, GetParam().kills / 2) << "kills within the save";
  EXPECT_GE(torn_, GetParam().leastTorn);
}

// With little memory the changed pages reach the file all along, otherwise with the commit.
const Keeping littleMemory{"JournalWithLittleMemory", "PRAGMA default_cache_size = 10", 20, 10};

INSTANTIATE_TEST_SUITE_P(
    Keepings, KilledSaveTest,
    testing::Values(Keeping{"Journal", "PRAGMA journal_mode = DELETE", 50, 8}, littleMemory,
                    Keeping{"WriteAheadLog", "PRAGMA journal_mode = WAL", 20, 2}),
    [](const auto& tested) { return tested.param.name; });

using KilledTwiceTest = KilledSaveTest;

TEST_P(KilledTwiceTest, TheNextSaveGoesThrough) {
  const int operations = measure();
  SavingHost host(original_);
  for (const int part : {3, 2}) {
    host.start(operations - operations / part);
    host.finish();
    EXPECT_GT(host.unfinished(), 0);
  }
  host.start();
  host.finish();
  EXPECT_TRUE(contentsOf(host.file()) == newState_);
}

INSTANTIATE_TEST_SUITE_P(Keepings, KilledTwiceTest, testing::Values(littleMemory),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace vexnumkr::test
