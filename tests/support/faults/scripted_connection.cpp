#include "support/faults/scripted_connection.h"

#include <utility>

#include <vexnumkr/error.h>

#include "support/faults/forwarding_connection.h"

namespace vexnumkr::test {

std::vector<std::string> ConnectionScript::takeStatements() { return std::exchange(record_, {}); }

void ConnectionScript::failOnPurpose() {
  throw Error(deliberateErrorNumber, "ScriptedConnection", deliberateErrorText);
}

bool ConnectionScript::isStatementToFail() {
  if (!statementsUntilFailure_ || --*statementsUntilFailure_ > 0) return false;
  statementsUntilFailure_.reset();
  return true;
}

namespace {

enum class Side { Host, Working };

class ScriptedConnection : public ForwardingConnection {
 public:
  ScriptedConnection(std::shared_ptr<Connection> real, ConnectionScript& script, Side side)
      : ForwardingConnection(std::move(real)),
        script_(script),
        side_(side),
        label_(side == Side::Host ? "conn" : "work") {}

  const std::string& label() const { return label_; }

  void Open(const std::string& user, const std::string& password, std::int32_t options) override {
    if (side_ == Side::Working && script_.connectFails()) ConnectionScript::failOnPurpose();
    ForwardingConnection::Open(user, password, options);
  }

  std::unique_ptr<Recordset> Execute(const std::string& text,
                                     std::int32_t& recordsAffected) override {
    return script_.statement(label_ + ": " + text,
                             [&] { return real().Execute(text, recordsAffected); });
  }

  void BeginTrans() override {
    script_.transaction(label_ + ": BEGIN", [&] { real().BeginTrans(); });
  }
  void CommitTrans() override {
    script_.commit(label_ + ": COMMIT", [&] { real().CommitTrans(); });
  }
  void RollbackTrans() override {
    script_.transaction(label_ + ": ROLLBACK", [&] { real().RollbackTrans(); });
  }

  std::unique_ptr<Connection> createConnection() override {
    return std::make_unique<ScriptedConnection>(real().createConnection(), script_, Side::Working);
  }
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

 private:
  ConnectionScript& script_;
  Side side_;
  std::string label_;
};

ScriptedConnection& scripted(Connection& connection) {
  auto* found = dynamic_cast<ScriptedConnection*>(&connection);
  if (found == nullptr)
    throw Error(3001, "ScriptedConnection", "Die Verbindung ist von einem anderen Anbieter");
  return *found;
}

class ScriptedCommand : public Command {
 public:
  ScriptedCommand(std::unique_ptr<Command> real, ConnectionScript& script, std::string label)
      : real_(std::move(real)), script_(script), label_(std::move(label)) {}

  void ActiveConnection(Connection& connection) override {
    ScriptedConnection& used = scripted(connection);
    real_->ActiveConnection(used.real());
    label_ = used.label();
  }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override {
    real_->CommandText(text);
    text_ = text;
  }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override {
    return script_.statement(label_ + ": " + text_,
                             [&] { return real_->Execute(recordsAffected); });
  }

 private:
  std::unique_ptr<Command> real_;
  ConnectionScript& script_;
  std::string label_;
  std::string text_;
};

std::string written(const Value& value) {
  if (value.isBoolean()) return value.asBoolean() ? "True" : "False";
  return value.isNull() ? "NULL" : value.toText();
}

class ScriptedRecordset : public Recordset {
 public:
  ScriptedRecordset(std::unique_ptr<Recordset> real, ConnectionScript& script, std::string label)
      : real_(std::move(real)), script_(script), label_(std::move(label)) {}

  std::int32_t CursorLocation() const override { return real_->CursorLocation(); }
  void CursorLocation(std::int32_t location) override { real_->CursorLocation(location); }

  void Open(const std::string& source, Connection& connection, std::int32_t cursorType,
            std::int32_t lockType, std::int32_t options) override {
    ScriptedConnection& used = scripted(connection);
    script_.statement(used.label() + ": " + source,
                      [&] { real_->Open(source, used.real(), cursorType, lockType, options); });
    label_ = used.label();
    standAt(0);
  }
  bool EndOfFile() const override { return real_->EndOfFile(); }
  void MoveFirst() override {
    real_->MoveFirst();
    standAt(0);
  }
  void MoveNext() override {
    real_->MoveNext();
    standAt(record_ + 1);
  }
  Value Fields(std::string_view name) const override { return real_->Fields(name); }
  void Fields(std::string_view name, const Value& value) override {
    real_->Fields(name, value);
    fields_ += ' ' + std::string(name) + '=' + written(value);
  }
  void Update() override {
    const std::string entry = label_ + ": UPDATE RECORD " + std::to_string(record_) + fields_;
    script_.statement(entry, [&] { real_->Update(); });
    fields_.clear();
  }
  void Close() override { real_->Close(); }

 private:
  void standAt(int record) {
    record_ = record;
    fields_.clear();
  }

  std::unique_ptr<Recordset> real_;
  ConnectionScript& script_;
  std::string label_;
  int record_ = 0;
  std::string fields_;
};

std::unique_ptr<Command> ScriptedConnection::createCommand() {
  return std::make_unique<ScriptedCommand>(real().createCommand(), script_, label_);
}

std::unique_ptr<Recordset> ScriptedConnection::createRecordset() {
  return std::make_unique<ScriptedRecordset>(real().createRecordset(), script_, label_);
}

}  // namespace

std::shared_ptr<Connection> scriptedConnection(std::shared_ptr<Connection> real,
                                               ConnectionScript& script) {
  return std::make_shared<ScriptedConnection>(std::move(real), script, Side::Host);
}

Connection& realConnection(Connection& connection) {
  auto* found = dynamic_cast<ScriptedConnection*>(&connection);
  return found == nullptr ? connection : found->real();
}

}  // namespace vexnumkr::test
