// A host's own database layer: it forwards to a real connection, and does what its host wants done
// in the middle of it.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>

#include "support/faults/forwarding_connection.h"

namespace vexnumkr::test {

/// What happens in the members of a HookedConnection and of all that it makes; outlives them.
struct Hooks {
  /// Called with the member's name at the beginning of each; what it raises is raised.
  std::function<void(const std::string& member)> before;
  /// Called with the member's name when a BeginTrans, CommitTrans or RollbackTrans has succeeded.
  std::function<void(const std::string& member)> after;
  /// Called with the text of each statement that goes to Connection::Execute, before it is sent.
  std::function<void(const std::string& text)> beforeStatement;
  /// The members that hand back null in place of an object.
  std::set<std::string> givesNull;

  void enter(const char* member) const {
    if (before) before(member);
  }
  void leave(const char* member) const {
    if (after) after(member);
  }
  template <class Object>
  std::unique_ptr<Object> given(const char* member, std::unique_ptr<Object> object) const {
    return givesNull.count(member) != 0 ? nullptr : std::move(object);
  }
};

/// Passes on what is told of a wait for a lock.
class HookedLockWait final : public LockWait {
 public:
  HookedLockWait(LockWait& real, const Hooks& hooks) : real_(real), hooks_(hooks) {}

  void Begins() override { real_.Begins(); }
  void Lasts() override {
    hooks_.enter("LockWait.Lasts");
    real_.Lasts();
  }
  void Ends() noexcept override { real_.Ends(); }

 private:
  LockWait& real_;
  const Hooks& hooks_;
};

class HookedConnection final : public PlainConnection {
 public:
  HookedConnection(std::shared_ptr<Connection> real, const Hooks& hooks)
      : PlainConnection(std::move(real)), hooks_(hooks) {}
  ~HookedConnection() override { real().OnLockWait(nullptr); }
  HookedConnection(const HookedConnection&) = delete;
  HookedConnection& operator=(const HookedConnection&) = delete;

  using PlainConnection::ConnectionString;
  using PlainConnection::IsolationLevel;

  /// Whether somebody is told of its waits.
  bool tellsOfWaits() const { return told_ != nullptr; }

  static Connection& realOf(Connection& connection) {
    auto* hooked = dynamic_cast<HookedConnection*>(&connection);
    return hooked == nullptr ? connection : hooked->real();
  }

  std::string ConnectionString() const override {
    return entered("ConnectionString").ConnectionString();
  }
  void IsolationLevel(std::int32_t level) override {
    entered("IsolationLevel").IsolationLevel(level);
  }
  void Open(const std::string& user, const std::string& password, std::int32_t options) override {
    entered("Open").Open(user, password, options);
  }
  void Close() override { entered("Close").Close(); }
  bool BackslashEscapes() const override { return real().BackslashEscapes(); }
  std::unique_ptr<Recordset> Execute(const std::string& text, std::int32_t& affected) override {
    Connection& entry = entered("Execute");
    if (hooks_.beforeStatement) hooks_.beforeStatement(text);
    return hooks_.given("Execute", entry.Execute(text, affected));
  }
  void RequireTransactions(const std::vector<std::string>& tables) override {
    entered("RequireTransactions").RequireTransactions(tables);
  }
  void BeginTrans() override {
    entered("BeginTrans").BeginTrans();
    hooks_.leave("BeginTrans");
  }
  void CommitTrans() override {
    entered("CommitTrans").CommitTrans();
    hooks_.leave("CommitTrans");
  }
  void RollbackTrans() override {
    entered("RollbackTrans").RollbackTrans();
    hooks_.leave("RollbackTrans");
  }
  void LockTable(const std::string& table) override { entered("LockTable").LockTable(table); }
  void OnLockWait(LockWait* told) override {
    auto hooked = told == nullptr ? nullptr : std::make_unique<HookedLockWait>(*told, hooks_);
    real().OnLockWait(hooked.get());
    told_ = std::move(hooked);
  }
  std::int32_t TextLimit(const std::string& table, const std::string& column) override {
    return real().TextLimit(table, column);
  }
  std::unique_ptr<Connection> createConnection() override {
    return hooks_.given<Connection>(
        "createConnection",
        std::make_unique<HookedConnection>(entered("createConnection").createConnection(), hooks_));
  }
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

 private:
  Connection& entered(const char* member) const {
    hooks_.enter(member);
    return real();
  }

  const Hooks& hooks_;
  std::unique_ptr<HookedLockWait> told_;
};

class HookedRecordset final : public Recordset {
 public:
  HookedRecordset(std::unique_ptr<Recordset> real, const Hooks& hooks)
      : real_(std::move(real)), hooks_(hooks) {}

  std::int32_t CursorLocation() const override { return real_->CursorLocation(); }
  void CursorLocation(std::int32_t location) override { real_->CursorLocation(location); }
  void Open(const std::string& source, Connection& connection, std::int32_t cursorType,
            std::int32_t lockType, std::int32_t options) override {
    hooks_.enter("Recordset.Open");
    real_->Open(source, HookedConnection::realOf(connection), cursorType, lockType, options);
  }
  bool EndOfFile() const override { return real_->EndOfFile(); }
  void MoveFirst() override { real_->MoveFirst(); }
  void MoveNext() override {
    hooks_.enter("MoveNext");
    real_->MoveNext();
  }
  Value Fields(std::string_view name) const override { return real_->Fields(name); }
  void Fields(std::string_view name, const Value& value) override { real_->Fields(name, value); }
  void Update() override {
    hooks_.enter("Update");
    real_->Update();
  }
  void Close() override { real_->Close(); }

 private:
  std::unique_ptr<Recordset> real_;
  const Hooks& hooks_;
};

class HookedCommand final : public Command {
 public:
  HookedCommand(std::unique_ptr<Command> real, const Hooks& hooks)
      : real_(std::move(real)), hooks_(hooks) {}

  void ActiveConnection(Connection& connection) override {
    real_->ActiveConnection(HookedConnection::realOf(connection));
  }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override { real_->CommandText(text); }
  std::unique_ptr<Recordset> Execute(std::int32_t& affected) override {
    hooks_.enter("Command.Execute");
    return hooks_.given<Recordset>(
        "Command.Execute", std::make_unique<HookedRecordset>(real_->Execute(affected), hooks_));
  }

 private:
  std::unique_ptr<Command> real_;
  const Hooks& hooks_;
};

inline std::unique_ptr<Command> HookedConnection::createCommand() {
  return hooks_.given<Command>(
      "createCommand",
      std::make_unique<HookedCommand>(entered("createCommand").createCommand(), hooks_));
}

inline std::unique_ptr<Recordset> HookedConnection::createRecordset() {
  return hooks_.given<Recordset>(
      "createRecordset",
      std::make_unique<HookedRecordset>(entered("createRecordset").createRecordset(), hooks_));
}

}  // namespace vexnumkr::test
