#include "app/schema/schema.h"

#include <algorithm>
#include <string_view>

#include <vexnumkr/error.h>

#include "app/schema/schema_texts.h"
#include "app/sql.h"

namespace vexnumkr::app {

namespace {

std::string withoutComments(std::string_view script) {
  std::string result;
  while (!script.empty()) {
    const std::size_t end = std::min(script.find('\n'), script.size() - 1) + 1;
    const std::string_view line = script.substr(0, end);
    if (line.substr(0, 2) != "--") result += line;
    script.remove_prefix(end);
  }
  return result;
}

std::vector<std::string> statements(std::string_view script) {
  const std::string text = withoutComments(script);
  std::vector<std::string> result;
  std::size_t start = text.find_first_not_of('\n');
  for (std::size_t end = text.find(';'); end != std::string::npos; end = text.find(';', start)) {
    result.push_back(text.substr(start, end - start));
    start = std::min(text.find_first_not_of('\n', end + 1), text.size());
  }
  return result;
}

const schema_text::Scripts& scriptsOf(SchemaEngine engine) {
  switch (engine) {
    case SchemaEngine::postgresql:
      return schema_text::postgresql;
    case SchemaEngine::mariadb:
      return schema_text::mariadb;
    case SchemaEngine::sqlite:
      break;
  }
  return schema_text::sqlite;
}

// Empty where the engine has no such function, as SQLite.
std::string serverVersion(Connection& connection) {
  try {
    std::string version;
    forEachRow(connection, "SELECT version() AS Fassung",
               [&](const Recordset& row) { version = textField(row, "Fassung"); });
    return version;
  } catch (const Error&) {
    return {};
  }
}

}  // namespace

SchemaEngine schemaEngineOf(Connection& connection) {
  const std::string version = serverVersion(connection);
  if (version.starts_with("PostgreSQL")) return SchemaEngine::postgresql;
  return version.empty() ? SchemaEngine::sqlite : SchemaEngine::mariadb;
}

std::vector<std::string> rangeTableStatements(SchemaEngine engine) {
  return statements(scriptsOf(engine).ranges);
}

std::vector<std::string> settingsTableStatements(SchemaEngine engine) {
  return statements(scriptsOf(engine).settings);
}

}  // namespace vexnumkr::app
