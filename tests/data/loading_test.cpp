#include "data/loading.h"

#include <algorithm>

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using test::RowCells;
using Texts = std::vector<std::string>;

const RowCells invoice = test::standardInvoice();

// A command of a provider that does not know how many records a statement has found.
class CommandThatDoesNotCount final : public Command {
 public:
  explicit CommandThatDoesNotCount(Connection& connection) : real_(connection.createCommand()) {
    real_->ActiveConnection(connection);
  }
  void ActiveConnection(Connection& connection) override { real_->ActiveConnection(connection); }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override { real_->CommandText(text); }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override {
    auto records = real_->Execute(recordsAffected);
    recordsAffected = -1;
    return records;
  }

 private:
  std::unique_ptr<Command> real_;
};

class LoadingTest : public test::CoreSession {
 protected:
  void circle(int number, const std::string& caption, const std::string& origin = "ORB") {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (" + std::to_string(number) + ", '" +
        caption + "', '" + origin + "')");
  }
  void range(const std::string& values) {
    sql("INSERT INTO Nummernkreise VALUES (" + values + ")");
  }
  void assignment(const std::string& values) {
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (" + values + ")");
  }
  void load() { LoadItems(); }
};

TEST_F(LoadingTest, SendsItsStatementsInOrder) {
  circle(1, "Nord");
  range("1, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', 'N'");
  start(1, {"Max"});
  script().takeStatements();
  load();
  EXPECT_EQ(script().takeStatements(),
            (Texts{"conn: SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, "
                   "EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE "
                   "NSchl <> 'LM' AND NSchl <> 'AF' ORDER BY SortierIndex",
                   "conn: SELECT * FROM Nummernkreis_Zuordnung WHERE Buchungskreis=1 AND "
                   "NSchl='RE' AND Benutzer='Max' AND Herkunft='ORB'"}));
  EXPECT_EQ(boxes(), (std::vector{errorBox(9, "basAllgemein", "CheckActivity",
                                           "Index außerhalb des gültigen Bereichs")}))
      << "Max has no standard range to fall back to";
}

TEST_F(LoadingTest, SpreadsEveryKeyOverEveryCircleOfTheOrigin) {
  circle(1, "Nord");
  circle(2, "Süd");
  range("1, 'RE', 'Rechnung', 10, 12, 99, -1, 50, 'AN', '1N'");
  start(1);
  load();
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|1|Nord|RE|Rechnung|10|12|99|True|50|AN|1N",
                           "Alle Benutzer|2|Süd|RE|Rechnung|0|0|0|False|50|AN|0"}));
  EXPECT_EQ(table().at(1).Maske.toValue(), Value(0)) << "the mask of a spread row is the number 0";
}

TEST_F(LoadingTest, LeavesOutCirclesThatTheOriginDoesNotHave) {
  circle(1, "Nord");
  circle(7, "Fremd", "ORC");
  range("7, 'RE', 'Rechnung', 10, 12, 99, -1, 50, '', ''");
  start(1);
  load();
  EXPECT_EQ(rows(), Texts{}) << "and so the key is not spread either";
}

TEST_F(LoadingTest, TheStandardRangeIsAlwaysActive) {
  range("0, 'RE', 'Rechnung', 10, 12, 99, 0, 50, '', ''");
  start(1, {"Max"});
  load();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 RE True", "Max 0 RE True"}));
}

TEST_F(LoadingTest, NullReadsAsNothingWhereItMay) {
  circle(1, "Nord");
  range("1, 'RE', 'Rechnung', 10, 12, 99, NULL, NULL, NULL, NULL");
  start(1);
  load();
  EXPECT_EQ(rows(), Texts{"Alle Benutzer|1|Nord|RE|Rechnung|10|12|99|False|0||"});
  EXPECT_EQ(table().at(0).Maske.toValue(), Value(""));
}

TEST_F(LoadingTest, NullEndsTheLoadingWhereItMayNot) {
  circle(1, "Nord");
  circle(2, "Süd");
  for (const char* broken :
       {"1, 'XX', NULL, 1, 2, 3, -1, 20, '', ''", "1, 'XX', 'x', NULL, 2, 3, -1, 20, '', ''",
        "1, 'XX', 'x', 1, NULL, 3, -1, 20, '', ''", "1, 'XX', 'x', 1, 2, NULL, -1, 20, '', ''"}) {
    sql("DELETE FROM Nummernkreise");
    range("1, 'AN', 'Angebot', 1, 2, 9, -1, 10, '', 'N'");
    range(broken);
    range("1, 'RE', 'Rechnung', 1, 2, 9, -1, 30, '', 'N'");
    start(1, {"Max"});
    load();
    EXPECT_EQ(boxes(), (std::vector{errorBox(94, "basAllgemein", "LoadItems",
                                             "Unzulässige Verwendung von Null")}));
    EXPECT_EQ(rows(), Texts{"Alle Benutzer|1|Nord|AN|Angebot|1|2|9|True|10||N"})
        << "neither spread nor given to users: " << broken;
  }
}

