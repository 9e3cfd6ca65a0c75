// Selects whose rows are records of one table, so that they can be written back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/statement_gate.h"

namespace vexnumkr::qtsql {

/// A select of plain columns (or `*`) of one table, with conditions, order and limit as it likes,
/// but without joining, grouping, renaming or computing anything: each row is one record, and each
/// field one of its columns, under its own name. Points into the statement.
struct SimpleSelect {
  std::string_view
      table;  ///< As the statement names it, perhaps `schema.table`, perhaps in quotes.
  std::string_view beforeFrom;  ///< "SELECT" and its columns.
  std::string_view fromOn;      ///< "FROM" and everything behind it.

  /// The same select with further columns behind its own.
  std::string withColumns(std::string_view columns) const;
};

/// Empty when `statement` is anything else.
std::optional<SimpleSelect> parseSimpleSelect(const Statement& statement);

}  // namespace vexnumkr::qtsql
