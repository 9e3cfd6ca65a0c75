// "vexnumkr check", "mask explain" and "rollover" on every engine.
#include <gtest/gtest.h>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class CheckCommandTest : public ProgramDatabase {
 protected:
  CheckCommandTest() {
    circle(1, "Werk");
    range(1, "RE", 1260000, 1269000, 1269999, {.mask = "1JJNNNN"});
    user("Anna");
    assign("ALL", 1, "RE");
  }
  std::vector<std::string> check(const std::vector<std::string>& further) {
    std::vector<std::string> arguments = {"check", "--application", "1", "--date", "20261121"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return arguments;
  }
};

TEST_F(CheckCommandTest, PrintsFindingsAndLevels) {
  EXPECT_EQ(printed(check({}), 1),
            "Warnung   Beleg (RE), Werk: Zu 90 % belegt, noch 999 Nummern frei.\n"
            "\n"
            "Schlüssel  Buchungskreis      von      bis  zuletzt  frei  belegt\n"
            "RE         Werk           1260000  1269999  1269000   999  90,0 %\n"
            "\n"
            "1 Nummernkreis geprüft: 0 kritisch, 1 Warnung.\n");
}

TEST_F(CheckCommandTest, EverythingMayBeFine) {
  EXPECT_TRUE(printed(check({"--warn", "95", "--critical", "99"}))
                  .ends_with("1 Nummernkreis geprüft, alles in Ordnung.\n"));
  EXPECT_EQ(vexnumkr(check({"--warn", "99", "--critical", "90"})).exitCode, 2);
}

TEST_F(CheckCommandTest, MonitoringGetsOneLine) {
  const std::string levels = " | 'RE/1'=90.0%;80;95;0;100\n";
  EXPECT_EQ(printed(check({"--format", "nagios"}), 1),
            "NUMMERNKREISE WARNING - 1 Nummernkreis geprüft: 0 kritisch, 1 Warnung. Beleg (RE), "
            "Werk: Zu 90 % belegt, noch 999 Nummern frei." +
                levels);
  sql("UPDATE Nummernkreise SET EndWert = 5");
  EXPECT_TRUE(printed(check({"--format", "nagios"}), 2).starts_with("NUMMERNKREISE CRITICAL - "));
}

TEST_F(CheckCommandTest, NothingInATextEndsTheLineForMonitoring) {
  sql("UPDATE Nummernkreise SET NSchl = 'R''=|', NBezeichnung = 'A|B'");
  const std::string line = printed(check({"--format", "nagios"}), 1);
  EXPECT_NE(line.find(" A B (R'= ), Werk: Zu 90 % belegt"), std::string::npos) << line;
  EXPECT_TRUE(line.ends_with(" | 'R''_ /1'=90.0%;80;95;0;100\n")) << line;
}

TEST_F(CheckCommandTest, MonitoringIsToldWhatKeepsFromChecking) {
  EXPECT_EQ(printed(check({"--format", "nagios", "--warn", "99", "--critical", "90"}), 3),
            "NUMMERNKREISE UNKNOWN - --warn darf nicht über --critical liegen.\n");
  sql("DROP TABLE Nummernkreise");
  EXPECT_TRUE(printed(check({"--format", "nagios"}), 3)
                  .starts_with("NUMMERNKREISE UNKNOWN - Die Datenbank meldet: "));
}

TEST_F(CheckCommandTest, WhatHasNumbersLeftIsNotCalledFull) {
  sql("UPDATE Nummernkreise SET AktuellerWert = EndWert - 1");
  const std::string line = printed(check({"--format", "nagios"}), 2);
  EXPECT_TRUE(line.ends_with("'=99.9%;80;95;0;100\n")) << line;
}

TEST_F(CheckCommandTest, MetricsEndAsTheyHaveTo) {
  EXPECT_EQ(printed(check({"--format", "openmetrics"})),
            "# TYPE vexnumkr_range_numbers_used gauge\n"
            "# HELP vexnumkr_range_numbers_used Numbers that the range has issued.\n"
            "vexnumkr_range_numbers_used{application=\"1\",key=\"RE\",circle=\"1\"} 9000\n"
            "# TYPE vexnumkr_range_numbers_left gauge\n"
            "# HELP vexnumkr_range_numbers_left Numbers that the range can still issue.\n"
            "vexnumkr_range_numbers_left{application=\"1\",key=\"RE\",circle=\"1\"} 999\n"
            "# TYPE vexnumkr_findings gauge\n"
            "# HELP vexnumkr_findings What the check has found.\n"
            "vexnumkr_findings{application=\"1\",severity=\"critical\"} 0\n"
            "vexnumkr_findings{application=\"1\",severity=\"warning\"} 1\n"
            "# EOF\n");
}

TEST_F(CheckCommandTest, ProgramsGetTheFindingsByName) {
  const std::string document = printed(check({"--json"}), 1);
  EXPECT_NE(document.find("\"kind\": \"nearlyFull\",\n      \"severity\": \"warning\""),
            std::string::npos)
      << document;
  EXPECT_NE(document.find("\"left\": 999"), std::string::npos) << document;
}

TEST_F(CheckCommandTest, MasksAreExplained) {
  EXPECT_EQ(printed({"mask", "explain", "1JJNNN", "--date", "20270101"}),
            "Maske 1JJNNN am 20270101:\n"
            "  Startwert        127000\n"
            "  Endwert          127999\n"
            "  erste Nummer     127001 (der Startwert gilt als vergeben)\n"
            "  Nummern          999\n"
            "Überschneidet sich mit keinem Nummernkreis.\n");
  EXPECT_TRUE(printed({"mask", "explain", "126NNNN", "--date", "20270101"}, 1)
                  .ends_with("Überschneidet sich mit RE, Werk: 1260000–1269999\n"));
  EXPECT_EQ(vexnumkr({"mask", "explain", "RE-"}).exitCode, 2);
}

TEST_F(CheckCommandTest, TheYearIsTurnedWhenItIsSaid) {
  const std::vector<std::string> call = {"rollover", "--application", "1", "--date", "20270101"};
  EXPECT_EQ(printed(call),
            "Schlüssel  Buchungskreis  Maske      Start  Aktuell     Ende  -> Start     Ende\n"
            "RE                     1  1JJNNNN  1260000  1269000  1269999   1270000  1279999\n"
            "1 Nummernkreis neu zu nummerieren; mit --apply wird es gespeichert.\n");
  EXPECT_EQ(current(1, "RE"), 1269000);
  std::vector<std::string> apply = call;
  apply.emplace_back("--apply");
  EXPECT_TRUE(printed(apply).ends_with("1 Nummernkreis neu nummeriert.\n"));
  EXPECT_EQ(current(1, "RE"), 1270000);
  EXPECT_EQ(printed(apply), "Alle Nummernkreise haben schon die Nummern ihrer Maske.\n");
}

}  // namespace
}  // namespace vexnumkr::test
