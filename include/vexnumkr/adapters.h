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
/// or ends with a blank stands in double quotes, a double quote in it is doubled. Errors: a
/// malformed string, an unknown driver, and whatever the engine says on opening.
VEXNUMKR_API std::shared_ptr<Connection> openQtSqlConnection(const std::string& connectionString);

/// A closed connection: set its ConnectionString, then Open it.
VEXNUMKR_API std::unique_ptr<Connection> createQtSqlConnection();

/// Wraps a database that the host has opened itself. It is borrowed: it stays open when the result
/// is closed or released. The working connection is opened with its driver, database name, host,
/// port, user and password.
VEXNUMKR_API std::shared_ptr<Connection> borrowQtSqlConnection(const QSqlDatabase& database);

}  // namespace vexnumkr
