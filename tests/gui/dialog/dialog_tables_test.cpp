// Tables that cannot be read, or not completely: the user is told once, and whatever happens then,
// nothing that the dialog does not show is lost.
#include <algorithm>
#include <tuple>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

const Box nothingIsSaved{
    "Info",
    "Die Nummernkreise konnten nicht vollständig gelesen werden. Es wird nichts gespeichert.", 0};

class DialogTablesTest : public DialogSession {
 protected:
  Lines stored() {
    Lines all;
    for (const char* table : {"Nummernkreise", "Nummernkreis_Zuordnung",
                              "Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise"})
      if (table != missing_)
        for (const std::string& row : rows(std::string("SELECT * FROM ") + table))
          all.push_back(std::string(table) + ": " + row);
    std::ranges::sort(all);
    return all;
  }
  /// Of both applications.
  void companies() {
    smallCompany("ORB");
    for (const char* row : {"(1, 'Nord', 'ORC')", "(3, 'West', 'ORC')"})
      sql(std::string("INSERT INTO Nummernkreis_Buchungskreise VALUES ") + row);
    sql("INSERT INTO Nummernkreise VALUES (3, 'RE', 'Rechnung', 1, 1, 9, -1, 2, '', ''), "
        "(0, 'LS', 'Lieferschein', 1, 1, 9, -1, 3, '', '')");
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (3, 'RE', 'Anna', 'ORC'), (0, 'AN', 'Max', '')");
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORB')");
  }
  void drop(const std::string& table) {
    missing_ = table;
    sql("DROP TABLE " + table);
  }
  /// What failures have named as their place: "LoadItems", each as often as it was told.
  Lines places() {
    Lines all;
    for (const Box& box : boxes()) {
      const std::size_t begin = box.prompt.find("\r\n");
      all.push_back(begin == std::string::npos
                        ? box.prompt
                        : box.prompt.substr(begin + 2, box.prompt.find(": ") - begin - 2));
    }
    return all;
  }

 private:
  std::string missing_;
};

// What keeps a table from being read completely.
struct Cause {
  const char* name;
  Lines statements;
  std::string column = {};  // of Nummernkreise takes more than it does as it is shipped
  int failingSelect = 0;    // while the dialog opens
};

struct PartialTable {
  Cause cause;
  std::int32_t application;
  DatabaseAccess access;
};

void PrintTo(const PartialTable& partial, std::ostream* out) { *out << partial.cause.name; }

class DialogPartialTablesTest : public DialogTablesTest,
                                public testing::WithParamInterface<PartialTable> {
 protected:
  const Cause& cause() const { return GetParam().cause; }
  bool isKnown() const { return GetParam().application == 1 || GetParam().application == 2; }
  bool asks() const { return GetParam().application == 1; }

  void arrange() {
    companies();
    if (!cause().column.empty()) widen(cause().column);
    for (const std::string& statement : cause().statements) sql(statement);
  }
  void open() {
    init(GetParam().application);
    session().source().access(GetParam().access);
  }
  /// Answers what application 1 asks, and what has to be, comes.
  void pressOk() {
    if (asks()) answer("yes");
    press("cmdOK");
    Boxes raised = boxes();
    std::erase_if(raised, [](const Box& box) { return box.title == "Abfrage"; });
    EXPECT_EQ(raised, isKnown() ? Boxes{nothingIsSaved} : Boxes{});
  }

 private:
  // SQLite's columns take numbers of 64 bits as they are.
  void widen(const std::string& column) {
    const std::string& driver = connectionString();
    if (driver.find("QPSQL") != std::string::npos || driver.find("PostgreSQL") != std::string::npos)
      sql("ALTER TABLE Nummernkreise ALTER COLUMN " + column + " TYPE BIGINT");
    else if (driver.find("QMYSQL") != std::string::npos)
      sql("ALTER TABLE Nummernkreise MODIFY COLUMN " + column + " BIGINT");
  }
};

// Whatever the user presses, in whatever application.
TEST_P(DialogPartialTablesTest, NothingIsDeleted) {
  arrange();
  const Lines before = stored();
  open();
  if (cause().failingSelect > 0) script().failStatement(cause().failingSelect);
  show([&] {
    EXPECT_EQ(places().size(), 1U);
    ASSERT_GT(grid().ListCount(), 1);
    click(1, 4);
    type("98");
    key("Enter");
    key("Escape");
    ASSERT_TRUE(changed());
    for (int attempt = 0; attempt < 2; ++attempt) {
      pressOk();
      ASSERT_TRUE(isOpen());
      EXPECT_EQ(stored(), before);
    }
    press("cmdCancel");
  });
  EXPECT_EQ(stored(), before);
}

