#include "adapters/qtsql/session/key_columns.h"

#include "adapters/qtsql/rows/field_value.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {
namespace {

CatalogueRow catalogueRow(const RowSet& rows, std::size_t row) {
  CatalogueRow cells;
  for (std::size_t column = 0; column < rows.columnCount(); ++column) {
    const QVariant cell = rows.at(row, column);
    std::optional<std::string>& text = cells[rows.columnName(column).toStdString()];
    if (!cell.isNull()) text = cell.toString().toStdString();
  }
  return cells;
}

}  // namespace

Catalogue catalogueOf(SqlSession& session) {
  return [&session](const std::string& select) {
    const RowSet rows = session.read(toQString(select));
    std::vector<CatalogueRow> found;
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
      found.push_back(catalogueRow(rows, row));
    return found;
  };
}

TableKeys keysOf(SqlSession& session, std::string_view table) {
  return session.engine().keys(catalogueOf(session), table);
}

}  // namespace vexnumkr::qtsql
