#include "adapters/automation/ado/connection.h"

#include <vexnumkr/error.h>

#include "adapters/automation/ado/command.h"
#include "adapters/automation/ado/execution.h"
#include "adapters/automation/ado/recordset.h"

namespace vexnumkr::automation {

Statement AdoConnection::check(const std::string& text) { return check_.pass(text, rules()); }

const std::optional<LexicalRules>& AdoConnection::rules() const {
  if (!rules_) rules_ = lexicalRulesOf(ConnectionString());
  return *rules_;
}

std::string AdoConnection::ConnectionString() const {
  return toText(object_.call("ConnectionString").get());
}

void AdoConnection::ConnectionString(const std::string& text) {
  rules_.reset();
  object_.put("ConnectionString", Variant(text));
}

std::int32_t AdoConnection::IsolationLevel() const {
  return toLong(object_.call("IsolationLevel").get());
}

void AdoConnection::IsolationLevel(std::int32_t level) {
  object_.put("IsolationLevel", Variant(level));
}

void AdoConnection::CommandTimeout(std::int32_t seconds) {
  object_.put("CommandTimeout", Variant(seconds));
}

void AdoConnection::ConnectionTimeout(std::int32_t seconds) {
  object_.put("ConnectionTimeout", Variant(seconds));
}

void AdoConnection::CursorLocation(std::int32_t location) {
  object_.put("CursorLocation", Variant(location));
}

void AdoConnection::Open(const std::string& user, const std::string& password,
                         std::int32_t options) {
  rules_.reset();
  // An empty connection string leaves the one that has been set.
  const Variant connectionString("");
  const Variant userId(user);
  const Variant secret(password);
  const Variant option(options);
  object_.call("Open", {&connectionString, &userId, &secret, &option});
}

void AdoConnection::Close() { object_.call("Close"); }

// Where that is not known, only texts pass that mean the same either way.
bool AdoConnection::BackslashEscapes() const { return rules() && rules()->backslashEscapes; }

std::unique_ptr<Recordset> AdoConnection::Execute(const std::string& text,
                                                  std::int32_t& recordsAffected) {
  const bool isSelect = check(text).isSelect();
  const Variant statement(text);
  return execute(object_, &statement, isSelect, recordsAffected);
}

void AdoConnection::BeginTrans() { object_.call("BeginTrans"); }
void AdoConnection::CommitTrans() { object_.call("CommitTrans"); }
void AdoConnection::RollbackTrans() { object_.call("RollbackTrans"); }

std::unique_ptr<Connection> AdoConnection::createConnection() {
  return std::make_unique<AdoConnection>(LateBound::create("ADODB.Connection"));
}

std::unique_ptr<Command> AdoConnection::createCommand() {
  return std::make_unique<AdoCommand>(LateBound::create("ADODB.Command"));
}

std::unique_ptr<Recordset> AdoConnection::createRecordset() {
  return std::make_unique<AdoRecordset>(LateBound::create("ADODB.Recordset"));
}

AdoConnection& adoConnection(Connection& connection) {
  if (auto* const ado = dynamic_cast<AdoConnection*>(&connection)) return *ado;
  throw Error::typeMismatch();
}

}  // namespace vexnumkr::automation
