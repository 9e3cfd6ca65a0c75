// A host whose every call is noted and can be made to fail: for the order of start-up and release.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr::test {

/// The calls, a line each, such as "work.CommandTimeout 0"; the release of an object is "~work".
struct CallLog {
  std::vector<std::string> lines;
  /// The line that fails, on its first occurrence; the call is noted all the same.
  std::string failing;
  std::string failingThen;  // behind that one

  void called(const std::string& line) {
    lines.push_back(line);
    if (line != failing) return;
    failing = std::exchange(failingThen, {});
    throw Error(4711, "CallLog", "Absichtlicher Fehler");
  }
  std::vector<std::string> take() { return std::exchange(lines, {}); }
};

class LoggedCommand final : public Command {
 public:
  explicit LoggedCommand(CallLog& log) : log_(log) {}
  ~LoggedCommand() override { log_.lines.emplace_back("~cmd"); }
  void ActiveConnection(Connection& connection) override;
  void CommandType(std::int32_t type) override { log("CommandType", std::to_string(type)); }
  void CommandTimeout(std::int32_t seconds) override {
    log("CommandTimeout", std::to_string(seconds));
  }
  void CommandText(const std::string& text) override { log("CommandText", text); }
  std::unique_ptr<Recordset> Execute(std::int32_t& /*recordsAffected*/) override {
    log("Execute", "");
    return nullptr;
  }

 private:
  void log(const std::string& member, const std::string& value) {
    log_.called("cmd." + member + " " + value);
  }
  CallLog& log_;
};

class LoggedConnection final : public Connection {
 public:
  LoggedConnection(CallLog& log, std::string name) : log_(log), name_(std::move(name)) {}
  ~LoggedConnection() override { log_.lines.push_back("~" + name_); }
  const std::string& name() const { return name_; }

  std::string ConnectionString() const override {
    log_.called(name_ + ".ConnectionString?");
    return "Database=x";
  }
  void ConnectionString(const std::string& text) override { log("ConnectionString", text); }
  std::int32_t IsolationLevel() const override { return 0; }
  void IsolationLevel(std::int32_t level) override { log("IsolationLevel", std::to_string(level)); }
  void CommandTimeout(std::int32_t seconds) override {
    log("CommandTimeout", std::to_string(seconds));
  }
  void ConnectionTimeout(std::int32_t seconds) override {
    log("ConnectionTimeout", std::to_string(seconds));
  }
  void CursorLocation(std::int32_t location) override {
    log("CursorLocation", std::to_string(location));
  }
  void Open(const std::string& user, const std::string& password, std::int32_t options) override {
    log("Open", "'" + user + "' '" + password + "' " + std::to_string(options));
  }
  void Close() override { log_.called(name_ + ".Close"); }
  std::unique_ptr<Recordset> Execute(const std::string& text, std::int32_t&) override {
    log("Execute", text);
    return nullptr;
  }
  void BeginTrans() override { log_.called(name_ + ".BeginTrans"); }
  void CommitTrans() override { log_.called(name_ + ".CommitTrans"); }
  void RollbackTrans() override { log_.called(name_ + ".RollbackTrans"); }
  std::unique_ptr<Connection> createConnection() override {
    log_.called(name_ + ".createConnection");
    return std::make_unique<LoggedConnection>(log_, "work");
  }
  std::unique_ptr<Command> createCommand() override {
    log_.called(name_ + ".createCommand");
    return std::make_unique<LoggedCommand>(log_);
  }
  std::unique_ptr<Recordset> createRecordset() override { throw Error(1, "CallLog", "none"); }

 private:
  void log(const std::string& member, const std::string& value) {
    log_.called(name_ + "." + member + " " + value);
  }
  CallLog& log_;
  std::string name_;
};

inline std::string nameOf(Connection& connection) {
  const auto* logged = dynamic_cast<LoggedConnection*>(&connection);
  return logged != nullptr ? logged->name() : "unknown";
}

inline void LoggedCommand::ActiveConnection(Connection& connection) {
  log("ActiveConnection", nameOf(connection));
}

class LoggedCircleDialog final : public BookingCircleDialog {
 public:
  explicit LoggedCircleDialog(CallLog& log) : log_(log) {}
  ~LoggedCircleDialog() override { log_.lines.emplace_back("~dialog"); }
  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
    log_.called("dialog.Connection " + nameOf(*connection));
  }
  void MultiSelect(bool on) override {
    log_.called(std::string("dialog.MultiSelect ") + (on ? "True" : "False"));
  }
  void Show(const std::string& origin, std::int32_t number) override {
    log_.called("dialog.Show " + origin + " " + std::to_string(number));
  }

 private:
  CallLog& log_;
};

class LoggedHost final : public HostComponents {
 public:
  explicit LoggedHost(CallLog& log) : log_(log) {}
  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    log_.called("host.CreateObject " + name);
    return std::make_unique<LoggedCircleDialog>(log_);
  }
  HostTexts* Texts() override { return nullptr; }
  HostMessages* Messages() override { return nullptr; }

 private:
  CallLog& log_;
};

}  // namespace vexnumkr::test
