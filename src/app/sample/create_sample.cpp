#include "app/sample/create_sample.h"

#include <QtCore/QFile>
#include <QtCore/QString>
#include <set>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "app/connection_text.h"
#include "app/files.h"
#include "app/schema/schema.h"
#include "app/sql.h"

namespace vexnumkr::host {

namespace {

std::string flag(bool on) { return on ? "-1" : "0"; }

std::string number(std::int32_t value) { return std::to_string(value); }

std::string insert(const char* table, const std::vector<std::string>& values) {
  std::string list;
  for (const std::string& value : values) list += (list.empty() ? "" : ", ") + value;
  return std::string("INSERT INTO ") + table + " VALUES (" + list + ")";
}

void writeRanges(Connection& connection, const std::vector<SampleRange>& ranges) {
  for (const SampleRange& range : ranges) {
    execute(connection, insert("Nummernkreise", {number(range.circle), sqlText(range.key),
                                                 sqlText(range.description), number(range.start),
                                                 number(range.current), number(range.end),
                                                 flag(range.active), number(range.sortIndex),
                                                 sqlText(range.sharedKey), sqlText(range.mask)}));
  }
}

void writeCircles(Connection& connection, const std::vector<SampleCircle>& circles) {
  for (const SampleCircle& circle : circles) {
    execute(connection,
            insert("Nummernkreis_Buchungskreise",
                   {number(circle.number), sqlText(circle.description), sqlText(circle.origin)}));
  }
}

void writeAssignments(Connection& connection, const std::vector<SampleAssignment>& assignments) {
  for (const SampleAssignment& assignment : assignments) {
    execute(connection, insert("Nummernkreis_Zuordnung",
                               {number(assignment.circle), sqlText(assignment.key),
                                sqlText(assignment.user), sqlText(assignment.origin)}));
  }
}

void writeSpecialRanges(Connection& connection, const std::vector<SampleSpecialRange>& ranges) {
  for (const SampleSpecialRange& range : ranges) {
    execute(connection,
            insert("Nummernkreis_Sonderkreise",
                   {sqlText(range.key), sqlText(range.sharedKey), sqlText(range.description),
                    flag(range.active), sqlText(range.origin)}));
  }
}

void writeUsers(Connection& connection, const std::vector<std::string>& users) {
  for (const std::string& user : users) execute(connection, insert("tblUser", {sqlText(user)}));
}

void writeTables(Connection& connection, const SampleCompany& company) {
  for (const std::string& statement : rangeTableStatements()) execute(connection, statement);
  writeRanges(connection, company.ranges);
  writeCircles(connection, company.circles);
  writeAssignments(connection, company.assignments);
  writeSpecialRanges(connection, company.specialRanges);
  writeUsers(connection, company.users);
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

void writeSample(Connection& connection, const SampleCompany& company) {
  connection.BeginTrans();
  try {
    writeTables(connection, company);
    connection.CommitTrans();
  } catch (const Error&) {
    connection.RollbackTrans();
    throw;
  }
}

std::string createSampleFile(const std::string& file) {
  makeNewFile(file);
  const SampleCompany company = smallCompany();
  try {
    const auto connection = openQtSqlConnection(sqliteConnectionText(file));
    writeSample(*connection, company);
    connection->Close();
  } catch (const Error&) {
    QFile::remove(QString::fromStdString(file));
    throw;
  }
  return summary(file, company);
}

}  // namespace vexnumkr::host
