// The database that a scenario runs on.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vexnumkr::qtsql {
class SqlSession;
}

namespace vexnumkr::scenario {

/// A row in its printed form.
using PrintedRow = std::string;

/// The tables of a host with number ranges, and a way to work on them besides the component: on
/// connections of its own, every statement committed at once.
///
/// Errors: vexnumkr::Error with the engine's message.
class ScenarioDatabase {
 public:
  /// Connects; a SQLite file that is not there is made. REQUIRES: a QCoreApplication exists.
  explicit ScenarioDatabase(const std::string& connectionString);
  ~ScenarioDatabase();
  ScenarioDatabase(const ScenarioDatabase&) = delete;
  ScenarioDatabase& operator=(const ScenarioDatabase&) = delete;

  /// Drops the five tables and the settings table and creates them without rows.
  void createTables();

  /// Runs one statement and returns the rows of a select, as "a | b". The settings table is within
  /// reach of it also where it lies in a file of its own.
  std::vector<PrintedRow> run(const std::string& statement);

  /// The tables that hold the component's data, and the rows of one, all columns, ordered by all.
  static const std::vector<std::string>& tableNames();
  std::vector<PrintedRow> rows(const std::string& table) const;

 private:
  qtsql::SqlSession& sessionOf(const std::string& table) const;

  std::unique_ptr<qtsql::SqlSession> main_;
  std::unique_ptr<qtsql::SqlSession> settings_;  // Where the settings have a file of their own.
};

}  // namespace vexnumkr::scenario
