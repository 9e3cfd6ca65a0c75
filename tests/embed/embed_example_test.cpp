#include <gtest/gtest.h>

#include <vexnumkr/connection_string.h>

#include "app/program.h"
#include "app/sample_database.h"

namespace vexnumkr::test {
namespace {

ProgramRun runExample(const QStringList& arguments) {
  return runProgram(QStringLiteral(EMBED_EXAMPLE), arguments);
}

TEST(EmbedExample, ShowsTheDialogAndLeavesTheDatabaseAsItWas) {
  const SampleDatabase database;
  const auto before = database.rows("SELECT * FROM Nummernkreise");
  const QString connection = QString::fromStdString(sqliteConnectionString(database.file()));
  const ProgramRun run =
      runExample({connection, QStringLiteral("Becker"), QStringLiteral("--demo")});
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.output, "Der Dialog ist geschlossen.\n");
  EXPECT_EQ(database.rows("SELECT * FROM Nummernkreise"), before);
}

TEST(EmbedExample, SaysWhyItCannotOpenTheDatabase) {
  const ProgramRun run =
      runExample({QStringLiteral("Driver=QSQLITE;Database=/fehlt.db"), QStringLiteral("Becker")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_NE(run.errors.find("unable to open database file"), std::string::npos) << run.errors;
}

TEST(EmbedExample, ExplainsItsArguments) {
  const ProgramRun run = runExample({});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_NE(run.errors.find("Aufruf: vexnumkr-embed-example"), std::string::npos) << run.errors;
}

}  // namespace
}  // namespace vexnumkr::test
