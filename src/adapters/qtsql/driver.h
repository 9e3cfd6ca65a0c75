// What differs between Qt's database drivers: how they are told what to open, which engine they
// reach, and how they say that a connection is gone.
#pragma once

#include <QSqlDatabase>
#include <string_view>

#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/engine.h"

class QSqlError;
class QSqlQuery;

namespace vexnumkr::qtsql {

struct Driver {
  std::string_view name;
  /// Puts the settings into a database that is not open yet.
  void (*configure)(QSqlDatabase& database, const ConnectionSettings& settings);
  /// The engine that an open database talks to. Error: 3706 when it is none that is supported.
  const Engine& (*engine)(const QSqlDatabase& database);
  /// The engine's own code for the failure of `failed`, as far as the driver tells.
  QString (*engineCode)(const QSqlQuery& failed, const Engine& engine);
  /// Whether the connection is gone, as far as the failure tells.
  bool (*isLost)(const QSqlError& error);
  /// Whether a failure may hide that; then a session asks.
  bool mayHideLoss;
  /// The engine whose statements go through an encoding of eight bits that not all characters
  /// survive; may be null.
  const Engine* eightBitEngine;
};

/// Qt's driver of that name, without regard to case. Error: 3706 for any other.
const Driver& driverOf(std::string_view name);

/// Error: 3706 for a borrowed database that would silently connect again: the rest of a transaction
/// that it had lost would be committed statement by statement.
void requireSteadyConnection(const QSqlDatabase& database);

}  // namespace vexnumkr::qtsql
