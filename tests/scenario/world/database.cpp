#include "scenario/world/database.h"

#include <QFile>
#include <QString>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>

#include "adapters/qtsql/session/session.h"
#include "app/components/settings_store.h"
#include "app/sql.h"
#include "scenario/language/transcript.h"
#include "scenario/world/schema.h"

namespace vexnumkr::scenario {
namespace {

constexpr std::string_view sqliteDriver = "QSQLITE";

// Connections fail on files that are not there.
void provideFile(const std::string& file) {
  QFile(QString::fromStdString(file)).open(QIODevice::ReadWrite);
}

std::unique_ptr<qtsql::SqlSession> open(const ConnectionSettings& settings) {
  const qtsql::Driver driver = qtsql::driverOf(settings.driver);
  if (driver.name == sqliteDriver) provideFile(settings.database);
  return std::make_unique<qtsql::SqlSession>(driver, settings);
}

// The file of a SQLite database, by whatever driver it is reached.
std::string fileOf(const ConnectionSettings& settings) {
  if (qtsql::driverOf(settings.driver).name == sqliteDriver) return settings.database;
  return connectionValue(settings.database, "Database", ConnectionSyntax::odbc);
}

std::string printedField(const QVariant& field) {
  return field.isNull() ? std::string() : printedText(field.toString().toStdString());
}

std::vector<PrintedRow> runOn(qtsql::SqlSession& session, const std::string& statement) {
  const qtsql::RowSet found = session.execute(statement).rows;
  std::vector<PrintedRow> rows;
  for (std::size_t row = 0; row < found.rowCount(); ++row) {
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < found.columnCount(); ++column)
      cells.push_back(printedField(found.at(row, column)));
    rows.push_back(joined(cells));
  }
  return rows;
}

// Engines differ in what they say about a table that is not there, and none of it matters.
void drop(qtsql::SqlSession& session, const std::string& table) {
  try {
    session.execute("DROP TABLE " + table);
  } catch (const Error&) {
  }
}

// Lets statements on `session` name the tables of another SQLite file as if they were its own.
void attach(qtsql::SqlSession& session, const std::string& file) {
  session.execute("ATTACH DATABASE " + app::sqlText(file) + " AS settings");
}

}  // namespace

ScenarioDatabase::ScenarioDatabase(const std::string& connectionString) {
  const ConnectionSettings settings = parseConnectionString(connectionString);
  main_ = open(settings);
  if (main_->engine().name != "sqlite") return;
  ConnectionSettings beside;
  beside.driver = sqliteDriver;
  beside.database = app::settingsFile(fileOf(settings));
  settings_ = open(beside);
  attach(*main_, beside.database);
}

ScenarioDatabase::~ScenarioDatabase() = default;

qtsql::SqlSession& ScenarioDatabase::sessionOf(const std::string& table) const {
  return table == settingsTable && settings_ != nullptr ? *settings_ : *main_;
}

void ScenarioDatabase::createTables() {
  for (const TableDefinition& table : tableDefinitions()) {
    qtsql::SqlSession& session = sessionOf(table.name);
    drop(session, table.name);
    session.execute(createStatement(table, session.engine().name));
  }
  for (const std::string& statement : indexStatements()) main_->execute(statement);
}

std::vector<PrintedRow> ScenarioDatabase::run(const std::string& statement) {
  return runOn(*main_, statement);
}

const std::vector<std::string>& ScenarioDatabase::tableNames() {
  static const std::vector<std::string> names = {"Nummernkreise", "Nummernkreis_Buchungskreise",
                                                 "Nummernkreis_Zuordnung",
                                                 "Nummernkreis_Sonderkreise", settingsTable};
  return names;
}

// NULL comes first, as it does by itself everywhere else.
std::vector<PrintedRow> ScenarioDatabase::rows(const std::string& table) const {
  qtsql::SqlSession& session = sessionOf(table);
  const bool isPostgresql = session.engine().name == "postgresql";
  for (const TableDefinition& definition : tableDefinitions()) {
    if (definition.name != table) continue;
    std::string order;
    for (int column = 1; column <= definition.columns; ++column)
      order +=
          (column == 1 ? "" : ", ") + std::to_string(column) + (isPostgresql ? " NULLS FIRST" : "");
    return runOn(session, "SELECT * FROM " + table + " ORDER BY " + order);
  }
  throw Error::subscriptOutOfRange();
}

}  // namespace vexnumkr::scenario
