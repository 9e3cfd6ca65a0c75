// What statements do on SQLite: its values, triggers, foreign keys and errors.
#include <gtest/gtest.h>

#include "contract/sqlite/sqlite_database.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

class SqliteStatements : public ::testing::Test {
 protected:
  std::int32_t run(const std::string& text) { return test::run(*conn, text); }
  Value valueOf(const std::string& expression) {
    return value(*conn, "SELECT " + expression + " AS X");
  }
  void expectError(const std::string& text, std::int32_t number, const std::string& description) {
    const Error error = errorOf(*conn, text);
    EXPECT_EQ(error.number(), number) << text;
    EXPECT_EQ(error.description(), description) << text;
    EXPECT_FALSE(error.source().empty());
  }

  SqliteFile file;
  std::shared_ptr<Connection> conn = file.open();
};

}  // namespace

TEST_F(SqliteStatements, ValuesComeByTheirOwnKind) {
  EXPECT_EQ(valueOf("12.5"), Value("12,5"));
  EXPECT_EQ(valueOf("3.0"), Value(3));
  EXPECT_EQ(valueOf("1e10"), Value("10000000000"));
  EXPECT_EQ(valueOf("9223372036854775807"), Value("9223372036854775807"));
  EXPECT_EQ(valueOf("x'C3A4'"), Value("ä"));
  EXPECT_EQ(valueOf("x''"), Value(""));
  EXPECT_EQ(valueOf("NULL"), Value(Null()));
  EXPECT_EQ(valueOf("'7'"), Value("7"));
  EXPECT_EQ(valueOf("1 = 1"), Value(1));
}

TEST_F(SqliteStatements, ZeroCharactersInFieldsAreKept) {
  EXPECT_EQ(valueOf("'a' || char(0) || 'b'"), Value(std::string("a\0b", 3)));
  run("CREATE TABLE a (b)");
  run("INSERT INTO a (b) VALUES ('')");
  const auto records = conn->createRecordset();
  records->Open("SELECT b FROM a", *conn, ado::openKeyset, ado::lockOptimistic, 1);
  records->Fields("b", std::string("x\0y", 3));
  records->Update();
  EXPECT_EQ(value(*conn, "SELECT hex(b) AS X FROM a"), Value("780079"));
}

TEST_F(SqliteStatements, FieldNamesWithUmlautsAreFoundWithoutRegardToCase) {
  run("CREATE TABLE a (\"Währung\", \"mit Blank\")");
  run("INSERT INTO a VALUES ('EUR', 1)");
  EXPECT_EQ(rows(*conn, "SELECT * FROM a", {"währung", "WÄHRUNG", "MIT BLANK"}),
            Texts{"'EUR'|'EUR'|1"});
}

TEST_F(SqliteStatements, TheFirstOfTwoFieldsOfOneNameIsFound) {
  EXPECT_EQ(rows(*conn, "SELECT 1 AS a, 2 AS A", {"A"}), Texts{"1"});
}

TEST_F(SqliteStatements, OnlyChangesOfRowsAreCounted) {
  EXPECT_EQ(run("CREATE TABLE a (b)"), 0);
  EXPECT_EQ(run("INSERT INTO a VALUES (1), (2), (3)"), 3);
  EXPECT_EQ(run("CREATE INDEX c ON a (b)"), 0);
  EXPECT_EQ(run("PRAGMA foreign_keys = ON"), 0);
  EXPECT_EQ(run("WITH d AS (SELECT 2 AS e) DELETE FROM a WHERE b IN (SELECT e FROM d)"), 1);
  EXPECT_EQ(run("WITH d AS (SELECT b FROM a) SELECT * FROM d"), 2);
  EXPECT_EQ(run("INSERT INTO a VALUES (4), (5) RETURNING b"), 2);
  EXPECT_EQ(run("DROP TABLE a"), 0);
}

TEST_F(SqliteStatements, TransactionsBeginDeferred) {
  run("CREATE TABLE a (b)");
  HostDatabase other(file.path());
  conn->BeginTrans();
  EXPECT_TRUE(other.run("INSERT INTO a VALUES (1)"));
  EXPECT_EQ(run("INSERT INTO a VALUES (2)"), 1);
  EXPECT_FALSE(other.run("INSERT INTO a VALUES (3)"));
  conn->CommitTrans();
  EXPECT_TRUE(other.run("INSERT INTO a VALUES (4)"));
}

TEST_F(SqliteStatements, TriggersOfTheSchemaWork) {
  run("CREATE TABLE a (b)");
  run("CREATE TABLE log (c)");
  run("CREATE TRIGGER t AFTER INSERT ON a BEGIN INSERT INTO log VALUES (new.b); "
      "INSERT INTO log VALUES (CASE WHEN new.b > 5 THEN 'big' ELSE 'small' END); END;");
  EXPECT_EQ(run("INSERT INTO a VALUES (7)"), 1);
  EXPECT_EQ(rows(*conn, "SELECT c FROM log", {"c"}), (Texts{"7", "'big'"}));
}

