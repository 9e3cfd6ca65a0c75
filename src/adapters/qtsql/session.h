// An open database and what runs on it: shared by a connection, its commands and its recordsets.
#pragma once

#include <QtCore/QVariant>
#include <QtSql/QSqlQuery>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <vexnumkr/error.h>

#include "adapters/qtsql/database_handle.h"
#include "adapters/qtsql/row_set.h"
#include "adapters/qtsql/statement_gate.h"

namespace vexnumkr::qtsql {

/// Every member raises the engine's own failures. No statement stays open behind any of them, so no
/// lock lingers that the transaction does not hold.
///
/// Some engines answer grave failures (a full disk, a trigger's RAISE(ROLLBACK)) by rolling the
/// transaction back. What follows would then take effect at once, outside any transaction. Here it
/// is refused with that very failure until the transaction is rolled back by its owner.
class Session {
 public:
  Session(const Engine& engine, const ConnectionSettings& settings);
  Session(const Engine& engine, const QSqlDatabase& borrowed);

  /// Rolls back a transaction that was begun here and is still running.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  struct Outcome {
    RowSet rows;
    std::int32_t recordsAffected;
  };

  /// Runs the one statement in `text`; see StatementGate for what is refused.
  Outcome execute(std::string_view text);

  /// The one statement in `text`, not run yet. Error: 3001 when it is no select.
  Statement passSelect(std::string_view text);

  /// Runs a text that the adapter has made itself out of passed ones.
  RowSet run(const QString& text);

  /// Runs a change with a value for each `?` in it. Returns the number of rows changed.
  std::int32_t change(const QString& text, const QVariantList& values);

  void begin();
  /// A failed commit leaves the transaction running.
  void commit();
  void rollback();

  const Engine& engine() const { return engine_; }
  const QSqlDatabase& database() const { return database_.get(); }

 private:
  void requireUsable() const;
  void requireOpen() const;
  [[noreturn]] void fail(const QSqlError& error);
  bool transactionStillRuns();

  const Engine& engine_;
  DatabaseHandle database_;
  QSqlQuery query_;  // One for all statements: making one costs as much as a short select.
  StatementGate gate_;
  bool inTransaction_ = false;
  std::optional<Error> rolledBackBy_;
};

}  // namespace vexnumkr::qtsql
