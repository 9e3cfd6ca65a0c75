// The editor that a user would make do with instead of the component.
#include <QSqlDatabase>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "bench/sent_statements.h"
#include "bench/session.h"
#include "bench/table_models.h"
#include "data/range_table.h"

namespace vexnumkr::bench {
namespace {

constexpr std::int32_t changedRows = 100;

// The sample company, the component at work on it, and a driver beside it.
class Editors {
 public:
  explicit Editors(const std::string& engine)
      : database_(sampleScale, engine),
        bare_(database_.connectionString()),
        session_(database_.connectionString(), DatabaseAccess::inSets) {}

  // Takes back what the editor has changed, so that the company stays as it was.
  void restore() {
    bare_.run("UPDATE Nummernkreise SET NBezeichnung = REPLACE(NBezeichnung, '*', '')");
    bare_.run("UPDATE Nummernkreis_Zuordnung SET Benutzer = REPLACE(Benutzer, '*', '')");
  }

  void editInComponent() {
    session_.readLists();
    session_.load();
    XArray& table = session_.table();
    requireRows(table.size());
    const RangeData data = session_.session().data();
    for (std::int32_t i = 0; i < changedRows; ++i) {
      const RangeRow& row = table.at(i);
      basAllgemein::SetValueAll(table, data.users, session_.session().reporter(), row.NSchl.str(),
                                row.Buchungskreis, &RangeRow::Maske,
                                row.Maske.toText().ends_with(' ') ? "" : " ");
    }
    session_.save();
  }

  // What the component sends for that, and nothing else.
  void sendStatements() { send(bare_, sent(), !database_.isOnPostgresql()); }
  void restoreAndRecord() {
    restore();
    sent();
  }

  void editInTableModels() {
    const QSqlDatabase database = bare_.database();
    const TableModels models = loadTables(database);
    int left = changedRows;
    for (const auto& model : models) left -= changeRows(*model, left);
    requireRows(changedRows - left);
    submit(database, models);
  }

 private:
  static void requireRows(int rows) {
    if (rows < changedRows) throw std::runtime_error("there are not as many rows to change");
  }

  // Of a company that was saved before: the first time, more ranges are new.
  const SentStatements& sent() {
    if (!sent_.empty()) return sent_;
    const auto edit = [](Session& session) {
      session.readLists();
      session.load();
      session.save();
    };
    return sent_ = sentBy(database_.connectionString(), DatabaseAccess::rowByRow, edit, edit);
  }

  static constexpr int sampleScale = 0;

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  SentStatements sent_;
};

}  // namespace

void addEditorCases(Comparisons& comparisons, const Scale& /*scale*/) {
  for (const std::string& engine : {std::string(fileEngine), std::string("postgresql")}) {
    if (engine != fileEngine && otherEngines().empty()) continue;
    const auto editors = lazily<Editors>([=] { return std::make_unique<Editors>(engine); });
    const auto on = [&](void (Editors::*work)()) {
      return seconds([=] { ((**editors).*work)(); }, [=] { (**editors).restoreAndRecord(); });
    };
    const std::string task = ": the sample loaded, 100 rows changed, saved";
    const std::string editor = "the same in an editor built on QSqlTableModel";
    comparisons.push_back({"editor/" + engine, "editor, " + engine + task, editor, 1,
                           on(&Editors::editInComponent), on(&Editors::editInTableModels)});
    comparisons.push_back({"editor_least/" + engine,
                           "editor, " + engine + ": only the statements of row by row, bare driver",
                           editor, noLimit, on(&Editors::sendStatements),
                           on(&Editors::editInTableModels)});
  }
}

}  // namespace vexnumkr::bench
