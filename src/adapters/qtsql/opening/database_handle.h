// A QSqlDatabase, opened by the adapter or borrowed from the host.
#pragma once

#include <QSqlDatabase>
#include <string>
#include <string_view>

#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/opening/driver.h"

namespace vexnumkr::qtsql {

/// An own database has an entry of its own in Qt's list of connections; it is closed and its entry
/// removed with the handle. A borrowed one stays as it is.
/// Every query on the database must be gone before the handle.
class DatabaseHandle {
 public:
  /// Opens an own one. Errors: 3709 where Qt lacks the application object or the driver; the
  /// engine's when it cannot open, without passwords, with the name of a file.
  DatabaseHandle(const Driver& driver, const ConnectionSettings& settings);

  /// An own one that is not open yet. Error: 3709 as above.
  explicit DatabaseHandle(const Driver& driver);

  /// Borrows `database`.
  explicit DatabaseHandle(const QSqlDatabase& database) : DatabaseHandle(database, false) {}

  ~DatabaseHandle();
  DatabaseHandle(const DatabaseHandle&) = delete;
  DatabaseHandle& operator=(const DatabaseHandle&) = delete;

  const QSqlDatabase& get() const { return database_; }
  bool isOwned() const { return owned_; }
  /// Opens an own one, anew where it is open. REQUIRES: no query on it. Errors as above.
  void open(const ConnectionSettings& settings);
  /// REQUIRES: an own one, no query on it.
  void close() { database_.close(); }
  /// False when the host has closed a borrowed database in the meantime, or a server an own one.
  bool isOpen() const { return database_.isOpen(); }

 private:
  DatabaseHandle(const QSqlDatabase& database, bool owned) : database_(database), owned_(owned) {}

  QSqlDatabase database_;
  bool owned_;
  Driver driver_{};  // Of an own one.
};

}  // namespace vexnumkr::qtsql
