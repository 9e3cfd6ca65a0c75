// Calls of the program, right and wrong, that need no database.
#include <gtest/gtest.h>

#include "app/program.h"

namespace vexnumkr::test {
namespace {

ProgramRun vexnumkr(const QStringList& arguments,
                    const QMap<QString, QString>& environment = {
                        {QStringLiteral("VEXNUMKR_CONNECTION"), QString()}}) {
  return runProgram(QStringLiteral(VEXNUMKR_PROGRAM), arguments, environment);
}

QStringList words(const char* text) {
  return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct WrongCall {
  const char* arguments;
  const char* message;
};

class WrongCallTest : public ::testing::TestWithParam<WrongCall> {};

TEST_P(WrongCallTest, SaysWhatWasMeantAndEndsWithTwo) {
  const ProgramRun run = vexnumkr(words(GetParam().arguments));
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(run.errors.starts_with(std::string("vexnumkr: ") + GetParam().message)) << run.errors;
}

INSTANTIATE_TEST_SUITE_P(
    Calls, WrongCallTest,
    ::testing::Values(
        WrongCall{"", "Es fehlt der Befehl."},
        WrongCall{"darw", "Den Befehl \"darw\" gibt es hier nicht. Gemeint ist vielleicht draw."},
        WrongCall{"schema prnt",
                  "Den Befehl \"prnt\" gibt es hier nicht. Gemeint ist vielleicht "
                  "print."},
        WrongCall{"draw --aplication 1",
                  "Die Option --aplication gibt es hier nicht. Gemeint ist vielleicht "
                  "--application."},
        WrongCall{"draw --application 1 --user Anna", "Es fehlt die Angabe --key."},
        WrongCall{"draw --application 3 --user Anna --key RE",
                  "--application muss 1 oder 2 sein, nicht \"3\"."},
        WrongCall{"draw --application 1 --user Anna --key RE --count 0",
                  "--count muss eine Zahl von 1 bis 1000000 sein, nicht \"0\"."},
        WrongCall{"draw --application 1 --user Anna --key RE --circle 1x",
                  "--circle muss eine Zahl"},
        WrongCall{"draw --application 1 --user Anna --key", "Die Option --key braucht genau einen"},
        WrongCall{"draw --application 1 --user Anna --key RE", "Es fehlt die Verbindung"},
        WrongCall{"draw --application 1 --user Anna --key RE --connection-file /nirgends",
                  "Die Verbindungsdatei /nirgends ist nicht zu lesen"},
        WrongCall{"schema print --engine mysql", "Das Datenbanksystem \"mysql\" ist unbekannt"},
        WrongCall{"schema print --engine sqlite --part rechte",
                  "Das Datenbanksystem \"sqlite\" braucht kein Skript"}));

TEST(ProgramCallsTest, EveryHelpBeginsWithAnExample) {
  const std::string overview = vexnumkr(words("--help")).output;
  EXPECT_TRUE(overview.starts_with("Beispiel:\n")) << overview;
  int commands = 0;
  const QStringList lines = QString::fromStdString(overview).split(QLatin1Char('\n'));
  for (qsizetype at = lines.indexOf(QStringLiteral("Befehle:")) + 1; !lines.at(at).isEmpty();
       ++at) {
    const QString name = lines.at(at).trimmed().section(QLatin1Char(' '), 0, 0);
    if (!lines.at(at).startsWith(QLatin1String("  ")) || name.isEmpty() ||
        lines.at(at).startsWith(QLatin1String("     ")))
      continue;
    const ProgramRun run = vexnumkr({name, QStringLiteral("--help")});
    EXPECT_EQ(run.exitCode, 0);
    const bool isGroup = run.output.find("\nBefehle:\n") != std::string::npos;
    EXPECT_TRUE(isGroup || run.output.starts_with("Beispiel:\n  vexnumkr " + name.toStdString()))
        << run.output;
    ++commands;
  }
  EXPECT_GE(commands, 2);
}

TEST(ProgramCallsTest, WrongCallsAreObjectsForPrograms) {
  const ProgramRun run = vexnumkr(words("draw --application 1 --user Anna --key RE --json"));
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_TRUE(run.errors.starts_with("{\"error\":{\"number\":0,\"text\":\"Es fehlt die"))
      << run.errors;
}

TEST(ProgramCallsTest, NoPasswordIsPrinted) {
  const ProgramRun run =
      vexnumkr(words("draw --application 1 --user Anna --key RE --connection"
                     " Driver=QPSQL;Server=/nirgends;Database=x;UID=u;PWD=geheim"));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_EQ(run.errors.find("geheim"), std::string::npos) << run.errors;
}

}  // namespace
}  // namespace vexnumkr::test
