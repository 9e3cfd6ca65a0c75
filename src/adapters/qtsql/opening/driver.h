// Qt's database drivers: how they are told what to open, and which engine they reach.
#pragma once

#include <QSqlDatabase>
#include <QString>
#include <string_view>

#include <vexnumkr/connection_string.h>

#include "engines/engines.h"

class QSqlQuery;

namespace vexnumkr::qtsql {

struct Driver {
  std::string_view name;           ///< Qt's.
  const Engine* engine = nullptr;  ///< Null for ODBC, by which several are reached.
  const QtDriver* own = nullptr;   ///< Of that engine.

  bool isOdbc() const { return engine == nullptr; }
};

/// Qt's driver of that name, without regard to case. Error: 3706 for any other.
Driver driverOf(std::string_view name);

/// Puts the settings into a database that is not open yet. Error: 3001 for options that the driver
/// does not know or cannot read: it would log them, passwords included.
void configure(QSqlDatabase& database, const Driver& driver, const ConnectionSettings& settings);

/// The engine that an open database talks to. Errors: 3706 when it is none that is supported, and
/// the engine's.
const Engine& engineBehind(const QSqlDatabase& database, const Driver& driver);

/// The engine's own code for the failure of `failed`, as far as the driver tells.
QString engineCode(const QSqlQuery& failed, const Driver& driver, const Engine& engine);

/// Error: 3706 for a borrowed database that would silently connect again: the rest of a transaction
/// that it had lost would be committed statement by statement.
void requireSteadyConnection(const QSqlDatabase& database);

}  // namespace vexnumkr::qtsql
