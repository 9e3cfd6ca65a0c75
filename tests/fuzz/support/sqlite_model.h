// The tables of a host in SQLite's memory, by which the effect of any text can be told exactly.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/bound_statement.h"

namespace vexnumkr::fuzz {

/// What a text has done.
struct Effect {
  bool succeeded = false;
  std::string found;   ///< The rows of its selects, a line each.
  std::string stored;  ///< All rows of all tables afterwards, likewise.
};

/// Holds rows of both applications and users, all of which are taken back after each text.
class SqliteModel {
 public:
  SqliteModel();

  /// What ends each cell, which no value of an input holds, and a row.
  static constexpr char cellEnd = '\x1F';
  static constexpr std::string_view rowEnd = "\x1F\n";

  /// The statements that store those rows, on any engine, and the columns of each table.
  static std::span<const char* const> sentinels();
  struct Table {
    const char* name;
    std::vector<const char*> columns;
  };
  static std::vector<Table> columns();

  /// Executes every statement in `text`, as an engine would that knows no restraint.
  Effect execute(std::string_view text);
  Effect execute(const BoundStatement& statement);
  /// The rows as they are before and behind everything.
  const std::string& untouched() const { return untouched_; }

  sqlite3* handle() const { return database_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Close>;

  void run(const char* text);
  Prepared prepare(const std::string& text);
  void repeat(const Prepared& statement);
  Effect executeAll(std::string_view text, const std::vector<std::string>& values);
  std::string storedRows();

  std::unique_ptr<sqlite3, Close> database_;
  Prepared begin_;
  Prepared takeBack_;
  Prepared end_;
  std::vector<Prepared> tables_;
  std::string untouched_;
};

}  // namespace vexnumkr::fuzz
