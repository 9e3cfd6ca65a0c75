#include "app/sample/create_sample.h"

#include <QFile>
#include <QString>
#include <set>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>
#include <vexnumkr/engines.h>
#include <vexnumkr/error.h>

#include "app/files.h"
#include "app/sample/scaled_company.h"
#include "app/schema/schema.h"
#include "app/sql.h"

namespace vexnumkr::app {
namespace {

std::string flag(bool on) { return on ? "-1" : "0"; }

std::string number(std::int32_t value) { return std::to_string(value); }

std::string row(const std::vector<std::string>& values) {
  std::string list;
  for (const std::string& value : values) list += (list.empty() ? "(" : ", ") + value;
  return list + ")";
}

/// Inserts many rows with few statements.
class Inserter {
 public:
  Inserter(Connection& connection, const char* table) : connection_(connection), table_(table) {}

  void add(const std::vector<std::string>& values) {
    rows_ += (rows_.empty() ? "" : ", ") + row(values);
    if (++count_ == rowsPerStatement) flush();
  }
  void flush() {
    if (count_ == 0) return;
    execute(connection_, "INSERT INTO " + table_ + " VALUES " + rows_);
    rows_.clear();
    count_ = 0;
  }

 private:
  static constexpr int rowsPerStatement = 500;

  Connection& connection_;
  std::string table_;
  std::string rows_;
  int count_ = 0;
};

void writeRanges(Connection& connection, const std::vector<SampleRange>& ranges) {
  Inserter table(connection, "Nummernkreise");
  for (const SampleRange& range : ranges) {
    table.add({number(range.circle), sqlText(range.key), sqlText(range.description),
               number(range.start), number(range.current), number(range.end), flag(range.active),
               number(range.sortIndex), sqlText(range.sharedKey), sqlText(range.mask)});
  }
  table.flush();
}

void writeCircles(Connection& connection, const std::vector<SampleCircle>& circles) {
  Inserter table(connection, "Nummernkreis_Buchungskreise");
  for (const SampleCircle& circle : circles)
    table.add({number(circle.number), sqlText(circle.description), sqlText(circle.origin)});
  table.flush();
}

void writeAssignments(Connection& connection, const std::vector<SampleAssignment>& assignments) {
  Inserter table(connection, "Nummernkreis_Zuordnung");
  for (const SampleAssignment& assignment : assignments) {
    table.add({number(assignment.circle), sqlText(assignment.key), sqlText(assignment.user),
               sqlText(assignment.origin)});
  }
  table.flush();
}

void writeSpecialRanges(Connection& connection, const std::vector<SampleSpecialRange>& ranges) {
  Inserter table(connection, "Nummernkreis_Sonderkreise");
  for (const SampleSpecialRange& range : ranges) {
    table.add({sqlText(range.key), sqlText(range.sharedKey), sqlText(range.description),
               flag(range.active), sqlText(range.origin)});
  }
  table.flush();
}

void writeUsers(Connection& connection, const std::vector<std::string>& users) {
  Inserter table(connection, "tblUser");
  for (const std::string& user : users) table.add({sqlText(user)});
  table.flush();
}

void writeRows(Connection& connection, const SampleCompany& company) {
  connection.BeginTrans();
  try {
    writeRanges(connection, company.ranges);
    writeCircles(connection, company.circles);
    writeAssignments(connection, company.assignments);
    writeSpecialRanges(connection, company.specialRanges);
    writeUsers(connection, company.users);
    connection.CommitTrans();
  } catch (const Error&) {
    connection.RollbackTrans();
    throw;
  }
}

/// The name behind "CREATE TABLE "; empty for another statement.
std::string tableMadeBy(const std::string& statement) {
  const std::string_view begin = "CREATE TABLE ";
  if (!statement.starts_with(begin)) return {};
  return statement.substr(begin.size(), statement.find(' ', begin.size()) - begin.size());
}

void drop(Connection& connection, const std::vector<std::string>& tables) {
  for (const std::string& table : tables) {
    try {
      execute(connection, "DROP TABLE " + table);
    } catch (const Error&) {
      // What made the sample fail is the failure to tell.
    }
  }
}

/// Servers keep the settings in the same database; SQLite's are in a file of their own.
std::vector<std::string> tableStatements(const std::string& engine) {
  std::vector<std::string> statements = rangeTableStatements(engine);
  if (engine != "sqlite")
    for (const std::string& statement : settingsTableStatements(engine))
      statements.push_back(statement);
  return statements;
}

std::string summary(const std::string& file, const SampleCompany& company) {
  std::set<std::string> keys;
  for (const SampleRange& range : company.ranges) keys.insert(range.key);
  return "Beispieldatenbank angelegt: " + file + "\n  " + std::to_string(keys.size()) +
         " Belegarten mit " + std::to_string(company.ranges.size()) + " Nummernkreisen, " +
         std::to_string(company.circles.size()) + " Buchungskreise, " +
         std::to_string(company.specialRanges.size()) + " Sonderkreise, " +
         std::to_string(company.users.size()) + " Benutzer mit " +
         std::to_string(company.assignments.size()) + " Zuordnungen\n";
}

}  // namespace

// Tables are not made in the transaction: on MariaDB that would end it.
void writeSample(Connection& connection, const SampleCompany& company) {
  std::vector<std::string> made;
  try {
    for (const std::string& statement : tableStatements(engineOf(connection))) {
      execute(connection, statement);
      if (const std::string table = tableMadeBy(statement); !table.empty()) made.push_back(table);
    }
    writeRows(connection, company);
  } catch (const Error&) {
    drop(connection, made);
    throw;
  }
}

std::string createSampleFile(const std::string& file, int scale) {
  makeNewFile(file);
  const SampleCompany company = sampleCompany(scale);
  try {
    const auto connection = openQtSqlConnection(sqliteConnectionString(file));
    writeSample(*connection, company);
    connection->Close();
  } catch (const Error&) {
    QFile::remove(QString::fromStdString(file));
    throw;
  }
  return summary(file, company);
}

std::string createSampleTables(const std::string& connectionText, int scale) {
  const SampleCompany company = sampleCompany(scale);
  const auto connection = openQtSqlConnection(connectionText);
  writeSample(*connection, company);
  connection->Close();
  return summary(connectionValue(connectionText, "Driver"), company);
}

}  // namespace vexnumkr::app
