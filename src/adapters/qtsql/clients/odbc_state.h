// What Qt's ODBC driver leaves out of its errors.
#pragma once

#include <QString>

class QSqlQuery;

namespace vexnumkr::qtsql {

/// The SQLSTATE of the failure of `failed`, a query over ODBC whose last call has failed; empty
/// where ODBC has none. The drivers' own codes, which Qt hands on, are mostly 1.
QString odbcState(const QSqlQuery& failed);

}  // namespace vexnumkr::qtsql
