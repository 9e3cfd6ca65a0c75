// How records of SQLite tables are told apart when they are written.
#include <gtest/gtest.h>

#include "contract/sqlite/sqlite_database.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

class SqliteUpdate : public ::testing::Test {
 protected:
  void run(const std::string& text) { test::run(*conn, text); }
  std::unique_ptr<Recordset> open(const std::string& select) {
    auto records = conn->createRecordset();
    records->CursorLocation(ado::useClient);
    records->Open(select, *conn, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
    return records;
  }
  // Sets the field `b` of the second of three records that look the same, and expects it there.
  void expectSecondIsWritten(const std::string& select, const std::string& all) {
    const auto records = open(select);
    records->MoveNext();
    records->Fields("b", 5);
    records->Update();
    EXPECT_EQ(rows(*conn, all, {"b"}), (Texts{"0", "5", "0"}));
  }
  Error writingError(Recordset& records) {
    return errorOf([&] {
      records.Fields("b", 5);
      records.Update();
    });
  }

  SqliteFile file;
  std::shared_ptr<Connection> conn = file.open();
};

}  // namespace

TEST_F(SqliteUpdate, ByTheRowNumberWithoutAnyKey) {
  run("CREATE TABLE a (b)");
  run("INSERT INTO a VALUES (0), (0), (0)");
  expectSecondIsWritten("SELECT b FROM a", "SELECT b FROM a ORDER BY rowid");
}

TEST_F(SqliteUpdate, ByTheRowNumberWhateverItsNameIs) {
  run("CREATE TABLE a (rowid, _ROWID_, b)");
  run("INSERT INTO a VALUES (1, 1, 0), (1, 1, 0), (1, 1, 0)");
  expectSecondIsWritten("SELECT * FROM a", "SELECT b FROM a ORDER BY oid");
}

TEST_F(SqliteUpdate, ByAnAutomaticKey) {
  run("CREATE TABLE a (k INTEGER PRIMARY KEY, b)");
  run("INSERT INTO a VALUES (9, 0), (8, 0), (7, 0)");
  expectSecondIsWritten("SELECT b FROM a ORDER BY k", "SELECT b FROM a ORDER BY k");
}

TEST_F(SqliteUpdate, ByTheKeyOfATableWithoutRowNumbers) {
  run("CREATE TABLE a (k TEXT, \"m \"\" n\" TEXT, b, PRIMARY KEY (k, \"m \"\" n\")) WITHOUT ROWID");
  run("INSERT INTO a VALUES ('x', '1', 0), ('x', '2', 0), ('y', '1', 0)");
  expectSecondIsWritten("SELECT b FROM a ORDER BY 1, k", "SELECT b FROM a ORDER BY k");
}

TEST_F(SqliteUpdate, AlsoWhereAKeyColumnHoldsNull) {
  run("CREATE TABLE a (k TEXT PRIMARY KEY, b)");
  run("INSERT INTO a VALUES (NULL, 0), (NULL, 0), ('x', 0)");
  expectSecondIsWritten("SELECT b FROM a ORDER BY rowid", "SELECT b FROM a ORDER BY rowid");
}

TEST_F(SqliteUpdate, OfTablesAndColumnsWithAnyName) {
  run("CREATE TABLE \"Tabelle; --\" (\"Größe in %\" , \"SELECT\", b)");
  run("INSERT INTO \"Tabelle; --\" VALUES (1, 2, 0)");
  const auto records = open("SELECT [größe in %], \"SELECT\", b FROM main.\"Tabelle; --\" AS t");
  records->Fields("GRÖßE IN %", 3);
  records->Fields("select", 4);
  records->Fields("b", 5);
  records->Update();
  EXPECT_EQ(rows(*conn, "SELECT * FROM \"Tabelle; --\"", {"Größe in %", "SELECT", "b"}),
            Texts{"3|4|5"});
}

TEST_F(SqliteUpdate, NotOfTheRecordThatHasTakenTheNumberOfADeletedOne) {
  run("CREATE TABLE a (k TEXT PRIMARY KEY, b)");
  run("INSERT INTO a VALUES ('x', 0)");
  const auto records = open("SELECT b FROM a");
  run("DELETE FROM a");
  run("INSERT INTO a VALUES ('y', 0)");
  const Error error = writingError(*records);
  EXPECT_EQ(error.number(), -2147217864);
  EXPECT_EQ(error.description(),
            "Der Datensatz ist nicht mehr vorhanden und kann nicht geändert werden.");
  EXPECT_EQ(rows(*conn, "SELECT * FROM a", {"k", "b"}), Texts{"'y'|0"});
}

TEST_F(SqliteUpdate, NotOfAView) {
  run("CREATE TABLE a (b)");
  run("INSERT INTO a VALUES (1)");
  run("CREATE VIEW v AS SELECT b FROM a");
  const auto records = open("SELECT b FROM v");
  EXPECT_EQ(records->Fields("b"), Value(1));
  const Error error = writingError(*records);
  EXPECT_EQ(error.number(), 3251);
  EXPECT_EQ(error.description(),
            "Der Datensatz hat keinen eindeutigen Schlüssel und kann nicht geändert werden.");
}

TEST_F(SqliteUpdate, TheKeyColumnsAddedAreNotSeen) {
  run("CREATE TABLE a (k TEXT PRIMARY KEY, b)");
  run("INSERT INTO a VALUES ('x', 0)");
  const auto records = open("SELECT b FROM a");
  EXPECT_EQ(errorOf([&] { records->Fields("k"); }).number(), 3265);
  EXPECT_EQ(errorOf([&] { records->Fields("rowid"); }).number(), 3265);
  EXPECT_EQ(errorOf([&] { records->Fields("k", "y"); }).number(), 3265);
}

TEST_F(SqliteUpdate, AValueThatTheSchemaRefusesIsTheEnginesError) {
  run("CREATE TABLE a (k TEXT PRIMARY KEY, b CHECK (b < 5))");
  run("INSERT INTO a VALUES ('x', 0)");
  const auto records = open("SELECT b FROM a");
  conn->BeginTrans();
  EXPECT_EQ(writingError(*records).number(), 275);
  records->Fields("b", 4);
  records->Update();
  conn->CommitTrans();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"4"});
}

TEST_F(SqliteUpdate, ValuesSetStayWithTheirRecord) {
  run("CREATE TABLE a (b, c)");
  run("INSERT INTO a VALUES (1, 1), (2, 2)");
  const auto records = open("SELECT b, c FROM a");
  records->Fields("b", 10);
  records->MoveNext();
  records->Fields("c", 20);
  records->Update();
  EXPECT_EQ(rows(*conn, "SELECT * FROM a", {"b", "c"}), (Texts{"1|1", "2|20"}));
  records->MoveFirst();
  EXPECT_EQ(records->Fields("b"), Value(10));
  records->Update();
  EXPECT_EQ(rows(*conn, "SELECT * FROM a", {"b", "c"}), (Texts{"10|1", "2|20"}));
}

TEST_F(SqliteUpdate, LeavesNoLockBehind) {
  run("CREATE TABLE a (b)");
  run("INSERT INTO a VALUES (1)");
  const auto records = open("SELECT b FROM a");
  HostDatabase other(file.path());
  EXPECT_TRUE(other.run("BEGIN EXCLUSIVE"));
  EXPECT_TRUE(other.run("COMMIT"));
  records->Fields("b", 2);
  records->Update();
  EXPECT_TRUE(other.run("BEGIN EXCLUSIVE"));
}

}  // namespace vexnumkr::test
