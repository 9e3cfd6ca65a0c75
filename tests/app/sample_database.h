// A fresh sample database in a folder of its own, and a second look at what it holds.
#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

namespace vexnumkr::test {

using Row = std::vector<std::string>;

/// Reads SQLite files by a connection of its own, so it sees what is committed.
std::vector<Row> rowsOf(const std::string& file, const std::string& select);

class SampleDatabase {
 public:
  SampleDatabase();

  std::string folder() const;
  std::string file() const;
  /// A new connection to the database.
  std::shared_ptr<Connection> connect() const;
  std::vector<Row> rows(const std::string& select) const { return rowsOf(file(), select); }
  /// Runs a statement on a connection of its own, committed at once.
  void run(const std::string& statement) const;

 private:
  QTemporaryDir folder_;
};

}  // namespace vexnumkr::test
