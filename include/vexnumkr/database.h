// The database as the component sees it: connection, command and recordset, with the member names
// and numeric constants that hosts know from ADO.
//
// Threads: everything is called on the host's user-interface thread.
// Failures: every member raises vexnumkr::Error with the engine's own code and message.
// A C++ host hands in one of the supplied adapters (adapters.h) or implements these itself; the
// contract is tested by tests/contract/database_contract.h, which any implementation should pass.
// Where one hands back null for an object, the component fails with error 91, which the user is
// told; whatever it raises besides vexnumkr::Error is told as error 51, and error 7 for
// std::bad_alloc.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/export.h>
#include <vexnumkr/value.h>

namespace vexnumkr {

/// The constants that the component passes, with their ADO values. An implementation for another
/// database layer may take those that make no difference there for what they are: advice.
namespace ado {
inline constexpr std::int32_t useServer = 2;
inline constexpr std::int32_t useClient = 3;
inline constexpr std::int32_t openForwardOnly = 0;
inline constexpr std::int32_t openKeyset = 1;
inline constexpr std::int32_t lockReadOnly = 1;
inline constexpr std::int32_t lockOptimistic = 3;
inline constexpr std::int32_t commandText = 1;
inline constexpr std::int32_t repeatableRead = 65536;
inline constexpr std::int32_t isolated = 1048576;
inline constexpr std::int32_t unspecified = -1;
}  // namespace ado

class Connection;

/// The rows of a select, with a current one. A new recordset is closed.
class VEXNUMKR_API Recordset {
 public:
  virtual ~Recordset() = default;

  /// Where the rows are kept while the recordset is open; set before Open. With ado::useServer, and
  /// opened forward only for reading, a recordset of a great many rows may keep but a few of them
  /// at a time: it goes forward only, and until it is closed its connection does nothing else.
  virtual std::int32_t CursorLocation() const = 0;
  virtual void CursorLocation(std::int32_t location) = 0;

  /// Runs the select `source` on `connection`, which must be of the same provider, and makes the
  /// first row current. Only one statement is accepted.
  virtual void Open(const std::string& source, Connection& connection, std::int32_t cursorType,
                    std::int32_t lockType, std::int32_t options) = 0;

  /// ADO's EOF (a macro in C++): True when there is no current row, that is after the last one, or
  /// always when the select found none.
  virtual bool EndOfFile() const = 0;

  /// MoveFirst on an empty recordset and MoveNext at its end: error 3021. MoveFirst where the first
  /// rows are no longer kept: error 3251.
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;

  /// The current row's field of that name, without regard to case. NULL is told from an empty text;
  /// integers and booleans come as numbers. Errors: 3021 at the end; 3265 for an unknown name.
  virtual Value Fields(std::string_view name) const = 0;

  /// Sets a field of the current row, to be written by Update. The recordset must have been opened
  /// keyset and optimistic. Errors as for reading; 3251 when the recordset is read-only.
  virtual void Fields(std::string_view name, const Value& value) = 0;

  /// Writes the fields set in the current row to exactly the record that it was read from, also
  /// when the select does not list the key columns, and also when another record looks the same.
  /// Errors: 3021 at the end; 3251 when the record has no unique identity to address it by.
  virtual void Update() = 0;

  /// Lets the rows go; whatever uses the recordset afterwards fails. Writes nothing.
  virtual void Close() = 0;

 protected:
  Recordset() = default;
  Recordset(const Recordset&) = default;
  Recordset& operator=(const Recordset&) = default;
};

/// A statement text bound to a connection.
class VEXNUMKR_API Command {
 public:
  virtual ~Command() = default;

  /// The connection that Execute uses; borrowed, it must outlive the command's use.
  virtual void ActiveConnection(Connection& connection) = 0;
  /// What the text is; the component passes ado::commandText, a statement.
  virtual void CommandType(std::int32_t type) = 0;
  /// Seconds; 0 is no limit.
  virtual void CommandTimeout(std::int32_t seconds) = 0;
  /// The statement for the next Execute; nothing is sent yet.
  virtual void CommandText(const std::string& text) = 0;

  /// Runs the command text as it stands. Exactly one statement is accepted: a second one behind a
  /// semicolon is refused, and nothing of the text runs.
  /// `recordsAffected` receives, for a select, the number of rows found, otherwise the number of
  /// rows changed; an update counts the rows that it has found, whether or not they are different
  /// now, and -1 is for an implementation that cannot tell. Returns the rows of a select, open on
  /// the first; for other statements a recordset without fields, at its end. A failed statement
  /// leaves a running transaction, and what was done in it before, in place.
  virtual std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) = 0;

 protected:
  Command() = default;
  Command(const Command&) = default;
  Command& operator=(const Command&) = default;
};

