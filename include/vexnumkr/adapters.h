// The factories of the supplied database adapters.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>

class QSqlDatabase;

namespace vexnumkr {

/// Opens a connection through Qt SQL.
///
/// `connectionString` is a list of `key=value` pairs separated by semicolons, keys without regard
/// to case: `Driver` and `Database` are required; `Server`, `Port`, `UID`, `PWD` and `Options` (for
/// Qt's driver, as it writes them) are for engines that are reached over a network. A value that
/// holds a semicolon or begins or ends with a blank stands in double quotes, a double quote in it
/// is doubled. docs/datenbank.md has examples.
///
/// QSQLITE: the file must exist (`:memory:` is an empty database of its own); foreign keys are
/// enforced; a lock is waited for up to five seconds.
/// QPSQL, QMYSQL, QMARIADB: a Server that is a path is a Unix socket. On MariaDB the connection
/// runs in strict mode and takes backslashes as they are. QODBC: `Database` is a DSN or a
/// connection string of ODBC's, for PostgreSQL or SQLite.
///
/// On servers a lost connection is opened again by whatever comes next; its transaction has to be
/// rolled back first. No error text holds a password.
///
/// A connection, with its commands and recordsets, serves the thread that has opened it. On any
/// other its members raise error 5; releasing it there does no harm once nobody uses it.
///
/// REQUIRES: a QCoreApplication. Errors: a malformed string, an unknown driver, and whatever the
/// engine says on opening.
VEXNUMKR_API std::shared_ptr<Connection> openQtSqlConnection(const std::string& connectionString);

/// A closed connection: set its ConnectionString, then Open it.
VEXNUMKR_API std::unique_ptr<Connection> createQtSqlConnection();

/// Wraps a database that the host has opened itself. It is borrowed: it stays open when the result
/// is closed or released. The working connection is opened with its driver, database name, host,
/// port, user, password and options. No setting of the database is changed: how long it waits for
/// locks, whether it enforces foreign keys and what a backslash means is the host's choice. While a
/// transaction of the host's runs, none can begin. A transaction begun by the result and still open
/// then is rolled back. When the host closes or removes the database meanwhile, whatever needs it
/// fails with 3704. Errors: 3709 when it is not open; 3706 for an unknown driver, and for one
/// that silently connects again.
VEXNUMKR_API std::shared_ptr<Connection> borrowQtSqlConnection(const QSqlDatabase& database);

}  // namespace vexnumkr

/// As openQtSqlConnection, for hosts that load the library at run time and look this function up.
/// Returns null after a failure; its text (UTF-8) is then in the `size` bytes at `failure`, cut
/// where it is longer, ending in a 0. `failure` may be null. The caller releases the connection
/// with vexnumkrReleaseConnection, after the components that it was given to. A host without Qt is
/// given a QApplication, as by vexnumkrCreateObject.
extern "C" VEXNUMKR_API vexnumkr::Connection* vexnumkrOpenConnection(const char* connectionString,
                                                                     char* failure,
                                                                     std::size_t size) noexcept;

/// Closes and releases a connection of vexnumkrOpenConnection; null is ignored.
extern "C" VEXNUMKR_API void vexnumkrReleaseConnection(vexnumkr::Connection* connection) noexcept;
