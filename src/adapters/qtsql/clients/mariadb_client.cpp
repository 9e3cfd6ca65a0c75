#include "adapters/qtsql/clients/mariadb_client.h"

#include <QLibrary>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <charconv>
#include <string_view>

#include "adapters/qtsql/clients/handle.h"

namespace vexnumkr::qtsql {

// The library says "Rows matched: 2  Changed: 0  Warnings: 0".
std::optional<std::int32_t> rowsFoundOnMariadb(const QSqlDatabase& database) {
  using Info = const char* (*)(void* connection);
  static constexpr std::string_view label = "Rows matched: ";
  QLibrary library(QStringLiteral("mariadb"), 3);
  const auto info = reinterpret_cast<Info>(library.resolve("mysql_info"));
  void* const connection = pointerIn(database.driver()->handle(), "MYSQL*", "st_mysql*");
  if (info == nullptr || connection == nullptr) return std::nullopt;
  const char* const told = info(connection);
  const std::string_view text = told == nullptr ? "" : told;
  if (!text.starts_with(label)) return std::nullopt;
  std::int32_t found = 0;
  const auto [stop, error] =
      std::from_chars(text.data() + label.size(), text.data() + text.size(), found);
  return error == std::errc() ? std::optional(found) : std::nullopt;
}

}  // namespace vexnumkr::qtsql
