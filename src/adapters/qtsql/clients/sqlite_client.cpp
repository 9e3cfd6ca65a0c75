#include "adapters/qtsql/clients/sqlite_client.h"

#include <QLibrary>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QUtf8StringView>

#include "adapters/qtsql/clients/handle.h"

namespace vexnumkr::qtsql {

// As sqlite3.h declares them; the objects are opaque.
struct SqliteClient::Functions {
  const char* (*sourceid)();
  int (*file_control)(void* database, const char* name, int operation, void* argument);
  int (*prepare_v2)(void* database, const char* text, int size, void** statement,
                    const char** rest);
  int (*step)(void* statement);
  int (*column_count)(void* statement);
  int (*column_type)(void* statement, int column);
  const unsigned char* (*column_text)(void* statement, int column);
  int (*column_bytes)(void* statement, int column);
  int (*finalize)(void* statement);
  int (*busy_handler)(void* database, int (*handler)(void* argument, int calls), void* argument);
  int (*busy_timeout)(void* database, int milliseconds);

  bool resolve(QLibrary& library) {
    const auto find = [&](auto& function, const char* name) {
      function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
          library.resolve((QByteArrayLiteral("sqlite3_") + name).constData()));
      return function != nullptr;
    };
    return find(sourceid, "sourceid") && find(file_control, "file_control") &&
           find(prepare_v2, "prepare_v2") && find(step, "step") &&
           find(column_count, "column_count") && find(column_type, "column_type") &&
           find(column_text, "column_text") && find(column_bytes, "column_bytes") &&
           find(finalize, "finalize") && find(busy_handler, "busy_handler") &&
           find(busy_timeout, "busy_timeout");
  }
};

namespace {

constexpr int done = 0;
constexpr int row = 100;
constexpr int textType = 3;
constexpr int fcntlHasMoved = 20;

QString engineSource(const QSqlDatabase& database) {
  QSqlQuery query(database);
  if (!query.exec(QStringLiteral("SELECT sqlite_source_id()")) || !query.next()) return {};
  return query.value(0).toString();
}

}  // namespace

std::unique_ptr<SqliteClient> SqliteClient::of(const QSqlDatabase& database) {
  void* const handle = pointerIn(database.driver()->handle(), "sqlite3*", "sqlite3*");
  QLibrary library(QStringLiteral("sqlite3"), 0);
  auto functions = std::make_unique<Functions>();
  if (handle == nullptr || !functions->resolve(library)) return nullptr;
  if (engineSource(database) != QLatin1String(functions->sourceid())) return nullptr;
  return std::unique_ptr<SqliteClient>(new SqliteClient(std::move(functions), handle));
}

SqliteClient::SqliteClient(std::unique_ptr<Functions> functions, void* database)
    : functions_(std::move(functions)), database_(database) {}

SqliteClient::~SqliteClient() = default;

bool SqliteClient::hasMoved() const {
  int moved = 0;
  return functions_->file_control(database_, "main", fcntlHasMoved, &moved) == done && moved != 0;
}

// The library asks only where waiting may help: not where each of two would wait for the other.
SqliteClient::Impatience::Impatience(const SqliteClient& client, int wait)
    : client_(client), wait_(wait) {
  const auto refuse = [](void* metLock, int /*calls*/) {
    *static_cast<bool*>(metLock) = true;
    return 0;
  };
  client_.functions_->busy_handler(client_.database_, refuse, &metLock_);
}

SqliteClient::Impatience::~Impatience() {
  client_.functions_->busy_timeout(client_.database_, wait_);
}

void SqliteClient::forEachUnreadable(
    std::string_view select, const std::function<void(std::size_t, std::size_t)>& found) const {
  void* statement = nullptr;
  if (functions_->prepare_v2(database_, select.data(), static_cast<int>(select.size()), &statement,
                             nullptr) != done)
    return;
  const std::unique_ptr<void, int (*)(void*)> closing(statement, functions_->finalize);
  const int columns = functions_->column_count(statement);
  for (std::size_t at = 0; functions_->step(statement) == row; ++at) {
    for (int column = 0; column < columns; ++column) {
      if (functions_->column_type(statement, column) != textType) continue;
      const auto* const bytes = functions_->column_text(statement, column);
      const QUtf8StringView text(bytes, functions_->column_bytes(statement, column));
      if (!text.isValidUtf8()) found(at, static_cast<std::size_t>(column));
    }
  }
}

}  // namespace vexnumkr::qtsql
