// The database driver without the component: what any program pays that sends the same statements.
#pragma once

#include <QSqlDatabase>
#include <string>

#include "adapters/qtsql/opening/database_handle.h"

namespace vexnumkr::bench {

/// A connection of its own. Errors of the engine are raised as exceptions.
class BareDriver {
 public:
  explicit BareDriver(const std::string& connectionString);

  QSqlDatabase database() const { return handle_.get(); }

  /// Sends a statement and reads every column of every row, forward only, keeping none; returns the
  /// number of rows.
  int run(const std::string& statement);
  /// Sends a statement that the engine refuses.
  void tryToRun(const std::string& statement);

 private:
  explicit BareDriver(const ConnectionSettings& settings);

  qtsql::DatabaseHandle handle_;
};

}  // namespace vexnumkr::bench
