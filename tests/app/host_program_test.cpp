#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>

#include <vexnumkr/connection_string.h>

#include "app/program.h"
#include "app/sample_database.h"

namespace vexnumkr::app {
namespace {

using test::ProgramRun;

ProgramRun runHost(const QStringList& arguments, const QMap<QString, QString>& environment = {}) {
  return test::runProgram(QStringLiteral(HOST_PROGRAM), arguments, environment);
}

bool holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

class HostProgram : public testing::Test {
 protected:
  /// The arguments that open the dialog on the sample.
  QStringList dialog(const QStringList& more) const {
    return QStringList{QStringLiteral("--connection"), connection_, QStringLiteral("--user"),
                       QStringLiteral("Hoffmann")} +
           more;
  }

  QString tourFolder() const {
    return QDir(QString::fromStdString(database_.folder())).filePath(QStringLiteral("bilder"));
  }

  test::SampleDatabase database_;
  const QString connection_ = QString::fromStdString(sqliteConnectionString(database_.file()));
};

TEST_F(HostProgram, PrintsItsHelpAndVersion) {
  const ProgramRun help = runHost({QStringLiteral("--help")});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_EQ(help.output.find("Aufruf: vexnumkr-host"), 0U);
  EXPECT_EQ(help.errors, "");
  const ProgramRun version = runHost({QStringLiteral("--version")});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.output, "vexnumkr-host " PROJECT_VERSION "\n");
}

TEST_F(HostProgram, RefusesWrongArguments) {
  for (const QStringList& arguments :
       {QStringList{}, QStringList{QStringLiteral("--quatsch")},
        dialog({QStringLiteral("--application"), QStringLiteral("3")})}) {
    const ProgramRun run = runHost(arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors.find("vexnumkr-host: "), 0U) << run.errors;
    EXPECT_TRUE(holds(run.errors, "--help")) << run.errors;
  }
}

TEST_F(HostProgram, MakesASampleWithoutADisplay) {
  const QString file =
      QDir(QString::fromStdString(database_.folder())).filePath(QStringLiteral("n.db"));
  const QMap<QString, QString> noDisplay = {{QStringLiteral("QT_QPA_PLATFORM"), {}},
                                            {QStringLiteral("DISPLAY"), {}},
                                            {QStringLiteral("WAYLAND_DISPLAY"), {}}};
  const ProgramRun made = runHost({QStringLiteral("--create-sample"), file}, noDisplay);
  EXPECT_EQ(made.exitCode, 0) << made.errors;
  EXPECT_TRUE(holds(made.output, "Beispieldatenbank angelegt: " + file.toStdString()));
  const ProgramRun again = runHost({QStringLiteral("--create-sample"), file}, noDisplay);
  EXPECT_EQ(again.exitCode, 1);
  EXPECT_TRUE(holds(again.errors, "gibt es schon")) << again.errors;
}

TEST_F(HostProgram, SaysThatThereIsNoDisplay) {
  const ProgramRun run = runHost(dialog({QStringLiteral("--application"), QStringLiteral("1")}),
                                 {{QStringLiteral("QT_QPA_PLATFORM"), {}},
                                  {QStringLiteral("DISPLAY"), {}},
                                  {QStringLiteral("WAYLAND_DISPLAY"), {}}});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(holds(run.errors, "Es gibt keine Anzeige")) << run.errors;
}

TEST_F(HostProgram, SaysWhyADatabaseCannotBeOpened) {
  const ProgramRun run = runHost({QStringLiteral("--connection"),
                                  QStringLiteral("Driver=QSQLITE;Database=/fehlt.db;PWD=geheim"),
                                  QStringLiteral("--application"), QStringLiteral("1"),
                                  QStringLiteral("--user"), QStringLiteral("x")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(holds(run.errors, "unable to open database file")) << run.errors;
  EXPECT_FALSE(holds(run.errors, "geheim")) << run.errors;
}

TEST_F(HostProgram, ShowsNoPasswordOfAConnectionStringInAWrongPlace) {
  const QString connection = QStringLiteral("Driver=QPSQL;Database=b;PWD=geheim");
  for (const char* option : {"--connection-file", "--application", "--date"}) {
    QStringList arguments = {QStringLiteral("--user"), QStringLiteral("x"),
                             QString::fromLatin1(option), connection};
    if (QLatin1String(option) != QLatin1String("--application"))
      arguments += {QStringLiteral("--application"), QStringLiteral("1")};
    const ProgramRun run = runHost(arguments);
    EXPECT_EQ(run.exitCode, 2) << option;
    EXPECT_TRUE(holds(run.errors, "PWD=***")) << run.errors;
    EXPECT_FALSE(holds(run.errors, "geheim")) << run.errors;
  }
}

TEST_F(HostProgram, TakesTheConnectionFromTheEnvironmentAndFromAFile) {
  const QStringList others = {QStringLiteral("--application"), QStringLiteral("1"),
                              QStringLiteral("--user"), QStringLiteral("x")};
  const ProgramRun environment =
      runHost(others, {{QStringLiteral("VEXNUMKR_CONNECTION"),
                        QStringLiteral("Driver=QSQLITE;Database=/fehlt.db")}});
  EXPECT_TRUE(holds(environment.errors, "unable to open database file")) << environment.errors;

  QFile file(QDir(QString::fromStdString(database_.folder())).filePath(QStringLiteral("v")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("Driver=QUATSCH;Database=x\n");
  file.close();
  ASSERT_TRUE(file.setPermissions(QFileDevice::ReadOwner));
  const ProgramRun fromFile =
      runHost(others + QStringList{QStringLiteral("--connection-file"), file.fileName()});
  EXPECT_EQ(fromFile.exitCode, 1);
  EXPECT_TRUE(holds(fromFile.errors, "QUATSCH")) << fromFile.errors;
}

class Tour : public HostProgram, public testing::WithParamInterface<const char*> {};

TEST_P(Tour, ShowsEachStepAndStoresNothing) {
  const auto before = database_.rows("SELECT * FROM Nummernkreis_Zuordnung");
  const bool hasOptions = GetParam() == std::string("2");
  const ProgramRun run = runHost(
      dialog({QStringLiteral("--application"), QLatin1String(GetParam()), QStringLiteral("--date"),
              QStringLiteral("20261121"), QStringLiteral("--tour"), tourFolder()}));
  EXPECT_EQ(run.exitCode, 0) << run.output << run.errors;
  const QStringList pictures = QDir(tourFolder()).entryList({QStringLiteral("*.png")});
  EXPECT_EQ(pictures.size(), hasOptions ? 10 : 9) << run.output;
  for (const QString& picture : pictures) {
    const QImage image(QDir(tourFolder()).filePath(picture));
    EXPECT_GT(image.width(), 100) << picture.toStdString();
    EXPECT_TRUE(holds(run.output, picture.toStdString()));
  }
  EXPECT_TRUE(holds(run.output, "Rundgang beendet: ")) << run.output;
  EXPECT_EQ(database_.rows("SELECT * FROM Nummernkreis_Zuordnung"), before);
}

INSTANTIATE_TEST_SUITE_P(Applications, Tour, testing::Values("1", "2"));

TEST_F(HostProgram, DarkWindowsAreDark) {
  const auto lightness = [this](const QStringList& more) {
    const ProgramRun run = runHost(dialog({QStringLiteral("--application"), QStringLiteral("2"),
                                           QStringLiteral("--tour"), tourFolder()}) +
                                   more);
    EXPECT_EQ(run.exitCode, 0) << run.output << run.errors;
    const QImage window(QDir(tourFolder()).filePath(QStringLiteral("01-dialog.png")));
    return window.pixelColor(2, 2).lightness();
  };
  EXPECT_GT(lightness({}), 200);
  EXPECT_LT(lightness({QStringLiteral("--dark")}), 80);
}

TEST_F(HostProgram, TourFailsOnAnUnexpectedBox) {
  database_.run("DROP TABLE Nummernkreise");
  const ProgramRun run = runHost(dialog({QStringLiteral("--application"), QStringLiteral("1"),
                                         QStringLiteral("--tour"), tourFolder()}));
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(holds(run.output, "Unerwartete Meldung: ")) << run.output;
  EXPECT_TRUE(holds(run.output, "LoadItems: ")) << run.output;
  EXPECT_TRUE(holds(run.output, "Rundgang abgebrochen: ")) << run.output;
}

}  // namespace
}  // namespace vexnumkr::app
