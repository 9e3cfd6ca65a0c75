// Runs selects so that their rows can be written back.
#pragma once

#include <optional>

#include "adapters/qtsql/rows/row_set.h"
#include "adapters/qtsql/session/record_keys.h"

namespace vexnumkr {
struct Statement;
}

namespace vexnumkr::qtsql {

class SqlSession;

/// The rows of a select; without keys they can only be read.
struct KeyedSelect {
  RowSet rows;
  std::optional<RecordKeys> keys;
};

/// Runs `statement`, which has passed the session's gate: with the key columns added (they are
/// hidden in the rows) where it is a simple select of a table that has a unique identity, else as
/// it stands. Errors: the engine's.
KeyedSelect selectWithKeys(SqlSession& session, const Statement& statement);

}  // namespace vexnumkr::qtsql
