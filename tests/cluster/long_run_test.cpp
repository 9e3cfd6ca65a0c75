// A working day on a cluster whose nodes fail one after the other: two administrators with the
// dialog and four hosts that draw numbers, each on a node of its own to begin with. No number comes
// twice, no save is half, no range is lost, and every refusal is told.
//
// VEXNUMKR_CLUSTER_SECONDS says how long it goes on; tools/cluster-test.sh sets it to 600.
#include <QProcess>
#include <QTemporaryFile>
#include <QThread>
#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <future>
#include <iostream>
#include <map>
#include <random>
#include <set>

#include <vexnumkr/adapters.h>

#include "app/schema/schema.h"
#include "cluster/test_cluster.h"
#include "contract/database_language.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

using Clock = std::chrono::steady_clock;
using Texts = std::vector<std::string>;

constexpr int patienceMilliseconds = 180'000;

int seconds() {
  const int asked = qEnvironmentVariableIntValue("VEXNUMKR_CLUSTER_SECONDS");
  return asked > 0 ? asked : 20;
}

// A process that tells what it does in lines.
class Host {
 public:
  Host(const char* program, const QStringList& arguments, const std::string& connection,
       int duration = seconds()) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"), QString::fromStdString(connection));
    process_.setProcessEnvironment(environment);
    // A pipe that nobody empties meanwhile would stop it.
    EXPECT_TRUE(output_.open());
    process_.setStandardOutputFile(output_.fileName());
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QString::fromLatin1(program),
                   arguments + QStringList{QString::number(duration)});
  }

  /// Waits for its end; its lines.
  Texts finish() {
    EXPECT_TRUE(process_.waitForFinished(patienceMilliseconds)) << "it hangs";
    EXPECT_EQ(process_.exitCode(), 0);
    Texts lines;
    for (const QByteArray& line : output_.readAll().split('\n')) {
      if (line.size() > 1 && line[1] == ' ')
        lines.push_back(line.toStdString());
      else if (!line.isEmpty())
        std::cout << process_.program().toStdString() << " says: " << line.toStdString() << '\n';
    }
    return lines;
  }

 private:
  QTemporaryFile output_;
  QProcess process_;
};

// What hosts have told, taken together.
struct Told {
  std::map<std::string, int> refusals;  ///< How many of each error.
  int boxless = 0;                      ///< Refused saves without any box.
  int saves = 0;
  int refusedSaves = 0;
  int mostBoxes = 0;
  int longestDraw = 0;  ///< In milliseconds.
};

class LongRunTest : public ::testing::Test {
 protected:
  LongRunTest() : connection(openQtSqlConnection(everywhere())) {
    for (const std::string& statement : app::rangeTableStatements(database.schema()))
      run(*connection, statement);
    for (const char* const row :
         {"tblUser VALUES ('Anna')", "Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')",
          "Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')",
          "Nummernkreis_Zuordnung VALUES (1, 'RE', 'Anna', 'ORB')",
          "Nummernkreis_Zuordnung VALUES (2, 'RE', 'Anna', 'ORB')"})
      run(*connection, std::string("INSERT INTO ") + row);
    int position = 1;
    for (const std::string key : {"'AN', 'Angebot'", "'GU', 'Gutschrift'", "'RE', 'Rechnung'"}) {
      range("0, " + key + ", 1, 1, 99", position);
      range("1, " + key + ", 1000, 1000, 4000", position);
      range("2, " + key + ", 1000000, 1000000, 1004000", position++);
    }
    run(*connection,
        "UPDATE Nummernkreise SET EndWert = 900000 WHERE Buchungskreis = 1 AND "
        "NSchl = 'RE'");
    run(*connection,
        "UPDATE Nummernkreise SET EndWert = 9000000 WHERE Buchungskreis = 2 AND "
        "NSchl = 'RE'");
    cluster.mend();  // The test's database is on every node then.
  }
  ~LongRunTest() override { cluster.mend(); }

