#include <gtest/gtest.h>

#include <vexnumkr/connection_string.h>

#include "app/program.h"
#include "app/sample_database.h"

namespace vexnumkr::test {
namespace {

/// Runs the example with the built library; `buttons` are pressed one after the other.
ProgramRun runExample(const QStringList& arguments, const QString& buttons = {},
                      QMap<QString, QString> environment = {}) {
  environment[QStringLiteral("VEXNUMKR_LIBRARY")] = QStringLiteral(VEXNUMKR_LIBRARY);
  environment[QStringLiteral("QT_PLUGIN_PATH")] = QStringLiteral(PLUGIN_FOLDER);
  if (!buttons.isEmpty())
    environment[QStringLiteral("QT_QPA_GENERIC_PLUGINS")] =
        QStringLiteral("buttonpresser:") + buttons;
  return runProgram(QStringLiteral(RUN_TIME_EXAMPLE), arguments, environment);
}

QString connectionTo(const SampleDatabase& database) {
  return QString::fromStdString(sqliteConnectionString(database.file()));
}

const std::string firstLine = "vexnumkr " PROJECT_VERSION "\n";

TEST(RunTimeExample, ShowsTheDialogAndLeavesTheDatabaseAsItWas) {
  const SampleDatabase database;
  const auto before = database.rows("SELECT * FROM Nummernkreise");
  // This host has no booking-circle administration, which is told first.
  const ProgramRun run = runExample({connectionTo(database), QStringLiteral("Becker")},
                                    QStringLiteral("ok/cmdCancel"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, firstLine + "Der Dialog ist geschlossen.\n");
  EXPECT_EQ(database.rows("SELECT * FROM Nummernkreise"), before);
}

TEST(RunTimeExample, SaysWhyItCannotOpenTheDatabase) {
  const ProgramRun run =
      runExample({QStringLiteral("Driver=QSQLITE;Database=/fehlt.db"), QStringLiteral("Becker")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, firstLine);
  EXPECT_NE(run.errors.find("unable to open database file"), std::string::npos) << run.errors;
}

TEST(RunTimeExample, SaysThatThereIsNoDisplay) {
  const SampleDatabase database;
  const ProgramRun run = runExample({connectionTo(database), QStringLiteral("Becker")}, {},
                                    {{QStringLiteral("QT_QPA_PLATFORM"), QString()},
                                     {QStringLiteral("DISPLAY"), QString()},
                                     {QStringLiteral("WAYLAND_DISPLAY"), QString()}});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_NE(run.errors.find("Es gibt keine Anzeige"), std::string::npos) << run.errors;
}

TEST(RunTimeExample, ExplainsItsArguments) {
  const ProgramRun run = runExample({});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_NE(run.errors.find("Aufruf: vexnumkr-run-time-example"), std::string::npos) << run.errors;
}

}  // namespace
}  // namespace vexnumkr::test
