// SQLite databases for tests: files in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "contract/database_contract.h"

namespace vexnumkr::test {

/// A file for a database, made empty. Its folder goes with this object.
class SqliteFile {
 public:
  explicit SqliteFile(const std::string& name = "Test.db");

  std::string path() const { return path_.toStdString(); }
  std::string folder() const { return folder_.path().toStdString(); }
  /// Names the file.
  std::string connectionString() const;
  /// A connection opened by that string.
  std::shared_ptr<Connection> open() const;

 private:
  QTemporaryDir folder_;
  QString path_;
};

/// A QSqlDatabase as a host would open it: with its own name and options.
class HostDatabase {
 public:
  /// Does not wait for locks.
  explicit HostDatabase(const std::string& path, const char* options = "QSQLITE_BUSY_TIMEOUT=0");
  ~HostDatabase();
  HostDatabase(const HostDatabase&) = delete;
  HostDatabase& operator=(const HostDatabase&) = delete;

  QSqlDatabase& get() { return database_; }
  /// Runs a statement; false when the engine refuses it.
  bool run(const char* text);
  /// The first column of each row.
  std::vector<int> numbers(const char* select);

 private:
  QSqlDatabase database_;
};

/// A file that the contract's connections are opened on by `connect`.
class SqliteTestDatabase : public TestDatabase {
 public:
  using Connect = std::function<std::shared_ptr<Connection>(SqliteFile&)>;
  explicit SqliteTestDatabase(Connect connect) : connect_(std::move(connect)) {}
  std::shared_ptr<Connection> connect() override { return connect_(file_); }

 private:
  SqliteFile file_;
  Connect connect_;
};

/// An implementation on SQLite whose connections are opened by `connect`.
Implementation sqliteImplementation(const std::string& name, SqliteTestDatabase::Connect connect);

}  // namespace vexnumkr::test