TEST_F(SqliteStatements, ATriggersMessageIsTheError) {
  run("CREATE TABLE a (b)");
  run("CREATE TRIGGER t BEFORE INSERT ON a BEGIN SELECT RAISE(ABORT, 'Das geht so nicht: ä'); END");
  expectError("INSERT INTO a VALUES (7)", 1811, "Das geht so nicht: ä");
}

TEST_F(SqliteStatements, ForeignKeysOfTheSchemaWork) {
  run("CREATE TABLE a (b PRIMARY KEY)");
  run("CREATE TABLE c (d REFERENCES a (b) ON DELETE CASCADE)");
  expectError("INSERT INTO c VALUES (1)", 787, "FOREIGN KEY constraint failed");
  run("INSERT INTO a VALUES (1)");
  run("INSERT INTO c VALUES (1)");
  EXPECT_EQ(run("DELETE FROM a"), 1);
  EXPECT_EQ(run("SELECT * FROM c"), 0);
}

TEST_F(SqliteStatements, ErrorsHaveTheEnginesCodesAndMessages) {
  run("CREATE TABLE a (b UNIQUE NOT NULL, c CHECK (c < 5))");
  run("INSERT INTO a VALUES (1, 1)");
  expectError("INSERT INTO a VALUES (1, 1)", 2067, "UNIQUE constraint failed: a.b");
  expectError("INSERT INTO a VALUES (NULL, 1)", 1299, "NOT NULL constraint failed: a.b");
  expectError("INSERT INTO a VALUES (2, 9)", 275, "CHECK constraint failed: c < 5");
  expectError("SELECT d FROM a", 1, "no such column: d");
  expectError("SELECT 'open", 1, "unrecognized token: \"'open\"");
  expectError("SELECT abs(-9223372036854775807 - 1)", 1, "integer overflow");
}

TEST_F(SqliteStatements, PlaceholdersHaveNoValueAndAreErrors) {
  run("CREATE TABLE a (b)");
  for (const char* const text : {"INSERT INTO a VALUES (?)", "INSERT INTO a VALUES (:b)",
                                 "DELETE FROM a WHERE b = @b OR b = $c"})
    EXPECT_NE(errorOf(*conn, text).number(), 0) << text;
  EXPECT_EQ(run("SELECT * FROM a"), 0);
  EXPECT_EQ(valueOf("'?' || \"?\" || ':b'").toText(), "??:b");
}

TEST_F(SqliteStatements, ASelectThatFailsOnALaterRowIsAnErrorAndLeavesNoLock) {
  run("CREATE TABLE a (b)");
  run("INSERT INTO a VALUES (1), (2), (-9223372036854775807 - 1)");
  expectError("SELECT abs(b) FROM a", 1, "integer overflow");
  EXPECT_TRUE(HostDatabase(file.path()).run("BEGIN EXCLUSIVE"));
}

TEST_F(SqliteStatements, ATransactionThatTheEngineHasRolledBackTakesNothingMore) {
  run("CREATE TABLE a (b)");
  run("CREATE TRIGGER t BEFORE INSERT ON a WHEN new.b = 2 "
      "BEGIN SELECT RAISE(ROLLBACK, 'Schluss'); END");
  conn->BeginTrans();
  run("INSERT INTO a VALUES (1)");
  expectError("INSERT INTO a VALUES (2)", 1811, "Schluss");
  expectError("INSERT INTO a VALUES (3)", 1811, "Schluss");
  expectError("SELECT * FROM a", 1811, "Schluss");
  EXPECT_EQ(errorOf([&] { conn->BeginTrans(); }).description(), "Schluss");
  EXPECT_EQ(errorOf([&] { conn->CommitTrans(); }).description(), "Schluss");
  conn->RollbackTrans();
  EXPECT_EQ(run("SELECT * FROM a"), 0);
  conn->BeginTrans();
  run("INSERT INTO a VALUES (4)");
  conn->CommitTrans();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"4"});
}

TEST_F(SqliteStatements, OnlySelectsAreOpened) {
  run("CREATE TABLE a (b)");
  run("INSERT INTO a VALUES (1)");
  for (const char* const text :
       {"DELETE FROM a", "WITH c AS (SELECT 1) DELETE FROM a", "DELETE FROM a RETURNING b"}) {
    const auto records = conn->createRecordset();
    const auto open = [&] { records->Open(text, *conn, ado::openForwardOnly, 1, 1); };
    EXPECT_EQ(errorOf(open).number(), 3001) << text;
  }
  EXPECT_EQ(run("SELECT * FROM a"), 1);
}

TEST_F(SqliteStatements, ATextThatIsNotUtf8IsRefused) {
  run("CREATE TABLE a (b)");
  EXPECT_EQ(errorOf(*conn, "INSERT INTO a VALUES ('\xFF')").number(), 3001);
  EXPECT_EQ(run("SELECT * FROM a"), 0);
}

TEST_F(SqliteStatements, ATextOfAMegabyteIsWrittenAndRead) {
  run("CREATE TABLE a (b)");
  const std::string text = std::string(1 << 20, 'x') + ";'' ä";
  run("INSERT INTO a VALUES ('" + text + "')");
  EXPECT_EQ(value(*conn, "SELECT length(b) AS X FROM a"), Value((1 << 20) + 4));
}

}  // namespace vexnumkr::test
