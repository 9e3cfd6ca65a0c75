#include "scenario/database.h"

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtSql/QSqlRecord>

#include <vexnumkr/error.h>

#include "adapters/qtsql/connection_string.h"
#include "adapters/qtsql/database_handle.h"
#include "adapters/qtsql/engine.h"
#include "adapters/qtsql/failure.h"
#include "app/components/settings_store.h"
#include "scenario/schema.h"
#include "scenario/transcript.h"

namespace vexnumkr::scenario {
namespace {

constexpr std::string_view sqlite = "QSQLITE";

// Connections fail on files that are not there.
void provideFile(const std::string& file) {
  QFile(QString::fromStdString(file)).open(QIODevice::ReadWrite);
}

std::unique_ptr<qtsql::DatabaseHandle> open(const qtsql::ConnectionSettings& settings) {
  const qtsql::Engine& engine = qtsql::engineOf(settings.driver);
  if (engine.driver == sqlite) provideFile(settings.database);
  return std::make_unique<qtsql::DatabaseHandle>(engine, settings);
}

std::string printedField(const QVariant& field) {
  return field.isNull() ? std::string() : printedText(field.toString().toStdString());
}

PrintedRow printedRow(const QSqlQuery& query, int columns) {
  std::vector<std::string> cells;
  for (int i = 0; i < columns; ++i) cells.push_back(printedField(query.value(i)));
  return joined(cells);
}

std::vector<PrintedRow> runOn(const QSqlDatabase& database, const std::string& statement) {
  QSqlQuery query(database);
  query.setForwardOnly(true);
  if (!query.exec(QString::fromStdString(statement))) throw qtsql::engineFailure(query.lastError());
  std::vector<PrintedRow> rows;
  const int columns = query.record().count();
  while (query.isSelect() && query.next()) rows.push_back(printedRow(query, columns));
  if (query.lastError().isValid()) throw qtsql::engineFailure(query.lastError());
  return rows;
}

// Engines differ in what they say about a table that is not there, and none of it matters.
void drop(const QSqlDatabase& database, const std::string& table) {
  QSqlQuery(database).exec(QString::fromStdString("DROP TABLE " + table));
}

// Lets statements on `database` name the tables of another SQLite file as if they were its own.
void attach(const QSqlDatabase& database, const std::string& file) {
  const QString name =
      QString::fromStdString(file).replace(QLatin1String("'"), QLatin1String("''"));
  runOn(database, "ATTACH DATABASE '" + name.toStdString() + "' AS settings");
}

}  // namespace

ScenarioDatabase::ScenarioDatabase(const std::string& connectionString) {
  qtsql::ConnectionSettings settings = qtsql::parseConnectionString(connectionString);
  main_ = open(settings);
  if (qtsql::engineOf(settings.driver).driver != sqlite) return;
  settings.database = host::settingsFile(settings.database);
  settings_ = open(settings);
  attach(main_->get(), settings.database);
}

ScenarioDatabase::~ScenarioDatabase() = default;

const QSqlDatabase& ScenarioDatabase::databaseOf(const std::string& table) const {
  return table == settingsTable && settings_ != nullptr ? settings_->get() : main_->get();
}

void ScenarioDatabase::createTables() {
  for (const TableDefinition& table : tableDefinitions()) {
    const QSqlDatabase& database = databaseOf(table.name);
    drop(database, table.name);
    runOn(database, std::string("CREATE TABLE ") + table.name + " (" + table.definition + ")");
  }
  for (const std::string& statement : indexStatements()) runOn(main_->get(), statement);
}

std::vector<PrintedRow> ScenarioDatabase::run(const std::string& statement) {
  return runOn(main_->get(), statement);
}

const std::vector<std::string>& ScenarioDatabase::tableNames() {
  static const std::vector<std::string> names = {"Nummernkreise", "Nummernkreis_Buchungskreise",
                                                 "Nummernkreis_Zuordnung",
                                                 "Nummernkreis_Sonderkreise", settingsTable};
  return names;
}

std::vector<PrintedRow> ScenarioDatabase::rows(const std::string& table) const {
  for (const TableDefinition& definition : tableDefinitions()) {
    if (definition.name != table) continue;
    std::string order;
    for (int column = 1; column <= definition.columns; ++column)
      order += (column == 1 ? "" : ", ") + std::to_string(column);
    return runOn(databaseOf(table), "SELECT * FROM " + table + " ORDER BY " + order);
  }
  throw Error::subscriptOutOfRange();
}

}  // namespace vexnumkr::scenario
