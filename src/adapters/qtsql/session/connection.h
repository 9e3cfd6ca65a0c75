// The connection of the Qt SQL adapter.
#pragma once

#include <QSqlDatabase>
#include <memory>
#include <string>

#include <vexnumkr/database.h>

#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {

/// What a connection has open. Its commands keep an eye on it, so that they work again after the
/// connection was closed and opened, and fail cleanly in between and when it is gone.
struct SessionSlot {
  std::shared_ptr<SqlSession> session;

  /// Whoever uses it keeps it: a host that is called back in the middle may close the connection.
  /// Errors: 3704 when nothing is open; those of SqlSession::requireFree.
  std::shared_ptr<SqlSession> require() const;
  std::unique_ptr<Recordset> execute(const std::string& text, std::int32_t& recordsAffected) const;
};

/// CommandTimeout limits the statements of a connection that the adapter has opened, whatever
/// command sends them; a command's own is checked and not imposed. How long it takes to give up a
/// server is the driver's choice.
///
/// A connection of the adapter's own that was lost is opened again by whatever comes next, except
/// inside a transaction, which is lost with it: that has to be rolled back first. One whose
/// transaction could not begin because the server was away is in none, until it is told to begin
/// once more.
///
/// Where its string names several servers, those that it makes, with the same ones in theirs, are
/// on the one that it is on, wherever that moves.
///
/// Closing a connection, or releasing it, rolls back the transaction that was begun on it. A
/// statement that waits for a lock meanwhile ends with error 3704; until then it is not to be used
/// for anything else. The ConnectionString holds the password, also after opening.
class SqlConnection final : public Connection {
 public:
  SqlConnection() = default;
  /// Wraps `borrowed`, which must be open. Errors: 3706, 3709.
  explicit SqlConnection(const QSqlDatabase& borrowed);
  ~SqlConnection() override;
  SqlConnection(const SqlConnection&) = delete;
  SqlConnection& operator=(const SqlConnection&) = delete;

  std::string ConnectionString() const override { return connectionString_; }
  void ConnectionString(const std::string& text) override;
  std::int32_t IsolationLevel() const override { return isolationLevel_; }
  void IsolationLevel(std::int32_t level) override;
  void CommandTimeout(std::int32_t seconds) override;
  void ConnectionTimeout(std::int32_t seconds) override;
  void CursorLocation(std::int32_t /*location*/) override {}  // Rows are always kept by the client.
  void Open(const std::string& user, const std::string& password, std::int32_t options) override;
  void Close() override;
  std::unique_ptr<Recordset> Execute(const std::string& text,
                                     std::int32_t& recordsAffected) override;
  bool BackslashEscapes() const override;
  bool TakesSeveralRows() const override { return true; }
  void RequireTransactions(const std::vector<std::string>& tables) override;
  void LockTable(const std::string& table) override;
  void OnLockWait(LockWait* told) override;
  LockWait* ToldOfLockWait() const override { return told_; }
  std::int32_t TextLimit(const std::string& table, const std::string& column) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  std::unique_ptr<Connection> createConnection() override;
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

  /// What `connection` has open. Errors: 3709 when it is not of this adapter, 3704 when it is
  /// closed.
  static std::shared_ptr<SqlSession> sessionOf(Connection& connection);
  static std::shared_ptr<SessionSlot> slotOf(Connection& connection);

 private:
  std::shared_ptr<Servers> serversOf(const ConnectionSettings& settings);

  std::string connectionString_;
  std::shared_ptr<Servers> servers_;  // At first those of the connection that has made this one.
  std::int32_t isolationLevel_ = ado::unspecified;
  std::int32_t commandTimeout_ = 0;
  LockWait* told_ = nullptr;
  std::shared_ptr<SessionSlot> slot_ = std::make_shared<SessionSlot>();
};

/// Error: 3001 for a negative number of seconds.
void requireTimeout(std::int32_t seconds);

}  // namespace vexnumkr::qtsql
