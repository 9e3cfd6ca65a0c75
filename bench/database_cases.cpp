// Loading and saving, held against the bare driver.
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexnumkr/adapters.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/session.h"
#include "support/scripted_connection.h"

namespace vexnumkr::bench {
namespace {

// A company's file, a session on it, and what the session sends when it loads and when it saves.
class LoadAndSave {
 public:
  explicit LoadAndSave(const std::string& file)
      : connectionString_(connectionStringOf(file)),
        bare_(std::make_unique<BareDriver>(file)),
        session_(std::make_unique<Session>(connectionString_)) {}

  Session& session() { return *session_; }

  void sendLoad() { send(statements(loading_, &Session::load)); }
  void sendSave() { send(statements(saving_, &Session::save)); }
  /// So that nothing but sending is measured.
  void recordLoad() { static_cast<void>(statements(loading_, &Session::load)); }
  void recordSave() { static_cast<void>(statements(saving_, &Session::save)); }

 private:
  struct Statement {
    std::string text;
    bool fails = false;  // the insert of a range that exists is one that does
  };

  void send(const std::vector<Statement>& statements) {
    for (const Statement& statement : statements) {
      if (statement.fails)
        bare_->tryToRun(statement.text);
      else
        bare_->run(statement.text);
    }
  }

  const std::vector<Statement>& statements(std::vector<Statement>& kept, void (Session::*work)()) {
    if (!kept.empty()) return kept;
    test::ConnectionScript script;
    Session recorded(test::scriptedConnection(openQtSqlConnection(connectionString_), script));
    if (work == &Session::save) recorded.load();
    script.takeStatements();
    (recorded.*work)();
    for (const std::string& entry : script.takeStatements()) kept.push_back(statementOf(entry));
    return kept;
  }

  static Statement statementOf(const std::string& entry) {
    constexpr std::string_view label = "conn: ";
    constexpr std::string_view failed = " !failed";
    const bool fails = entry.ends_with(failed);
    const std::size_t length = entry.size() - label.size() - (fails ? failed.size() : 0);
    return {entry.substr(label.size(), length), fails};
  }

  std::string connectionString_;
  std::unique_ptr<BareDriver> bare_;
  std::unique_ptr<Session> session_;
  std::vector<Statement> loading_;
  std::vector<Statement> saving_;
};

std::shared_ptr<Lazy<LoadAndSave>> companyOf(const std::shared_ptr<Workplace>& workplace,
                                             const char* name, int scale) {
  return lazily<LoadAndSave>(
      [=] { return std::make_unique<LoadAndSave>(workplace->companyFile(name, scale)); });
}

}  // namespace

void addDatabaseCases(Comparisons& comparisons, const std::shared_ptr<Workplace>& workplace) {
  const auto company = companyOf(workplace, "company.db", workplace->scale.company);
  const auto smaller = companyOf(workplace, "smaller.db", workplace->scale.smallerCompany);

  comparisons.push_back(
      {"load/sqlite", "load, SQLite",
       "the bare driver sending the same statements and reading the same columns", 1.15,
       seconds([=] { (**company).session().load(); }),
       seconds([=] { (**company).sendLoad(); }, [=] { (**company).recordLoad(); })});
  comparisons.push_back(
      {"load/growth", "load, all rows", "load, a tenth of the rows", 12,
       seconds([=] { (**company).session().load(); }, [=] { static_cast<void>(**company); }),
       seconds([=] { (**smaller).session().load(); }, [=] { static_cast<void>(**smaller); })});
  comparisons.push_back(
      {"save/sqlite", "save, SQLite",
       "the bare driver sending the same statements in one transaction", 1.15,
       seconds([=] { (**company).session().save(); }, [=] { (**company).session().load(); }),
       seconds([=] { (**company).sendSave(); }, [=] { (**company).recordSave(); })});
}

}  // namespace vexnumkr::bench