/// Hears of a statement that waits until somebody else lets go of a lock. What the calls do must
/// not use the connection.
class VEXNUMKR_API LockWait {
 public:
  virtual ~LockWait() = default;
  virtual void Begins() = 0;
  /// About fifty times a second while it lasts. What is raised here is raised by the statement,
  /// which then counts as not run.
  virtual void Lasts() = 0;
  /// The statement has the lock, or has given up.
  virtual void Ends() noexcept = 0;

 protected:
  LockWait() = default;
  LockWait(const LockWait&) = default;
  LockWait& operator=(const LockWait&) = default;
};

/// A connection to a database. It also makes the other objects of its provider, and further
/// connections of the same kind, so that a host hands over nothing but this.
class VEXNUMKR_API Connection {
 public:
  virtual ~Connection() = default;

  /// What Open connects to. Readable also on a connection that the host opened by other means.
  virtual std::string ConnectionString() const = 0;
  virtual void ConnectionString(const std::string& text) = 0;

  /// The isolation of transactions begun from now on; the component uses ado::isolated. One of
  /// ado::repeatableRead reads only, all of it as it was stored at one moment, whatever others
  /// store meanwhile; the number library asks for it, and does without it where that fails.
  virtual std::int32_t IsolationLevel() const = 0;
  virtual void IsolationLevel(std::int32_t level) = 0;

  /// How long a statement may take, and wait for a lock, in seconds; 0 is the engine's own limits.
  /// Longer waits for locks than those are not had by asking for them.
  virtual void CommandTimeout(std::int32_t seconds) = 0;
  virtual void ConnectionTimeout(std::int32_t seconds) = 0;
  /// Where recordsets of this connection keep their rows, unless they say otherwise.
  virtual void CursorLocation(std::int32_t location) = 0;

  /// Opens what ConnectionString names. An empty user or password leaves those of the string.
  virtual void Open(const std::string& user, const std::string& password, std::int32_t options) = 0;
  /// Closes it; a transaction that is still open is rolled back. Its commands and recordsets fail
  /// from then on, until it is opened again.
  virtual void Close() = 0;

  /// Whether in text literals a backslash changes the meaning of what follows it, quotes included,
  /// as on MariaDB without the mode NO_BACKSLASH_ESCAPES. The component needs to know where its
  /// values end; an implementation for such a database has to say so.
  virtual bool BackslashEscapes() const { return false; }

  /// Whether its engine takes an INSERT of several rows, `VALUES (...) , (...)`, and computes with
  /// CASE, as PostgreSQL, MariaDB and SQLite do. An implementation that cannot tell keeps the
  /// component to statements of single rows, also where it asks in sets.
  virtual bool TakesSeveralRows() const { return false; }

  /// As Command::Execute, for a text without a command of its own.
  virtual std::unique_ptr<Recordset> Execute(const std::string& text,
                                             std::int32_t& recordsAffected) = 0;

  /// Refuses tables that know no transactions, so that what is done to them could not be taken
  /// back; the text says what to do. To be called before the first transaction that changes them;
  /// from then on an isolated transaction may change something before LockTable is called in it,
  /// and sees under the lock what is stored then. Implementations whose tables all have
  /// transactions need not do anything; names of tables that are not there are passed over. Error:
  /// 3251.
  virtual void RequireTransactions(const std::vector<std::string>& /*tables*/) {}

  /// Who is told while statements of this connection wait for locks, once that is more than a
  /// moment; borrowed, null for nobody. How long they wait does not change. Implementations that do
  /// not notice tell nobody.
  virtual void OnLockWait(LockWait* /*told*/) {}
  /// Who is told; null for nobody. Components that open a further connection for the work that they
  /// do on this one tell the same there, so that no wait of theirs freezes the window.
  virtual LockWait* ToldOfLockWait() const { return nullptr; }

  /// How many characters a column for texts has room for; 0 where the database does not say, or
  /// there is no such column.
  virtual std::int32_t TextLimit(const std::string& /*table*/, const std::string& /*column*/) {
    return 0;
  }

  /// Transactions do not nest: beginning a second one, or ending one that is not open, is an error.
  /// What is read before a transaction has changed anything, or LockTable was called, may be read
  /// outside of it, so that nothing is locked meanwhile; but for one of ado::repeatableRead.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;

  /// Keeps everybody else from changing rows of `table` until the running transaction ends, after
  /// waiting, within the usual limits, for whoever is changing some; others go on reading, and what
  /// is read from now on is what they have left. Errors: the engine's, when it waits in vain.
  /// Without an implementation nothing is locked: the component then notices most changes of others
  /// by reading twice, and refuses to overwrite those.
  virtual void LockTable(const std::string& table) { static_cast<void>(table); }

  /// A new closed connection, command or recordset of the same provider.
  virtual std::unique_ptr<Connection> createConnection() = 0;
  virtual std::unique_ptr<Command> createCommand() = 0;
  virtual std::unique_ptr<Recordset> createRecordset() = 0;

 protected:
  Connection() = default;
  Connection(const Connection&) = default;
  Connection& operator=(const Connection&) = default;
};

}  // namespace vexnumkr
