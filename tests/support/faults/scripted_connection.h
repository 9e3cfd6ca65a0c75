// A connection that tells what went over it and fails where it is told to.
//
// It forwards everything to a real connection, so that what a test sees is what the engine does.
// Two parties use it: scenarios, to list the component's statements and to make one fail, and fault
// tests.
//
//   ConnectionScript script;
//   auto host = scriptedConnection(openQtSqlConnection(text), script);
//   component->Init(host, 1, "Max");
//   script.failStatement(1);           // the next one
//   ...
//   EXPECT_EQ(script.takeStatements(), ...);
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

namespace vexnumkr::test {

/// What failures on purpose say: error 4711, "Absichtlicher Fehler".
inline constexpr std::int32_t deliberateErrorNumber = 4711;
inline constexpr const char* deliberateErrorText = "Absichtlicher Fehler";

/// The orders for a scripted connection and everything made by it, and the record of what they did.
///
/// The record holds, in the order in which they were sent:
///
///   conn: TEXT                                   a statement on the host's connection
///   work: TEXT                                   a statement on a connection made by it
///   conn: BEGIN, conn: COMMIT, conn: ROLLBACK    its transactions (and `work:` likewise)
///   conn: UPDATE RECORD n Name=Value             a recordset's Update of record n, from 0, with
///   the
///                                                fields set since the record became current;
///                                                booleans read True and False, Null reads NULL
///
/// An entry that failed, whether on purpose or in the engine, ends in ` !failed`. Opening, closing,
/// properties and moving in a recordset leave no entry, nor does what an engine's adapter sends on
/// its own account.
class ConnectionScript {
 public:
  /// The `n`th statement from now on (1 is the next one), on any of the connections, fails without
  /// being sent. Record updates count; transactions do not. Replaces an earlier order.
  /// REQUIRES: n > 0.
  void failStatement(int n) { statementsUntilFailure_ = n; }
  /// The next CommitTrans fails without being sent: the transaction stays open, nothing is
  /// committed.
  void failCommit() { commitFails_ = true; }
  /// From now on, opening a connection made by the host's one fails; it stays closed.
  void failConnect() { connectFails_ = true; }

  /// The record since the last call, which empties it.
  std::vector<std::string> takeStatements();

  /// For the scripted objects: runs one operation, recorded as `entry`, and passes on its failure.
  template <class Operation>
  auto statement(const std::string& entry, Operation&& operation) {
    return recorded(entry, isStatementToFail(), operation);
  }
  template <class Operation>
  void transaction(const std::string& entry, Operation&& operation) {
    recorded(entry, false, operation);
  }
  template <class Operation>
  void commit(const std::string& entry, Operation&& operation) {
    const bool fails = commitFails_;
    commitFails_ = false;
    recorded(entry, fails, operation);
  }
  bool connectFails() const { return connectFails_; }

  /// What others do in between: runs behind every entry that has succeeded, which it is given.
  std::function<void(const std::string& entry)> afterwards;

  /// Raises the failure on purpose.
  [[noreturn]] static void failOnPurpose();

 private:
  bool isStatementToFail();

  template <class Operation>
  auto recorded(const std::string& entry, bool failsOnPurpose, Operation& operation) {
    const std::size_t place = record_.size();
    record_.push_back(entry);
    try {
      if (failsOnPurpose) failOnPurpose();
      const AtExit report{[&] {
        if (afterwards) afterwards(entry);
      }};
      return operation();
    } catch (...) {
      if (place < record_.size()) record_[place] += " !failed";
      throw;
    }
  }

  // Runs its function at the end of a block that no exception has ended.
  struct AtExit {
    std::function<void()> run;
    int exceptions = std::uncaught_exceptions();
    ~AtExit() {
      if (std::uncaught_exceptions() == exceptions) run();
    }
  };

  std::vector<std::string> record_;
  std::optional<int> statementsUntilFailure_;
  bool commitFails_ = false;
  bool connectFails_ = false;
};

/// `real` as the host's connection, labelled "conn"; it is kept open or closed as it is.
/// Connections made by the result are labelled "work", commands and recordsets made by it carry the
/// label of the connection that they work on. `script` is borrowed and outlives all of them.
///
/// A command's ActiveConnection and a recordset's Open take scripted connections only, whose real
/// one they hand to the real object. Error 3001 for any other connection.
std::shared_ptr<Connection> scriptedConnection(std::shared_ptr<Connection> real,
                                               ConnectionScript& script);

/// The real connection behind a scripted one, for statements that shall be neither recorded nor
/// counted; any other connection is its own. The result lives as long as `connection`.
Connection& realConnection(Connection& connection);

}  // namespace vexnumkr::test
