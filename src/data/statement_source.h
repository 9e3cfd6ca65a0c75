// Where the statements of data and rules go.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <vexnumkr/database.h>
#include <vexnumkr/database_access.h>

#include "data/origin.h"

namespace vexnumkr {

/// The shared command on the host's connection, the working connection beside it, and whose
/// statements they are. What has not been set up, or was released, raises error 91 when it is used,
/// as does a select for which the host hands back no recordset; all else that is raised is the
/// database's.
class StatementSource {
 public:
  const Origin& origin() const { return origin_; }
  void origin(Origin origin) { origin_ = origin; }

  /// How whoever has a choice asks.
  DatabaseAccess access() const { return access_; }
  void access(DatabaseAccess access) { access_ = access; }

  Command& cmdSQL() const;
  void cmdSQL(std::unique_ptr<Command> command) { cmdSQL_ = std::move(command); }

  Connection& ConnWork() const;
  void ConnWork(std::unique_ptr<Connection> connection) { ConnWork_ = std::move(connection); }

  /// As the connection says.
  bool takesSeveralRows() const { return ConnWork().TakesSeveralRows(); }

  /// The rows of a statement, and how many there are, by the shared command.
  std::unique_ptr<Recordset> query(const std::string& text);
  std::unique_ptr<Recordset> query(const std::string& text, std::int32_t& found);
  /// The same for a statement whose rows are of no interest; returns how many it has found or
  /// changed.
  std::int32_t execute(const std::string& text);

  /// The rows of a statement on the working connection, outside the dialog's transaction.
  std::unique_ptr<Recordset> queryAside(const std::string& text);

 private:
  std::unique_ptr<Recordset> send(const std::string& text, std::int32_t& found);

  Origin origin_;
  DatabaseAccess access_ = DatabaseAccess::rowByRow;
  std::unique_ptr<Connection> ConnWork_;
  std::unique_ptr<Command> cmdSQL_;
};

}  // namespace vexnumkr
