// A user with the rights that the scripts for administrators grant, and no others.
#include <string_view>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_journal.h>

#include "app/schema/schema.h"
#include "contract/database_language.h"
#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/special_ranges.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
#include "rules/saving_session.h"
#include "support/journal_scripts.h"

namespace vexnumkr {
namespace {

using test::Texts;

constexpr const char* password = "Ge'heim 4711";

class RightsTest : public test::SavingSession {
 protected:
  RightsTest() : user_(database().name() + "_u") {
    for (const std::string& statement : app::settingsTableStatements(database().schema()))
      sql(statement);
    const std::string quoted = "'Ge''heim 4711'";
    database().administer(isOn("mariadb") ? "CREATE USER " + user_ + " IDENTIFIED BY " + quoted
                                          : "CREATE ROLE " + user_ +
                                                " LOGIN IN ROLE kennwort PASSWORD " + quoted);
    const std::string_view rights = app::schemaScriptsOf(database().schema()).rights;
    for (std::string statement : app::statementsOf(rights)) {
      const std::size_t at = statement.find("nummernkreise", statement.find(" TO "));
      sql(statement.replace(at, std::string("nummernkreise").size(), user_));
    }
  }
  ~RightsTest() override {
    basAllgemein::basTerminate(session());
    session().Conn(nullptr);
    if (isOn("mariadb")) {
      database().administer("DROP USER " + user_);
    } else {
      sql("DROP OWNED BY " + user_);
      database().administer("DROP ROLE " + user_);
    }
  }

  /// Fails on an engine that has no users of its own, or that this test does not know.
  bool isOn(const std::string& engine) {
    const std::string own = database().schema();
    EXPECT_TRUE(own == "mariadb" || own == "postgresql") << own;
    return own == engine;
  }
  std::shared_ptr<Connection> open() {
    return openQtSqlConnection(database().connectionString(user_, password));
  }
  /// The company, as the dialog of that user has loaded it.
  void loadAsThatUser() {
    company();
    basAllgemein::basTerminate(session());
    session().Conn(open());
    basAllgemein::basInititialize(session());
    RefreshCombo();
    LoadItems();
    RefreshSGroups();
  }

 private:
  void sql(const std::string& statement) { CoreSession::sql(statement); }

  std::string user_;
};

}  // namespace

TEST_F(RightsTest, TheyAreEnoughToLoadAndSave) {
  loadAsThatUser();
  EXPECT_FALSE(rows().empty());
  EXPECT_EQ(boxes().size(), 0U);
  table().create();
  session().beginTransaction();
  editedTable();
  session().blnChanged(true);
  EXPECT_TRUE(save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(RightsTest, TheyAreEnoughForTheOtherDialogs) {
  const auto connection = open();
  test::run(*connection, "INSERT INTO Nummernkreis_Buchungskreise VALUES (5, 'Ost', 'ORB')");
  test::run(*connection, "DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis = 5");
  test::run(*connection, "INSERT INTO Einstellungen VALUES ('a', 'b', 'c', 'd', '0')");
  EXPECT_EQ(test::run(*connection, "UPDATE Einstellungen SET Wert = '1'"), 1);
  EXPECT_EQ(test::run(*connection, "SELECT strUserName_PK FROM tblUser"), 0);

  std::int32_t affected = 0;
  const auto own = openQtSqlConnection(database().connectionString());
  own->Execute("INSERT INTO Nummernkreis_Sonderkreise VALUES ('S', 'RE', 'Sonder', 0, 'ORB')",
               affected);
  const auto records = connection->createRecordset();
  records->CursorLocation(ado::useClient);
  records->Open("SELECT NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise", *connection,
                ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  records->Fields("Aktiviert", true);
  records->Update();
  EXPECT_EQ(test::rows(*own, "SELECT Aktiviert FROM Nummernkreis_Sonderkreise", {"Aktiviert"}),
            Texts{"-1"});
}

TEST_F(RightsTest, TheyAllowNothingElse) {
  const auto connection = open();
  for (const char* const statement :
       {"INSERT INTO tblUser VALUES ('x')", "DELETE FROM tblUser", "DROP TABLE tblUser",
        "DELETE FROM Nummernkreis_Sonderkreise", "CREATE TABLE Mehr (a INTEGER)",
        "ALTER TABLE Nummernkreise ADD Mehr INTEGER"})
    EXPECT_NE(test::errorOf(*connection, statement).number(), 0) << statement;
}

TEST_F(RightsTest, TheJournalIsWrittenByUsersWhoCannotTouchIt) {
  const auto administrator = openQtSqlConnection(database().connectionString());
  test::runJournalScript(*administrator, database().schema(), "protokoll");
  test::run(*administrator, "INSERT INTO Nummernkreis_Buchungskreise VALUES (5, 'Ost', 'ORB')");
  const auto connection = open();
  EXPECT_EQ(test::run(*connection, "DELETE FROM Nummernkreis_Buchungskreise"), 1);
  for (const char* const statement :
       {"SELECT * FROM Nummernkreis_Protokoll", "DELETE FROM Nummernkreis_Protokoll",
        "UPDATE Nummernkreis_Protokoll SET Aktion = 'neu'", "DROP TABLE Nummernkreis_Protokoll",
        "INSERT INTO Nummernkreis_Protokoll (Tabelle, Aktion) VALUES ('Nummernkreise', 'neu')",
        "TRUNCATE TABLE Nummernkreis_Protokoll", "DROP TRIGGER Nummernkreis_Protokoll_bleibt"})
    EXPECT_NE(test::errorOf(*connection, statement).number(), 0) << statement;
  Texts recorded;
  numbers::readJournal(*administrator, {}, [&](const numbers::JournalEntry& entry) {
    recorded.push_back(entry.login + " " + entry.changes.front().change.what);
  });
  const std::string user = database().name() + "_u";
  ASSERT_EQ(recorded.size(), 2U);
  EXPECT_TRUE(recorded[1] == user + " Buchungskreis 5" ||
              recorded[1] == user + "@localhost Buchungskreis 5")
      << recorded[1];
}

TEST_F(RightsTest, TheyAreEnoughToSaveWhileTheJournalIsWritten) {
  test::runJournalScript(*openQtSqlConnection(database().connectionString()), database().schema(),
                         "protokoll");
  loadAsThatUser();
  table().create();
  session().beginTransaction();
  editedTable();
  session().blnChanged(true);
  EXPECT_TRUE(save());
  for (const auto& box : boxes()) ADD_FAILURE() << box.prompt;
}

TEST_F(RightsTest, AWrongPasswordIsRefusedAndNotTold) {
  const Error error = test::errorOf([&] {
    openQtSqlConnection(database().connectionString(database().name() + "_u", "falsch4711"));
  });
  EXPECT_NE(error.number(), 0);
  EXPECT_EQ(error.description().find("falsch4711"), std::string::npos) << error.description();
}

}  // namespace vexnumkr
