// Whatever stands in a value, nothing but its own row can change by it.
#include "data/sql/statements.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using Texts = std::vector<std::string>;

const Texts attempts = {
    "'",
    "O'Neill",
    "' '",
    "'; DELETE FROM tblUser; --",
    "'); DELETE FROM tblUser; --",
    "'); DELETE FROM tblUser; SELECT ('",
    "', 0, 0, 0, 0, 0, '', ''); DROP TABLE tblUser; --",
    "' OR '1'='1",
    "' OR 1=1 --",
    "x' WHERE 1=1 --",
    "x', StartWert=0 WHERE NSchl='OPFER' --",
    "' || (SELECT strUserName_PK FROM tblUser) || '",
    "' UNION SELECT strUserName_PK FROM tblUser --",
    "', 1, 1, 1, 1, 1, '', ''), (0, 'OPFER2', 'x",
    "'/*",
    "*/ '",
    "\\'",
    "\\' OR 1=1 --",
    "''; DELETE FROM tblUser",
    "\x01\x02\r\n\t'",
    std::string("a\0'b", 4),
    "＇; DELETE FROM tblUser",
    "\xC3\x28'",
    std::string(1 << 20, '\''),
    std::string(1 << 20, 'x') + "'; DELETE FROM tblUser; --",
};

class InjectionTest : public test::CoreSession {
 protected:
  void SetUp() override {
    sql("INSERT INTO tblUser VALUES ('Max')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'South', 'ORC')");
    sql("INSERT INTO Nummernkreise VALUES (2, 'OPFER', 'fremd', 5, 6, 7, -1, 1, '', '')");
    sql("INSERT INTO Nummernkreise VALUES (0, 'LM', 'Lager', 5, 6, 7, -1, 1, '', '')");
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (2, 'OPFER', 'Max', 'ORC')");
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('PF', 'RE', 'Proforma', 0, 'ORB')");
  }

  // Everything that a save of this origin's one range must leave alone.
  Texts others() {
    Texts all = select("SELECT strUserName_PK FROM tblUser");
    for (const Texts& part :
         {select("SELECT Buchungskreis, NSchl, NBezeichnung, StartWert FROM Nummernkreise WHERE "
                 "NSchl IN ('OPFER', 'LM', 'OPFER2') ORDER BY Buchungskreis"),
          select("SELECT Buchungskreis, NSchl, Benutzer FROM Nummernkreis_Zuordnung WHERE "
                 "Herkunft='ORC'"),
          select("SELECT U_NSchl, Aktiviert FROM Nummernkreis_Sonderkreise"),
          select("SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise")})
      all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  bool save() { return Save(false); }
};

TEST_F(InjectionTest, AValueThatIsSavedChangesNoOtherRow) {
  const Texts before = others();
  const std::size_t key = 3;
  const std::size_t description = 4;
  const std::size_t sharedWith = 10;
  const std::size_t mask = 11;
  for (const std::size_t place : {key, description, sharedWith, mask}) {
    for (const std::string& attempt : attempts) {
      SCOPED_TRACE("column " + std::to_string(place) + ": " + attempt.substr(0, 60));
      start(1, {"Max"});
      session().beginTransaction();
      std::vector<Value> cells{
          "Alle Benutzer", 1, "Nord", "RE", "Rechnung", 1, 2, 9, true, 50, "", ""};
      cells[place] = attempt;
      row(cells);
      session().blnChanged(true);
      const bool saved = save();
      const auto raised = boxes();
      EXPECT_EQ(raised.empty(), saved) << "a save that fails says so";
      EXPECT_EQ(others(), before);
      const Texts own = select(
          "SELECT Buchungskreis FROM Nummernkreise WHERE NSchl NOT IN ('OPFER', 'LM', 'OPFER2')");
      EXPECT_EQ(own.size(), saved ? 1U : 0U) << "one range, or none of it";
      if (!saved) session().rollBackTransaction();
      sql("DELETE FROM Nummernkreise WHERE Buchungskreis=1");
      sql("DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORB'");
      if (HasFailure()) return;
    }
  }
}

TEST_F(InjectionTest, ALongTextIsStoredAsAWholeOrReported) {
  const bool fits = !database().engine().ends_with("postgresql");
  const std::string text(70'000, 'x');
  start(1, {"Max"});
  session().beginTransaction();
  row({"Alle Benutzer", 1, "Nord", "RE", text, 1, 2, 9, true, 50, "", text});
  session().blnChanged(true);
  EXPECT_EQ(save(), fits);
  EXPECT_EQ(boxes().size(), fits ? 0U : 1U);
  if (!fits) session().rollBackTransaction();
  EXPECT_EQ(select("SELECT NBezeichnung, Maske FROM Nummernkreise WHERE Buchungskreis=1"),
            fits ? Texts{text + "|" + text} : Texts{});
}

TEST_F(InjectionTest, AUserNameChangesNoOtherRow) {
  const Texts before = others();
  for (const std::string& attempt : attempts) {
    SCOPED_TRACE(attempt.substr(0, 60));
    start(1, {attempt});
    AktiviertDB(1, "RE", attempt);
    session().beginTransaction();
    row({attempt, 1, "Nord", "RE", "Rechnung", 1, 2, 9, true, 50, "", ""});
    session().blnChanged(true);
    const bool saved = save();
    boxes();
    EXPECT_EQ(others(), before);
    if (!saved) session().rollBackTransaction();
    sql("DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORB'");
  }
}

TEST_F(InjectionTest, ACaptionChangesNoOtherRow) {
  const Texts before = others();
  for (const std::string& attempt : attempts) {
    SCOPED_TRACE(attempt.substr(0, 60));
    start(1, {"Max"});
    session().beginTransaction();
    row({"Alle Benutzer", 1, attempt, "RE", "Rechnung", 1, 2, 9, true, 50, "", ""});
    session().blnChanged(true);
    EXPECT_TRUE(save()) << "captions are not saved";
    EXPECT_EQ(others(), before);
  }
}

TEST_F(InjectionTest, AStatementThatAValueHasTurnedIntoAnotherIsRefusedBySaving) {
  start(1, {"Max"});
  session().beginTransaction();
  row({"Alle Benutzer", 1, "Nord", "RE", "Rechnung", 1, 2, 9, true, 50, "", ""});
  table().setValue(0, &RangeRow::Maske, "' || (SELECT strUserName_PK FROM tblUser) || '");
  session().blnChanged(true);
  script().takeStatements();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(),
            std::vector{test::errorBox(
                3001, "basAllgemein", "Save",
                "Die Anweisung wurde nicht ausgeführt, weil ein Wert sie verändert. Bitte prüfen "
                "Sie die Eingaben auf Hochkommas.")});
  const Texts sent = script().takeStatements();
  ASSERT_EQ(sent.size(), 6U) << "two readings, two deletes, the roll-back and a new transaction";
  EXPECT_EQ((Texts{sent[4], sent[5]}), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
  EXPECT_EQ(table().at(0).Maske.toValue(), Value("' || (SELECT strUserName_PK FROM tblUser) || '"));
}

TEST_F(InjectionTest, TheHostsOwnStatementsGoThrough) {
  start(1);
  std::int32_t affected = 0;
  session().sharedConn()->Execute("UPDATE tblUser SET strUserName_PK='Moritz'", affected);
  EXPECT_EQ(affected, 1);
  EXPECT_THROW(session().Conn().Execute("DELETE FROM tblUser", affected), Error);
  EXPECT_EQ(select("SELECT strUserName_PK FROM tblUser"), Texts{"Moritz"});
}

}  // namespace
}  // namespace vexnumkr
