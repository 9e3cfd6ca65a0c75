// The database driver without the component: what any program pays that sends the same statements.
#pragma once

#include <QSqlDatabase>
#include <string>
#include <vector>

namespace vexnumkr::bench {

/// A connection of its own to a SQLite file. Errors of the engine are raised as exceptions.
class BareDriver {
 public:
  explicit BareDriver(const std::string& file);
  ~BareDriver();
  BareDriver(const BareDriver&) = delete;
  BareDriver& operator=(const BareDriver&) = delete;

  QSqlDatabase& database() { return database_; }

  /// Sends a statement and reads every column of every row, forward only, keeping none; returns the
  /// number of rows.
  int run(const std::string& statement);
  /// Sends a statement that the engine refuses.
  void tryToRun(const std::string& statement);

 private:
  QString name_;
  QSqlDatabase database_;
};

}  // namespace vexnumkr::bench
