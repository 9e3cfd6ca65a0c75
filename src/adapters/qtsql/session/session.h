// An open database and what runs on it: shared by a connection, its commands and its recordsets.
#pragma once

#include <QSqlError>
#include <QSqlQuery>
#include <QThread>
#include <QVariant>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>

#include "adapters/qtsql/clients/sqlite_client.h"
#include "adapters/qtsql/opening/database_handle.h"
#include "adapters/qtsql/opening/servers.h"
#include "adapters/qtsql/rows/row_set.h"
#include "platform/statement_gate.h"

namespace vexnumkr::qtsql {

/// Every member raises the engine's own failures. No statement stays open behind any of them, so no
/// lock lingers that the transaction does not hold.
///
/// A failed statement leaves a running transaction, and what was done in it before, in place: where
/// the engine would abort it, it goes back to a savepoint, which costs a round trip only then.
///
/// Every statement is checked by the lexical rules of the connection that it is sent on. They are
/// read when it is opened, after a SET, at the beginning of each transaction, since a host may
/// change them on the connection that it lends, and after a roll-back, which undoes changes of
/// them.
///
/// Some failures end a transaction nevertheless. After a deadlock or a lost connection, what
/// follows would take effect at once, outside any transaction; after a lock that could not be had
/// or a full disk, an update in place of the insert that has failed would find no row, and the
/// commit would lose one (Engine::endsTransaction). Here it is refused with that very failure until
/// the transaction is rolled back by its owner.
///
/// Of several servers it works on the first that answers and takes changes. When that is lost, or
/// takes none any more, or a session that shares the servers has gone on to another one, what comes
/// next outside a transaction goes on there too. Error where none takes changes: 3709, with the
/// reason of each.
class SqlSession {
 public:
  /// Opens an own database. `isolation` also holds for statements outside transactions; `seconds`
  /// limits them as by limit(). `servers` are those of `settings`, shared with other sessions.
  SqlSession(const Driver& driver, const ConnectionSettings& settings,
             std::int32_t isolation = ado::unspecified, std::int32_t seconds = 0,
             std::shared_ptr<Servers> servers = nullptr);
  SqlSession(const Driver& driver, const QSqlDatabase& borrowed);

  /// Rolls back a transaction that was begun here and is still running.
  ~SqlSession();
  SqlSession(const SqlSession&) = delete;
  SqlSession& operator=(const SqlSession&) = delete;

  struct Outcome {
    RowSet rows;
    std::int32_t recordsAffected;
  };

  /// Runs the one statement in `text`; see StatementGate for what is refused.
  Outcome execute(std::string_view text);

  /// The one statement in `text`, not run yet. Error: 3001 when it is no select.
  Statement passSelect(std::string_view text);

  /// Runs a statement that has passed, or was made by the adapter, and only reads.
  RowSet read(const Statement& statement);
  RowSet read(const QString& text);

  /// Runs a select that has passed, of which some rows are kept at a time: these are the first, and
  /// readFurther returns the next ones, none behind the last. Nothing else is sent until endBlocks.
  RowSet readFirst(const Statement& statement);
  RowSet readFurther();
  void endBlocks();

  /// Runs a change with a value for each `?` in it. Returns the number of rows changed.
  std::int32_t change(const QString& text, const QVariantList& values);
  /// Runs a select with a value for each `?` in it that yields one number.
  std::int32_t count(const QString& text, const QVariantList& values);

  /// Error: 5 on another thread than the one on which this was made. Drivers and engine libraries
  /// would be used by two threads at once, or remember things per thread.
  void requireOwnThread() const;
  /// The same, and error 5 while a statement waits for a lock: whoever is told of that may not send
  /// another one into the middle of it.
  void requireFree() const;

  /// Limits each statement and its waits, where the database is the adapter's own; 0 is the
  /// engine's own limits. Holds for reopened connections too.
  void limit(std::int32_t seconds);

  /// As Connection::OnLockWait. Noticed on SQLite, on a database of the adapter's own.
  void onLockWait(LockWait* told) { told_ = told; }
  /// A statement that waits for a lock fails with error 3704 as soon as whoever is told of it
  /// returns. REQUIRES: this is not used any more but for what is on the stack.
  void giveUpWaiting() { isGivenUp_ = true; }

  /// As Connection::RequireTransactions and LockTable; tables are plain names.
  void requireTransactions(const std::vector<std::string>& tables);
  void lockTable(const std::string& table);
  /// As Connection::TextLimit; both are plain names.
  std::int32_t textLimit(const std::string& table, const std::string& column);

