// Whatever stands in a value, nothing but its own row can change by it.
#include <map>

#include "data/sql/statements.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::RowCells;
using Texts = std::vector<std::string>;

const RowCells invoice = test::standardInvoice()
                             .with(&RowCells::Buchungskreis, 1)
                             .with(&RowCells::Gruppe, "Nord")
                             .with(&RowCells::Maske, "");

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
  const std::map<std::string, Value RowCells::*> texts = {{"NSchl", &RowCells::NSchl},
                                                          {"NBezeichnung", &RowCells::NBezeichnung},
                                                          {"IstNSchlVon", &RowCells::IstNSchlVon},
                                                          {"Maske", &RowCells::Maske}};
  for (const auto& [column, cell] : texts) {
    for (const std::string& attempt : attempts) {
      SCOPED_TRACE(column + ": " + attempt.substr(0, 60));
      start(1, {"Max"});
      session().beginTransaction();
      row(invoice.with(cell, attempt));
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
  row(invoice.with(&RowCells::NBezeichnung, text).with(&RowCells::Maske, text));
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
    row(invoice.with(&RowCells::Benutzer, attempt));
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
    row(invoice.with(&RowCells::Gruppe, attempt));
    session().blnChanged(true);
    EXPECT_TRUE(save()) << "captions are not saved";
    EXPECT_EQ(others(), before);
  }
}

TEST_F(InjectionTest, AStatementThatAValueHasTurnedIntoAnotherIsRefusedBySaving) {
  start(1, {"Max"});
  session().beginTransaction();
  row(invoice);
  table().setValue(0, &RangeRow::Maske, "' || (SELECT strUserName_PK FROM tblUser) || '");
  session().blnChanged(true);
  script().takeStatements();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(),
            std::vector{test::errorBox(
                3001, "basAllgemein", "Save",
                "Die Anweisung wurde nicht ausgeführt, weil ein Wert sie verändert. Bitte prüfen "
                "Sie die Eingaben auf Hochkommas.\r\n(Belegart: Rechnung, Buchungskreis: Nord)")});
  const Texts sent = script().takeStatements();
  ASSERT_EQ(sent.size(), 6U) << "two readings, two deletes, the roll-back and a new transaction";
  EXPECT_EQ((Texts{sent[4], sent[5]}), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
  EXPECT_EQ(table().at(0).Maske.toValue(), Value("' || (SELECT strUserName_PK FROM tblUser) || '"));
}

TEST_F(InjectionTest, AUserNameThatIsRefusedIsTold) {
  start(1, {"O''Neill"});
  session().beginTransaction();
  row(invoice.with(&RowCells::Benutzer, "O''Neill"));
  session().blnChanged(true);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(),
            std::vector{test::errorBox(
                3001, "basAllgemein", "Save",
                "Die Anweisung wurde nicht ausgeführt, weil ein Wert sie verändert. Bitte prüfen "
                "Sie die Eingaben auf Hochkommas.\r\n(Benutzer: O''Neill, Schlüssel: RE)")});
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
