// A host killed at random moments of a save, and now and then its server: the database holds what
// was there before or all that was saved, and the next save goes through.
//
// VEXNUMKR_KILLS says how many kills (20), VEXNUMKR_SEED replays the moments of a run.
#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <vexnumkr/adapters.h>

#include "app/schema/schema.h"
#include "servers/private_server.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

using Clock = std::chrono::steady_clock;
using Contents = std::vector<std::string>;

constexpr int patience = 60'000;     // milliseconds; a busy machine is no failure
constexpr int serverKillEvery = 10;  // of the host's
constexpr const char* dates[] = {"20260101", "20270101"};

int number(const char* variable, int otherwise) {
  const char* given = std::getenv(variable);
  return given == nullptr ? otherwise : std::atoi(given);
}

class RandomKillsTest : public ::testing::Test {
 protected:
  RandomKillsTest() {
    if (engineUnderTest() != "sqlite") server_.emplace(engineUnderTest());
    database_.emplace();
    std::printf("VEXNUMKR_SEED=%u VEXNUMKR_KILLS=%d\n", seed_, kills_);
    makeCompany();
  }

  bool isOnSqlite() const { return engineUnderTest() == "sqlite"; }

  /// Kills a host in each of that many saves. REQUIRES: the numbers are those of the first date.
  void killInSaves() {
    measure();
    for (int i = 1; i <= kills_; ++i) {
      SCOPED_TRACE("kill " + std::to_string(i));
      const bool withServer = server_ && i % serverKillEvery == 0;
      killOnce(withServer);
      if (HasFatalFailure() || HasFailure()) return;
    }
    std::printf("old %d, new %d, of these told as saved %d; a save takes %lld microseconds\n", old_,
                new_, told_, static_cast<long long>(longest_.count()));
    EXPECT_GT(old_, 0) << "no kill came early enough";
    saveTo(1 - current_);
    EXPECT_EQ(contents(), states_[current_]);
  }

  void run(const std::string& statement) {
    std::int32_t affected = 0;
    openQtSqlConnection(database_->connectionString())->Execute(statement, affected);
  }

