// The stand-in for ADODB.Connection.
#pragma once

#include <vexnumkr/database.h>

#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {

/// A connection through ODBC: the connection string is one for its driver manager, e.g.
/// "Driver=SQLite3;Database=/tmp/firma.db".
class ConnectionObject final : public DispatchObject {
 public:
  static const IID id;

  ConnectionObject();

  /// The database behind it; closed as long as it is not open itself.
  Connection& database() { return *database_; }

 protected:
  bool isOfClass(REFIID classId) const override { return classId == id; }

 private:
  void addProperties();
  void addMethods();
  void open(const Call& call);
  void execute(const Call& call);

  std::unique_ptr<Connection> database_;
  std::string connectionString_;
  std::int32_t commandTimeout_ = 30;
  std::int32_t connectionTimeout_ = 15;
  std::int32_t cursorLocation_ = ado::useServer;
};

}  // namespace vexnumkr::standins
