// What MariaDB's client library can tell and Qt's driver does not.
#pragma once

#include <cstdint>
#include <optional>

class QSqlDatabase;

namespace vexnumkr::qtsql {

/// How many rows the update that was just run has found, whether or not it has changed them; empty
/// where that cannot be asked.
std::optional<std::int32_t> rowsFoundOnMariadb(const QSqlDatabase& database);

}  // namespace vexnumkr::qtsql