  Contents rows(const std::string& statement, const std::vector<std::string>& columns) {
    std::int32_t found = 0;
    const auto connection = openQtSqlConnection(database_->connectionString());
    const auto records = connection->Execute(statement, found);
    Contents lines;
    for (; !records->EndOfFile(); records->MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        const Value value = records->Fields(column);
        line += (value.isNull() ? "NULL" : value.toText()) + '|';
      }
      lines.push_back(line);
    }
    return lines;
  }

 private:
  void makeCompany() {
    for (const std::string& statement : app::rangeTableStatements(database_->schema()))
      run(statement);
    std::string circles, ranges, assignments;
    for (int circle = 0; circle < 20; ++circle) {
      const std::string c = std::to_string(circle);
      if (circle > 0) circles += (circle > 1 ? ", (" : "(") + c + ", 'Kreis " + c + "', 'ORC')";
      for (int key = 10; key < 20; ++key) {
        const std::string k = std::to_string(key);
        const std::string comma = ranges.empty() ? "(" : ", (";
        ranges += comma + c + ", 'K" + k + "', 'Belegart " + k + "', 1, 1, 1, -1, " + k +
                  ", '', 'JJ" + std::to_string(100 + circle) + "NN')";
        assignments += comma + c + ", 'K" + k + "', 'ALL', 'ORC')";
      }
    }
    run("INSERT INTO Nummernkreis_Buchungskreise VALUES " + circles);
    run("INSERT INTO Nummernkreise VALUES " + ranges);
    run("INSERT INTO Nummernkreis_Zuordnung VALUES " + assignments);
    run("INSERT INTO Nummernkreise VALUES (1, 'LM', 'Mahnung', 1, 1, 1, 0, 7, NULL, NULL)");
  }

  Contents contents() {
    Contents all = rows("SELECT * FROM Nummernkreise ORDER BY Buchungskreis, NSchl",
                        {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert",
                         "EndWert", "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"});
    for (std::string& line :
         rows("SELECT * FROM Nummernkreis_Zuordnung ORDER BY Buchungskreis, NSchl, Benutzer",
              {"Buchungskreis", "NSchl", "Benutzer", "Herkunft"}))
      all.push_back(std::move(line));
    return all;
  }

  // Both states, and how long a save takes.
  void measure() {
    for (const int which : {0, 1, 0, 1}) {
      longest_ = std::max(longest_, saveTo(which));
      states_[which] = contents();
    }
    ASSERT_NE(states_[0], states_[1]);
  }

  std::unique_ptr<QProcess> start(int which) {
    auto host = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"),
                       QString::fromStdString(database_->connectionString()));
    host->setProcessEnvironment(environment);
    host->start(QStringLiteral(SAVING_PROGRAM), {QString::fromLatin1(dates[which])});
    while (host->bytesAvailable() < 6 && host->waitForReadyRead(patience)) {
    }
    return host;
  }

  std::chrono::milliseconds saveTo(int which) {
    const auto host = start(which);
    const auto begun = Clock::now();
    EXPECT_TRUE(host->state() == QProcess::NotRunning || host->waitForFinished(patience));
    const auto taken = Clock::now() - begun;
    EXPECT_EQ(host->readAllStandardOutput(), "saving\nsaved\n") << errorsOf(*host);
    current_ = which;
    return std::chrono::duration_cast<std::chrono::milliseconds>(taken);
  }

  static std::string errorsOf(QProcess& host) { return host.readAllStandardError().toStdString(); }

  void killOnce(bool withServer) {
    const int wanted = 1 - current_;
    const auto host = start(wanted);
    std::uniform_int_distribution moment(0, static_cast<int>(longest_.count()));
    host->waitForFinished(moment(random_));
    if (withServer) server_->kill();
    host->kill();
    host->waitForFinished(patience);
    if (withServer) server_->start();
    waitUntilAlone();
    const std::string said = host->readAllStandardOutput().toStdString();
    ASSERT_EQ(said.substr(0, 7), "saving\n") << errorsOf(*host);
    judge(wanted, said.find("saved") != std::string::npos);
  }

  void judge(int wanted, bool told) {
    const Contents found = contents();
    if (isOnSqlite()) {
      ASSERT_EQ(rows("PRAGMA integrity_check(1)", {"integrity_check"}), Contents{"ok|"});
    }
    const bool isNew = found == states_[wanted];
    ASSERT_TRUE(isNew || found == states_[current_]) << "half a save";
    ASSERT_TRUE(isNew || !told) << "it was told that it was saved";
    ++(isNew ? new_ : old_);
    if (told) ++told_;
    if (isNew) current_ = wanted;
  }

  // A server goes on with the last statement of a host that is gone, be it the commit.
  void waitUntilAlone() {
    if (isOnSqlite()) return;
    const char* others =
        engineUnderTest() == "mariadb"
            ? "SELECT COUNT(*) AS Anzahl FROM information_schema.processlist WHERE db=DATABASE() "
              "AND id<>CONNECTION_ID()"
            : "SELECT COUNT(*) AS Anzahl FROM pg_stat_activity WHERE datname=current_database() "
              "AND pid<>pg_backend_pid() AND backend_type='client backend'";
    const auto end = Clock::now() + std::chrono::milliseconds(patience);
    while (rows(others, {"Anzahl"}) != Contents{"0|"}) {
      ASSERT_LT(Clock::now(), end) << "the server does not let go of a host that was killed";
      std::this_thread::yield();
    }
  }

  const unsigned seed_ = static_cast<unsigned>(
      number("VEXNUMKR_SEED", static_cast<int>(std::random_device()() & 0x7fffffffU)));
  const int kills_ = number("VEXNUMKR_KILLS", 20);
  std::mt19937 random_{seed_};
  std::optional<PrivateServer> server_;
  std::optional<FreshDatabase> database_;
  Contents states_[2];
  int current_ = 0;
  std::chrono::milliseconds longest_{0};
  int old_ = 0;
  int new_ = 0;
  int told_ = 0;
};

TEST_F(RandomKillsTest, LeaveTheOldOrTheNewState) { killInSaves(); }

TEST_F(RandomKillsTest, LeaveTheOldOrTheNewStateBesideAWriteAheadLog) {
  if (!isOnSqlite()) GTEST_SKIP() << "of SQLite";
  run("PRAGMA journal_mode = WAL");
  ASSERT_EQ(rows("PRAGMA journal_mode", {"journal_mode"}), Contents{"wal|"});
  killInSaves();
}

}  // namespace
}  // namespace vexnumkr::test
