// Connections that pass everything on to another one, for those that change a part of it.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <vexnumkr/database.h>

namespace vexnumkr::test {

/// Passes on what every connection has to do. What a connection may leave out is left out, as by a
/// host's database layer that knows nothing but plain statements.
class PlainConnection : public Connection {
 public:
  explicit PlainConnection(std::shared_ptr<Connection> real) : real_(std::move(real)) {}

  Connection& real() const { return *real_; }

  std::string ConnectionString() const override { return real_->ConnectionString(); }
  void ConnectionString(const std::string& text) override { real_->ConnectionString(text); }
  std::int32_t IsolationLevel() const override { return real_->IsolationLevel(); }
  void IsolationLevel(std::int32_t level) override { real_->IsolationLevel(level); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void ConnectionTimeout(std::int32_t seconds) override { real_->ConnectionTimeout(seconds); }
  void CursorLocation(std::int32_t location) override { real_->CursorLocation(location); }
  void Open(const std::string& user, const std::string& password, std::int32_t options) override {
    real_->Open(user, password, options);
  }
  void Close() override { real_->Close(); }
  std::unique_ptr<Recordset> Execute(const std::string& text, std::int32_t& affected) override {
    return real_->Execute(text, affected);
  }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void RollbackTrans() override { real_->RollbackTrans(); }
  std::unique_ptr<Connection> createConnection() override { return real_->createConnection(); }
  std::unique_ptr<Command> createCommand() override { return real_->createCommand(); }
  std::unique_ptr<Recordset> createRecordset() override { return real_->createRecordset(); }

 private:
  std::shared_ptr<Connection> real_;
};

/// Passes on what a connection may leave out as well.
class ForwardingConnection : public PlainConnection {
 public:
  using PlainConnection::PlainConnection;

  bool BackslashEscapes() const override { return real().BackslashEscapes(); }
  bool TakesSeveralRows() const override { return real().TakesSeveralRows(); }
  void RequireTransactions(const std::vector<std::string>& tables) override {
    real().RequireTransactions(tables);
  }
  void OnLockWait(LockWait* told) override { real().OnLockWait(told); }
  LockWait* ToldOfLockWait() const override { return real().ToldOfLockWait(); }
  std::int32_t TextLimit(const std::string& table, const std::string& column) override {
    return real().TextLimit(table, column);
  }
  void LockTable(const std::string& table) override { real().LockTable(table); }
};

}  // namespace vexnumkr::test