  bool isGalera() const { return cluster.isGalera(); }
  std::string everywhere() const { return database.connectionString(); }
  /// All nodes, from that one on.
  std::string from(int node) const {
    if (!isGalera()) return throughNodes(everywhere(), {node % 2 + 1, (node + 1) % 2 + 1});
    return throughNodes(everywhere(), {node % 3 + 1, (node + 1) % 3 + 1, (node + 2) % 3 + 1});
  }

  static Texts assignments(Connection& node) {
    return rows(node,
                "SELECT Buchungskreis, NSchl, Benutzer, Herkunft FROM Nummernkreis_Zuordnung ORDER "
                "BY Buchungskreis, NSchl, Benutzer, Herkunft",
                {"Buchungskreis", "NSchl", "Benutzer", "Herkunft"});
  }
  // What the dialog makes of the assignments when nothing fails.
  void saveUndisturbed() {
    const auto lines = Host(DIALOG_HOST, {QStringLiteral("Angebot")}, everywhere(), 1).finish();
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.front().starts_with("s ")) << lines.front();
    undisturbed = assignments(*connection);
    undisturbedEnds = {endOf(*connection, 1, "AN"), endOf(*connection, 1, "GU")};
  }

  void startHosts() {
    for (int i = 0; i < 4; ++i)
      drawers.emplace_back(
          DRAWING_HOST,
          QStringList{QStringLiteral("Anna"), QStringLiteral("RE"), QString::number(i % 2 + 1)},
          from(i));
    administrators.emplace_back(DIALOG_HOST, QStringList{QStringLiteral("Angebot")}, from(0));
    administrators.emplace_back(DIALOG_HOST, QStringList{QStringLiteral("Gutschrift")}, from(1));
  }

  // Every twenty seconds, and at least twice.
  void failAgainAndAgain() {
    const auto begin = Clock::now();
    const auto pause = std::chrono::seconds(std::min(20, std::max(seconds() / 3, 1)));
    for (auto next = begin + pause / 2; next < begin + std::chrono::seconds(seconds());
         next = std::max(next + pause, Clock::now())) {
      QThread::sleep(static_cast<unsigned long>(std::max<long>(
          0, std::chrono::duration_cast<std::chrono::seconds>(next - Clock::now()).count())));
      failOnce();
      ++kills;
    }
  }
  void failOnce() {
    if (isGalera()) {
      const int node = std::uniform_int_distribution(1, 3)(random);
      cluster.kill(node);
      cluster.join(node);
    } else {
      const int node = primary;
      primary = 3 - primary;
      cluster.kill(node);
      cluster.promote(primary);
      cluster.join(node);
    }
  }

  void readDraws(const Texts& lines, std::size_t circle) {
    for (const std::string& line : lines) {
      if (line.starts_with("x ")) {
        ++told.refusals[line.substr(2, line.find(' ', 2) - 2)];
        continue;
      }
      const std::size_t space = line.find(' ', 2);
      EXPECT_TRUE(numbers[circle].insert(std::stoi(line.substr(2, space - 2))).second)
          << "a number came twice: " << line;
      told.longestDraw = std::max(told.longestDraw, std::stoi(line.substr(space + 1)));
    }
  }

  // The ends that may be stored: what was saved last, or what was tried since, since of a save that
  // was cut off in its commit nobody knows.
  std::set<std::string> readSaves(const Texts& lines, const std::string& atFirst) {
    std::set<std::string> ends{atFirst};
    for (const std::string& line : lines) {
      if (line.starts_with("o ")) continue;
      const std::string end = line.substr(2, line.find(' ', 2) - 2);
      if (line.starts_with("s ")) {
        ++told.saves;
        ends = {end};
        continue;
      }
      ++told.refusedSaves;
      const int boxes = std::stoi(line.substr(line.find(' ', 2) + 1));
      told.mostBoxes = std::max(told.mostBoxes, boxes);
      if (boxes == 0) ++told.boxless;
      ends.insert(end);
    }
    return ends;
  }

  std::string endOf(Connection& node, int circle, const std::string& key) {
    return value(node, "SELECT EndWert AS X FROM Nummernkreise WHERE Buchungskreis = " +
                           std::to_string(circle) + " AND NSchl = '" + key + "'")
        .toText();
  }
  void expectWhole(Connection& node, const std::array<std::set<std::string>, 2>& ends) {
    EXPECT_EQ(rows(node, "SELECT COUNT(*) AS N FROM Nummernkreise", {"N"}), Texts{"9"});
    EXPECT_EQ(assignments(node), undisturbed);
    for (std::size_t i = 0; i < 2; ++i) {
      const std::string key = i == 0 ? "AN" : "GU";
      const std::string end = endOf(node, 1, key);
      EXPECT_EQ(std::to_string(1'000'000 + std::stoi(end)), endOf(node, 2, key)) << "half a save";
      EXPECT_EQ(ends.at(i).count(end), 1U) << "what was saved is gone: " << end;
    }
    for (std::size_t circle = 0; circle < 2; ++circle)
      EXPECT_GE(value(node,
                      "SELECT AktuellerWert AS X FROM Nummernkreise WHERE NSchl = 'RE' AND "
                      "Buchungskreis = " +
                          std::to_string(circle + 1))
                    .toLong(),
                *numbers.at(circle).rbegin());
  }

  void report() const {
    std::cout << seconds() << " s, failures: " << kills
              << ", numbers: " << numbers[0].size() + numbers[1].size()
              << ", longest draw: " << told.longestDraw << " ms, saves: " << told.saves
              << ", refused: " << told.refusedSaves << ", most boxes at once: " << told.mostBoxes
              << "\nrefused draws:";
    for (const auto& [error, count] : told.refusals) std::cout << ' ' << error << ": " << count;
    const auto gaps = [&](std::size_t circle) {
      return static_cast<long>(*numbers[circle].rbegin()) - *numbers[circle].begin() + 1 -
             static_cast<long>(numbers[circle].size());
    };
    std::cout << "\nnumbers left out: " << gaps(0) + gaps(1) << '\n';
  }

  FreshDatabase database;
  TestCluster cluster;
  std::shared_ptr<Connection> connection;
  std::deque<Host> drawers;
  std::deque<Host> administrators;
  std::array<std::set<int>, 2> numbers;  // Of each circle.
  Texts undisturbed;
  std::array<std::string, 2> undisturbedEnds;
  Told told;
  std::mt19937 random{std::random_device{}()};
  int kills = 0;
  int primary = 1;

 private:
  void range(const std::string& values, int position) {
    run(*connection, "INSERT INTO Nummernkreise VALUES (" + values + ", -1, " +
                         std::to_string(position) + ", '', '')");
  }
};

}  // namespace

TEST_F(LongRunTest, NothingIsLostWhateverFails) {
  if (!isGalera() && value(*openQtSqlConnection(throughNodes(everywhere(), {1})),
                           "SELECT pg_is_in_recovery()::integer AS X") == Value(1))
    primary = 2;
  saveUndisturbed();
  startHosts();
  failAgainAndAgain();
  for (std::size_t i = 0; i < drawers.size(); ++i) readDraws(drawers[i].finish(), i % 2);
  const std::array ends{readSaves(administrators[0].finish(), undisturbedEnds[0]),
                        readSaves(administrators[1].finish(), undisturbedEnds[1])};
  cluster.mend();
  report();
  for (const int node : isGalera() ? std::vector{1, 2, 3} : std::vector{1, 2}) {
    SCOPED_TRACE("node " + std::to_string(node));
    expectWhole(*openQtSqlConnection(throughNodes(everywhere(), {node})), ends);
  }
  EXPECT_GT(told.saves, 0);
  EXPECT_EQ(told.boxless, 0) << "a save was refused without a word";
}

}  // namespace vexnumkr::test
