#include "adapters/qtsql/clients/postgresql_client.h"

#include <QLibrary>
#include <QSqlQuery>
#include <QSqlResult>
#include <QUtf8StringView>

#include "adapters/qtsql/clients/handle.h"

namespace vexnumkr::qtsql {

// A forward-only query holds one row at a time.
bool isReadableOnPostgresql(const QSqlQuery& query, int column) {
  using GetValue = const char* (*)(const void* result, int row, int column);
  using GetLength = int (*)(const void* result, int row, int column);
  QLibrary library(QStringLiteral("pq"), 5);
  const auto value = reinterpret_cast<GetValue>(library.resolve("PQgetvalue"));
  const auto length = reinterpret_cast<GetLength>(library.resolve("PQgetlength"));
  void* const result = pointerIn(query.result()->handle(), "PGresult*", "pg_result*");
  if (value == nullptr || length == nullptr || result == nullptr) return true;
  const int row = query.isForwardOnly() ? 0 : query.at();
  return QUtf8StringView(value(result, row, column), length(result, row, column)).isValidUtf8();
}

}  // namespace vexnumkr::qtsql