  /// Begins a transaction. On the engine it begins with the first statement that may change
  /// something, or with lockTable: until then nothing is locked, and no reading grows old. One of
  /// ado::repeatableRead begins at once. Where the connection was lost before, a new one is opened
  /// first; where that fails too, none has begun.
  void begin(std::int32_t isolation);
  /// After a failed commit the transaction still runs or can only be rolled back, as after any
  /// other failure.
  void commit();
  /// Has nothing to do, and does not fail, where the transaction went with its connection.
  void rollback();

  const Engine& engine() const { return *engine_; }
  const LexicalRules& rules() const { return rules_; }
  const QSqlDatabase& database() const { return database_.get(); }

 private:
  void renewQuery();
  void letGo(std::size_t rows);
  void prepare();
  std::string prepareOwned();
  void learnRules(const std::string& before = {});
  void relearnRules();
  void connect();
  ConnectionSettings settingsOf(std::size_t server) const;
  void openAt(std::size_t server);
  void requireWritable();
  void reconnect();
  bool isLeftBehind() const;
  void requireReady();
  void requireNoOtherTransaction();
  void requireOneOfItsOwn() const;

  std::chrono::milliseconds usualWait();
  bool patiently(const std::function<bool()>& attempt);
  RowSet run(const QString& text);
  bool mayBeLostUnnoticed() const;
  /// What `work` returns. What goes before a transaction may be the first to meet a connection that
  /// was lost meanwhile; then it is done once more, over a new one.
  template <class Work>
  auto anew(Work&& work) {
    const bool mayHaveBeenLostBefore = mayBeLostUnnoticed();
    try {
      return work();
    } catch (const Error&) {
      if (!isLost_ || !mayHaveBeenLostBefore) throw;
      return work();
    }
  }
  RowSet readRows(const QString& text);
  bool isWholeByItself() const;
  void markUnreadable(RowSet& rows, const QString& text);
  std::int32_t rowsAffected(const Statement& statement);
  RowSet runAll(const std::string& text);
  void requireSameFile();
  void runRest();
  bool succeeds(const char* text);
  Statements beginStatements() const;
  void beginNow(Statements statements);
  void beginBeforeChanging();
  void requireNone();

  [[noreturn]] void fail(const QSqlQuery& failed);
  [[noreturn]] void fail(const QSqlError& error, const QString& engineCode);
  bool recovers();
  Error whatHasEnded(const Error& raised) const;
  bool engineInTransaction();
  void requireItsTransaction();
  bool isLost(const QSqlError& error) const;
  bool isGone(const QSqlError& error);
  bool takesEightBits() const;
  QString textOf(const Statement& statement) const;

  const Qt::HANDLE thread_;
  const Driver driver_;
  const ConnectionSettings settings_;  // Of an own database.
  const std::shared_ptr<Servers> servers_;
  std::optional<std::size_t> server_;  // Where there are several: the one that was opened.
  DatabaseHandle database_;
  const Engine* engine_ = nullptr;
  std::int32_t sessionIsolation_ = ado::unspecified;
  std::int32_t isolation_ = ado::unspecified;  // Of the transaction.
  LexicalRules rules_;
  bool knowsRules_ = false;
  std::optional<QSqlQuery> query_;   // One for all: making one costs as much as a short select.
  std::optional<QSqlQuery> blocks_;  // The one whose rows are read some at a time.
  bool hasCursor_ = false;           // Of the engine's, in its place.
  StatementGate gate_;
  std::unique_ptr<SqliteClient> sqlite_;  // Where Qt's driver for it is used.
  std::string lackingEncoding_;           // Of the texts that the engine sends; mostly empty.
  std::int32_t limit_ = 0;
  LockWait* told_ = nullptr;      // Borrowed.
  std::optional<int> usualWait_;  // For a lock, in milliseconds; once it is known.
  bool isWaiting_ = false;        // For a lock, while somebody is told of it.
  bool isGivenUp_ = false;
  bool inTransaction_ = false;
  bool locksLater_ = false;   // Its transactions may change something before.
  bool onlyReads_ = false;    // The statement that runs.
  bool beginsLater_ = false;  // The transaction has begun, but not on the engine yet.
  bool isLost_ = false;
  QSqlError failure_;             // Of the last text that did not succeed.
  std::optional<Error> endedBy_;  // What has ended the transaction.
};

}  // namespace vexnumkr::qtsql
