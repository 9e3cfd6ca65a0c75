#include <gtest/gtest.h>

#include "adapters/automation/ado/statement_check.h"
#include "contract/database_language.h"
#include "engines/engine_list.h"

namespace vexnumkr::automation {
namespace {

constexpr const char* sqlServer =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Initial Catalog=Firma;Data Source=SERVER";
constexpr const char* accessFile =
    "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Firma\\firma.mdb";
constexpr const char* mariaDb =
    "Provider=MSDASQL.1;Extended Properties=\"Driver={MariaDB ODBC 3.1 Driver};Server=db\"";
constexpr const char* postgreSql = "Driver={PostgreSQL Unicode};Server=db;Database=firma";
constexpr const char* dataSource = "Provider=MSDASQL.1;Data Source=Firma";

std::string passed(const char* connection, std::string_view text) {
  StatementCheck check;
  return std::string(check.pass(text, lexicalRulesOf(connection)).text);
}

std::string refusal(const char* connection, std::string_view text) {
  const Error error = test::errorOf([&] { passed(connection, text); });
  EXPECT_EQ(error.number(), 3001);
  return error.description();
}

constexpr const char* oneStatement = "SELECT * FROM tblUser WHERE strUserName_PK='a\\' OR '1'='1'";

}  // namespace

TEST(AdoStatementCheck, ProvidersOfOleDbHaveNoBackslashEscapes) {
  for (const char* const connection : {sqlServer, accessFile}) {
    ASSERT_TRUE(lexicalRulesOf(connection)) << connection;
    EXPECT_FALSE(lexicalRulesOf(connection)->backslashEscapes) << connection;
  }
}

TEST(AdoStatementCheck, DriversOfMariaDbAndMySqlHave) {
  for (const char* const connection : {mariaDb, "DRIVER={MySQL ODBC 8.0 Unicode Driver};UID=x"}) {
    ASSERT_TRUE(lexicalRulesOf(connection)) << connection;
    EXPECT_TRUE(lexicalRulesOf(connection)->backslashEscapes) << connection;
    EXPECT_EQ(lexicalRulesOf(connection), engines::mariadb.rules(engines::mariadb.usualMode));
  }
}

TEST(AdoStatementCheck, PostgreSqlIsKnownByItsDriver) {
  EXPECT_EQ(lexicalRulesOf(postgreSql), engines::postgresql.rules("on"));
}

TEST(AdoStatementCheck, ANamedDataSourceMayBeAnything) {
  EXPECT_EQ(lexicalRulesOf(dataSource), std::nullopt);
  EXPECT_EQ(lexicalRulesOf("DSN=Firma;UID=sa"), std::nullopt);
  EXPECT_EQ(lexicalRulesOf(""), std::nullopt);
}

TEST(AdoStatementCheck, OnlyProviderAndDriverSayWhichEngineItIs) {
  EXPECT_EQ(lexicalRulesOf("Provider=SQLOLEDB;Initial Catalog=MySQL_Kopie"), LexicalRules{});
  EXPECT_EQ(lexicalRulesOf("Driver={SQL Server};Server=db;Database=postgres_alt"), LexicalRules{});
  EXPECT_EQ(lexicalRulesOf("DSN=mysql;UID=sa"), std::nullopt);
  EXPECT_EQ(lexicalRulesOf("Provider=MSDASQL; Data Source=\"x;Driver={MySQL}\""), std::nullopt);
  EXPECT_TRUE(lexicalRulesOf(" driver = {MariaDB ODBC; 3.1} ;Server=db")->backslashEscapes);
}

TEST(AdoStatementCheck, TheEngineIsTheProvidersOrTheDrivers) {
  EXPECT_EQ(engineNamedBy(mariaDb).engine, &engines::mariadb);
  EXPECT_EQ(engineNamedBy(postgreSql).engine, &engines::postgresql);
  EXPECT_EQ(engineNamedBy("Driver=SQLite3;Database=firma.db").engine, &engines::sqlite);
  for (const char* const connection : {sqlServer, accessFile}) {
    EXPECT_TRUE(engineNamedBy(connection).isNamed) << connection;
    EXPECT_EQ(engineNamedBy(connection).engine, nullptr) << connection;
  }
  EXPECT_FALSE(engineNamedBy(dataSource).isNamed);
}

TEST(AdoStatementCheck, LetsOneStatementThrough) {
  for (const char* const connection : {sqlServer, accessFile, mariaDb, postgreSql, dataSource}) {
    EXPECT_EQ(passed(connection, " SELECT 1 ; "), "SELECT 1") << connection;
    EXPECT_NE(refusal(connection, "SELECT 1; DELETE FROM tblUser"), "") << connection;
    EXPECT_NE(refusal(connection, ""), "") << connection;
  }
}

TEST(AdoStatementCheck, ReadsABackslashAsTheEngineDoes) {
  EXPECT_EQ(passed(sqlServer, oneStatement), oneStatement);
  EXPECT_EQ(passed(mariaDb, oneStatement), oneStatement);
  EXPECT_NE(refusal(sqlServer, "SELECT '\\'; DELETE FROM tblUser; --'"), "");
  EXPECT_EQ(passed(mariaDb, "SELECT '\\'; DELETE FROM tblUser; --'"),
            "SELECT '\\'; DELETE FROM tblUser; --'");
}

TEST(AdoStatementCheck, RefusesWhatAnUnknownEngineCouldReadInTwoWays) {
  EXPECT_NE(refusal(dataSource, oneStatement).find("Schrägstrich"), std::string::npos);
  EXPECT_NE(refusal(dataSource, "SELECT '\\'"), "");
}

TEST(AdoStatementCheck, AnUnknownEngineMayGetABackslashThatMeansTheSameEitherWay) {
  const char* const text = "SELECT * FROM tblUser WHERE strUserName_PK='FIRMA\\Becker'";
  EXPECT_EQ(passed(dataSource, text), text);
}

}  // namespace vexnumkr::automation
