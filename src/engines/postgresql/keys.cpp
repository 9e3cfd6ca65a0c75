#include "engines/postgresql/keys.h"

namespace vexnumkr::engines {
namespace {

// A literal in which backslashes escape, whatever the session's mode.
std::string literal(std::string_view text) {
  std::string quoted = "E'";
  for (const char c : text) quoted.append(c == '\'' || c == '\\' ? 2 : 1, c);
  return quoted + '\'';
}

}  // namespace

// The primary key goes before other unique indexes, in which no column may be NULL.
TableKeys postgresqlKeys(const Catalogue& ask, std::string_view table) {
  TableKeys keys;
  for (CatalogueRow& row :
       ask("SELECT a.attname FROM (SELECT indrelid, "
           "(indkey::int2[])[0:indnkeyatts - 1] AS columns FROM pg_index "
           "WHERE indrelid = to_regclass(" +
           literal(table) +
           ") AND indisunique AND indisvalid AND indpred IS NULL AND indexprs IS NULL "
           "AND NOT EXISTS (SELECT 1 FROM pg_attribute n WHERE n.attrelid = indrelid "
           "AND n.attnum = ANY (indkey) AND NOT n.attnotnull) "
           "ORDER BY indisprimary DESC, indexrelid LIMIT 1) i "
           "JOIN pg_attribute a ON a.attrelid = i.indrelid "
           "AND a.attnum = ANY (i.columns) ORDER BY a.attnum"))
    keys.unique.push_back(row["attname"].value_or(""));
  return keys;
}

}  // namespace vexnumkr::engines
