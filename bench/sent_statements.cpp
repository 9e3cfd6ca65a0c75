#include "bench/sent_statements.h"

#include <string_view>

#include <vexnumkr/adapters.h>

#include "support/faults/scripted_connection.h"

namespace vexnumkr::bench {
namespace {

// Of an entry such as "conn: SELECT ... !failed".
SentStatement statementOf(const std::string& entry) {
  constexpr std::string_view label = "conn: ";
  constexpr std::string_view failed = " !failed";
  const bool fails = entry.ends_with(failed);
  const std::size_t length = entry.size() - label.size() - (fails ? failed.size() : 0);
  return {entry.substr(label.size(), length), fails};
}

}  // namespace

SentStatements sentBy(const std::string& connectionString, DatabaseAccess access,
                      const std::function<void(Session&)>& work,
                      const std::function<void(Session&)>& before) {
  test::ConnectionScript script;
  Session session(test::scriptedConnection(openQtSqlConnection(connectionString), script), access);
  before(session);
  script.takeStatements();
  work(session);
  SentStatements statements;
  for (const std::string& entry : script.takeStatements()) statements.push_back(statementOf(entry));
  return statements;
}

void send(BareDriver& driver, const SentStatements& statements, bool withFailures) {
  for (const SentStatement& statement : statements) {
    if (!statement.fails)
      driver.run(statement.text);
    else if (withFailures)
      driver.tryToRun(statement.text);
  }
}

}  // namespace vexnumkr::bench
