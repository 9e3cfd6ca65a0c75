// What tells the records of a table apart.
#pragma once

#include <QStringList>
#include <string_view>

#include "adapters/qtsql/session.h"

namespace vexnumkr::qtsql {

struct TableKeys {
  /// The columns of the primary key or, on servers, of another unique index without NULL; empty
  /// where there is none.
  QStringList unique;
  /// Whether that is SQLite's row number under a name of its own, and may be changed.
  bool isRowNumber = false;
  /// All columns, where the engine has row numbers whose name a column may take.
  QStringList columns;
};

/// Asks the engine about `table`, which is named as a statement names it, perhaps `schema.table`,
/// perhaps in quotes. A view has no keys. Errors: the engine's.
TableKeys keysOf(Session& session, std::string_view table);

}  // namespace vexnumkr::qtsql
