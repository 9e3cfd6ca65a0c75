#include "engines/sqlite/keys.h"

#include "engines/engine_list.h"
#include "platform/ascii_case.h"

namespace vexnumkr::engines {
namespace {

// "schema.table_info(table)", or without the schema.
std::string tableInfo(std::string_view table) {
  std::vector<Token> names;
  tokenise(table, sqlite.rules({}), names);
  const bool hasSchema = names.size() == 3;
  const std::string schema = hasSchema ? std::string(names.front().text) + '.' : std::string();
  return schema + "table_info(" + std::string(names.back().text) + ')';
}

}  // namespace

TableKeys sqliteKeys(const Catalogue& ask, std::string_view table) {
  TableKeys keys;
  std::map<int, CatalogueRow> parts;  // By their positions in the key.
  for (CatalogueRow& column : ask("PRAGMA " + tableInfo(table))) {
    keys.columns.push_back(column["name"].value_or(""));
    if (const int position = std::stoi(column["pk"].value_or("0")); position > 0)
      parts.emplace(position, std::move(column));
  }
  for (auto& [position, column] : parts) keys.unique.push_back(column["name"].value_or(""));
  keys.isRowNumber =
      parts.size() == 1 && equalsWithoutCase(parts.begin()->second["type"].value_or(""), "INTEGER");
  return keys;
}

}  // namespace vexnumkr::engines