TEST_F(LoadingTest, UsersHaveRowsForActiveRangesOnly) {
  circle(1, "Nord");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  range("1, 'RE', 'Rechnung', 10, 12, 99, 0, 50, '', ''");
  assignment("1, 'RE', 'Max', 'ORB'");
  start(1, {"Max"});
  load();
  EXPECT_EQ(activity(),
            (Texts{"Alle Benutzer 0 RE True", "Alle Benutzer 1 RE False", "Max 0 RE True"}));
}

TEST_F(LoadingTest, NobodyHasTwoRowsOfARange) {
  circle(1, "Nord");
  sql("DROP TABLE Nummernkreise");
  sql("CREATE TABLE Nummernkreise (Buchungskreis INTEGER, NSchl VARCHAR(10), NBezeichnung "
      "VARCHAR(60), StartWert INTEGER, AktuellerWert INTEGER, EndWert INTEGER, Aktiviert INTEGER, "
      "SortierIndex INTEGER, IstNSchlVon VARCHAR(10), Maske VARCHAR(40))");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  range("1, 'RE', 'Rechnung', 10, 12, 99, -1, 50, '', ''");
  start(1, {"Max"});
  load();
  EXPECT_EQ(std::ranges::count(activity(), "Max 0 RE True"), 1) << "of a range that comes twice";
}

TEST_F(LoadingTest, AUserWhoIsNamedTwiceHasTheRowsOfOne) {
  circle(1, "Nord");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  start(1, {"Max", "Max"});
  load();
  EXPECT_EQ(std::ranges::count(activity(), "Max 0 RE True"), 1);
}

TEST_F(LoadingTest, AnAssignmentCountsForExactlyItsUserCircleKeyAndOrigin) {
  circle(1, "Nord");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  range("0, 'AN', 'Angebot', 1, 2, 9, -1, 10, '', ''");
  range("1, 'RE', 'Rechnung', 10, 12, 99, -1, 50, '', ''");
  assignment("1, 'RE', 'Max', 'ORB'");
  assignment("1, 'RE', 'Anna', 'ORC'");
  assignment("1, 'RE', 'eva', 'ORB'");
  assignment("1, 'RE', 'ALL', 'ORB'");
  start(1, {"Anna", "Eva", "Max"});
  load();
  EXPECT_EQ(activity(),
            (Texts{"Alle Benutzer 0 AN True", "Alle Benutzer 1 AN False", "Alle Benutzer 0 RE True",
                   "Alle Benutzer 1 RE True", "Anna 0 AN True", "Anna 0 RE True", "Anna 1 RE False",
                   "Eva 0 AN True", "Eva 0 RE True", "Eva 1 RE False", "Max 0 AN True",
                   "Max 0 RE False", "Max 1 RE True"}));
}

TEST_F(LoadingTest, AUserNamedLikeTheCommonViewIsNotFoundAsAll) {
  assignment("1, 'RE', 'ALL', 'ORB'");
  start(1);
  EXPECT_FALSE(AktiviertDB(1, "RE", "Alle Benutzer"));
  assignment("1, 'RE', 'Alle Benutzer', 'ORB'");
  EXPECT_TRUE(AktiviertDB(1, "RE", "Alle Benutzer"));
}

TEST_F(LoadingTest, TheHostsKeysAreNotLoaded) {
  range("0, 'LM', 'Lager', 1, 2, 9, -1, 1, '', ''");
  range("0, 'AF', 'Auftragsfertigung', 1, 2, 9, -1, 1, '', ''");
  range("0, 'lm', 'klein', 1, 2, 9, -1, 1, '', ''");
  start(1);
  load();
  EXPECT_EQ(activity(), Texts{"Alle Benutzer 0 lm True"});
}

TEST_F(LoadingTest, LeavesTheTableInTheOrderOfTheTree) {
  circle(10, "Zehn");
  circle(9, "Neun");
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 1, '', ''");
  range("0, 'AN', 'Angebot', 1, 2, 9, -1, 2, '', ''");
  start(1);
  load();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 AN True", "Alle Benutzer 9 AN False",
                               "Alle Benutzer 10 AN False", "Alle Benutzer 0 RE True",
                               "Alle Benutzer 9 RE False", "Alle Benutzer 10 RE False"}));
}

