// What SQLite's library can tell and Qt's driver does not.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

class QSqlDatabase;

namespace vexnumkr::qtsql {

/// An open database of Qt's driver QSQLITE, asked directly. Belongs to it: good until it is closed.
class SqliteClient {
 public:
  /// Null where Qt's driver does not use the library that is found, since the one must not get the
  /// other's objects.
  static std::unique_ptr<SqliteClient> of(const QSqlDatabase& database);
  ~SqliteClient();

  /// Whether the file was deleted, renamed or replaced since it was opened.
  bool hasMoved() const;

  /// While one of these lives, whoever meets a lock is not kept waiting by the library. The waits
  /// of before are back when it goes.
  class Impatience {
   public:
    /// `wait` is what the library is to wait again afterwards, in milliseconds.
    Impatience(const SqliteClient& client, int wait);
    ~Impatience();
    Impatience(const Impatience&) = delete;
    Impatience& operator=(const Impatience&) = delete;

    /// Whether a lock was met since the last call for which waiting may help.
    bool takeMetLock() { return std::exchange(metLock_, false); }

   private:
    const SqliteClient& client_;
    const int wait_;
    bool metLock_ = false;
  };

  /// Runs a select (UTF-8) once more and calls `found` for each text in its rows that is not
  /// readable in UTF-8, with its row and column.
  void forEachUnreadable(std::string_view select,
                         const std::function<void(std::size_t, std::size_t)>& found) const;

 private:
  struct Functions;
  SqliteClient(std::unique_ptr<Functions> functions, void* database);

  std::unique_ptr<Functions> functions_;
  void* database_;
};

}  // namespace vexnumkr::qtsql
