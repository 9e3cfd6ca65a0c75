#include "app/command_line.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>

namespace vexnumkr::app {
namespace {

using Arguments = std::vector<std::string>;

const Arguments complete = {
    "--connection", "Driver=QSQLITE;Database=a.db", "--application", "1", "--user", "Becker"};

HostOptions read(const Arguments& arguments) { return readCommandLine(arguments, std::nullopt); }

Arguments with(Arguments arguments, const Arguments& more) {
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

std::string refusal(const Arguments& arguments) {
  try {
    read(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(CommandLine, MakesASampleInTheDatabaseThatIsNamedAnyway) {
  const HostOptions options = readCommandLine({"--create-sample", "--scale", "50"}, "Driver=X");
  EXPECT_TRUE(options.createTables);
  EXPECT_EQ(options.createSample, "");
  EXPECT_EQ(options.connection, "Driver=X");
  EXPECT_EQ(options.sampleScale, 50);
  EXPECT_FALSE(options.showDialog);
  EXPECT_TRUE(read({"--connection", "Driver=Y", "--create-sample"}).createTables);
  EXPECT_FALSE(read({"--create-sample", "neu.db", "--scale=7"}).createTables);
  for (const char* const scale : {"0", "501", "viele", "-1", "9999"})
    EXPECT_NE(refusal({"--create-sample", "neu.db", "--scale", scale}), "") << scale;
  EXPECT_EQ(refusal({"--scale", "5"}), "--scale gilt nur mit --create-sample.");
}

TEST(CommandLine, ReadsAllOptions) {
  const HostOptions options = read(with(complete, {"--date", "20240229", "--tour", "bilder"}));
  EXPECT_TRUE(options.showDialog);
  EXPECT_EQ(options.connection, "Driver=QSQLITE;Database=a.db");
  EXPECT_EQ(options.application, 1);
  EXPECT_EQ(options.user, "Becker");
  EXPECT_EQ(options.date, "20240229");
  EXPECT_EQ(options.tour, "bilder");
  EXPECT_FALSE(options.dark);
  EXPECT_EQ(options.createSample, "");
}

TEST(CommandLine, DarkTakesNoValue) {
  EXPECT_TRUE(read(with(complete, {"--dark"})).dark);
  EXPECT_EQ(refusal(with(complete, {"--dark=yes"})), "Unbekannte Angabe: --dark");
}

TEST(CommandLine, TakesValuesBehindAnEqualsSign) {
  const HostOptions options =
      read({"--connection=Driver=QSQLITE;Database=a.db", "--application=2", "--user=Böhm"});
  EXPECT_EQ(options.connection, "Driver=QSQLITE;Database=a.db");
  EXPECT_EQ(options.application, 2);
  EXPECT_EQ(options.user, "Böhm");
}

TEST(CommandLine, LeavesTheDateOpen) { EXPECT_EQ(read(complete).date, ""); }

TEST(CommandLine, NamesWhatIsMissing) {
  EXPECT_EQ(refusal({}), "Es fehlt die Option --application (1 oder 2).");
  EXPECT_EQ(refusal({"--application", "1"}), "Es fehlt die Option --user.");
  EXPECT_EQ(refusal({"--application", "1", "--user", "Becker"}),
            "Es fehlt die Verbindung: --connection, --connection-file oder VEXNUMKR_CONNECTION.");
}

TEST(CommandLine, RefusesUnknownArguments) {
  EXPECT_EQ(refusal(with(complete, {"--aplication", "1"})), "Unbekannte Angabe: --aplication");
  EXPECT_EQ(refusal(with(complete, {"firma.db"})), "Unbekannte Angabe: firma.db");
}

TEST(CommandLine, DoesNotRepeatTheValueOfAnUnknownOption) {
  EXPECT_EQ(refusal({"--conection=Driver=QSQLITE;PWD=geheim"}), "Unbekannte Angabe: --conection");
}

TEST(CommandLine, RefusesRepeatedAndEmptyOptions) {
  EXPECT_EQ(refusal(with(complete, {"--user", "Krause"})),
            "Die Option --user ist mehrmals angegeben.");
  EXPECT_EQ(refusal(with(complete, {"--date"})), "Die Option --date braucht einen Wert.");
  EXPECT_EQ(refusal(with(complete, {"--tour="})), "Die Option --tour braucht einen Wert.");
}

TEST(CommandLine, KnowsTwoApplications) {
  for (const std::string code : {"0", "3", "01", "1 ", "eins"}) {
    EXPECT_EQ(refusal({"--application", code, "--user", "x", "--connection", "y"}),
              "--application muss 1 oder 2 sein, nicht \"" + code + "\".");
  }
}

TEST(CommandLine, TakesOnlyRealDates) {
  for (const std::string date : {"20251231", "20240229", "20000229"}) {
    EXPECT_EQ(read(with(complete, {"--date", date})).date, date);
  }
  for (const std::string date : {"20250229", "19000229", "20251301", "20250431", "20250100",
                                 "00000101", "2025123", "31.12.2025", "2025123x"}) {
    EXPECT_EQ(refusal(with(complete, {"--date", date})),
              "--date muss ein Datum der Form jjjjmmtt sein, nicht \"" + date + "\".");
  }
}

TEST(CommandLine, MakesASampleAlone) {
  const HostOptions options = read({"--create-sample", "neu.db"});
  EXPECT_EQ(options.createSample, "neu.db");
  EXPECT_FALSE(options.showDialog);
}

TEST(CommandLine, OpensTheSampleJustMade) {
  const HostOptions options = readCommandLine(
      {"--create-sample", "neu.db", "--application", "2", "--user", "Becker"}, "Driver=X");
  EXPECT_TRUE(options.showDialog);
  EXPECT_EQ(options.connection, "Driver=QSQLITE;Database=neu.db");
}

TEST(CommandLine, TakesTheConnectionFromTheEnvironment) {
  const Arguments arguments = {"--application", "1", "--user", "Becker"};
  EXPECT_EQ(readCommandLine(arguments, "Driver=U").connection, "Driver=U");
  EXPECT_EQ(readCommandLine(with(arguments, {"--connection", "Driver=K"}), "Driver=U").connection,
            "Driver=K");
  EXPECT_THROW(readCommandLine(arguments, ""), UsageError);
}

TEST(CommandLine, ShowsHelpAndVersionWhateverElseIsGiven) {
  EXPECT_TRUE(read({"--help", "--application", "9"}).showHelp);
  EXPECT_TRUE(read({"-h"}).showHelp);
  EXPECT_TRUE(read({"--version"}).showVersion);
  EXPECT_FALSE(read(complete).showHelp);
}

TEST(CommandLine, ExplainsEveryOption) {
  for (const char* option :
       {"--connection", "--connection-file", "--application", "--user", "--date", "--create-sample",
        "--tour", "--dark", "--help", "--version"}) {
    EXPECT_NE(helpText().find(option), std::string::npos) << option;
  }
}

class ConnectionFile : public testing::Test {
 protected:
  std::string file(const char* text, QFileDevice::Permissions permissions) {
    QFile made(folder_.filePath(QStringLiteral("verbindung")));
    EXPECT_TRUE(made.open(QIODevice::WriteOnly));
    made.write(text);
    made.close();
    EXPECT_TRUE(made.setPermissions(permissions));
    return made.fileName().toStdString();
  }

  std::string refusalOf(const std::string& name) {
    return refusal({"--connection-file", name, "--application", "1", "--user", "Becker"});
  }

  const QFileDevice::Permissions ownersOnly_ = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
  QTemporaryDir folder_;
};

TEST_F(ConnectionFile, GivesItsFirstLine) {
  const std::string name = file("Driver=QPSQL;PWD=geheim\r\nmehr\n", ownersOnly_);
  const HostOptions options =
      read({"--connection-file", name, "--application", "1", "--user", "Becker"});
  EXPECT_EQ(options.connection, "Driver=QPSQL;PWD=geheim");
}

TEST_F(ConnectionFile, MustBeItsOwnersAlone) {
  for (const auto other : {QFileDevice::ReadGroup, QFileDevice::ReadOther, QFileDevice::WriteGroup,
                           QFileDevice::WriteOther}) {
    const std::string name = file("Driver=QPSQL;PWD=geheim\n", ownersOnly_ | other);
    EXPECT_EQ(refusalOf(name), "Die Verbindungsdatei " + name +
                                   " darf nur für ihren Eigentümer lesbar sein (chmod 600).");
  }
}

TEST_F(ConnectionFile, MustBeThereAndHoldSomething) {
  const std::string missing = folder_.filePath(QStringLiteral("fehlt")).toStdString();
  EXPECT_EQ(refusalOf(missing).find("Die Verbindungsdatei " + missing + " ist nicht zu lesen: "),
            0U);
  const std::string empty = file("\n", ownersOnly_);
  EXPECT_EQ(refusalOf(empty), "Die Verbindungsdatei " + empty + " ist leer.");
}

TEST_F(ConnectionFile, SaysInGermanThatItIsNotThere) {
  EXPECT_EQ(refusalOf("/fehlt"),
            "Die Verbindungsdatei /fehlt ist nicht zu lesen: Es gibt sie nicht.");
}

TEST_F(ConnectionFile, MustBelongToItsUser) {
  const std::string name = file("Driver=QPSQL;PWD=geheim\n", ownersOnly_);
  constexpr uid_t somebodyElse = 65534;
  if (chown(name.c_str(), somebodyElse, static_cast<gid_t>(-1)) != 0)
    GTEST_SKIP() << "only root can give a file away";
  EXPECT_EQ(refusalOf(name), "Die Verbindungsdatei " + name +
                                 " gehört einem anderen Benutzer; sie muss dem gehören, der sie "
                                 "benutzt.");
}

TEST_F(ConnectionFile, MustBeARegularFile) {
  const std::string pipe = folder_.filePath(QStringLiteral("rohr")).toStdString();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& name : {pipe, std::string("/dev/zero"), folder_.path().toStdString()})
    EXPECT_EQ(refusalOf(name), "Die Verbindungsdatei " + name + " ist keine gewöhnliche Datei.");
}

TEST_F(ConnectionFile, IsNotReadEndlessly) {
  const std::string name = file(std::string(64 * 1024, 'x').c_str(), ownersOnly_);
  EXPECT_EQ(
      read({"--connection-file", name, "--application", "1", "--user", "Becker"}).connection.size(),
      64U * 1024);
  file(std::string(64 * 1024 + 1, 'x').c_str(), ownersOnly_);
  EXPECT_EQ(refusalOf(name),
            "Die Verbindungsdatei " + name + " ist zu groß; mehr als 64 KiB werden nicht gelesen.");
}

TEST_F(ConnectionFile, ExcludesTheOtherOption) {
  EXPECT_EQ(refusal(with(complete, {"--connection-file", "x"})),
            "--connection und --connection-file schließen einander aus.");
}

}  // namespace
}  // namespace vexnumkr::app
