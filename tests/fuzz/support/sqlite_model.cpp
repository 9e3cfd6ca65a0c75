#include "fuzz/support/sqlite_model.h"

#include "app/schema/schema.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

constexpr const char* sentinelRows[] = {
    "INSERT INTO Nummernkreise VALUES (0, 'RE', 'Rechnung', 0, 5, 99, -1, 1, '', ''), "
    "(1, 'RE', 'Rechnung', 100, 150, 199, -1, 1, '', '1NN'), "
    "(2, 'RE', 'Rechnung', 200, 200, 299, 0, 1, '', '2NN'), "
    "(5, 'D', 'fremd', 500, 555, 599, -1, 2, 'RE', NULL), "
    "(1, 'LM', 'Lastschrift', 1, 1, 9, -1, 3, '', NULL)",
    "INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'WWS'), (2, 'Süd', 'WWS'), "
    "(5, 'fremd', 'FIB'), (1, 'Nord', 'FIB')",
    "INSERT INTO Nummernkreis_Zuordnung VALUES (0, 'RE', 'ALL', 'WWS'), (1, 'RE', 'Max', 'WWS'), "
    "(5, 'D', 'ALL', 'FIB'), (5, 'D', 'ALL', 'FIB')",
    "INSERT INTO Nummernkreis_Sonderkreise VALUES ('RS', 'RE', 'Sonder', -1, 'WWS'), "
    "('DS', 'D', 'fremd', 0, 'FIB')",
    "INSERT INTO tblUser VALUES ('Max'), ('Moritz')"};

// Each cell with its type, so that 1 is not '1'.
void addLine(sqlite3_stmt* row, std::string& lines) {
  for (int column = 0; column < sqlite3_column_count(row); ++column) {
    lines += static_cast<char>('0' + sqlite3_column_type(row, column));
    if (const void* const text = sqlite3_column_blob(row, column))
      lines.append(static_cast<const char*>(text),
                   static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
    lines += SqliteModel::cellEnd;
  }
  lines += '\n';
}

int readAll(sqlite3_stmt* statement, std::string& lines) {
  int state = SQLITE_ROW;
  while ((state = sqlite3_step(statement)) == SQLITE_ROW) addLine(statement, lines);
  return state;
}

void bind(sqlite3_stmt* statement, const std::vector<std::string>& values) {
  for (int i = 0; i < sqlite3_bind_parameter_count(statement); ++i) {
    const std::string& value = values.at(static_cast<std::size_t>(i));
    sqlite3_bind_text(statement, i + 1, value.data(), static_cast<int>(value.size()),
                      SQLITE_STATIC);
  }
}

}  // namespace

SqliteModel::SqliteModel() {
  sqlite3* opened = nullptr;
  require(sqlite3_open(":memory:", &opened) == SQLITE_OK, "SQLite opens a database");
  database_.reset(opened);
  // Instead of the sanitizer's memory, which is slow.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 2048, 500);
  for (const std::string& statement : app::rangeTableStatements("sqlite")) run(statement.c_str());
  for (const char* const statement : sentinelRows) run(statement);
  begin_ = prepare("SAVEPOINT before");
  takeBack_ = prepare("ROLLBACK TO before");
  end_ = prepare("RELEASE before");
  for (const Table& table : columns())
    tables_.push_back(prepare("SELECT * FROM " + std::string(table.name) + " ORDER BY rowid"));
  untouched_ = storedRows();
}

std::span<const char* const> SqliteModel::sentinels() { return sentinelRows; }

std::vector<SqliteModel::Table> SqliteModel::columns() {
  return {
      {"Nummernkreise",
       {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert", "EndWert",
        "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"}},
      {"Nummernkreis_Buchungskreise", {"Buchungskreis", "Beschreibung", "Herkunft"}},
      {"Nummernkreis_Zuordnung", {"Buchungskreis", "NSchl", "Benutzer", "Herkunft"}},
      {"Nummernkreis_Sonderkreise", {"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert", "Herkunft"}},
      {"tblUser", {"strUserName_PK"}}};
}

Effect SqliteModel::execute(std::string_view text) { return executeAll(text, {}); }

Effect SqliteModel::execute(const BoundStatement& statement) {
  return executeAll(statement.text, statement.values);
}

void SqliteModel::run(const char* text) {
  require(sqlite3_exec(handle(), text, nullptr, nullptr, nullptr) == SQLITE_OK,
          sqlite3_errmsg(handle()), {text});
}

SqliteModel::Prepared SqliteModel::prepare(const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  require(sqlite3_prepare_v2(handle(), text.c_str(), -1, &statement, nullptr) == SQLITE_OK,
          sqlite3_errmsg(handle()), {text});
  return Prepared(statement);
}

void SqliteModel::repeat(const Prepared& statement) {
  require(sqlite3_step(statement.get()) == SQLITE_DONE, sqlite3_errmsg(handle()));
  sqlite3_reset(statement.get());
}

Effect SqliteModel::executeAll(std::string_view text, const std::vector<std::string>& values) {
  repeat(begin_);
  Effect effect{.succeeded = true, .found = {}, .stored = {}};
  bool mayHaveChanged = false;
  while (effect.succeeded && !text.empty()) {
    sqlite3_stmt* next = nullptr;
    const char* tail = nullptr;
    effect.succeeded = sqlite3_prepare_v2(handle(), text.data(), static_cast<int>(text.size()),
                                          &next, &tail) == SQLITE_OK;
    const Prepared prepared(next);
    text.remove_prefix(static_cast<std::size_t>(tail - text.data()));
    if (next == nullptr) break;
    mayHaveChanged = mayHaveChanged || sqlite3_stmt_readonly(next) == 0;
    bind(next, values);
    effect.succeeded = readAll(next, effect.found) == SQLITE_DONE;
  }
  effect.stored = mayHaveChanged ? storedRows() : untouched_;
  repeat(takeBack_);
  repeat(end_);
  return effect;
}

std::string SqliteModel::storedRows() {
  std::string rows;
  for (const Prepared& table : tables_) {
    readAll(table.get(), rows);
    sqlite3_reset(table.get());
  }
  return rows;
}

}  // namespace vexnumkr::fuzz
