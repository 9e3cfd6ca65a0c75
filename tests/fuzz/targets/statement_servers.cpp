// The component's statements with hostile values, through the adapters against PostgreSQL and
// MariaDB in their modes of quoting and encoding: what is executed does what the same statement
// does in SQLite with its values bound, and what is refused does nothing.
//
// Takes the servers of tests/servers; VEXNUMKR_TEST_SERVERS says where they are.
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "app/schema/schema.h"
#include "app/sql.h"
#include "data/sql/guarded_connection.h"
#include "fuzz/support/application.h"
#include "fuzz/support/own_statements.h"
#include "fuzz/support/property.h"
#include "fuzz/support/sqlite_model.h"
#include "support/fresh_database.h"

namespace vexnumkr::fuzz {
namespace {

using Rows = std::vector<std::string>;

Rows linesOf(const std::string& text) {
  Rows lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find(SqliteModel::rowEnd, at) + SqliteModel::rowEnd.size();
    lines.push_back(text.substr(at, end - at));
    at = end;
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

Rows without(const Rows& rows, const Rows& others) {
  Rows left;
  std::set_difference(rows.begin(), rows.end(), others.begin(), others.end(),
                      std::back_inserter(left));
  return left;
}

// MariaDB cuts off white space that has no room at the end of a column, in its strict modes too;
// what saves sees that by reading back.
Rows withoutTrailingSpace(const Rows& rows) {
  Rows trimmed;
  for (const std::string& row : rows) {
    std::string line;
    for (const char c : row) {
      if (c == SqliteModel::cellEnd) line.erase(line.find_last_not_of(" \t\n\v\f\r") + 1);
      line += c;
    }
    trimmed.push_back(std::move(line));
  }
  std::sort(trimmed.begin(), trimmed.end());
  return trimmed;
}

std::string shown(const Rows& rows) {
  std::string text;
  for (const std::string& row : rows) text += row;
  return text;
}

bool isUtf8(const std::string& text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return !decoder.hasError();
}

/// A way in which a host may have set up its session.
struct Mode {
  const char* setting;
  bool isWhole;  ///< Whether every text arrives as it was sent.
  bool escapes;  ///< Whether a backslash means something.
};

constexpr Mode postgresqlModes[] = {
    {"SET standard_conforming_strings = on; SET client_encoding = 'UTF8'", true, false},
    {"SET standard_conforming_strings = off; SET client_encoding = 'UTF8'", true, true},
    {"SET standard_conforming_strings = off; SET client_encoding = 'LATIN1'", false, true},
    {"SET standard_conforming_strings = on; SET client_encoding = 'GBK'", false, false},
    {"SET standard_conforming_strings = off; SET client_encoding = 'GBK'", false, true},
    {"SET standard_conforming_strings = off; SET client_encoding = 'SJIS'", false, true}};
// Encodings whose characters may end in a backslash that means something are refused as such.
constexpr Mode mariadbModes[] = {
    {"SET NAMES utf8mb4; SET sql_mode = 'NO_BACKSLASH_ESCAPES,ANSI_QUOTES,STRICT_ALL_TABLES'", true,
     false},
    {"SET NAMES utf8mb4; SET sql_mode = 'STRICT_ALL_TABLES'", true, true},
    {"SET NAMES utf8mb4; SET sql_mode = 'ANSI_QUOTES,STRICT_ALL_TABLES'", true, true},
    {"SET NAMES utf8mb4; SET sql_mode = 'NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES'", true, false},
    {"SET NAMES latin1; SET sql_mode = 'STRICT_ALL_TABLES'", false, true},
    {"SET NAMES latin1; SET sql_mode = 'NO_BACKSLASH_ESCAPES,ANSI_QUOTES'", false, false},
    {"SET sql_mode = 'NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES'; SET NAMES gbk", false, false},
    {"SET sql_mode = 'NO_BACKSLASH_ESCAPES'; SET NAMES sjis", false, false}};

// What selects the rows of all tables as the model writes them: each cell with its type, so that 1
// is not '1'. One statement, since asking the server is what takes the time.
std::string allRows() {
  static constexpr std::array<std::string_view, 6> numbers = {
      "Buchungskreis", "StartWert", "AktuellerWert", "EndWert", "Aktiviert", "SortierIndex"};
  std::string select;
  for (const auto& [table, columns] : SqliteModel::columns()) {
    select += select.empty() ? "SELECT CONCAT(" : " UNION ALL SELECT CONCAT(";
    for (const std::string name : columns) {
      const bool isNumber = std::find(numbers.begin(), numbers.end(), name) != numbers.end();
      select += "CASE WHEN " + name + " IS NULL THEN '5' ELSE CONCAT('" + (isNumber ? '1' : '3') +
                "', " + name + ") END, '" + SqliteModel::cellEnd + "', ";
    }
    select += std::string("'\n') AS Zeile FROM ") + table;
  }
  return select;
}

void runAll(Connection& connection, std::string_view texts) {
  for (std::size_t end = 0; end != std::string_view::npos; texts.remove_prefix(end + 2)) {
    end = texts.find("; ");
    app::execute(connection, std::string(texts.substr(0, end)));
    if (end == std::string_view::npos) return;
  }
}

Rows storedRows(Connection& connection) {
  static const std::string select = allRows();
  Rows rows;
  app::forEachRow(connection, select,
                  [&rows](const Recordset& row) { rows.push_back(row.Fields("Zeile").toText()); });
  std::sort(rows.begin(), rows.end());
  return rows;
}

// A host's session in a mode, on tables with the rows that the model has.
class HostSession {
 public:
  HostSession(const std::string& connectionString, const Mode& mode, const Mode& readable,
              const Rows& untouched)
      : mode_(mode),
        readable_(readable),
        connection_(openQtSqlConnection(connectionString)),
        guarded_(guardedConnection(connection_)),
        untouched_(untouched) {
    runAll(*connection_, mode_.setting);
  }

  void attack(const std::string& text, const Effect& bound, bool isHarmless) {
    connection_->BeginTrans();
    const std::int32_t error = execute(text);
    if (error != 0)
      requireUntouched(text);
    else
      compare(text, storedInTransaction(), linesOf(bound.stored));
    connection_->RollbackTrans();
    if (!mode_.isWhole) runAll(*connection_, mode_.setting);
    const bool isPlain = isHarmless && mode_.isWhole && isUtf8(text) &&
                         (!mode_.escapes || text.find('\\') == std::string::npos);
    require(!isPlain || error != error_number::invalidArgument,
            "values without quotes are never refused", {mode_.setting, text});
  }

 private:
  // The error's number; 0 for none.
  std::int32_t execute(const std::string& text) {
    try {
      app::execute(*guarded_, text);
      return 0;
    } catch (const Error& error) {
      return error.number() == 0 ? -1 : error.number();
    }
  }

  Rows storedInTransaction() {
    if (!mode_.isWhole) runAll(*connection_, readable_.setting);
    return storedRows(*connection_);
  }

  // Some failures end the transaction, and what follows is told so until it is rolled back.
  void requireUntouched(const std::string& text) {
    Rows stored = untouched_;
    try {
      stored = storedInTransaction();
    } catch (const Error& error) {
      require(error.number() != error_number::invalidArgument, "the tables can be read", {text});
    }
    require(stored == untouched_, "what fails changes nothing", {text, shown(stored)});
  }

  // Where texts do not arrive whole, the rows that were there before tell whose were changed.
  void compare(const std::string& text, const Rows& stored, const Rows& expected) {
    if (mode_.isWhole)
      require(withoutTrailingSpace(stored) == withoutTrailingSpace(expected),
              "values written do what they do bound",
              {mode_.setting, text, shown(stored), shown(expected)});
    require(without(untouched_, stored) == without(untouched_, expected),
            "no row is changed but its own", {mode_.setting, text, shown(stored), shown(expected)});
    require(stored.size() == expected.size(), "as many rows are stored as if bound",
            {mode_.setting, text, shown(stored), shown(expected)});
  }

  const Mode& mode_;
  const Mode& readable_;
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<Connection> guarded_;
  const Rows& untouched_;
};

// One server, with a session in each of its modes.
class Server {
 public:
  Server(const std::string& engine, std::span<const Mode> modes, Rows untouched)
      : database_(engine), untouched_(std::move(untouched)) {
    const auto connection = openQtSqlConnection(database_.connectionString());
    for (const std::string& statement : app::rangeTableStatements(engine))
      app::execute(*connection, statement);
    for (const char* const statement : SqliteModel::sentinels())
      app::execute(*connection, statement);
    require(storedRows(*connection) == untouched_, "the server begins with the model's rows");
    for (const Mode& mode : modes)
      sessions_.emplace_back(database_.connectionString(), mode, modes.front(), untouched_);
  }

  void attack(std::size_t choice, const std::string& text, const Effect& bound, bool isHarmless) {
    sessions_[choice % sessions_.size()].attack(text, bound, isHarmless);
  }

 private:
  test::FreshDatabase database_;
  const Rows untouched_;
  std::deque<HostSession> sessions_;
};

class Attack {
 public:
  void run(Input& input) {
    const bool onMariadb = input.flag();
    const std::size_t mode = input.choice(26);
    const std::size_t kind = input.choice(ownStatementCount);
    const OwnValues values = OwnValues::read(input);
    if (!isMade(kind, values)) return;
    const std::string text = ownStatement(kind, values);
    const Effect bound = model_.execute(boundOwnStatement(kind, values));
    (onMariadb ? mariadb_ : postgresql_).attack(mode, text, bound, values.isHarmless());
  }

 private:
  SqliteModel model_;
  Server postgresql_{"postgresql", postgresqlModes, linesOf(model_.untouched())};
  Server mariadb_{"mariadb", mariadbModes, linesOf(model_.untouched())};
};

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  needApplication();
  static Attack attack;
  Input input(data, size);
  attack.run(input);
  return 0;
}
