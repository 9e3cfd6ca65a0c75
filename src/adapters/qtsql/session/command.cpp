#include "adapters/qtsql/session/command.h"

#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/connection.h"

namespace vexnumkr::qtsql {

void SqlCommand::ActiveConnection(Connection& connection) {
  connection_ = SqlConnection::slotOf(connection);
}

void SqlCommand::CommandType(std::int32_t type) {
  if (type != ado::commandText)
    throw failure(error_number::invalidArgument, "Nur der Befehlstyp 1 (Text) ist möglich.");
}

void SqlCommand::CommandTimeout(std::int32_t seconds) { requireTimeout(seconds); }

std::unique_ptr<Recordset> SqlCommand::Execute(std::int32_t& recordsAffected) {
  const std::shared_ptr<SessionSlot> connection = connection_.lock();
  if (!connection)
    throw failure(error_number::invalidConnection, "Dem Befehl fehlt die Datenbankverbindung.");
  return connection->execute(text_, recordsAffected);
}

}  // namespace vexnumkr::qtsql
