// Calls of the program, right and wrong, that need no database.
#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <functional>

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
                  "--application muss 1 oder 2 sein, nicht \"3\".\n"},
        WrongCall{
            "--application 1 draw --user Anna --key RE",
            "Die Option --application gehört hinter den Befehl: vexnumkr draw --application."},
        WrongCall{"mask explain 1NN --key RE", "--key vergleicht mit den gespeicherten"},
        WrongCall{"draw --application 1 --user Anna --key RE --count 0",
                  "--count muss eine Zahl von 1 bis 1000000 sein, nicht \"0\"."},
        WrongCall{"draw --application 1 --user Anna --key RE --circle 1x",
                  "--circle muss eine Zahl"},
        WrongCall{"check --application 1 --format nagois",
                  "--format muss table, json, nagios oder openmetrics sein, nicht \"nagois\". "
                  "Gemeint ist vielleicht nagios."},
        WrongCall{"report --application 1 -o bericht.doc",
                  "--output muss auf .html oder .pdf enden, nicht \"bericht.doc\"."},
        WrongCall{"journal instal",
                  "Den Befehl \"instal\" gibt es hier nicht. Gemeint ist vielleicht install."},
        WrongCall{"draw --application 1 --user Anna --key", "Die Option --key braucht genau einen"},
        WrongCall{"draw --application 1 --user Anna --key RE", "Es fehlt die Verbindung"},
        WrongCall{"draw --application 1 --user Anna --key RE --connection-file /nirgends",
                  "Die Verbindungsdatei /nirgends ist nicht zu lesen"},
        WrongCall{"schema print --engine mysql", "Das Datenbanksystem \"mysql\" ist unbekannt"},
        WrongCall{"schema print --engine sqlite --part rechte",
                  "Das Datenbanksystem \"sqlite\" braucht kein Skript"}));

TEST(ProgramCallsTest, WrongCallsOfThePluginAreOneLineForIt) {
  for (const char* const call :
       {"check --application 3 --format nagios", "check --format=nagios --warn 5x",
        "check --format nagios --nirgends", "check --application 1 --format nagios --json",
        "check --application 1 --format nagios"}) {
    const ProgramRun run = vexnumkr(words(call));
    EXPECT_EQ(run.exitCode, 3) << call;
    EXPECT_TRUE(run.output.starts_with("NUMMERNKREISE UNKNOWN - ")) << run.output;
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 1) << run.output;
    EXPECT_EQ(run.errors, "");
  }
}

TEST(ProgramCallsTest, TheDoctorSaysWhatToDoAboutAConnectionThatFails) {
  const ProgramRun run =
      vexnumkr(words("doctor --connection Driver=QPSQL;Server=/nirgends;Database=x"));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_TRUE(run.output.starts_with("FEHLER      Verbindung\n")) << run.output;
  EXPECT_NE(run.output.find("Abhilfe: Die Verbindung richtigstellen"), std::string::npos);
  EXPECT_EQ(run.errors, "");
}

TEST(ProgramCallsTest, HelpIsACommandToo) {
  EXPECT_EQ(vexnumkr(words("help")).output, vexnumkr(words("--help")).output);
  EXPECT_EQ(vexnumkr(words("help mask explain")).output,
            vexnumkr(words("mask explain --help")).output);
  EXPECT_TRUE(vexnumkr(words("journal --help"))
                  .output.starts_with("Beispiel:\n  vexnumkr journal install"));
}

QString manual() {
  QFile file(QStringLiteral(PROJECT_DIR "/docs/verwaltung.md"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return QString::fromUtf8(file.readAll());
}

// The first words of the entries below a heading of a help text.
QStringList entries(const QString& help, const QString& heading) {
  QStringList found;
  const QStringList lines = help.split(QLatin1Char('\n'));
  const qsizetype head = lines.indexOf(heading);
  for (qsizetype at = head + 1; head >= 0 && !lines.at(at).isEmpty(); ++at)
    if (!lines.at(at).startsWith(QLatin1String("   ")))
      found << lines.at(at).trimmed().section(QLatin1Char(' '), 0, 0);
  return found;
}

// Calls `visit` with the words and the help of each command.
void forEachCommand(const QStringList& words,
                    const std::function<void(const QStringList&, const QString&)>& visit) {
  const ProgramRun run = vexnumkr(words + QStringList{QStringLiteral("--help")});
  EXPECT_EQ(run.exitCode, 0);
  const QString help = QString::fromStdString(run.output);
  const QStringList commands = entries(help, QStringLiteral("Befehle:"));
  if (commands.isEmpty()) visit(words, help);
  for (const QString& command : commands) forEachCommand(words + QStringList{command}, visit);
}

TEST(ProgramCallsTest, EveryHelpBeginsWithAnExample) {
  EXPECT_TRUE(vexnumkr(words("--help")).output.starts_with("Beispiel:\n"));
  int commands = 0;
  forEachCommand({}, [&](const QStringList& called, const QString& help) {
    ++commands;
    const QString example =
        QStringLiteral("Beispiel:\n  vexnumkr ") + called.join(QLatin1Char(' '));
    EXPECT_TRUE(help.startsWith(example)) << help.toStdString();
  });
  EXPECT_GE(commands, 15);
}

TEST(ProgramCallsTest, TheManualKnowsEveryCommandAndOption) {
  const QString text = manual();
  forEachCommand({}, [&](const QStringList& called, const QString& help) {
    const QString command = QStringLiteral("vexnumkr ") + called.join(QLatin1Char(' '));
    EXPECT_TRUE(text.contains(command)) << command.toStdString();
    for (const QString& entry : entries(help, QStringLiteral("Angaben:"))) {
      const QString option = entry.section(QLatin1Char(','), -1);
      if (!option.startsWith(QLatin1String("--"))) continue;
      EXPECT_TRUE(text.contains(option)) << option.toStdString();
    }
  });
}

TEST(ProgramCallsTest, WrongCallsAreObjectsForPrograms) {
  const ProgramRun run = vexnumkr(words("draw --application 1 --user Anna --key RE --json"));
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_TRUE(run.errors.starts_with("{\"error\":{\"number\":0,\"text\":\"Es fehlt die"))
      << run.errors;
}

TEST(ProgramCallsTest, TwoFormsAtOnceAreAWrongCall) {
  const ProgramRun run = vexnumkr(words("check --application 1 --json --format openmetrics"));
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors,
            "{\"error\":{\"number\":0,\"text\":\"--json und --format openmetrics schließen "
            "einander aus.\"}}\n");
}

TEST(ProgramCallsTest, NoPasswordIsPrintedWhereverAConnectionStringStands) {
  for (const char* const call :
       {"check Driver=QPSQL;Database=b;PWD=geheim", "Driver=QPSQL;Database=b;PWD=geheim check",
        "check --application Driver=QPSQL;PWD=geheim",
        "check --application=Driver=QPSQL;PWD=geheim",
        "check --application 1 --connection-file Driver=QPSQL;PWD=geheim",
        "check --application 1 --format nagios --warn Driver=QPSQL;PWD=geheim",
        "check --format nagios Driver=QPSQL;PWD=geheim"}) {
    const ProgramRun run = vexnumkr(words(call));
    EXPECT_NE(run.exitCode, 0) << call;
    EXPECT_NE((run.output + run.errors).find("PWD=***"), std::string::npos) << call << run.errors;
    EXPECT_EQ((run.output + run.errors).find("geheim"), std::string::npos) << call << run.errors;
  }
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
