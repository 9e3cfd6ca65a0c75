#include "adapters/qtsql/session/keyed_select.h"

#include "adapters/qtsql/rows/field_value.h"
#include "adapters/qtsql/rows/simple_select.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {
namespace {

// The rows of `select` with the key columns; empty when the table lacks one of them.
std::optional<RowSet> selectWith(SqlSession& session, const SimpleSelect& select,
                                 const RecordKeys& keys) {
  try {
    return session.read(toQString(select.withColumns(keys.columnList().toStdString())));
  } catch (const Error& error) {
    if (error.number() != session.engine().unknownName) throw;
    return std::nullopt;
  }
}

}  // namespace

KeyedSelect selectWithKeys(SqlSession& session, const Statement& statement) {
  if (const auto select = parseSimpleSelect(statement)) {
    for (RecordKeys& keys : RecordKeys::candidates(session, select->table)) {
      if (auto rows = selectWith(session, *select, keys)) {
        rows->hideLast(keys.count());
        return {std::move(*rows), std::move(keys)};
      }
    }
  }
  return {session.read(statement), std::nullopt};
}

}  // namespace vexnumkr::qtsql
