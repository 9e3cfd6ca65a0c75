#include "adapters/automation/ado/connection.h"

#include <utility>

#include <vexnumkr/error.h>

#include "adapters/automation/ado/command.h"
#include "adapters/automation/ado/execution.h"
#include "adapters/automation/ado/recordset.h"
#include "engines/engines.h"
#include "engines/transactional_tables.h"
#include "platform/reporter.h"

namespace vexnumkr::automation {

namespace {

// What ADO calls the isolation in which each statement sees what is stored when it begins.
constexpr std::int32_t readCommitted = 4096;

}  // namespace

Statement AdoConnection::check(const std::string& text) {
  const Statement statement = check_.pass(text, rules());
  if (!statement.onlyReads()) beginToChange();
  return statement;
}

const std::optional<LexicalRules>& AdoConnection::rules() const {
  if (!rules_) rules_ = lexicalRulesOf(ConnectionString());
  return *rules_;
}

void AdoConnection::forgetEngine() {
  rules_.reset();
  engine_.reset();
}

const Engine* AdoConnection::engine() {
  if (!engine_) engine_ = engineNamedBy(ConnectionString());
  return engine_->engine;
}

std::string AdoConnection::ConnectionString() const {
  return toText(object_.call("ConnectionString").get());
}

void AdoConnection::ConnectionString(const std::string& text) {
  forgetEngine();
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
  forgetEngine();
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
  return send(text, check(text).isSelect(), recordsAffected);
}

std::unique_ptr<Recordset> AdoConnection::send(const std::string& text, bool isSelect,
                                               std::int32_t& recordsAffected) {
  const Variant statement(text);
  return execute(object_, &statement, isSelect, recordsAffected);
}

// A data source is asked outside of transactions, which a question that fails may end.
void AdoConnection::RequireTransactions(const std::vector<std::string>& tables) {
  locksLater_ = true;
  if (engine() == nullptr && !engine_->isNamed && !inTransaction_)
    engine_->engine = engineThatAnswers(*this);
  if (engine() == nullptr) return;
  const std::string select = selectWithoutTransactions(*engine(), tables);
  if (select.empty()) return;
  std::int32_t found = 0;
  const auto rows = send(select, true, found);
  if (rows->EndOfFile()) return;
  const auto text = [&](const char* field) { return rows->Fields(field).toText(); };
  throw knowsNoTransactions({text("Tabelle"), text("Art"), text("Abhilfe")}, "ADODB");
}

// Whether the host has one already, which may not be told from its own, is for the provider to say;
// and a second one is for it to refuse.
void AdoConnection::BeginTrans() {
  beginNow();
  object_.call("BeginTrans");
  if (inTransaction_ || IsolationLevel() != ado::isolated) {
    inTransaction_ = true;
    return;
  }
  object_.call("RollbackTrans");
  beginsLater_ = true;
}

void AdoConnection::beginNow() {
  if (!beginsLater_) return;
  object_.call("BeginTrans");
  beginsLater_ = false;
  inTransaction_ = true;
}

// What it will read under the lock has to be what is stored then.
void AdoConnection::beginToChange() {
  if (!beginsLater_) return;
  if (!locksLater_ || engine() == nullptr || !engine()->seesItsBeginning) return beginNow();
  IsolationLevel(readCommitted);
  const auto back = [this] { IsolationLevel(ado::isolated); };
  try {
    beginNow();
  } catch (const Error&) {
    ignoringFailures(back);
    throw;
  }
  back();
}

void AdoConnection::LockTable(const std::string& table) {
  beginNow();
  if (engine() == nullptr) return;
  std::int32_t found = 0;
  send(engine()->lockTableAnyhow(table), false, found);
}

void AdoConnection::CommitTrans() {
  if (std::exchange(beginsLater_, false)) return;
  object_.call("CommitTrans");
  inTransaction_ = false;
}

void AdoConnection::RollbackTrans() {
  if (std::exchange(beginsLater_, false)) return;
  inTransaction_ = false;
  object_.call("RollbackTrans");
}

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
