#include "data/sql/guarded_connection.h"

#include <vexnumkr/error.h>

#include "data/sql/statement_shapes.h"
#include "platform/statement_gate.h"

namespace vexnumkr {
namespace {

// Shared by a connection and all that it makes.
class Guard {
 public:
  void check(const std::string& text, const Connection& connection) {
    if (shapes_.isOwn(text, connection.BackslashEscapes())) return;
    throw Error(error_number::invalidArgument, "VEXNummernkreise",
                "Die Anweisung wurde nicht ausgeführt, weil ein Wert sie verändert. Bitte prüfen "
                "Sie die Eingaben auf Hochkommas.");
  }

 private:
  StatementShapes shapes_;
};

class GuardedConnection final : public Connection {
 public:
  GuardedConnection(std::shared_ptr<Connection> real, std::shared_ptr<Guard> guard)
      : real_(std::move(real)), guard_(std::move(guard)) {}

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
  bool BackslashEscapes() const override { return real_->BackslashEscapes(); }
  bool TakesSeveralRows() const override { return real_->TakesSeveralRows(); }
  void RequireTransactions(const std::vector<std::string>& tables) override {
    real_->RequireTransactions(tables);
  }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void RollbackTrans() override { real_->RollbackTrans(); }
  void LockTable(const std::string& table) override { real_->LockTable(table); }

  std::unique_ptr<Recordset> Execute(const std::string& text,
                                     std::int32_t& recordsAffected) override {
    guard_->check(text, *real_);
    return real_->Execute(text, recordsAffected);
  }

  std::unique_ptr<Connection> createConnection() override {
    return std::make_unique<GuardedConnection>(real_->createConnection(), guard_);
  }
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

 private:
  std::shared_ptr<Connection> real_;
  std::shared_ptr<Guard> guard_;
};

// The host's objects want the host's connection.
Connection& realConnectionOf(Connection& connection) {
  return dynamic_cast<GuardedConnection&>(connection).real();
}

class GuardedCommand final : public Command {
 public:
  GuardedCommand(std::unique_ptr<Command> real, std::shared_ptr<Guard> guard)
      : real_(std::move(real)), guard_(std::move(guard)) {}

  void ActiveConnection(Connection& connection) override {
    connection_ = &realConnectionOf(connection);
    real_->ActiveConnection(*connection_);
  }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override {
    text_ = text;
    real_->CommandText(text);
  }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override {
    // Without a connection the command fails by itself.
    if (connection_ != nullptr) guard_->check(text_, *connection_);
    return real_->Execute(recordsAffected);
  }

 private:
  std::unique_ptr<Command> real_;
  std::shared_ptr<Guard> guard_;
  Connection* connection_ = nullptr;  // Borrowed by ActiveConnection, as the interface says.
  std::string text_;
};

class GuardedRecordset final : public Recordset {
 public:
  GuardedRecordset(std::unique_ptr<Recordset> real, std::shared_ptr<Guard> guard)
      : real_(std::move(real)), guard_(std::move(guard)) {}

  std::int32_t CursorLocation() const override { return real_->CursorLocation(); }
  void CursorLocation(std::int32_t location) override { real_->CursorLocation(location); }
  void Open(const std::string& source, Connection& connection, std::int32_t cursorType,
            std::int32_t lockType, std::int32_t options) override {
    Connection& real = realConnectionOf(connection);
    guard_->check(source, real);
    real_->Open(source, real, cursorType, lockType, options);
  }
  bool EndOfFile() const override { return real_->EndOfFile(); }
  void MoveFirst() override { real_->MoveFirst(); }
  void MoveNext() override { real_->MoveNext(); }
  Value Fields(std::string_view name) const override { return real_->Fields(name); }
  void Fields(std::string_view name, const Value& value) override { real_->Fields(name, value); }
  void Update() override { real_->Update(); }
  void Close() override { real_->Close(); }

 private:
  std::unique_ptr<Recordset> real_;
  std::shared_ptr<Guard> guard_;
};

std::unique_ptr<Command> GuardedConnection::createCommand() {
  return std::make_unique<GuardedCommand>(real_->createCommand(), guard_);
}

std::unique_ptr<Recordset> GuardedConnection::createRecordset() {
  return std::make_unique<GuardedRecordset>(real_->createRecordset(), guard_);
}

}  // namespace

std::unique_ptr<Connection> guardedConnection(std::shared_ptr<Connection> connection) {
  if (connection == nullptr) return nullptr;
  return std::make_unique<GuardedConnection>(std::move(connection), std::make_shared<Guard>());
}

}  // namespace vexnumkr
