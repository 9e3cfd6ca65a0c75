// "vexnumkr journal" on every engine.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class JournalCommandTest : public ProgramDatabase {
 protected:
  JournalCommandTest() {
    circle(1, "Werk");
    range(1, "RE", 100, 150, 199);
  }
  /// Its lines with the days, times and names of logins taken out.
  std::string shown(const std::vector<std::string>& further = {}) {
    std::vector<std::string> arguments = {"journal", "show"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    QString text = QString::fromStdString(printed(arguments));
    text.replace(QRegularExpression(QStringLiteral("(^|\n)\\d\\d\\.\\d\\d\\.\\d{4} \\d\\d:\\d\\d:"
                                                   "\\d\\d[^\n]*")),
                 QStringLiteral("\\1*"));
    text.replace(QRegularExpression(QStringLiteral("\"time\":\"[^\"]+\",\"login\":\"[^\"]*\"")),
                 QStringLiteral("*"));
    return text.toStdString();
  }
};

constexpr const char* installed =
    "Das Protokoll ist eingerichtet (Tabelle Nummernkreis_Protokoll); gezogene Nummern werden "
    "nicht aufgezeichnet.\n";

TEST_F(JournalCommandTest, WhatIsChangedIsShown) {
  EXPECT_EQ(printed({"journal", "install"}), installed);
  EXPECT_EQ(shown(), "Es wurde nichts geändert.\n");
  sql("UPDATE Nummernkreise SET EndWert = 299");
  EXPECT_EQ(printed({"journal", "install"}), installed);
  EXPECT_EQ(shown(), "*\n  ~ Nummernkreis (RE, Buchungskreis 1): Endwert 199 -> 299\n");
  EXPECT_EQ(shown({"--json"}),
            R"({*,"user":"","change":"changed","table":"ranges","what":"RE, Buchungskreis 1",)"
            R"("fields":["Endwert 199 -> 299"]})"
            "\n");
  EXPECT_EQ(shown({"--until", "20200101"}), "Es wurde nichts geändert.\n");
  EXPECT_EQ(shown({"--since", "20200101", "--application", "2"}),
            "*\n  ~ Nummernkreis (RE, Buchungskreis 1): Endwert 199 -> 299\n");
}

TEST_F(JournalCommandTest, DrawnNumbersAreShownOnRequest) {
  assign("ALL", 1, "RE");
  printed({"journal", "install"});
  const auto draw = [&] {
    printed({"draw", "--application", "1", "--user", "Anna", "--key", "RE"});
  };
  draw();
  EXPECT_EQ(shown(), "Es wurde nichts geändert.\n");
  EXPECT_TRUE(printed({"journal", "install", "--with-current"})
                  .ends_with("gezogene Nummern werden auch aufgezeichnet.\n"));
  draw();
  EXPECT_EQ(shown(), "*\n  ~ Nummernkreis (RE, Buchungskreis 1): Aktuell 151 -> 152\n");
}

TEST_F(JournalCommandTest, TryingItOutChangesNothing) {
  EXPECT_NE(printed({"journal", "install", "--dry-run"}).find("CREATE TABLE"), std::string::npos);
  EXPECT_NE(printed({"journal", "install", "--dry-run", "--json"}).find("\"dryRun\": true"),
            std::string::npos);
  EXPECT_EQ(vexnumkr({"journal", "show"}).exitCode, 2);
  printed({"journal", "install"});
  EXPECT_NE(printed({"journal", "remove", "--delete-entries", "--dry-run"}).find("DROP TABLE"),
            std::string::npos);
  sql("UPDATE Nummernkreise SET EndWert = 299");
  EXPECT_NE(shown().find("299"), std::string::npos);
}

TEST_F(JournalCommandTest, RemovingKeepsTheEntriesUnlessTheyAreToGo) {
  printed({"journal", "install"});
  sql("UPDATE Nummernkreise SET EndWert = 299");
  EXPECT_EQ(printed({"journal", "remove"}),
            "Es wird nichts mehr aufgezeichnet; die Einträge bleiben.\n");
  sql("UPDATE Nummernkreise SET EndWert = 399");
  EXPECT_EQ(shown(), "*\n  ~ Nummernkreis (RE, Buchungskreis 1): Endwert 199 -> 299\n");
  EXPECT_EQ(printed({"journal", "remove", "--delete-entries"}),
            "Es wird nichts mehr aufgezeichnet; die Einträge sind gelöscht.\n");
  EXPECT_EQ(printed({"journal", "remove"}), "Es gibt kein Protokoll; es ist nichts zu tun.\n");
  sql("UPDATE Nummernkreise SET EndWert = 499");
  const ProgramRun run = vexnumkr({"journal", "show"});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_TRUE(run.errors.starts_with("vexnumkr: In dieser Datenbank gibt es kein Protokoll"))
      << run.errors;
}

TEST_F(JournalCommandTest, NothingStaysOfAJournalThatCannotBeMade) {
  sql("DROP TABLE Nummernkreis_Sonderkreise");
  EXPECT_EQ(vexnumkr({"journal", "install"}).exitCode, 3);
  EXPECT_EQ(vexnumkr({"journal", "show"}).exitCode, 2);
  sql("UPDATE Nummernkreise SET EndWert = 299");
}

TEST_F(JournalCommandTest, ItsScriptIsPrinted) {
  const std::string script =
      printed({"schema", "print", "--engine", database().schema(), "--part", "protokoll"});
  EXPECT_TRUE(script.starts_with("-- The journal of the number ranges, for "));
  EXPECT_NE(script.find("Nummernkreis_Protokoll_Sonderkreise"), std::string::npos);
}

}  // namespace
}  // namespace vexnumkr::test
