// What PostgreSQL's client library can tell and Qt's driver does not.
#pragma once

class QSqlQuery;

namespace vexnumkr::qtsql {

/// Whether the text in a column of the current row of `query`, which is of Qt's driver QPSQL, is
/// readable in UTF-8 as the server has sent it; true where that cannot be asked.
bool isReadableOnPostgresql(const QSqlQuery& query, int column);

}  // namespace vexnumkr::qtsql
