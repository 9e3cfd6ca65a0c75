// Loading and saving in both ways, held against the bare driver.
#include <memory>
#include <string>
#include <utility>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "bench/sent_statements.h"
#include "bench/session.h"

namespace vexnumkr::bench {
namespace {

// A company, a session on it, and what the session sends when it loads and when it saves.
class LoadAndSave {
 public:
  LoadAndSave(int scale, const std::string& engine)
      : database_(scale, engine),
        bare_(database_.connectionString()),
        session_(database_.connectionString(), DatabaseAccess::rowByRow),
        sets_(database_.connectionString(), DatabaseAccess::inSets) {}

  Session& session() { return session_; }

  void loadInSets() {
    sets_.readLists();
    sets_.load();
  }
  // The first save stores more than what has changed.
  void prepareSaveInSets() {
    if (!isSaved_) {
      sets_.load();
      sets_.save();
      isSaved_ = true;
    }
    sets_.load();
    sets_.changeOneValue();
  }
  void saveInSets() { sets_.save(); }
  /// The least that any program has to read.
  void readTables() {
    for (const char* const table :
         {"Nummernkreise", "Nummernkreis_Zuordnung", "Nummernkreis_Buchungskreise",
          "Nummernkreis_Sonderkreise", "tblUser"})
      bare_.run(std::string("SELECT * FROM ") + table);
  }

  void sendLoad() { send(bare_, loading(), sendsFailures()); }
  void sendSave() { send(bare_, saving(), sendsFailures()); }
  /// So that nothing but sending is measured.
  void recordLoad() { loading(); }
  void recordSave() { saving(); }

 private:
  bool sendsFailures() const { return !database_.isOnPostgresql(); }

  const SentStatements& loading() {
    if (loading_.empty())
      loading_ = sentBy(database_.connectionString(), DatabaseAccess::rowByRow,
                        [](Session& session) { session.load(); });
    return loading_;
  }
  const SentStatements& saving() {
    if (saving_.empty())
      saving_ = sentBy(
          database_.connectionString(), DatabaseAccess::rowByRow,
          [](Session& session) { session.save(); }, [](Session& session) { session.load(); });
    return saving_;
  }

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  Session sets_;
  bool isSaved_ = false;
  SentStatements loading_;
  SentStatements saving_;
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

void addSetCases(Comparisons& comparisons, const Company& company, const std::string& engine) {
  const auto load = seconds([=] { (**company).loadInSets(); });
  comparisons.push_back({"load_sets/" + engine, "load in sets, " + engine,
                         "the bare driver reading the five tables and keeping nothing", 2.0, load,
                         seconds([=] { (**company).readTables(); })});
  comparisons.push_back(
      {"save_sets/" + engine, "save in sets after one change, " + engine, "the same load", 1.0,
       seconds([=] { (**company).saveInSets(); }, [=] { (**company).prepareSaveInSets(); }), load});
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
  addSetCases(comparisons, company, fileEngine);
  if (!otherEngines().empty())
    addSetCases(comparisons, companyOf(scale.company, "postgresql"), "postgresql");
  for (const std::string& engine : otherEngines()) {
    const Company onEngine = companyOf(scale.smallerCompany, engine);
    comparisons.push_back(loadCase(onEngine, engine, noLimit));
    comparisons.push_back(saveCase(onEngine, engine, noLimit));
  }
}

}  // namespace vexnumkr::bench
