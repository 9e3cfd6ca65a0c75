// A host's ADO connection as the component sees it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "adapters/automation/ado/statement_check.h"
#include "adapters/automation/com/late_bound.h"

namespace vexnumkr::automation {

/// Forwards every member to the object's member of the same name, with ADO's own values; what the
/// object raises comes back with its number, source and description. Every statement is checked
/// first. Further connections, commands and recordsets are new objects of ADO's classes.
///
/// An isolated transaction is only tried where it is begun, and begun for good by LockTable or by
/// the first statement that may change something: until then nothing is locked, and hosts go on
/// drawing. What locks a table is known for the supported engines, by the connection string or,
/// where that names only a data source, by asking for their versions; with others nothing is
/// locked.
class AdoConnection final : public Connection {
 public:
  explicit AdoConnection(LateBound object) : object_(std::move(object)) {}

  IDispatch* object() const { return object_.object(); }
  /// Lets the statement through, in the transaction that it needs, or raises error 3001.
  Statement check(const std::string& text);
  /// What changes something comes next: a transaction that has been put off begins.
  void beginToChange();

  std::string ConnectionString() const override;
  void ConnectionString(const std::string& text) override;
  std::int32_t IsolationLevel() const override;
  void IsolationLevel(std::int32_t level) override;
  void CommandTimeout(std::int32_t seconds) override;
  void ConnectionTimeout(std::int32_t seconds) override;
  void CursorLocation(std::int32_t location) override;
  void Open(const std::string& user, const std::string& password, std::int32_t options) override;
  void Close() override;
  bool BackslashEscapes() const override;
  std::unique_ptr<Recordset> Execute(const std::string& text,
                                     std::int32_t& recordsAffected) override;
  void RequireTransactions(const std::vector<std::string>& tables) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  void LockTable(const std::string& table) override;
  std::unique_ptr<Connection> createConnection() override;
  std::unique_ptr<Command> createCommand() override;
  std::unique_ptr<Recordset> createRecordset() override;

 private:
  const std::optional<LexicalRules>& rules() const;
  void forgetEngine();
  /// Null for one that is not supported, or not known yet.
  const Engine* engine();
  std::unique_ptr<Recordset> send(const std::string& text, bool isSelect,
                                  std::int32_t& recordsAffected);
  /// Begins a transaction that has been put off, so that it sees what is stored under a lock.
  void beginNow();

  mutable LateBound object_;
  // What the connection string says; forgotten when another is set or the connection is opened.
  mutable std::optional<std::optional<LexicalRules>> rules_;
  std::optional<NamedEngine> engine_;
  StatementCheck check_;
  bool beginsLater_ = false;
  bool inTransaction_ = false;
  bool locksLater_ = false;
};

/// The ADO connection that `connection` is. Error 13 for one of another kind.
AdoConnection& adoConnection(Connection& connection);

}  // namespace vexnumkr::automation