std::vector<PartialTable> partialTables() {
  const Cause causes[] = {
      {"Null", {"UPDATE Nummernkreise SET AktuellerWert = NULL WHERE NSchl = 'RE'"}},
      {"BeyondThirtyTwoBits",
       {"UPDATE Nummernkreise SET EndWert = 3000000000 WHERE NSchl = 'RE'"},
       "EndWert"},
      {"NullAsDescription",
       {"INSERT INTO Nummernkreis_Buchungskreise VALUES (4, NULL, 'ORB'), (4, NULL, 'ORC'), "
        "(4, NULL, '')"}},
      {"FailedSelect", {}, {}, 4}};
  std::vector<PartialTable> all;
  for (const Cause& cause : causes)
    for (const std::int32_t application : {0, 1, 2, 3})
      for (const DatabaseAccess access : {DatabaseAccess::rowByRow, DatabaseAccess::inSets})
        all.push_back({cause, application, access});
  return all;
}

std::string nameOf(DatabaseAccess access) {
  return access == DatabaseAccess::inSets ? "InSets" : "RowByRow";
}

INSTANTIATE_TEST_SUITE_P(Every, DialogPartialTablesTest, testing::ValuesIn(partialTables()),
                         [](const auto& tested) {
                           return std::string(tested.param.cause.name) + "_Application" +
                                  std::to_string(tested.param.application) + "_" +
                                  nameOf(tested.param.access);
                         });

struct MissingTable {
  const char* table;
  Lines toldRowByRow;  // when the dialog opens
  Lines toldInSets = toldRowByRow;
};

void PrintTo(const MissingTable& missing, std::ostream* out) { *out << missing.table; }

class DialogMissingTablesTest
    : public DialogTablesTest,
      public testing::WithParamInterface<std::tuple<MissingTable, DatabaseAccess>> {
 protected:
  /// The user adds a booking circle.
  void changeCircles() {
    host().plain.circleDialog.whenShown = [](Connection& connection) {
      std::int32_t affected = 0;
      realConnection(connection)
          .Execute("INSERT INTO Nummernkreis_Buchungskreise VALUES (5, 'Ost', 'ORC')", affected);
    };
    press("cmdBuchungskreise");
  }
};

// There would be a failure for each user and range.
TEST_P(DialogMissingTablesTest, OneFailureIsToldOnceInAnAction) {
  const auto& [missing, access] = GetParam();
  companies();
  init(2);
  drop(missing.table);
  session().source().access(access);
  const Lines before = stored();
  show([&, told = access == DatabaseAccess::inSets ? missing.toldInSets : missing.toldRowByRow] {
    EXPECT_EQ(places(), told);
    changeCircles();
    EXPECT_LE(places().size(), 1U);
    press("cmdOK");
    EXPECT_LE(places().size(), 1U);
    if (isOpen()) press("cmdCancel");
    EXPECT_LE(places().size(), 1U);
  });
  EXPECT_EQ(stored(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Every, DialogMissingTablesTest,
    testing::Combine(
        testing::Values(MissingTable{"Nummernkreise", {"LoadItems"}},
                        MissingTable{"Nummernkreis_Zuordnung", {"AktiviertDB"}, {"LoadItems"}},
                        MissingTable{"Nummernkreis_Buchungskreise", {"RefreshCombo", "Form_Load"}},
                        MissingTable{"Nummernkreis_Sonderkreise",
                                     {"CheckSonderkreise", "RefreshSGroups"}}),
        testing::Values(DatabaseAccess::rowByRow, DatabaseAccess::inSets)),
    [](const auto& tested) {
      return std::string(std::get<0>(tested.param).table) + "_" + nameOf(std::get<1>(tested.param));
    });

// What the dialog writes into such a table could not be taken back: it does not begin at all.
TEST_F(DialogTablesTest, ATableWithoutTransactionsIsRefused) {
  if (connectionString().find("QMYSQL") == std::string::npos)
    GTEST_SKIP() << "every table has transactions here";
  companies();
  for (const char* table : {"Nummernkreise", "Nummernkreis_Zuordnung",
                            "Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise"}) {
    SCOPED_TRACE(table);
    sql(std::string("ALTER TABLE ") + table + " ENGINE = MyISAM");
    const std::string refusal =
        std::string("Die Tabelle ") + table +
        " kennt keine Transaktionen (MyISAM). Damit könnte nichts zurückgenommen werden. Bitte "
        "lassen Sie sie umstellen: ALTER TABLE " +
        table + " ENGINE = InnoDB";
    const Lines before = stored();
    init(2);
    show([&] {
      EXPECT_EQ(boxes(), Boxes{errorBox(3251, "frmNummernkreise", "Form_Load", refusal)});
      click(1, 4);
      type("98");
      key("Enter");
      press("cmdOK");
      ASSERT_TRUE(isOpen());
      EXPECT_EQ(boxes(), Boxes{errorBox(3251, "basAllgemein", "Save", refusal)});
      EXPECT_EQ(stored(), before);
      press("cmdCancel");
      boxes();
    });
    EXPECT_EQ(stored(), before);
    sql(std::string("ALTER TABLE ") + table + " ENGINE = InnoDB");
  }
}

}  // namespace
}  // namespace vexnumkr::test
