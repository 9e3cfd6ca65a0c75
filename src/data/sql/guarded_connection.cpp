#include "data/sql/guarded_connection.h"

#include <utility>

#include <vexnumkr/error.h>

#include "data/sql/statement_shapes.h"
#include "platform/reporter.h"

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

  // Runs something on the host's objects. Error 91 once this is shut.
  template <class Operation>
  auto call(Operation&& operation) {
    if (isShut_) throw Error::objectNotSet();
    const Running running(*this);
    return operation();
  }

  void begun(Connection& connection) { inTransaction_ = &connection; }
  void ended() { inTransaction_ = nullptr; }

  // The host may shut this in the middle of one of its own members, which is left first.
  void shut() noexcept {
    isShut_ = true;
    if (running_ == 0) rollBack();
  }

 private:
  class Running {
   public:
    explicit Running(Guard& guard) : guard_(guard) { ++guard_.running_; }
    ~Running() {
      if (--guard_.running_ == 0 && guard_.isShut_) guard_.rollBack();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    Guard& guard_;
  };

  void rollBack() noexcept {
    Connection* const connection = std::exchange(inTransaction_, nullptr);
    if (connection != nullptr) ignoringFailures([&] { connection->RollbackTrans(); });
  }

  StatementShapes shapes_;
  Connection* inTransaction_ = nullptr;  // Where a transaction has begun; it outlives that.
  int running_ = 0;
  bool isShut_ = false;
};

// What a host has made, unless it has made nothing.
template <class Object>
std::unique_ptr<Object> required(std::unique_ptr<Object> made) {
  if (made == nullptr) throw Error::objectNotSet();
  return made;
}

class Guarded final : public GuardedConnection {
 public:
  Guarded(std::shared_ptr<Connection> real, std::shared_ptr<Guard> guard)
      : real_(std::move(real)), guard_(std::move(guard)) {}

  Connection& real() const { return *real_; }
  void shut() noexcept override { guard_->shut(); }

  std::string ConnectionString() const override { return real_->ConnectionString(); }
  void ConnectionString(const std::string& text) override { real_->ConnectionString(text); }
  std::int32_t IsolationLevel() const override { return real_->IsolationLevel(); }
  void IsolationLevel(std::int32_t level) override { real_->IsolationLevel(level); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void ConnectionTimeout(std::int32_t seconds) override { real_->ConnectionTimeout(seconds); }
  void CursorLocation(std::int32_t location) override { real_->CursorLocation(location); }
  void Open(const std::string& user, const std::string& password, std::int32_t options) override {
    guard_->call([&] { real_->Open(user, password, options); });
  }
  void Close() override { real_->Close(); }
  bool BackslashEscapes() const override { return real_->BackslashEscapes(); }
  bool TakesSeveralRows() const override { return real_->TakesSeveralRows(); }
  void RequireTransactions(const std::vector<std::string>& tables) override {
    guard_->call([&] { real_->RequireTransactions(tables); });
  }
  void BeginTrans() override {
    guard_->call([&] {
      real_->BeginTrans();
      guard_->begun(*real_);
    });
  }
  void CommitTrans() override {
    guard_->call([&] {
      real_->CommitTrans();
      guard_->ended();
    });
  }
  void RollbackTrans() override {
    guard_->call([&] {
      real_->RollbackTrans();
      guard_->ended();
    });
  }
  void LockTable(const std::string& table) override {
    guard_->call([&] { real_->LockTable(table); });
  }
  void OnLockWait(LockWait* told) override { real_->OnLockWait(told); }
  LockWait* ToldOfLockWait() const override { return real_->ToldOfLockWait(); }
  std::int32_t TextLimit(const std::string& table, const std::string& column) override {
    return guard_->call([&] { return real_->TextLimit(table, column); });
  }

  std::unique_ptr<Recordset> Execute(const std::string& text,
                                     std::int32_t& recordsAffected) override {
    guard_->check(text, *real_);
    return guard_->call([&] { return real_->Execute(text, recordsAffected); });
  }

  std::unique_ptr<Connection> createConnection() override {
    return std::make_unique<Guarded>(
        guard_->call([&] { return required(real_->createConnection()); }), guard_);
  }
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

 private:
  std::shared_ptr<Connection> real_;
  std::shared_ptr<Guard> guard_;
};

// The host's objects want the host's connection.
Connection& realConnectionOf(Connection& connection) {
  return dynamic_cast<Guarded&>(connection).real();
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
    return guard_->call([&] { return real_->Execute(recordsAffected); });
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
    guard_->call([&] { real_->Open(source, real, cursorType, lockType, options); });
  }
  bool EndOfFile() const override {
    return guard_->call([&] { return real_->EndOfFile(); });
  }
  void MoveFirst() override {
    guard_->call([&] { real_->MoveFirst(); });
  }
  void MoveNext() override {
    guard_->call([&] { real_->MoveNext(); });
  }
  Value Fields(std::string_view name) const override {
    return guard_->call([&] { return real_->Fields(name); });
  }
  void Fields(std::string_view name, const Value& value) override {
    guard_->call([&] { real_->Fields(name, value); });
  }
  void Update() override {
    guard_->call([&] { real_->Update(); });
  }
  void Close() override { real_->Close(); }

 private:
  std::unique_ptr<Recordset> real_;
  std::shared_ptr<Guard> guard_;
};

std::unique_ptr<Command> Guarded::createCommand() {
  return std::make_unique<GuardedCommand>(
      guard_->call([&] { return required(real_->createCommand()); }), guard_);
}

std::unique_ptr<Recordset> Guarded::createRecordset() {
  return std::make_unique<GuardedRecordset>(
      guard_->call([&] { return required(real_->createRecordset()); }), guard_);
}

}  // namespace

std::unique_ptr<GuardedConnection> guardedConnection(std::shared_ptr<Connection> connection) {
  if (connection == nullptr) return nullptr;
  return std::make_unique<Guarded>(std::move(connection), std::make_shared<Guard>());
}

}  // namespace vexnumkr
