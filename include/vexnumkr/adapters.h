// The factories of the supplied database adapters.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

class QSqlDatabase;

namespace vexnumkr {

/// Opens a connection through Qt SQL.
///
/// `connectionString` is a list of `key=value` pairs separated by semicolons, keys without regard
/// to case: `Driver` (QSQLITE) and `Database` (a file) are required; `Server`, `Port`, `UID` and
/// `PWD` are for engines that are reached over a network. A value that holds a semicolon or begins
/// or ends with a blank stands in double quotes, a double quote in it is doubled.
///
/// QSQLITE: the file must exist (`:memory:` is an empty database of its own); foreign keys are
/// enforced; a lock is waited for up to five seconds.
///
/// REQUIRES: a QCoreApplication. Errors: a malformed string, an unknown driver, and whatever the
/// engine says on opening.
VEXNUMKR_API std::shared_ptr<Connection> openQtSqlConnection(const std::string& connectionString);

/// A closed connection: set its ConnectionString, then Open it.
VEXNUMKR_API std::unique_ptr<Connection> createQtSqlConnection();

/// Wraps a database that the host has opened itself. It is borrowed: it stays open when the result
/// is closed or released. The working connection is opened with its driver, database name, host,
/// port, user and password. No setting of the database is changed: how long it waits for locks and
/// whether it enforces foreign keys is the host's choice. A transaction begun by the result and
/// still open then is rolled back. Errors: 3709 when it is not open, an unknown driver.
VEXNUMKR_API std::shared_ptr<Connection> borrowQtSqlConnection(const QSqlDatabase& database);

}  // namespace vexnumkr
