// The journal's scripts, run on a connection of a test's own.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <vexnumkr/database.h>

namespace vexnumkr::test {

/// Runs src/app/schema/ENGINE/NAME.sql, whose statements end in front of a blank line.
inline void runJournalScript(Connection& connection, const std::string& engine,
                             const std::string& name) {
  const std::string path = std::string(SCHEMA_FOLDER) + "/" + engine + "/" + name + ".sql";
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + " is not there");
  std::string statement;
  std::int32_t affected = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("--")) continue;
    statement += line + '\n';
    if (!line.empty() || statement == "\n") continue;
    connection.Execute(statement, affected);
    statement.clear();
  }
  if (statement.find_first_not_of('\n') != std::string::npos)
    connection.Execute(statement, affected);
}

}  // namespace vexnumkr::test
