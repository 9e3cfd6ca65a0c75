// The stand-alone host makes its sample company on every engine.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>

#include <vexnumkr/adapters.h>

#include "contract/database_language.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

class SampleEngineTest : public ::testing::Test {
 protected:
  /// Runs the host with the connection in its environment; returns its exit status.
  int runHost(const QStringList& arguments) {
    QProcess host;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"),
                       QString::fromStdString(database.connectionString()));
    host.setProcessEnvironment(environment);
    host.setProcessChannelMode(QProcess::MergedChannels);
    host.start(QStringLiteral(HOST_PROGRAM), arguments);
    if (!host.waitForFinished(240000)) ADD_FAILURE() << "the host does not end";
    output = host.readAll().toStdString();
    return host.exitCode();
  }
  std::string count(const std::string& table) {
    const auto connection = openQtSqlConnection(database.connectionString());
    return rows(*connection, "SELECT COUNT(*) AS X FROM " + table, {"X"}).at(0);
  }

  FreshDatabase database;
  std::string output;
};

}  // namespace

TEST_F(SampleEngineTest, ItIsMadeOnceAndLeftAloneThen) {
  ASSERT_EQ(runHost({QStringLiteral("--create-sample")}), 0) << output;
  EXPECT_TRUE(output.starts_with("Beispieldatenbank angelegt")) << output;
  EXPECT_EQ(count("tblUser"), "5");
  EXPECT_EQ(count("Nummernkreis_Sonderkreise"), "6");
  const std::string assignments = count("Nummernkreis_Zuordnung");
  EXPECT_EQ(runHost({QStringLiteral("--create-sample")}), 1) << output;
  EXPECT_EQ(count("Nummernkreis_Zuordnung"), assignments);
  const auto connection = openQtSqlConnection(database.connectionString());
  EXPECT_EQ(rows(*connection, "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK",
                 {"strUserName_PK"}),
            (Texts{"'Becker'", "'Böhm'", "'Hoffmann'", "'Krause'", "'Yilmaz'"}));
}

TEST_F(SampleEngineTest, ItMayBeLarge) {
  ASSERT_EQ(
      runHost({QStringLiteral("--create-sample"), QStringLiteral("--scale"), QStringLiteral("10")}),
      0)
      << output;
  EXPECT_EQ(count("Nummernkreis_Buchungskreise"), "8");
  EXPECT_EQ(count("tblUser"), "20");
  EXPECT_EQ(count("Nummernkreise"), "108");
  EXPECT_EQ(count("Nummernkreis_Zuordnung"), "2268");
}

TEST_F(SampleEngineTest, TheDialogOpensOnIt) {
  ASSERT_EQ(runHost({QStringLiteral("--create-sample")}), 0) << output;
  const QTemporaryDir folder;
  EXPECT_EQ(runHost({QStringLiteral("--application"), QStringLiteral("1"), QStringLiteral("--user"),
                     QStringLiteral("Böhm"), QStringLiteral("--date"), QStringLiteral("20261121"),
                     QStringLiteral("--tour"), folder.path()}),
            0)
      << output;
}

}  // namespace vexnumkr::test
