// What the program writes for people who watch it on a terminal.
#include "app/terminal.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

constexpr const char* wipedOut = "\r\033[K";

class TerminalTest : public ProgramDatabase {
 protected:
  TerminalTest() {
    circle(1, "Werk");
    range(1, "RE", 100, 185, 199);
  }
  ProgramRun inTerminal(Channel terminal, const QStringList& arguments,
                        QMap<QString, QString> environment = {}) {
    environment.insert(QStringLiteral("VEXNUMKR_CONNECTION"),
                       QString::fromStdString(database().connectionString()));
    if (!environment.contains(QStringLiteral("TERM")))
      environment.insert(QStringLiteral("TERM"), QStringLiteral("xterm"));
    if (!environment.contains(QStringLiteral("NO_COLOR")))
      environment.insert(QStringLiteral("NO_COLOR"), QString());
    return runProgramInTerminal(terminal, QStringLiteral(VEXNUMKR_PROGRAM), arguments, environment);
  }
  // A file that takes a while.
  QStringList gapsOfManyNumbers() {
    QFile written(folder_.filePath(QStringLiteral("nummern.txt")));
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    const QByteArray some = QByteArray("101\n102\n103\n104\n105\n106\n107\n108\n").repeated(5'000);
    for (int block = 0; block < 20; ++block) written.write(some);
    return QStringLiteral("gaps --application 1 --key RE --numbers-from %1")
        .arg(written.fileName())
        .split(QLatin1Char(' '));
  }
  const QStringList check_ = QStringLiteral("check --application 1").split(QLatin1Char(' '));

 private:
  QTemporaryDir folder_;
};

TEST_F(TerminalTest, WorkShowsHowFarItIsAndWipesThatOut) {
  const ProgramRun run = inTerminal(Channel::errors, gapsOfManyNumbers());
  EXPECT_NE(run.errors.find("\rNummern gelesen: "), std::string::npos) << run.errors;
  EXPECT_TRUE(run.errors.ends_with(wipedOut)) << run.errors;
  EXPECT_EQ(run.output.find('\r'), std::string::npos);
}

TEST_F(TerminalTest, NothingIsWrittenOverWhereThatCannotBeSeen) {
  const ProgramRun run = inTerminal(Channel::errors, gapsOfManyNumbers(),
                                    {{QStringLiteral("TERM"), QStringLiteral("dumb")}});
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(vexnumkr({"check", "--application", "1"}).errors, "");
}

TEST_F(TerminalTest, FindingsAreColouredForPeopleOnly) {
  const std::string text = inTerminal(Channel::output, check_).output;
  EXPECT_NE(text.find("\033[33mWarnung"), std::string::npos) << text;
  EXPECT_EQ(vexnumkr({"check", "--application", "1"}).output.find('\033'), std::string::npos);
}

TEST_F(TerminalTest, WhoWantsNoColoursGetsNone) {
  const ProgramRun run =
      inTerminal(Channel::output, check_, {{QStringLiteral("NO_COLOR"), QStringLiteral("1")}});
  EXPECT_NE(run.output.find("Warnung"), std::string::npos) << run.output;
  EXPECT_EQ(run.output.find('\033'), std::string::npos) << run.output;
}

}  // namespace
}  // namespace vexnumkr::test
