// Loading and saving, held against the bare driver.
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexnumkr/adapters.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "support/scripted_connection.h"

namespace vexnumkr::bench {
namespace {

// A company, a session on it, and what the session sends when it loads and when it saves.
class LoadAndSave {
 public:
  LoadAndSave(int scale, const std::string& engine)
      : database_(scale, engine),
        bare_(database_.connectionString()),
        session_(database_.connectionString()) {}

  Session& session() { return session_; }

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
      if (!statement.fails)
        bare_.run(statement.text);
      else if (!database_.isOnPostgresql())  // where it would end the transaction
        bare_.tryToRun(statement.text);
    }
  }

  const std::vector<Statement>& statements(std::vector<Statement>& kept, void (Session::*work)()) {
    if (!kept.empty()) return kept;
    test::ConnectionScript script;
    Session recorded(
        test::scriptedConnection(openQtSqlConnection(database_.connectionString()), script));
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

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  std::vector<Statement> loading_;
  std::vector<Statement> saving_;
};

using Company = std::shared_ptr<Lazy<LoadAndSave>>;

Company companyOf(int scale, const std::string& engine) {
  return lazily<LoadAndSave>([=] { return std::make_unique<LoadAndSave>(scale, engine); });
}

Comparison loadCase(const Company& company, const std::string& engine, double limit) {
  return {"load/" + engine,
          "load, " + engine,
          "the bare driver sending the same statements and reading the same columns",
          limit,
          seconds([=] { (**company).session().load(); }),
          seconds([=] { (**company).sendLoad(); }, [=] { (**company).recordLoad(); })};
}

Comparison saveCase(const Company& company, const std::string& engine, double limit) {
  return {"save/" + engine,
          "save, " + engine,
          "the bare driver sending the same statements in one transaction",
          limit,
          seconds([=] { (**company).session().save(); }, [=] { (**company).session().load(); }),
          seconds([=] { (**company).sendSave(); }, [=] { (**company).recordSave(); })};
}

}  // namespace

void addDatabaseCases(Comparisons& comparisons, const Scale& scale) {
  const Company company = companyOf(scale.company, fileEngine);
  const Company smaller = companyOf(scale.smallerCompany, fileEngine);
  comparisons.push_back(loadCase(company, fileEngine, 1.15));
  comparisons.push_back(
      {"load/growth", "load, all rows", "load, a tenth of the rows", 12,
       seconds([=] { (**company).session().load(); }, [=] { static_cast<void>(**company); }),
       seconds([=] { (**smaller).session().load(); }, [=] { static_cast<void>(**smaller); })});
  comparisons.push_back(saveCase(company, fileEngine, 1.15));
  for (const std::string& engine : otherEngines()) {
    const Company onEngine = companyOf(scale.smallerCompany, engine);
    comparisons.push_back(loadCase(onEngine, engine, noLimit));
    comparisons.push_back(saveCase(onEngine, engine, noLimit));
  }
}

}  // namespace vexnumkr::bench
