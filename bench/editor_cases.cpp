// The editor that a user would make do with instead of the component.
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlTableModel>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "bench/sent_statements.h"
#include "bench/session.h"
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
        session_(database_.connectionString()) {}

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
                                row.Buchungskreis, &RangeRow::Maske, row.Maske.toText());
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
    QSqlDatabase database = bare_.database();
    const QStringList known = database.tables();
    std::vector<std::unique_ptr<QSqlTableModel>> models;
    for (const char* const table : tables)
      models.push_back(loaded(database, inEngineCase(known, table)));
    int left = changedRows;
    for (const auto& model : models) left -= changeRows(*model, left);
    requireRows(changedRows - left);
    database.transaction();
    for (const auto& model : models)
      if (!model->submitAll()) throw std::runtime_error(model->lastError().text().toStdString());
    database.commit();
  }

 private:
  // Those that are edited come first.
  static constexpr std::array tables = {"Nummernkreise", "Nummernkreis_Zuordnung",
                                        "Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise",
                                        "tblUser"};

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
    return sent_ = sentBy(database_.connectionString(), edit, edit);
  }

  // The name as the engine has folded it; a model quotes it.
  static QString inEngineCase(const QStringList& known, const char* table) {
    const auto found = std::find_if(known.begin(), known.end(), [&](const QString& name) {
      return name.compare(QLatin1String(table), Qt::CaseInsensitive) == 0;
    });
    if (found == known.end()) throw std::runtime_error(std::string(table) + " is not there");
    return *found;
  }

  static std::unique_ptr<QSqlTableModel> loaded(const QSqlDatabase& database,
                                                const QString& table) {
    auto model = std::make_unique<QSqlTableModel>(nullptr, database);
    model->setTable(table);
    model->setEditStrategy(QSqlTableModel::OnManualSubmit);
    if (!model->select()) throw std::runtime_error(model->lastError().text().toStdString());
    while (model->canFetchMore()) model->fetchMore();
    return model;
  }

  // Changes the texts of up to `atMost` rows of a table; returns of how many.
  int changeRows(QSqlTableModel& model, int atMost) const {
    const int rows = std::min(atMost, model.rowCount());
    for (int row = 0; row < rows; ++row) {
      const QModelIndex text = model.index(row, textColumn);
      model.setData(text, text.data().toString() + changeMark);
    }
    return rows;
  }

  // In both tables that are edited: a description, and a user.
  static constexpr int textColumn = 2;
  static constexpr QChar changeMark = u'*';

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
                           "editor, " + engine + ": only the component's statements, bare driver",
                           editor, noLimit, on(&Editors::sendStatements),
                           on(&Editors::editInTableModels)});
  }
}

}  // namespace vexnumkr::bench
