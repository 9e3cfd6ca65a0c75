#include "app/saving_host.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <csignal>

#include <vexnumkr/connection_string.h>

#include "app/sample_database.h"
#include "app/schema/schema.h"

namespace vexnumkr::test {

namespace {

constexpr int patienceMilliseconds = 60'000;

// 40 number keys in booking circles 0 to 49.
constexpr const char* series =
    "WITH RECURSIVE circle(c) AS (SELECT 0 UNION ALL SELECT c + 1 FROM circle WHERE c < 49), "
    "key(k) AS (SELECT 10 UNION ALL SELECT k + 1 FROM key WHERE k < 49) ";

}  // namespace

void createLargeCompany(const std::string& file) {
  for (const std::string& statement : app::rangeTableStatements("sqlite")) rowsOf(file, statement);
  for (const std::string statement :
       {"INSERT INTO Nummernkreise SELECT c, 'K' || k, 'Belegart ' || k, c * 1000 + 1, "
        "c * 1000 + 7, c * 1000 + 999, -(c < 25), k, '', (100 + c) || 'NNN' FROM circle, key",
        "INSERT INTO Nummernkreis_Buchungskreise SELECT c, 'Filiale ' || c, 'ORC' FROM circle "
        "WHERE c > 0",
        "INSERT INTO Nummernkreis_Zuordnung SELECT c, 'K' || k, 'ALL', 'ORC' FROM circle, key "
        "WHERE c < 25",
        "INSERT INTO Nummernkreis_Zuordnung SELECT c, 'K' || k, 'Berta', 'ORB' FROM circle, key "
        "WHERE c < 5",
        "INSERT INTO Nummernkreise VALUES (1, 'LM', 'Mahnung', 1, 1, 1, 0, 7, NULL, NULL)",
        "INSERT INTO Nummernkreis_Buchungskreise VALUES (49, 'Branch 49', 'ORB')",
        "INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'K10', 'Barrechnung', 0, 'ORC')",
        "INSERT INTO tblUser VALUES ('Anna')"})
    rowsOf(file, series + statement);
}

SavingHost::SavingHost(const std::string& original) {
  EXPECT_TRUE(QFile::copy(QString::fromStdString(original), QString::fromStdString(file())));
}

std::string SavingHost::path(const char* name) const {
  const QString folder = QFileInfo(folder_.path()).canonicalFilePath();
  return folder.toStdString() + '/' + name;
}

void SavingHost::start(int killAt) {
  isKilled_ = killAt != 0;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  const auto set = [&](const char* name, const QString& value) {
    environment.insert(QLatin1String(name), value);
  };
  set("QT_PLUGIN_PATH", QStringLiteral(PLUGIN_FOLDER));
  set("QT_QPA_GENERIC_PLUGINS", QStringLiteral("buttonpresser:cmdAuto/yes/cmdOK"));
  set("LD_PRELOAD", QStringLiteral(FILE_OPERATIONS));
  set("ASAN_OPTIONS", QStringLiteral("detect_leaks=0:verify_asan_link_order=0"));
  set("FILE_OPERATIONS_FOLDER", QFileInfo(folder_.path()).canonicalFilePath());
  set("FILE_OPERATIONS_LOG", logFolder_.filePath(QStringLiteral("log")));
  if (isKilled_) set("FILE_OPERATIONS_KILL", QString::number(killAt));
  process_.setProcessEnvironment(environment);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.start(
      QStringLiteral(HOST_PROGRAM),
      {QStringLiteral("--connection"), QString::fromStdString(sqliteConnectionString(file())),
       QStringLiteral("--application"), QStringLiteral("2"), QStringLiteral("--user"),
       QStringLiteral("Anna"), QStringLiteral("--date"), QStringLiteral("20261121")});
}

void SavingHost::finish() {
  EXPECT_TRUE(process_.waitForFinished(patienceMilliseconds));
  const std::string output = process_.readAll().toStdString();
  if (isKilled_) {
    EXPECT_EQ(process_.exitStatus(), QProcess::CrashExit) << output;
    EXPECT_EQ(process_.exitCode(), SIGKILL) << output;
  } else {
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit) << output;
    EXPECT_EQ(process_.exitCode(), 0) << output;
  }
}

std::vector<std::string> SavingHost::operations() const {
  QFile log(logFolder_.filePath(QStringLiteral("log")));
  EXPECT_TRUE(log.open(QIODevice::ReadOnly));
  std::vector<std::string> lines;
  for (const QByteArray& line : log.readAll().split('\n'))
    if (!line.isEmpty()) lines.push_back(line.toStdString());
  return lines;
}

qint64 SavingHost::unfinished() const {
  const auto size = [this](const char* name) {
    return QFileInfo(QString::fromStdString(path(name))).size();
  };
  return size("firma.db-journal") + size("firma.db-wal");
}

}  // namespace vexnumkr::test