TEST_F(LoadingTest, AFailedLoadingStatementLeavesTheTableEmpty) {
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  start(1, {"Max"});
  script().failStatement(1);
  load();
  EXPECT_EQ(boxes(),
            (std::vector{errorBox(4711, "basAllgemein", "LoadItems", "Absichtlicher Fehler")}));
  EXPECT_EQ(rows(), Texts{});
}

TEST_F(LoadingTest, AFailedLookAtAnAssignmentReadsAsInactive) {
  range("0, 'RE', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  start(1, {"Max"});
  script().failStatement(2);
  load();
  EXPECT_EQ(boxes(),
            (std::vector{errorBox(4711, "basAllgemein", "AktiviertDB", "Absichtlicher Fehler")}));
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 RE True", "Max 0 RE True"}))
      << "the activity rule falls back to the standard range";
}

TEST_F(LoadingTest, WhereAssignmentsAreNotCountedTheyAreLookedAt) {
  start(1);
  session().source().cmdSQL(std::make_unique<CommandThatDoesNotCount>(session().Conn()));
  EXPECT_FALSE(AktiviertDB(1, "RE", "Max"));
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'RE', 'Max', 'ORB')");
  EXPECT_TRUE(AktiviertDB(1, "RE", "Max"));
}

TEST_F(LoadingTest, AQuoteInAKeyBreaksItsStatement) {
  range("0, 'R''E', 'Rechnung', 1, 2, 9, -1, 50, '', ''");
  start(1, {"Max"});
  load();
  const auto raised = boxes();
  ASSERT_EQ(raised.size(), 1U);
  EXPECT_EQ(raised[0].prompt.substr(0, 27), "basAllgemein\r\nAktiviertDB: ");
}

TEST_F(LoadingTest, AddsACircleWithTheValuesOfTheStandardRanges) {
  circle(2, "Süd");
  start(1);
  const RowCells special = invoice.with(&RowCells::IstNSchlVon, "AN");
  row(special);
  row(special.with(&RowCells::Benutzer, "Max"));
  row({.Benutzer = "Alle Benutzer",
       .Buchungskreis = 0,
       .Gruppe = "Standard",
       .NSchl = "AN",
       .NBezeichnung = "Angebot",
       .StartWert = 3,
       .AktuellerWert = 4,
       .EndWert = 8,
       .Aktiviert = true,
       .SortierIndex = 10,
       .Maske = "N"});
  AddDataBuchungskreis("Alle Benutzer", 2, "", "RE", false);
  EXPECT_EQ(rows().back(), "Alle Benutzer|2|Süd|RE|Rechnung|1|2|9|True|50|AN|NN");
  EXPECT_EQ(rows().size(), 4U);
}

TEST_F(LoadingTest, ACircleThatIsNotListedIsAddedUnderItsNumberOfNothing) {
  start(1);
  row(invoice.with(&RowCells::Maske, ""));
  AddDataBuchungskreis("Alle Benutzer", 5, "", "", true);
  EXPECT_EQ(rows().back(), "Alle Benutzer|5|-1|RE|Rechnung|0|0|0|False|50||");
}

TEST_F(LoadingTest, StoredValuesAreReadOnTheWorkingConnection) {
  circle(2, "South", "ORC");
  range("2, 'RE', 'Rechnung', 200, 201, 299, -1, 50, '', ''");
  start(1);
  script().takeStatements();
  std::int32_t start = 7;
  std::int32_t end = 7;
  std::int32_t current = 7;
  GetBuchungskreisData(2, "RE", start, end, current);
  EXPECT_EQ(start, 200);
  EXPECT_EQ(end, 299);
  EXPECT_EQ(current, 201);
  EXPECT_EQ(script().takeStatements(),
            (Texts{"work: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Buchungskreise WHERE "
                   "Buchungskreis=2 AND Herkunft <> 'ORB'",
                   "work: SELECT * FROM Nummernkreise WHERE NSchl='RE' AND Buchungskreis=2"}));
}

TEST_F(LoadingTest, AFailedLookAtStoredValuesIsReported) {
  start(1);
  script().failStatement(1);
  std::int32_t start = 7;
  std::int32_t end = 7;
  std::int32_t current = 7;
  GetBuchungskreisData(2, "RE", start, end, current);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(boxes(), (std::vector{errorBox(4711, "basAllgemein", "GetBuchungskreisData",
                                           "Absichtlicher Fehler")}));
}

}  // namespace
}  // namespace vexnumkr
